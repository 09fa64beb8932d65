#include "writers/MakeWriter.h"

#include "settings/Preset.h"
#include "writers/HtmlWriter.h"
#include "writers/TextWriter.h"

std::unique_ptr<Writer> MakeWriter(const Preset& preset, ListTarget target) {
    if (preset.Get(Format::ListStyle) == ListStyle::Html)
        return std::make_unique<HtmlWriter>(preset, target);
    return std::make_unique<TextWriter>(preset, target);
}
