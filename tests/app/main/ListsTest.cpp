// The one running list: in front, in the background, with errors, and while the window closes.

#include <atomic>
#include <thread>

#include "BlockedListFile.h"
#include "ListsTest.h"
#include "app/MessageLoop.h"
#include "support/ui/DismissModal.h"
#include "support/ui/MessageBoxAnswerer.h"
#include "winlib/SentMessages.h"

namespace {

TEST_F(ListsTest, WritesTheListAndIsReadyForTheNext) {
    OpenSavingIn(folder.Path());
    controller->StartList(PresetId(), Listed());
    EXPECT_TRUE(folder.Exists(L"List of Listed.txt"));
    RunLoopUntil([this] { return CanCreateList(); }, "the end message");
    ExpectCollected();
    controller->StartList(PresetId(), Listed());
    EXPECT_TRUE(folder.Exists(L"List of Listed (2).txt"));
    RunLoop();
    ExpectCollected();
}

TEST_F(ListsTest, AnyItemOfAPresetSelectsIt) {
    OpenSavingIn(folder.Path());
    controller->StartList(IdOf(tree.Child(tree.Item(L"Preset"), L"Sorting")), Listed());
    EXPECT_TRUE(folder.Exists(L"List of Listed.txt"));
}

TEST_F(ListsTest, ManyListsInARow) {
    registry.SetDword(KeyOf(0) + L"\\Saving", L"OverwriteExisting", 1);
    OpenSavingIn(folder.Path());
    for (int i = 0; i < 20; ++i) {
        controller->StartList(PresetId(), Listed());
        RunLoop();
        ExpectCollected();
    }
}

TEST_F(ListsTest, TheDialogIsInFrontOfTheDisabledWindow) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    std::thread reader;
    const Ui::DismissModal look([&](HWND dialog) {
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), window);
        EXPECT_FALSE(IsWindowEnabled(window));
        EXPECT_FALSE(IsWindowEnabled(Control(IDC_MAIN_CREATE_LIST)));
        EXPECT_FALSE(IsBusy());
        reader = std::thread([&] { list.Read(); });
    });
    controller->StartList(PresetId(), Listed());
    reader.join();
    RunLoop();
    ExpectCollected();
}

// The dialog is destroyed and not ended, since Wine's EndDialog enables an owner whatever it was before.
TEST_F(ListsTest, TheWindowIsAfterTheDialogAsItWasBefore) {
    OpenSavingIn(BlockedListFile::Folder());
    for (const BOOL enabled : {TRUE, FALSE}) {
        BlockedListFile list(L"List of Listed.txt");
        const Ui::DismissModal destroy([](HWND dialog) { DestroyWindow(dialog); });
        EnableWindow(window, enabled);
        controller->StartList(PresetId(), Listed());
        EXPECT_EQ(IsWindowEnabled(window), enabled);
        EXPECT_EQ(GetActiveWindow() == window, enabled);
        list.Read();
        RunLoopUntil([this] { return !IsBusy(); }, "the end message");
        EXPECT_EQ(IsWindowEnabled(window), enabled);
    }
}

TEST_F(ListsTest, TheEndMessageInsideStartLeavesTheJobAlive) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    std::string text;
    std::thread reader;
    const Ui::DismissModal interfere([&](HWND) {
        SendMessageW(window, WM_APP, 0, 0);
        EXPECT_FALSE(CanCreateList());
        reader = std::thread([&] { text = list.Read(); });
    });
    controller->StartList(PresetId(), Listed());
    reader.join();
    EXPECT_NE(text.find("a file.txt"), std::string::npos) << text;
    RunLoop();
    ExpectCollected();
}

TEST_F(ListsTest, AnErrorIsShownAndTheJobCollected) {
    OpenSavingIn(folder.Path());
    const std::wstring missing = folder.Path(L"missing");
    for (int i = 0; i < 5; ++i) {
        const Ui::MessageBoxAnswerer answerer;
        controller->StartList(PresetId(), missing);
        RunLoop();
        ExpectCollected();
        ASSERT_EQ(answerer.Seen().size(), 1u);
        EXPECT_EQ(answerer.Seen()[0].caption, L"Tamblewick");
        EXPECT_EQ(answerer.Seen()[0].text, L"The folder '" + missing +
                                               L"' does not exist or cannot be accessed by the application.\n"
                                               L"The listing proccess will be cancelled.");
    }
    EXPECT_FALSE(folder.Exists(L"List of missing.txt"));
}

TEST_F(ListsTest, InTheBackgroundTheBarShowsAndTheWindowIsFree) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    StartInBackground();
    EXPECT_TRUE(IsBusy());
    EXPECT_FALSE(CanCreateList());
    EXPECT_TRUE(IsWindowEnabled(window));

    // Nothing that is done now starts a second list or gives the button back.
    AwaitSecond();
    controller->NewFromTemplate(0);
    tree.Select(tree.Item(L"All files (Simple, Text)"));
    EXPECT_FALSE(CanCreateList());
    RunLoop();
    EXPECT_TRUE(IsBusy());

    // Not even the preset is needed any more.
    controller->RemovePreset(tree.Item(L"Preset"));
    EXPECT_NE(list.Read().find("a file.txt"), std::string::npos);
    RunLoopUntil([this] { return !IsBusy(); }, "the end message");
    ExpectCollected();
}

