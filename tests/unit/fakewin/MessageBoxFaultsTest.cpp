// Message boxes, and dialogs that a test drives.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "ContractDialog.h"
#include "fakewin/FakeWin.h"
#include "fakewin/FakeWindows.h"
#include "winlib/Windows.h"

using ContractDialog::ButtonId;
using ContractDialog::TemplateId;
using FakeWin::Call;

namespace {

INT_PTR CALLBACK EndOnButton(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && LOWORD(wParam) == ButtonId && lParam != 0)
        EndDialog(dialog, 5);
    return message == WM_INITDIALOG;
}

INT_PTR RunDialog(HWND owner = nullptr) {
    ContractDialog::Define();
    return DialogBoxParamW(nullptr, MAKEINTRESOURCEW(TemplateId), owner, EndOnButton, 0);
}

}  // namespace

TEST(FakeMessageBox, IsRecordedAndAnswered) {
    const HWND owner = FakeWin::CreatePlainWindow();
    EXPECT_EQ(MessageBoxW(owner, L"text", L"caption", MB_ICONERROR), IDOK);
    FakeWin::AnswerMessageBoxes(IDNO);
    EXPECT_EQ(MessageBoxW(nullptr, L"more", nullptr, MB_YESNO), IDNO);
    const std::vector<FakeWin::MessageBoxCall> boxes = FakeWin::MessageBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].owner, owner);
    EXPECT_EQ(boxes[0].text, L"text");
    EXPECT_EQ(boxes[0].caption, L"caption");
    EXPECT_EQ(boxes[0].type, static_cast<UINT>(MB_ICONERROR));
    EXPECT_TRUE(boxes[0].ownerExisted);
    EXPECT_EQ(boxes[0].thread, std::this_thread::get_id());
    EXPECT_EQ(FakeWin::Log().back().call, Call::MessageBoxW);
    EXPECT_EQ(FakeWin::Log().back().subject, L"more");
    EXPECT_EQ(boxes[1].owner, nullptr);
    EXPECT_FALSE(boxes[1].ownerExisted);
    DestroyWindow(owner);
}

TEST(FakeMessageBox, DisablesItsOwnerWhileItIsUp) {
    const HWND owner = FakeWin::CreatePlainWindow();
    bool enabled = true;
    FakeWin::OnMessageBox([&](const FakeWin::MessageBoxCall& box) {
        enabled = IsWindowEnabled(box.owner);
        return IDRETRY;
    });
    EXPECT_EQ(MessageBoxW(owner, L"text", L"caption", MB_OK), IDRETRY);
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

TEST(FakeMessageBox, CanFailToOpen) {
    FakeWin::FailOn(Call::MessageBoxW, L"text", 8, 1);
    EXPECT_EQ(MessageBoxW(nullptr, L"text", L"caption", MB_OK), 0);
    EXPECT_EQ(GetLastError(), 8u);
    EXPECT_TRUE(FakeWin::MessageBoxes().empty());
}

TEST(FakeMessageBox, FailsWithTheResultThatIsSet) {
    FakeWin::SetMessageBoxFailure(-1);
    FakeWin::FailNth(Call::MessageBoxW, 1, 8);
    EXPECT_EQ(MessageBoxW(nullptr, L"text", L"caption", MB_OK), -1);
    EXPECT_EQ(GetLastError(), 8u);
    EXPECT_EQ(MessageBoxW(nullptr, L"text", L"caption", MB_OK), IDOK);
    const HWND owner = FakeWin::CreatePlainWindow();
    DestroyWindow(owner);
    EXPECT_EQ(MessageBoxW(owner, L"text", L"caption", MB_OK), -1);
    FakeWin::Reset();
    EXPECT_EQ(MessageBoxW(owner, L"text", L"caption", MB_OK), 0);
}

TEST(FakeMessageBox, AnOwnerThatIsGoneIsAnError) {
    const HWND owner = FakeWin::CreatePlainWindow();
    DestroyWindow(owner);
    EXPECT_EQ(MessageBoxW(owner, L"text", L"caption", MB_OK), 0);
    EXPECT_FALSE(FakeWin::MessageBoxes()[0].ownerExisted);
}

TEST(FakeMessageBox, StaysUpUntilItIsReleasedAndServesItsThread) {
    FakeWin::HoldMessageBoxes();
    const HWND window = FakeWin::CreatePlainWindow(L"before");
    std::thread user([&] {
        EXPECT_TRUE(FakeWin::WaitForMessageBox());
        EXPECT_TRUE(SetWindowTextW(window, L"behind the box"));
        FakeWin::ReleaseMessageBox(IDCANCEL);
    });
    EXPECT_EQ(MessageBoxW(nullptr, L"text", L"caption", MB_OK), IDCANCEL);
    user.join();
    wchar_t text[32];
    GetWindowTextW(window, text, 32);
    EXPECT_STREQ(text, L"behind the box");
    DestroyWindow(window);
}

TEST(FakeMessageBox, NeedsTheThreadOfItsOwner) {
    const HWND owner = FakeWin::CreatePlainWindow();
    std::atomic<bool> answered = false;
    std::thread worker([&] {
        MessageBoxW(owner, L"text", L"caption", MB_OK);
        answered = true;
    });
    EXPECT_TRUE(FakeWin::WaitForMessageBox());
    EXPECT_FALSE(answered);
    while (!answered) {
        MSG unused;
        PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        Sleep(1);
    }
    worker.join();
    DestroyWindow(owner);
}

TEST(FakeDialog, IsDrivenFromItsOwnThread) {
    int shown = 0;
    FakeWin::OnDialogShown(TemplateId, [&](HWND dialog) {
        ++shown;
        EXPECT_TRUE(IsWindowVisible(dialog));
        EXPECT_TRUE(FakeWin::Click(dialog, ButtonId));
    });
    EXPECT_EQ(RunDialog(), 5);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(FakeWin::OpenWindows(), 0);
}

TEST(FakeDialog, IsDrivenFromAnotherThread) {
    ContractDialog::Define();
    std::thread user([] {
        const HWND dialog = FakeWin::WaitForDialog(TemplateId);
        ASSERT_NE(dialog, nullptr);
        const HWND button = GetDlgItem(dialog, ButtonId);
        EnableWindow(button, FALSE);
        EXPECT_FALSE(FakeWin::Click(dialog, ButtonId));
        EnableWindow(button, TRUE);
        FakeWin::PressKey(dialog, VK_RETURN);
        EXPECT_TRUE(FakeWin::Click(dialog, ButtonId));
        EXPECT_TRUE(FakeWin::WaitForDestroyed(dialog));
        EXPECT_FALSE(FakeWin::Click(dialog, ButtonId));
    });
    EXPECT_EQ(RunDialog(), 5);
    user.join();
}

TEST(FakeDialog, CanFailToOpen) {
    ContractDialog::Define();
    FakeWin::FailOn(Call::DialogBoxParamW, L"910", 8, 1);
    EXPECT_EQ(RunDialog(), -1);
    EXPECT_EQ(GetLastError(), 8u);
    FakeWin::Fail(Call::CreateDialogParamW, 14);
    EXPECT_EQ(CreateDialogParamW(nullptr, MAKEINTRESOURCEW(TemplateId), nullptr, EndOnButton, 0), nullptr);
    EXPECT_EQ(GetLastError(), 14u);
    FakeWin::Fail(Call::GetMessageW, 1400);
    MSG message;
    EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), -1);
}

