#include "writers/Writer.h"

#include <iomanip>

#include "settings/Preset.h"
#include "writers/Encoding.h"

Writer::Writer(const Preset& jobPreset, const wchar_t* outputPath)
    : sizeWriter(MakeSizeWriter(jobPreset.Get(Display::SizeStyle))),
      folderColumns(MakeFolderColumns(jobPreset)),
      fileColumns(MakeFileColumns(jobPreset)),
      stream(outputPath),
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
