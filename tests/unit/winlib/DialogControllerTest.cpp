#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestWindows.h"
#include "winlib/Application.h"
#include "winlib/Controller.h"
#include "winlib/Win32Error.h"

using WinLib::DialogProcedure;

namespace {

constexpr int NoSuchDialog = 901;
constexpr int ItemId = 200;

// Writes down the messages and commands that reach it.
template <typename Base>
class DialogProbe : public Base {
public:
    bool HandleInitDialog(HWND, LPARAM parameter, bool& focusSet) override {
        HandleAtInit = this->Handle;
        Parameter = parameter;
        focusSet = FocusSet;
        if (PostedAtInit.message != 0)
            PostMessageW(this->Handle, PostedAtInit.message, PostedAtInit.wParam, PostedAtInit.lParam);
        return true;
    }
    bool OnMenuCommand(WORD id) override {
        Commands.push_back("menu " + std::to_string(id));
        return id != 0;
    }
    bool OnAccelerator(WORD id) override {
        Commands.push_back("accelerator " + std::to_string(id));
        return true;
    }
    bool OnControlCommand(WORD id, HWND control, WORD code) override {
        Commands.push_back("control " + std::to_string(id) + " " + std::to_string(code));
        if (id == Intercepted) {
            EndDialog(this->Handle, id);
            return true;
        }
        return Base::OnControlCommand(id, control, code);
    }
    bool HandleNotify(NMHDR& header, LRESULT& result) override {
        result = static_cast<LRESULT>(header.idFrom);
        return header.code == 1;
    }
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        Messages.push_back(message);
        return Base::OnMessage(message, wParam, lParam, result);
    }

    bool FocusSet = false;
    MSG PostedAtInit = {};
    WORD Intercepted = 0;
    HWND HandleAtInit = nullptr;
    LPARAM Parameter = 0;
    std::vector<std::string> Commands;
    std::vector<UINT> Messages;
};

using ModelessProbe = DialogProbe<WinLib::Dialog::Controller>;
using ModalProbe = DialogProbe<WinLib::Dialog::ModalController>;

LPARAM AsParameter(WinLib::Window::Controller& controller) {
    return reinterpret_cast<LPARAM>(&controller);
}

// A modeless dialog on the screen, with the owner that its instance comes from.
class ModelessDialog : public testing::Test {
protected:
    ModelessDialog() : application(nullptr, L"", 0), owner(TestWindows::MakeWindow()) {
        TestWindows::DefineDialog();
    }
    ~ModelessDialog() override {
        DestroyWindow(dialog);
        DestroyWindow(owner);
    }

    void Create() {
        WinLib::CreateModeless(application, dialog, probe, TestWindows::DialogId, owner, instance);
        probe.Commands.clear();
        probe.Messages.clear();
    }

    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) {
        return SendMessageW(dialog, message, wParam, lParam);
    }
    LPARAM Button(int id) { return reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)); }

    WinLib::Application application;
    HWND owner;
    HWND dialog = nullptr;
    HINSTANCE instance = nullptr;
    ModelessProbe probe;
};

TEST_F(ModelessDialog, IsBoundToItsControllerInInitDialog) {
    WinLib::CreateModeless(application, dialog, probe, TestWindows::DialogId, owner, instance);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(probe.Handle, dialog);
    EXPECT_EQ(probe.HandleAtInit, dialog);
    EXPECT_EQ(probe.Parameter, AsParameter(probe));
    EXPECT_EQ(GetWindowLongPtrW(dialog, GWLP_USERDATA), AsParameter(probe));
}

TEST_F(ModelessDialog, SeesNoMessageBeforeInitDialog) {
    WinLib::CreateModeless(application, dialog, probe, TestWindows::DialogId, owner, instance);
    ASSERT_FALSE(probe.Messages.empty());
    EXPECT_EQ(probe.Messages.front(), static_cast<UINT>(WM_INITDIALOG));
}

TEST_F(ModelessDialog, JoinsTheDialogsOfTheLoop) {
    const HWND earlier = owner;
    application.Dialogs.push_back(earlier);
    Create();
    EXPECT_EQ(application.Dialogs, (std::vector<HWND>{earlier, dialog}));
}

TEST_F(ModelessDialog, TakesAMissingInstanceFromItsOwner) {
    Create();
    EXPECT_EQ(instance, reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(owner, GWLP_HINSTANCE)));
}

TEST_F(ModelessDialog, WithoutATemplateThrows) {
    EXPECT_THROW(WinLib::CreateModeless(application, dialog, probe, NoSuchDialog, owner, instance),
                 WinLib::Win32Error);
    EXPECT_TRUE(application.Dialogs.empty());
}

TEST_F(ModelessDialog, AHandledMessageGivesItsResult) {
    Create();
    NMHDR header = {nullptr, 4711, 1};
    EXPECT_EQ(Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 4711);
    EXPECT_EQ(GetWindowLongPtrW(dialog, DWLP_MSGRESULT), 4711);
}