TEST(FakeDialog, EnablesItsOwnerOnlyIfItHasDisabledIt) {
    FakeWin::OnDialogShown(TemplateId, [&](HWND dialog) { EXPECT_TRUE(FakeWin::Click(dialog, ButtonId)); });
    const HWND owner = FakeWin::CreatePlainWindow();
    for (const bool enabled : {true, false}) {
        EnableWindow(owner, enabled);
        EXPECT_EQ(RunDialog(owner), 5);
        EXPECT_EQ(IsWindowEnabled(owner), enabled);
    }
    DestroyWindow(owner);
}

TEST(FakeDialog, CannotOpenWithoutItsTemplate) {
    ContractDialog::Define();
    FakeWin::UndefineDialog(TemplateId);
    EXPECT_EQ(CreateDialogParamW(nullptr, MAKEINTRESOURCEW(TemplateId), nullptr, EndOnButton, 0), nullptr);
}

TEST(FakeWindow, RemembersWhatItGot) {
    const HWND window = FakeWin::CreatePlainWindow();
    const HWND bar = FakeWin::CreateChildWindow(window, 7, L"msctls_progress32", {10, 10, 50, 20});
    std::thread worker([&] { PostMessageW(window, WM_APP, 3, 4); });
    EXPECT_TRUE(FakeWin::WaitForPosted(window, WM_APP));
    worker.join();
    SendMessageW(bar, WM_USER + 2, 30, 0);
    EXPECT_EQ(SendMessageW(bar, WM_USER + 8, 0, 0), 30);
    MoveWindow(bar, 0, 0, 5, 5, TRUE);
    EXPECT_EQ(FakeWin::Moves(bar), 1);
    EXPECT_EQ(GetDlgItem(window, 7), bar);
    DestroyWindow(window);
    ASSERT_EQ(FakeWin::PostedTo(window).size(), 1u);
    EXPECT_EQ(FakeWin::PostedTo(window)[0].wParam, 3u);
    EXPECT_NE(FakeWin::PostedTo(window)[0].sender, std::this_thread::get_id());
    EXPECT_EQ(FakeWin::ControlMessages(bar).size(), 2u);
}

TEST(FakeWindow, TheDesktopIsSettable) {
    RECT rect = {};
    EXPECT_TRUE(GetWindowRect(GetDesktopWindow(), &rect));
    EXPECT_EQ(rect.right, 1024);
    FakeWin::SetDesktop({-10, -20, 30, 40});
    EXPECT_TRUE(GetWindowRect(GetDesktopWindow(), &rect));
    EXPECT_EQ(rect.top, -20);
    FakeWin::RemoveDesktop();
    EXPECT_EQ(GetDesktopWindow(), nullptr);
}
