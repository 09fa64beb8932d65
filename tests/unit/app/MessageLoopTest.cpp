#include "app/MessageLoop.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "winlib/Application.h"
#include "winlib/Win32Error.h"
#include "winlib/Windows.h"

namespace {

struct Received {
    HWND window;
    UINT message;
    WPARAM wParam;

    bool operator==(const Received&) const = default;
};

std::vector<Received> received;

constexpr UINT ThrowMessage = WM_APP + 1;
constexpr WORD AcceleratorCommand = VK_RETURN;

void Note(HWND window, UINT message, WPARAM wParam) {
    if (message == WM_COMMAND || message == WM_KEYDOWN || message == WM_CHAR || message == WM_APP)
        received.push_back({window, message, wParam});
}

LRESULT CALLBACK NotingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Note(window, message, wParam);
    if (message == ThrowMessage)
        throw WinLib::Exception(L"from a window");
    return DefWindowProcW(window, message, wParam, lParam);
}

INT_PTR CALLBACK NotingDialog(HWND window, UINT message, WPARAM wParam, LPARAM) {
    Note(window, message, wParam);
    return FALSE;
}

struct WindowDeleter {
    void operator()(HWND window) const { DestroyWindow(window); }
};
using OwnedWindow = std::unique_ptr<std::remove_pointer_t<HWND>, WindowDeleter>;

OwnedWindow MakeWindow(HWND parent) {
    OwnedWindow window(CreateWindowExW(0, L"STATIC", L"", WS_VISIBLE | (parent ? WS_CHILD : WS_POPUP), 0, 0,
                                       10, 10, parent, nullptr, GetModuleHandleW(nullptr), nullptr));
    SetWindowLongPtrW(window.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(NotingProcedure));
    return window;
}

OwnedWindow MakeDialog(HWND parent) {
    // A template without controls: menu, class and title are empty texts after it.
    struct {
        DLGTEMPLATE dialog;
        WORD menu, windowClass, title;
    } const empty = {
        {WS_VISIBLE | (parent ? WS_CHILD : WS_POPUP), WS_EX_CONTROLPARENT, 0, 0, 0, 90, 90}, 0, 0, 0};
    return OwnedWindow(
        CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &empty.dialog, parent, NotingDialog, 0));
}

struct MessageLoop : testing::Test {
    MessageLoop() { received.clear(); }

    // Runs the loop over what has been posted.
    void RunPosted(int exitCode = 0) {
        PostQuitMessage(exitCode);
        EXPECT_EQ(RunMessageLoop(application), exitCode);
    }

    WinLib::Application application{GetModuleHandleW(nullptr), L"", SW_SHOWNORMAL};
};

TEST_F(MessageLoop, ReturnsTheExitCode) {
    RunPosted(0);
    RunPosted(7);
}

TEST_F(MessageLoop, DispatchesWhatIsNotHandled) {
    const OwnedWindow window = MakeWindow(nullptr);
    PostMessageW(window.get(), WM_APP, 5, 0);
    RunPosted();
    EXPECT_EQ(received, (std::vector<Received>{{window.get(), WM_APP, 5}}));
}

TEST_F(MessageLoop, TranslatesKeysIntoCharacters) {
    const OwnedWindow window = MakeWindow(nullptr);
    PostMessageW(window.get(), WM_KEYDOWN, VK_RETURN, 0x001C0001);
    PostMessageW(window.get(), WM_APP, 0, 0);
    RunPosted();
    const std::vector<Received> expected = {
        {window.get(), WM_KEYDOWN, VK_RETURN}, {window.get(), WM_CHAR, L'\r'}, {window.get(), WM_APP, 0}};
    EXPECT_TRUE(std::is_permutation(received.begin(), received.end(), expected.begin(), expected.end(),
                                    [](const Received& a, const Received& b) { return a == b; }))
        << received.size();
}

TEST_F(MessageLoop, OffersKeysToTheDialogs) {
    const OwnedWindow dialog = MakeDialog(nullptr);
    const OwnedWindow control = MakeWindow(dialog.get());
    application.Dialogs.push_back(dialog.get());
    PostMessageW(control.get(), WM_KEYDOWN, VK_RETURN, 1);
    RunPosted();
    EXPECT_EQ(received, (std::vector<Received>{{dialog.get(), WM_COMMAND, IDOK}}));
}

TEST_F(MessageLoop, OffersKeysToTheDialogsInTheirOrder) {
    const OwnedWindow outer = MakeDialog(nullptr);
    const OwnedWindow inner = MakeDialog(outer.get());
    const OwnedWindow control = MakeWindow(inner.get());
    const std::vector<HWND> orders[] = {{outer.get(), inner.get()}, {inner.get(), outer.get()}};
    for (const std::vector<HWND>& order : orders) {
        received.clear();
        application.Dialogs = order;
        PostMessageW(control.get(), WM_KEYDOWN, VK_RETURN, 1);
        RunPosted();
        EXPECT_EQ(received, (std::vector<Received>{{order.front(), WM_COMMAND, IDOK}}));
    }
}

