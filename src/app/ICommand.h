// What the preset tree calls of the main window. The tree knows neither presets nor pages: it passes items,
// and the implementer maps them to presets and pages.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "winlib/Windows.h"

#include <commctrl.h>

class ICommand {
public:
    virtual void NewPreset() = 0;
    virtual void NewFromTemplate(uint32_t index) = 0;
    virtual void DuplicatePreset(HTREEITEM item) = 0;
    virtual void RemovePreset(HTREEITEM item) = 0;
    virtual void RenamePreset(HTREEITEM item, const std::wstring& text) = 0;

    // ids are those of the preset items from top to bottom.
    virtual void ReorderPresets(const std::vector<uint32_t>& ids) = 0;

    virtual void ShowPage(HTREEITEM item) = 0;
    virtual void ShowOptions() = 0;
    virtual void ShowAbout() = 0;

    // Accelerators are off while a label is being edited, so that its keys reach the edit box.
    virtual void EnableAccelerators() = 0;
    virtual void DisableAccelerators() = 0;

protected:
    ~ICommand() = default;
};