TEST_F(ListsTest, ACancelledListLeavesNothingBehind) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    std::thread reader;
    const Ui::DismissModal cancel([&](HWND dialog) {
        WinLib::WaitServingSentMessages([&] { return list.IsOpen(); });
        Push(dialog, IDC_PROGRESS_CANCEL);
        reader = std::thread([&] { list.Read(); });
    });
    controller->StartList(PresetId(), Listed());
    reader.join();
    EXPECT_FALSE(IsBusy());
    RunLoop();
    ExpectCollected();
}

TEST_F(ListsTest, BackgroundAfterCancelShowsTheBarUntilTheEnd) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    const Ui::DismissModal both([&](HWND dialog) {
        WinLib::WaitServingSentMessages([&] { return list.IsOpen(); });
        Push(dialog, IDC_PROGRESS_CANCEL);
        Push(dialog, IDC_PROGRESS_BACKGROUND);
    });
    controller->StartList(PresetId(), Listed());
    EXPECT_TRUE(IsBusy());
    EXPECT_FALSE(CanCreateList());
    list.Read();
    RunLoopUntil([this] { return !IsBusy(); }, "the end message");
    ExpectCollected();
}

TEST_F(ListsTest, ClosingHidesTheWindowAndWaitsForTheList) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    StartInBackground();
    std::string text;
    bool existed = false;
    std::thread reader([&] {
        while (IsWindowVisible(window))
            Sleep(1);
        existed = IsWindow(window) != FALSE;
        text = list.Read();
    });
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    reader.join();
    EXPECT_TRUE(existed);
    EXPECT_NE(text.find("a file.txt"), std::string::npos) << "the list was not cancelled";
    EXPECT_TRUE(registry.Get(MainSettings::RootKey, L"WindowWidth").has_value());
}

TEST_F(ListsTest, ClosingBehindTheDialogWaitsForStart) {
    OpenSavingIn(BlockedListFile::Folder());
    BlockedListFile list(L"List of Listed.txt");
    std::string text;
    std::thread reader;
    const Ui::DismissModal interfere([&](HWND) {
        SendMessageW(window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(IsWindow(window));
        EXPECT_FALSE(IsWindowVisible(window));
        reader = std::thread([&] { text = list.Read(); });
    });
    controller->StartList(PresetId(), Listed());
    reader.join();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_NE(text.find("a file.txt"), std::string::npos) << text;
    EXPECT_EQ(RunMessageLoop(Process()), 0);
}

// Sends the progress dialog to the background before it is even shown.
LRESULT CALLBACK EndAtOnce(int code, WPARAM wParam, LPARAM lParam) {
    const auto& call = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    if (code == HC_ACTION && call.message == WM_INITDIALOG && GetDlgItem(call.hwnd, IDC_PROGRESS_STATUS_LINE))
        EndDialog(call.hwnd, 0);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(ListsTest, AnErrorInTheBackgroundCanBeAnsweredWhileTheWindowCloses) {
    OpenSavingIn(folder.Path());
    std::atomic<bool> seenOnWindow = false;
    // Answers a box on the dialog at once, one on the main window only when that has been hidden.
    const Ui::MessageBoxAnswerer answerer([&](HWND box) {
        const bool onWindow = GetWindow(box, GW_OWNER) == window;
        if (onWindow)
            seenOnWindow = true;
        return !onWindow || !IsWindowVisible(window);
    });
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROCRET, EndAtOnce, nullptr, GetCurrentThreadId());
    // The dialog must be gone before the worker's first step. Where it was too slow, the error was shown on
    // the dialog, and the next attempt follows.
    for (int attempt = 0; attempt < 100 && !IsBusy(); ++attempt) {
        controller->StartList(PresetId(), folder.Path(L"missing"));
        if (IsBusy())
            RunLoopUntil([&] { return seenOnWindow || !IsBusy(); }, "the box");
    }
    UnhookWindowsHookEx(hook);
    ASSERT_TRUE(seenOnWindow);
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
}

// The real folder dialog.

TEST_F(ListsTest, CancellingTheFolderDialogChangesNothing) {
    OpenSavingIn(folder.Path());
    const Ui::DismissModal cancel(IDCANCEL);
    SendMessageW(Control(IDC_MAIN_CREATE_LIST), BM_CLICK, 0, 0);
    ASSERT_EQ(cancel.Seen().size(), 1u);
    EXPECT_EQ(cancel.Seen()[0].owner, window);
    ExpectCollected();
}

// The system's dialog needs a folder that was there before it: it does not always find a new one.
TEST_F(ListsTest, TheLastFolderIsOfferedAgainAlsoForAnotherPreset) {
    OpenSavingIn(folder.Path());
    controller->StartList(PresetId(), L"C:\\windows");
    EXPECT_TRUE(folder.Exists(L"List of windows.txt"));
    RunLoop();
    AwaitSecond();
    controller->DuplicatePreset(tree.Item(L"Preset"));
    tree.Select(tree.Child(tree.Item(L"Copy of Preset"), L"Filter"));
    const Ui::DismissModal accept([](HWND dialog) {
        if (GetDlgItem(dialog, IDC_PROGRESS_STATUS_LINE) == nullptr)
            PostMessageW(dialog, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
    });
    SendMessageW(Control(IDC_MAIN_CREATE_LIST), BM_CLICK, 0, 0);
    EXPECT_TRUE(folder.Exists(L"List of windows (2).txt"));
    RunLoop();
    ExpectCollected();
}

}  // namespace
