// Messages between threads, and queues.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

#include "ContractDialog.h"
#include "winlib/WindowText.h"
#include "winlib/Windows.h"

using ContractDialog::TemplateId;
using ContractDialog::TextId;

namespace {

// Joins at the end of its scope.
class Worker {
public:
    template <typename Body>
    explicit Worker(Body body) : thread_(body) {}
    ~Worker() { thread_.join(); }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

private:
    std::thread thread_;
};

std::atomic<HWND> running = nullptr;

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG)
        running = dialog;
    return message == WM_INITDIALOG;
}

HWND AwaitDialog() {
    HWND dialog = running;
    while (dialog == nullptr) {
        std::this_thread::yield();
        dialog = running;
    }
    return dialog;
}

INT_PTR RunDialog(HWND owner = nullptr) {
    ContractDialog::Define();
    running = nullptr;
    return DialogBoxParamW(nullptr, MAKEINTRESOURCEW(TemplateId), owner, Procedure, 0);
}

// Serves what is sent to this thread until the flag is set.
void ServeUntil(const std::atomic<bool>& flag) {
    while (!flag) {
        MSG unused;
        PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        std::this_thread::yield();
    }
}

}  // namespace

TEST(ThreadContract, AnotherThreadSetsTextsAndEndsTheDialog) {
    std::wstring read;
    const Worker worker([&] {
        const HWND dialog = AwaitDialog();
        const HWND text = GetDlgItem(dialog, TextId);
        for (int i = 0; i < 50; ++i)
            SetWindowTextW(text, std::to_wstring(i).c_str());
        read = WinLib::GetWindowText(text);
        EndDialog(dialog, 9);
    });
    EXPECT_EQ(RunDialog(), 9);
}

TEST(ThreadContract, ADialogMayEndManyTimesInARow) {
    for (int i = 0; i < 50; ++i) {
        ContractDialog::Define();
        running = nullptr;
        const Worker worker([i] { EndDialog(AwaitDialog(), i); });
        EXPECT_EQ(DialogBoxParamW(nullptr, MAKEINTRESOURCEW(TemplateId), nullptr, Procedure, 0), i);
    }
}

TEST(ThreadContract, ASentMessageWaitsForTheThreadOfItsWindow) {
    const HWND window = ContractDialog::MakeOwner();
    std::atomic<bool> done = false;
    std::atomic<bool> stored = false;
    const Worker worker([&] {
        stored = SetWindowTextW(window, L"from outside") != FALSE;
        done = true;
    });
    ServeUntil(done);
    EXPECT_TRUE(stored);
    EXPECT_EQ(WinLib::GetWindowText(window), L"from outside");
    DestroyWindow(window);
}

TEST(ThreadContract, ServingSentMessagesLeavesThePostedOnes) {
    const HWND window = ContractDialog::MakeOwner();
    PostMessageW(window, WM_APP, 1, 2);
    MSG message = {};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE));
    EXPECT_TRUE(PeekMessageW(&message, window, WM_APP, WM_APP, PM_NOREMOVE));
    EXPECT_TRUE(PeekMessageW(&message, window, WM_APP, WM_APP, PM_REMOVE));
    EXPECT_EQ(message.hwnd, window);
    EXPECT_EQ(message.wParam, 1u);
    EXPECT_EQ(message.lParam, 2);
    EXPECT_FALSE(PeekMessageW(&message, window, WM_APP, WM_APP, PM_REMOVE));
    DestroyWindow(window);
}

TEST(ThreadContract, MessagesComeInTheirOrder) {
    const HWND window = ContractDialog::MakeOwner();
    for (WPARAM i = 1; i <= 3; ++i)
        EXPECT_TRUE(PostMessageW(window, WM_APP, i, 0));
    for (WPARAM i = 1; i <= 3; ++i) {
        MSG message = {};
        EXPECT_GT(GetMessageW(&message, window, WM_APP, WM_APP), 0);
        EXPECT_EQ(message.wParam, i);
    }
    DestroyWindow(window);
}

TEST(ThreadContract, OnlyItsOwnThreadDestroysAWindow) {
    const HWND window = ContractDialog::MakeOwner();
    std::atomic<bool> done = false;
    BOOL destroyed = TRUE;
    {
        const Worker worker([&] {
            destroyed = DestroyWindow(window);
            done = true;
        });
        ServeUntil(done);
    }
    EXPECT_FALSE(destroyed);
    EXPECT_TRUE(DestroyWindow(window));
}

TEST(ThreadContract, QuitComesBehindThePostedMessages) {
    const HWND window = ContractDialog::MakeOwner();
    PostQuitMessage(5);
    PostMessageW(window, WM_APP, 0, 0);
    MSG message = {};
    EXPECT_GT(GetMessageW(&message, nullptr, WM_APP, WM_APP), 0);
    EXPECT_EQ(message.message, static_cast<UINT>(WM_APP));
    EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), 0);
    EXPECT_EQ(message.wParam, 5u);
    DestroyWindow(window);
}

TEST(ThreadContract, TheLastErrorBelongsToItsThread) {
    std::atomic<bool> begun = false;
    std::atomic<bool> done = false;
    const Worker worker([&] {
        while (!begun) {
        }
        SetLastError(99);
        done = true;
    });
    SetLastError(17);
    begun = true;
    while (!done) {
    }
    EXPECT_EQ(GetLastError(), 17u);
}
