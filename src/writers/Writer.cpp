#include "writers/Writer.h"

#include <iomanip>

#include "settings/Preset.h"
#include "writers/Encoding.h"

Writer::Writer(const Preset& preset, const wchar_t* outputPath)
    : sizeWriter(MakeSizeWriter(preset.Get(Display::SizeStyle))),
      folderColumns(MakeFolderColumns(preset)),
      fileColumns(MakeFileColumns(preset)),
      stream(outputPath) {
    stream << std::fixed << std::showpoint << std::setprecision(1);
    if (preset.Get(Format::EnableUtf8))
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
