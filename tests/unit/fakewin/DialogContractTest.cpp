// Dialogs on the thread that runs them: creation, messages, the modal loop, place and size.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "ContractDialog.h"
#include "winlib/WindowText.h"
#include "winlib/Windows.h"

using ContractDialog::ButtonId;
using ContractDialog::TemplateId;
using ContractDialog::TextId;

namespace {

// What a dialog's procedure got, and what it is to do about it.
struct Script {
    std::vector<UINT> messages;
    std::function<INT_PTR(HWND, UINT, WPARAM, LPARAM)> answer;
};

Script* script = nullptr;

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    script->messages.push_back(message);
    return script->answer ? script->answer(dialog, message, wParam, lParam) : 0;
}

class DialogContract : public testing::Test {
protected:
    DialogContract() {
        ContractDialog::Define();
        script = &script_;
    }
    ~DialogContract() override {
        if (dialog_ != nullptr)
            DestroyWindow(dialog_);
    }

    HWND Create(LPARAM parameter = 0) {
        dialog_ = CreateDialogParamW(nullptr, MAKEINTRESOURCEW(TemplateId), nullptr, Procedure, parameter);
        return dialog_;
    }

    INT_PTR Run(HWND owner = nullptr) {
        return DialogBoxParamW(nullptr, MAKEINTRESOURCEW(TemplateId), owner, Procedure, 0);
    }

    Script script_;

private:
    HWND dialog_ = nullptr;
};

RECT RectOf(HWND window) {
    RECT rect = {};
    EXPECT_TRUE(GetWindowRect(window, &rect));
    return rect;
}

}  // namespace

TEST_F(DialogContract, TheFirstMessageIsTheFontThenTheDialogIsComplete) {
    LPARAM got = 0;
    HWND button = nullptr;
    script_.answer = [&](HWND dialog, UINT message, WPARAM, LPARAM lParam) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            got = lParam;
            button = GetDlgItem(dialog, ButtonId);
        }
        return message == WM_INITDIALOG;
    };
    const HWND dialog = Create(4711);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(got, 4711);
    EXPECT_NE(button, nullptr);
    const auto& messages = script_.messages;
    EXPECT_LT(std::ranges::find(messages, static_cast<UINT>(WM_SETFONT)),
              std::ranges::find(messages, static_cast<UINT>(WM_INITDIALOG)));
    EXPECT_EQ(std::ranges::count(messages, static_cast<UINT>(WM_INITDIALOG)), 1);
}

TEST_F(DialogContract, AMissingTemplateIsAnError) {
    EXPECT_EQ(CreateDialogParamW(nullptr, MAKEINTRESOURCEW(911), nullptr, Procedure, 0), nullptr);
    EXPECT_NE(GetLastError(), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(DialogBoxParamW(nullptr, MAKEINTRESOURCEW(911), nullptr, Procedure, 0), -1);
}

TEST_F(DialogContract, AnOwnerMustExist) {
    const HWND owner = ContractDialog::MakeOwner();
    DestroyWindow(owner);
    EXPECT_NE(Run(owner), 1);
    EXPECT_TRUE(script_.messages.empty());
}

TEST_F(DialogContract, AHandledMessageReturnsTheStoredResult) {
    script_.answer = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_APP)
            SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 77);
        return message == WM_APP;
    };
    const HWND dialog = Create();
    EXPECT_EQ(SendMessageW(dialog, WM_APP, 0, 0), 77);
    EXPECT_EQ(SendMessageW(dialog, WM_APP + 1, 0, 0), 0);
}

TEST_F(DialogContract, KeepsTextStateAndData) {
    const HWND dialog = Create();
    const HWND text = GetDlgItem(dialog, TextId);
    EXPECT_EQ(WinLib::GetWindowText(dialog), L"Contract");
    EXPECT_EQ(WinLib::GetWindowText(text), L"Words");
    EXPECT_TRUE(SetWindowTextW(text, L"other"));
    EXPECT_EQ(GetWindowTextLengthW(text), 5);
    wchar_t cut[4];
    EXPECT_EQ(GetWindowTextW(text, cut, 4), 3);
    EXPECT_STREQ(cut, L"oth");

    EXPECT_TRUE(IsWindowEnabled(text));
    EXPECT_FALSE(EnableWindow(text, FALSE));
    EXPECT_FALSE(IsWindowEnabled(text));
    EXPECT_TRUE(EnableWindow(text, TRUE));

    EXPECT_EQ(SetWindowLongPtrW(text, GWLP_USERDATA, 99), 0);
    EXPECT_EQ(GetWindowLongPtrW(text, GWLP_USERDATA), 99);
    EXPECT_EQ(GetParent(text), dialog);
    EXPECT_EQ(GetDlgCtrlID(text), TextId);
    EXPECT_NE(GetWindowLongPtrW(text, GWL_STYLE) & WS_CHILD, 0);
    EXPECT_EQ(GetWindowLongPtrW(dialog, GWL_STYLE) & WS_CHILD, 0);
}

