// The main window with a preset that lists a folder of the test's own.
#pragma once

#include <string>

#include "support/TempFolder.h"
#include "support/ui/DismissModal.h"
#include "support/ui/MainWindowTest.h"

class ListsTest : public MainWindowTest {
protected:
    ListsTest() { folder.AddFile(L"Listed\\a file.txt"); }

    // One preset that saves its lists in saveFolder and opens nothing.
    void OpenSavingIn(const std::wstring& saveFolder) {
        Store({L"Preset"});
        registry.SetString(KeyOf(0) + L"\\Saving", L"SaveLocation", L"Custom");
        registry.SetString(KeyOf(0) + L"\\Saving", L"CustomFolderPath", saveFolder);
        registry.SetString(KeyOf(0) + L"\\Opening", L"OpenMethod", L"Nothing");
        Open();
    }

    uint32_t IdOf(HTREEITEM item) const { return static_cast<uint32_t>(tree.Parameter(item)); }
    uint32_t PresetId() const { return IdOf(tree.Item(L"Preset")); }
    std::wstring Listed() const { return folder.Path(L"Listed"); }

    // Starts the list and sends it to the background.
    void StartInBackground() {
        const Ui::DismissModal background(IDC_PROGRESS_BACKGROUND);
        controller->StartList(PresetId(), Listed());
        EXPECT_EQ(background.Seen().size(), 1u);
    }

    static void Push(HWND dialog, WORD button) {
        SendMessageW(dialog, WM_COMMAND, button, reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
    }

    // Everything is as before the list.
    void ExpectCollected() const {
        EXPECT_TRUE(CanCreateList());
        EXPECT_FALSE(IsBusy());
        EXPECT_TRUE(IsWindowEnabled(window));
    }

    TestSupport::TempFolder folder;
};
