// The pages at the right of the main window, of which one is visible: seven for each preset, found by the ids
// of the preset's items in the tree, and the page of instructions. Owns the pages; the presets must outlive
// them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "winlib/Windows.h"

namespace WinLib::Layout {
class Overlapped;
}
class FocusKeeper;
class ManageController;
class Preset;
class PropertyController;

class PageStack {
public:
    static constexpr size_t PagesPerPreset = 7;

    // focus moves the keyboard out of pages that are hidden or removed; it must outlive this object.
    explicit PageStack(const FocusKeeper& focus);
    ~PageStack();

    // Sets the parent of the pages and the sizer that gets their windows, then creates the visible page of
    // instructions. REQUIRES: the process's Application, as for Add.
    void Attach(HWND dialog, WinLib::Layout::Overlapped& sizer);

    // Creates the hidden pages of a preset, one for each id, in the order of the items. Throws
    // WinLib::Exception if there are more ids than pages.
    void Add(const std::vector<uint32_t>& ids, Preset& preset);

    // Destroys the pages with these ids, or all but the instructions, with their windows.
    void Remove(const std::vector<uint32_t>& ids);
    void RemoveAll();

    // Return null if there is no such page.
    PropertyController* PageOf(uint32_t id) const;
    Preset* PresetOf(uint32_t id) const;

    // Shows a page in the place of the one that was shown before. Does nothing if there is no such page.
    void Show(uint32_t id);

    // Shows or hides the page of instructions.
    void ShowInstructions(bool show) const;

    // Forwards the message to the pages of all presets.
    void ForwardSysColorChange() const;

private:
    void MakePage(uint32_t id, size_t index, Preset& preset);

    const FocusKeeper& focus_;
    HWND dialog_ = nullptr;
    std::map<uint32_t, std::unique_ptr<PropertyController>> Pages;  // by item id
    std::unique_ptr<ManageController> ManagePage;
    HWND CurrentPage = nullptr;
    WinLib::Layout::Overlapped* PageSizer = nullptr;  // owned by the sizer tree
};