TEST_F(DialogContract, ShowsWithItsParentOnly) {
    const HWND dialog = Create();
    const HWND text = GetDlgItem(dialog, TextId);
    EXPECT_FALSE(IsWindowVisible(dialog));
    EXPECT_FALSE(IsWindowVisible(text));
    EXPECT_FALSE(ShowWindow(dialog, SW_SHOW));
    EXPECT_TRUE(IsWindowVisible(text));
    EXPECT_TRUE(ShowWindow(dialog, SW_HIDE));
    EXPECT_FALSE(IsWindowVisible(dialog));
}

TEST_F(DialogContract, ChildrenStandInClientCoordinates) {
    const HWND dialog = Create();
    const HWND text = GetDlgItem(dialog, TextId);
    EXPECT_TRUE(MoveWindow(text, 11, 12, 30, 40, TRUE));
    const RECT screen = RectOf(text);
    POINT corner = {screen.left, screen.top};
    EXPECT_TRUE(ScreenToClient(dialog, &corner));
    EXPECT_EQ(corner.x, 11);
    EXPECT_EQ(corner.y, 12);
    EXPECT_EQ(screen.right - screen.left, 30);
    EXPECT_EQ(screen.bottom - screen.top, 40);
    EXPECT_TRUE(ClientToScreen(dialog, &corner));
    EXPECT_EQ(corner.x, screen.left);
}

TEST_F(DialogContract, TheFrameLiesAroundTheClientArea) {
    const HWND dialog = Create();
    RECT client = {};
    EXPECT_TRUE(GetClientRect(dialog, &client));
    EXPECT_EQ(client.left, 0);
    RECT outer = client;
    EXPECT_TRUE(AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_STYLE)), FALSE,
                                   static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_EXSTYLE))));
    const RECT rect = RectOf(dialog);
    EXPECT_EQ(outer.right - outer.left, rect.right - rect.left);
    EXPECT_EQ(outer.bottom - outer.top, rect.bottom - rect.top);
    EXPECT_LT(outer.top, outer.left);
}

TEST_F(DialogContract, ANewSizeIsReportedAndKeptWithinTheLimits) {
    WORD width = 0;
    script_.answer = [&](HWND, UINT message, WPARAM, LPARAM lParam) -> INT_PTR {
        if (message == WM_SIZE)
            width = LOWORD(lParam);
        if (message != WM_GETMINMAXINFO)
            return 0;
        auto& info = *reinterpret_cast<MINMAXINFO*>(lParam);
        info.ptMinTrackSize = {250, 120};
        info.ptMaxTrackSize = {300, 120};
        return 1;
    };
    const HWND dialog = Create();
    const struct {
        int asked;
        LONG got;
    } rows[] = {{270, 270}, {100, 250}, {900, 300}};
    for (const auto& row : rows) {
        SetWindowPos(dialog, nullptr, 0, 0, row.asked, 100, SWP_NOMOVE | SWP_NOZORDER);
        const RECT rect = RectOf(dialog);
        EXPECT_EQ(rect.right - rect.left, row.got) << row.asked;
        EXPECT_EQ(rect.bottom - rect.top, 120) << row.asked;
        RECT client = {};
        GetClientRect(dialog, &client);
        EXPECT_EQ(width, client.right) << row.asked;
    }
}

