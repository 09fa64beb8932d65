#include "writers/WriteList.h"

#include <memory>

#include "settings/Preset.h"
#include "writers/MakeWriter.h"
#include "writers/WalkTree.h"

void WriteList(const Preset& preset, const Scanner::Node& root, const wchar_t* outputPath) {
    const std::unique_ptr<Writer> writer = MakeWriter(preset, outputPath);
    const bool flat = preset.Get(Display::ShowFlatStyle);
    WalkTree(*writer, root, flat);
}
