#include "writers/WriteList.h"

#include <memory>

#include "settings/Preset.h"
#include "writers/HtmlWriter.h"
#include "writers/TextWriter.h"
#include "writers/WalkTree.h"

namespace {

std::unique_ptr<Writer> MakeWriter(const Preset& preset, const wchar_t* outputPath) {
    if (preset.Get(Format::ListStyle) == ListStyle::Html)
        return std::make_unique<HtmlWriter>(preset, outputPath);
    return std::make_unique<TextWriter>(preset, outputPath);
}

}  // namespace

void WriteList(const Preset& preset, const Scanner::Node& root, const wchar_t* outputPath) {
    const std::unique_ptr<Writer> writer = MakeWriter(preset, outputPath);
    const bool flat = preset.Get(Display::ShowFlatStyle);
    WalkTree(*writer, root, flat);
}
