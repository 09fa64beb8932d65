// The pages of a preset: one for each of its items in the tree, in the order of the items.
#pragma once

#include <cstddef>
#include <memory>

class Preset;
class PropertyController;

inline constexpr size_t PagesPerPreset = 7;

struct PresetPage {
    std::unique_ptr<PropertyController> controller;  // has no window yet
    int dialogId;
};

// The page of the index-th item: 0 for the preset's own, then its children. The page keeps a pointer to the
// preset. Throws WinLib::Exception if no page belongs to the index.
PresetPage MakePresetPage(size_t index, Preset& preset);
