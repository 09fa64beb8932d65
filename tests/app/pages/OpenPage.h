// One page of a preset, created from its resource in a host window, refreshed and shown, to be operated like
// by a person. The preset is in a registry of the test's own.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "pages/PropertyController.h"
#include "settings/Preset.h"
#include "support/TestRegistry.h"
#include "support/ui/HostWindow.h"
#include "support/ui/Input.h"
#include "support/ui/MessagePump.h"
#include "support/ui/TreeReader.h"

struct PageKind {
    const char* name;
    int dialog;
    int group;
    std::unique_ptr<PropertyController> (*make)(MetaTypes::Settings* target);
};

namespace Kind {
extern const PageKind Format, Display, Filter, Columns, Sorting, Saving, Opening;
}

// In the order of a preset's items in the tree.
extern const PageKind* const AllPages[7];

// The key of the tests' preset.
inline const std::wstring PresetKey = L"Software\\Tamblewick\\page";

// A preset with default values, and then with what the registry holds of it.
std::unique_ptr<Preset> LoadPreset();

class OpenPage {
public:
    explicit OpenPage(const PageKind& kind);
    OpenPage(const OpenPage&) = delete;
    OpenPage& operator=(const OpenPage&) = delete;
    ~OpenPage();

    HWND Control(int id) const { return GetDlgItem(window, id); }
    bool IsChecked(int id) const { return SendMessageW(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    bool IsEnabled(int id) const { return IsWindowEnabled(Control(id)) != FALSE; }
    std::wstring Text(int id) const;
    void Click(int id) const { Ui::Click(Control(id)); }
    void Focus(int id) const { SetFocus(Control(id)); }

    // Where a control lies on the page.
    RECT Place(int id) const;

    // Gives the page another size.
    void Resize(int width, int height) const;

    // The entries of a combo box, and choosing one with the keyboard.
    std::vector<std::wstring> Entries(int id) const;
    int Entry(int id) const { return static_cast<int>(SendMessageW(Control(id), CB_GETCURSEL, 0, 0)); }
    void Choose(int id, int entry);

private:
    HostWindow host_;

public:
    std::unique_ptr<Preset> preset = LoadPreset();
    std::unique_ptr<PropertyController> page;
    HWND window = nullptr;
    Ui::MessagePump pump{host_.Handle};
};