TEST_F(ModelessDialog, AnIgnoredNotificationGivesTheDefault) {
    Create();
    NMHDR header = {nullptr, 4711, 2};
    EXPECT_EQ(DialogProcedure(dialog, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 0);
    EXPECT_EQ(Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 0);
}

TEST_F(ModelessDialog, AMenuCommandAndAnAcceleratorOfOneNumberGoDifferentWays) {
    Create();
    EXPECT_EQ(DialogProcedure(dialog, WM_COMMAND, MAKEWPARAM(ItemId, 0), 0), 1);
    EXPECT_EQ(DialogProcedure(dialog, WM_COMMAND, MAKEWPARAM(ItemId, 1), 0), 1);
    EXPECT_EQ(probe.Commands, (std::vector<std::string>{"menu 200", "accelerator 200"}));
}

TEST_F(ModelessDialog, AnUnhandledCommandIsLeftToThePlatform) {
    Create();
    EXPECT_EQ(DialogProcedure(dialog, WM_COMMAND, MAKEWPARAM(0, 0), 0), 0);
    EXPECT_EQ(DialogProcedure(dialog, WM_COMMAND, MAKEWPARAM(TestWindows::ButtonId, 0),
                              Button(TestWindows::ButtonId)),
              0);
    EXPECT_EQ(DialogProcedure(dialog, WM_COMMAND, MAKEWPARAM(TestWindows::ButtonId, 2), 0), 0);
    EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(TestWindows::ButtonId, 0), Button(TestWindows::ButtonId)), 0);
    EXPECT_EQ(probe.Commands,
              (std::vector<std::string>{"menu 0", "control 100 0", "control 100 2", "control 100 0"}));
    EXPECT_TRUE(IsWindow(dialog));
}

TEST_F(ModelessDialog, OkAndCancelDestroyTheWindow) {
    for (const int id : {IDOK, IDCANCEL}) {
        Create();
        Send(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), Button(id));
        EXPECT_FALSE(IsWindow(dialog)) << id;
    }
}

TEST_F(ModelessDialog, EnterAndEscWithoutAButtonGoToTheMenu) {
    Create();
    Send(WM_COMMAND, IDOK, 0);
    Send(WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(probe.Commands, (std::vector<std::string>{"menu 1", "menu 2"}));
    EXPECT_TRUE(IsWindow(dialog));
}

TEST_F(ModelessDialog, TheFlagOfInitDialogShowsWhoSetTheFocus) {
    Create();
    EXPECT_EQ(DialogProcedure(dialog, WM_INITDIALOG, 0, AsParameter(probe)), 1);
    probe.FocusSet = true;
    EXPECT_EQ(DialogProcedure(dialog, WM_INITDIALOG, 0, AsParameter(probe)), 0);
}

TEST(DialogProcedure, WithoutControllerLeavesEveryMessageAlone) {
    const HWND window = TestWindows::MakeWindow();
    EXPECT_EQ(DialogProcedure(window, WM_SETFONT, 0, 0), 0);
    EXPECT_EQ(DialogProcedure(window, WM_COMMAND, IDOK, 0), 0);
    EXPECT_EQ(DialogProcedure(window, WM_INITDIALOG, 0, 0), 0);
    EXPECT_EQ(GetWindowLongPtrW(window, GWLP_USERDATA), 0);
    DestroyWindow(window);
}

// The result of a modal dialog whose controller posts itself this command.
INT_PTR RunWith(ModalProbe& probe, int id) {
    TestWindows::DefineDialog();
    probe.PostedAtInit.message = WM_COMMAND;
    probe.PostedAtInit.wParam = MAKEWPARAM(id, BN_CLICKED);
    probe.PostedAtInit.lParam = 1;  // any control but none
    HINSTANCE instance = nullptr;
    return WinLib::RunModal(probe, TestWindows::DialogId, nullptr, instance);
}

TEST(ModalDialog, OkEndsItWithOne) {
    ModalProbe probe;
    EXPECT_EQ(RunWith(probe, IDOK), 1);
    EXPECT_FALSE(IsWindow(probe.Handle));
}

TEST(ModalDialog, CancelEndsItWithZero) {
    ModalProbe probe;
    EXPECT_EQ(RunWith(probe, IDCANCEL), 0);
    EXPECT_FALSE(IsWindow(probe.Handle));
}

TEST(ModalDialog, ASubclassMayInterceptItsButtons) {
    ModalProbe probe;
    probe.Intercepted = IDCANCEL;
    EXPECT_EQ(RunWith(probe, IDCANCEL), IDCANCEL);
}

TEST(ModalDialog, TakesAMissingInstanceFromItsOwner) {
    TestWindows::DefineDialog();
    const HWND owner = TestWindows::MakeWindow();
    ModalProbe probe;
    probe.PostedAtInit.message = WM_COMMAND;
    probe.PostedAtInit.wParam = IDOK;
    probe.PostedAtInit.lParam = 1;
    HINSTANCE instance = nullptr;
    EXPECT_EQ(WinLib::RunModal(probe, TestWindows::DialogId, owner, instance), 1);
    EXPECT_EQ(instance, reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(owner, GWLP_HINSTANCE)));
    DestroyWindow(owner);
}

TEST(ModalDialog, WithoutATemplateThrows) {
    ModalProbe probe;
    HINSTANCE instance = nullptr;
    EXPECT_THROW(WinLib::RunModal(probe, NoSuchDialog, nullptr, instance), WinLib::Win32Error);
}

}  // namespace
