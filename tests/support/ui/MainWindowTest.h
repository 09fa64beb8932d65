// The real main window in a registry of its own, driven by messages and keys through the program's own
// message loop, and read back from its controls and from the registry.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/MainController.h"
#include "resources/resource.h"
#include "support/TestRegistry.h"
#include "support/ui/TreeReader.h"
#include "winlib/Application.h"

class MainWindowTest : public testing::Test {
protected:
    // Name and position, as stored or as they must be, by descending position.
    using Stored = std::vector<std::pair<std::wstring, uint32_t>>;

    // The keys of the commands that need a preset.
    static constexpr WORD ItemKeys[] = {VK_F2, VK_F6, VK_DELETE};

    // Group boxes of all pages of a preset, in the order of its items.
    static const std::vector<int> PageGroups;

    MainWindowTest();
    ~MainWindowTest() override;

    // Stores presets before the window opens, under KeyOf(0), KeyOf(1), ... from top to bottom.
    void Store(const std::vector<std::wstring>& names);
    static std::wstring KeyOf(size_t index);
    void Open();

    // Runs the program's loop until the queue is empty, and until done. Both return the loop's exit code.
    int RunLoop();
    int RunLoopUntil(const std::function<bool()>& done, const char* what);

    // One key, or text, in the window with the focus, handled by the loop. Not for keys that open a dialog.
    void Press(WORD key);
    void Type(const std::wstring& text);
    static void PostKey(WORD key);

    // A menu command, in a second as below.
    void Command(WORD id);

    // The key of a new preset depends on the second: in one of 37 it is empty, and presets made within one
    // share it. AwaitSecond waits for one whose key, and that of the next second, differ from the
    // root; NextSecond for a later one.
    void AwaitSecond();
    void NextSecond();

    // Windows of all pages in the order of creation, without the page of instructions, and the group box's id
    // of the one page that is visible: 0 for none, -1 for several.
    std::vector<HWND> Pages() const;
    int VisiblePage() const;
    bool InstructionsVisible() const;

    Stored StoredPresets() const;

    // The path of the one preset key beside the known ones.
    std::wstring OtherKey(const std::vector<std::wstring>& known) const;

    HWND Control(int id) const { return GetDlgItem(window, id); }
    bool CanCreateList() const { return IsWindowEnabled(Control(IDC_MAIN_CREATE_LIST)) != FALSE; }
    bool IsBusy() const;

    // The state flags of the three item commands of the Edit menu.
    std::vector<UINT> EditStates() const;

    static WinLib::Application& Process() { return *WinLib::Application::Current(); }

    TestSupport::TestRegistry registry;
    std::unique_ptr<MainController> controller;
    HWND window = nullptr;
    TreeReader tree;
};
