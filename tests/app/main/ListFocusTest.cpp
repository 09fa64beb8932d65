// The keyboard focus around a list: "Create List..." is disabled while one runs.

#include <thread>

#include "BlockedListFile.h"
#include "ListsTest.h"
#include "OtherWindow.h"
#include "support/ui/FocusWatch.h"
#include "support/ui/MessageBoxAnswerer.h"
#include "winlib/SentMessages.h"

namespace {

class ListFocusTest : public ListsTest {
protected:
    HWND CreateListButton() const { return Control(IDC_MAIN_CREATE_LIST); }

    // Starts a list with the focus on the button and sends it to the background.
    void StartFromTheButton() {
        SetFocus(CreateListButton());
        StartInBackground();
        RunLoop();
    }

    void Finish(BlockedListFile& list) {
        list.Read();
        RunLoopUntil([this] { return !IsBusy(); }, "the end message");
        RunLoop();
    }
};

TEST_F(ListFocusTest, AfterAListTheButtonHasItAgain) {
    OpenSavingIn(folder.Path());
    SetFocus(CreateListButton());
    for (int i = 0; i < 3; ++i) {
        const Ui::FocusWatch watch(CreateListButton());
        controller->StartList(PresetId(), Listed());
        RunLoop();
        ExpectCollected();
        EXPECT_EQ(GetFocus(), CreateListButton());
        EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{tree.Window(), true, true}}));
    }
}

// Through the system's dialog, which has the keyboard before the list has it.
TEST_F(ListFocusTest, AfterAListOfAChosenFolderTheButtonHasItAgain) {
    OpenSavingIn(folder.Path());
    controller->StartList(PresetId(), L"C:\\windows");
    RunLoop();
    const Ui::DismissModal accept([](HWND dialog) {
        if (GetDlgItem(dialog, IDC_PROGRESS_STATUS_LINE) == nullptr)
            PostMessageW(dialog, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
    });
    SetFocus(CreateListButton());
    PostKey(VK_SPACE);
    RunLoopUntil([&] { return !accept.Seen().empty() && CanCreateList(); }, "the end of the list");
    RunLoop();
    EXPECT_TRUE(folder.Exists(L"List of windows (2).txt"));
    EXPECT_EQ(GetFocus(), CreateListButton());
}

TEST_F(ListFocusTest, AfterAnErrorTheButtonHasItAgain) {
    OpenSavingIn(folder.Path());
    const Ui::MessageBoxAnswerer answerer;
    SetFocus(CreateListButton());
    controller->StartList(PresetId(), folder.Path(L"missing"));
    RunLoop();
    ExpectCollected();
    EXPECT_EQ(GetFocus(), CreateListButton());
}

TEST_F(ListFocusTest, AfterACancelledListTheButtonHasItAgain) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    std::thread reader;
    const Ui::DismissModal cancel([&](HWND dialog) {
        WinLib::WaitServingSentMessages([&] { return list.IsOpen(); });
        Push(dialog, IDC_PROGRESS_CANCEL);
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_PROGRESS_BACKGROUND));
        reader = std::thread([&] { list.Read(); });
    });
    SetFocus(CreateListButton());
    controller->StartList(PresetId(), Listed());
    reader.join();
    RunLoop();
    EXPECT_EQ(GetFocus(), CreateListButton());
}

TEST_F(ListFocusTest, AListFromTheTreeLeavesItThere) {
    OpenSavingIn(folder.Path());
    SetFocus(tree.Window());
    controller->StartList(PresetId(), Listed());
    RunLoop();
    ExpectCollected();
    EXPECT_EQ(GetFocus(), tree.Window());
}

TEST_F(ListFocusTest, InTheBackgroundTheTreeHasItAndThenTheButton) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    StartFromTheButton();
    EXPECT_EQ(GetFocus(), tree.Window());
    Finish(list);
    EXPECT_EQ(GetFocus(), CreateListButton());
}

// What the user does while the list is in the background, and which control has the focus after that.
struct Choice {
    const char* what;
    void (*make)(HWND mainWindow, const TreeReader& tree);
    int focus;
};

const Choice Choices[] = {
    {"another control",
     [](HWND mainWindow, const TreeReader&) { SetFocus(GetDlgItem(mainWindow, IDC_MAIN_CLOSE)); },
     IDC_MAIN_CLOSE},
    {"another control and the tree again",
     [](HWND mainWindow, const TreeReader& tree) {
         SetFocus(GetDlgItem(mainWindow, IDC_MAIN_CLOSE));
         SetFocus(tree.Window());
     },
     IDC_MAIN_TREE},
    {"another page",
     [](HWND, const TreeReader& tree) { tree.Select(tree.Child(tree.Item(L"Preset"), L"Filter")); },
     IDC_MAIN_TREE},
    {"a click on the selected item",
     [](HWND, const TreeReader& tree) {
         const POINT place = tree.Middle(tree.Selected());
         PostMessageW(tree.Window(), WM_LBUTTONUP, 0, MAKELPARAM(place.x, place.y));
         SendMessageW(tree.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(place.x, place.y));
     },
     IDC_MAIN_TREE},
    {"a right click on the selected item",
     [](HWND, const TreeReader& tree) {
         const POINT place = tree.Middle(tree.Selected());
         SendMessageW(tree.Window(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(place.x, place.y));
     },
     IDC_MAIN_TREE},
    {"a key in the tree",
     [](HWND, const TreeReader& tree) { SendMessageW(tree.Window(), WM_KEYDOWN, VK_ADD, 0); }, IDC_MAIN_TREE},
};

TEST_F(ListFocusTest, WhatTheUserChoosesMeanwhileKeepsIt) {
    OpenSavingIn(BlockedListFile::Folder());
    for (const Choice& choice : Choices) {
        SCOPED_TRACE(choice.what);
        tree.Select(tree.Item(L"Preset"));
        BlockedListFile list(L"List of Listed.txt");
        StartFromTheButton();
        choice.make(window, tree);
        Finish(list);
        EXPECT_EQ(GetFocus(), Control(choice.focus));
    }
}

TEST_F(ListFocusTest, AnotherProgramMeanwhileIsNoChoice) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    StartFromTheButton();
    { const OtherWindow other(window); }
    RunLoop();
    EXPECT_EQ(GetFocus(), tree.Window());
    Finish(list);
    EXPECT_EQ(GetFocus(), CreateListButton());
}

TEST_F(ListFocusTest, TheButtonHasItWhenTheWindowIsActiveAgain) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    StartFromTheButton();
    {
        const OtherWindow other(window);
        const HWND active = GetActiveWindow();
        Finish(list);
        EXPECT_TRUE(CanCreateList());
        EXPECT_EQ(GetActiveWindow(), active) << "the window must not come to the front by itself";
    }
    RunLoop();
    EXPECT_EQ(GetFocus(), CreateListButton());
}

}  // namespace