TEST_F(MessageLoop, PassesOverADialogThatIsGone) {
    const OwnedWindow dialog = MakeDialog(nullptr);
    const OwnedWindow control = MakeWindow(dialog.get());
    OwnedWindow gone = MakeDialog(nullptr);
    application.Dialogs = {gone.get(), dialog.get()};
    gone.reset();
    PostMessageW(control.get(), WM_KEYDOWN, VK_RETURN, 1);
    RunPosted();
    EXPECT_EQ(received, (std::vector<Received>{{dialog.get(), WM_COMMAND, IDOK}}));
}

TEST_F(MessageLoop, PutsAcceleratorsBeforeDialogs) {
    const OwnedWindow target = MakeWindow(nullptr);
    const OwnedWindow dialog = MakeDialog(nullptr);
    const OwnedWindow control = MakeWindow(dialog.get());
    ACCEL key = {FVIRTKEY, VK_RETURN, AcceleratorCommand};
    const HACCEL table = CreateAcceleratorTableW(&key, 1);
    application.Dialogs.push_back(dialog.get());
    application.AcceleratorWindow = target.get();
    application.Accelerators = table;
    PostMessageW(control.get(), WM_KEYDOWN, VK_RETURN, 1);
    RunPosted();
    EXPECT_EQ(received,
              (std::vector<Received>{{target.get(), WM_COMMAND, MAKEWPARAM(AcceleratorCommand, 1)}}));

    received.clear();
    application.AcceleratorWindow = nullptr;
    application.Accelerators = nullptr;
    PostMessageW(control.get(), WM_KEYDOWN, VK_RETURN, 1);
    RunPosted();
    EXPECT_EQ(received, (std::vector<Received>{{dialog.get(), WM_COMMAND, IDOK}}));
    DestroyAcceleratorTable(table);
}

// The application of the running test, for the window that refuses its accelerators.
WinLib::Application* refusedFor = nullptr;

LRESULT CALLBACK RefusingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Note(window, message, wParam);
    if (message == WM_COMMAND)
        refusedFor->AcceleratorRefused = LOWORD(wParam) == AcceleratorCommand;
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(MessageLoop, TreatsARefusedAcceleratorAsAnyOtherKey) {
    refusedFor = &application;
    const OwnedWindow target = MakeWindow(nullptr);
    SetWindowLongPtrW(target.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(RefusingProcedure));
    const OwnedWindow dialog = MakeDialog(nullptr);
    const OwnedWindow control = MakeWindow(dialog.get());
    constexpr WORD TakenCommand = VK_F1;
    ACCEL keys[] = {{FVIRTKEY, VK_RETURN, AcceleratorCommand}, {FVIRTKEY, VK_F1, TakenCommand}};
    const HACCEL table = CreateAcceleratorTableW(keys, 2);
    application.Dialogs.push_back(dialog.get());
    application.AcceleratorWindow = target.get();
    application.Accelerators = table;
    const Received refused = {target.get(), WM_COMMAND, MAKEWPARAM(AcceleratorCommand, 1)};
    PostMessageW(control.get(), WM_KEYDOWN, VK_RETURN, 1);
    RunPosted();
    EXPECT_EQ(received, (std::vector<Received>{refused, {dialog.get(), WM_COMMAND, IDOK}}));

    // Other keys and messages are no worse for it.
    received.clear();
    PostMessageW(control.get(), WM_KEYDOWN, VK_RETURN, 1);
    PostMessageW(control.get(), WM_KEYDOWN, VK_F1, 1);
    PostMessageW(control.get(), WM_KEYDOWN, VK_F2, 1);
    RunPosted();
    EXPECT_EQ(received, (std::vector<Received>{refused,
                                               {dialog.get(), WM_COMMAND, IDOK},
                                               {target.get(), WM_COMMAND, MAKEWPARAM(TakenCommand, 1)},
                                               {control.get(), WM_KEYDOWN, VK_F2}}));

    received.clear();
    const OwnedWindow taking = MakeWindow(nullptr);
    application.AcceleratorRefused = true;
    application.AcceleratorWindow = taking.get();
    PostMessageW(control.get(), WM_KEYDOWN, VK_RETURN, 1);
    RunPosted();
    EXPECT_EQ(received,
              (std::vector<Received>{{taking.get(), WM_COMMAND, MAKEWPARAM(AcceleratorCommand, 1)}}));
    DestroyAcceleratorTable(table);
}

TEST_F(MessageLoop, LetsExceptionsOfWindowsThrough) {
    const OwnedWindow window = MakeWindow(nullptr);
    PostMessageW(window.get(), ThrowMessage, 0, 0);
    EXPECT_THROW(RunMessageLoop(application), WinLib::Exception);
}

}  // namespace
