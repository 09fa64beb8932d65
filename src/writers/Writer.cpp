#include "writers/Writer.h"

#include <iomanip>
#include <utility>

#include "settings/Preset.h"
#include "writers/Encoding.h"

Writer::Writer(const Preset& jobPreset, Cells cells, ListTarget target)
    : sizeWriter(cells.sizeWriter),
      folderColumns(std::move(cells.folderColumns)),
      fileColumns(std::move(cells.fileColumns)),
      stream(target),
      preset(&jobPreset) {
    stream << std::fixed << std::showpoint << std::setprecision(1);
    if (preset->Get(Format::EnableUtf8))
        stream << "\xEF\xBB\xBF";
}

void Writer::WriteText(std::wstring_view text) {
    stream << EncodeText(text, encoded);
}

void Writer::EndLine() {
    stream << std::endl;
}

void Writer::WriteLine(std::wstring_view text) {
    WriteText(text);
    EndLine();
}