TEST_F(DialogContract, EndDialogEndsTheLoopWithItsResult) {
    const HWND owner = ContractDialog::MakeOwner();
    bool ownerEnabled = true;
    script_.answer = [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            PostMessageW(dialog, WM_APP, 0, 0);
        if (message == WM_APP) {
            ownerEnabled = IsWindowEnabled(owner);
            EndDialog(dialog, 42);
        }
        return 0;
    };
    EXPECT_EQ(Run(owner), 42);
    EXPECT_FALSE(ownerEnabled);
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

TEST_F(DialogContract, MayEndBeforeItsLoop) {
    HWND handle = nullptr;
    script_.answer = [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        handle = dialog;
        if (message == WM_INITDIALOG)
            EndDialog(dialog, 7);
        return 1;
    };
    EXPECT_EQ(Run(), 7);
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_FALSE(EndDialog(handle, 8));
}

TEST_F(DialogContract, TheFocusIsOnTheFirstControlAndMovesByMessage) {
    HWND text = nullptr;
    script_.answer = [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            PostMessageW(dialog, WM_APP, 0, 0);
        if (message == WM_APP) {
            const HWND button = GetDlgItem(dialog, ButtonId);
            text = GetDlgItem(dialog, TextId);
            EXPECT_EQ(GetFocus(), button);
            EnableWindow(button, FALSE);
            EXPECT_EQ(GetFocus(), nullptr);
            SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(text), TRUE);
            EXPECT_EQ(GetFocus(), text);
            SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(button), TRUE);
            EXPECT_EQ(GetFocus(), text) << "a disabled control does not take it";
            EndDialog(dialog, 1);
        }
        return message == WM_INITDIALOG;
    };
    EXPECT_EQ(Run(), 1);
    EXPECT_NE(GetFocus(), text);
}

TEST_F(DialogContract, EnterEscAndCloseBecomeCommandsWithoutAControl) {
    std::vector<WPARAM> commands;
    bool fromControl = false;
    script_.answer = [&](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            PostMessageW(dialog, WM_KEYDOWN, VK_RETURN, 0);
            PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 0);
            PostMessageW(dialog, WM_CLOSE, 0, 0);
        }
        if (message == WM_COMMAND && HIWORD(wParam) == 0 && LOWORD(wParam) != ButtonId) {
            commands.push_back(wParam);
            fromControl |= lParam != 0;
        }
        if (commands.size() == 3)
            EndDialog(dialog, 1);
        return 0;
    };
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(commands, (std::vector<WPARAM>{IDOK, IDCANCEL, IDCANCEL}));
    EXPECT_FALSE(fromControl);
}

TEST_F(DialogContract, DestroysItsControlsToo) {
    const HWND dialog = Create();
    const HWND text = GetDlgItem(dialog, TextId);
    EXPECT_TRUE(DestroyWindow(dialog));
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_FALSE(IsWindow(text));
    EXPECT_FALSE(SetWindowTextW(text, L""));
    EXPECT_FALSE(PostMessageW(text, WM_APP, 0, 0));
    MSG message = {dialog, WM_APP, 0, 0, 0, {}};
    EXPECT_FALSE(IsDialogMessageW(dialog, &message));
    RECT rect = {1, 2, 3, 4};
    EXPECT_FALSE(GetWindowRect(text, &rect));
    EXPECT_EQ(rect.right, 3);
}

TEST_F(DialogContract, ASubclassedControlCanAskItsOwnProcedure) {
    static WNDPROC own;
    const HWND text = GetDlgItem(Create(), TextId);
    own = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        text, GWLP_WNDPROC,
        reinterpret_cast<LONG_PTR>(+[](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            return message == WM_APP ? LRESULT{55} : CallWindowProcW(own, window, message, wParam, lParam);
        })));
    EXPECT_EQ(SendMessageW(text, WM_APP, 0, 0), 55);
    EXPECT_EQ(WinLib::GetWindowText(text), L"Words");
    SetWindowLongPtrW(text, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own));
    EXPECT_EQ(SendMessageW(text, WM_APP, 0, 0), 0);
}

TEST_F(DialogContract, IsFoundByItsClassAndItsTitle) {
    const HWND dialog = Create();
    SetWindowTextW(dialog, L"Title of the contract");
    EXPECT_EQ(FindWindowW(L"#32770", L"Title of the contract"), dialog);
    EXPECT_EQ(FindWindowW(L"#32770", L"Title of the"), nullptr);
    EXPECT_EQ(FindWindowW(L"Button", L"Title of the contract"), nullptr);
}
