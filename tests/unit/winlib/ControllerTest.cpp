#include "winlib/Controller.h"

#include <gtest/gtest.h>

#include <vector>

#include "TestWindows.h"

using WinLib::DialogProcedure;
using WinLib::WindowProcedure;

namespace {

struct Received {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

// What a window's own procedure got.
std::vector<Received> received;

constexpr LRESULT OwnResult = 4711;

LRESULT CALLBACK OwnProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message < WM_USER && message != WM_COMMAND)
        return DefWindowProcW(window, message, wParam, lParam);
    received.push_back({window, message, wParam, lParam});
    return OwnResult;
}

LONG_PTR UserDataOf(HWND window) {
    return GetWindowLongPtrW(window, GWLP_USERDATA);
}

WNDPROC ProcedureOf(HWND window) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

class ControlProbe : public WinLib::Window::Controller {
public:
    static constexpr UINT Handled = WM_USER + 1;
    static constexpr UINT Unhandled = WM_USER + 2;
    static constexpr UINT Nested = WM_USER + 3;

    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        switch (message) {
            case Handled:
                EXPECT_EQ(result, 0);
                result = static_cast<LRESULT>(wParam) + lParam;
                return true;
            case Nested:
                // A message within the message; it must not disturb the parameters of the outer one.
                result = SendMessageW(Handle, Handled, 100, 20) + static_cast<LRESULT>(wParam);
                return true;
            default:
                return Controller::OnMessage(message, wParam, lParam, result);
        }
    }
    void OnAttach() override { HandleAtAttach = Handle; }
    void OnDetach() override { HandleAtDetach = Handle; }

    HWND HandleAtAttach = nullptr;
    HWND HandleAtDetach = nullptr;
};

class AttachedControl : public testing::Test {
protected:
    AttachedControl() : window(TestWindows::MakeWindow(OwnProcedure)) { received.clear(); }
    ~AttachedControl() override { DestroyWindow(window); }

    HWND window;
    ControlProbe probe;
};

TEST_F(AttachedControl, IsUnattachedAtFirst) {
    EXPECT_EQ(probe.Handle, nullptr);
    EXPECT_EQ(probe.OldProcedure, &DefWindowProcW);
}

TEST_F(AttachedControl, AttachPutsTheControllerBetweenWindowAndProcedure) {
    const WNDPROC before = ProcedureOf(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, 1);
    WinLib::Attach(probe, window);
    EXPECT_EQ(probe.Handle, window);
    EXPECT_EQ(probe.HandleAtAttach, window);
    EXPECT_EQ(probe.Procedure, &WindowProcedure);
    EXPECT_EQ(probe.OldProcedure, before);
    EXPECT_EQ(ProcedureOf(window), &WindowProcedure);
    EXPECT_EQ(UserDataOf(window),
              reinterpret_cast<LONG_PTR>(static_cast<WinLib::Window::Controller*>(&probe)));
}

TEST_F(AttachedControl, AHandledMessageGivesItsResult) {
    WinLib::Attach(probe, window);
    EXPECT_EQ(SendMessageW(window, ControlProbe::Handled, 3, 4), 7);
    EXPECT_TRUE(received.empty());
}

TEST_F(AttachedControl, AnUnhandledMessageReachesItsOwnProcedureUnchanged) {
    WinLib::Attach(probe, window);
    EXPECT_EQ(SendMessageW(window, ControlProbe::Unhandled, 3, 4), OwnResult);
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].window, window);
    EXPECT_EQ(received[0].message, ControlProbe::Unhandled);
    EXPECT_EQ(received[0].wParam, 3U);
    EXPECT_EQ(received[0].lParam, 4);
}

TEST_F(AttachedControl, AnUnhandledCommandAndNotificationReachTheProcedureToo) {
    WinLib::Attach(probe, window);
    EXPECT_EQ(SendMessageW(window, WM_COMMAND, 100, 0), OwnResult);
    NMHDR header = {};
    EXPECT_EQ(SendMessageW(window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 0);
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].wParam, 100U);
}

// From a menu, from an accelerator, and from a control.
TEST_F(AttachedControl, HandlesNoCommandOfItsOwn) {
    WinLib::Attach(probe, window);
    const struct {
        WPARAM wParam;
        LPARAM lParam;
    } commands[] = {
        {MAKEWPARAM(100, 0), 0},
        {MAKEWPARAM(100, 1), 0},
        {MAKEWPARAM(100, BN_CLICKED), reinterpret_cast<LPARAM>(window)},
        {MAKEWPARAM(IDCANCEL, BN_CLICKED), reinterpret_cast<LPARAM>(window)},
    };
    for (const auto& [wParam, lParam] : commands) {
        received.clear();
        EXPECT_EQ(SendMessageW(window, WM_COMMAND, wParam, lParam), OwnResult) << wParam;
        ASSERT_EQ(received.size(), 1U) << wParam;
        EXPECT_EQ(received[0].wParam, wParam);
        EXPECT_EQ(received[0].lParam, lParam);
    }
}

TEST_F(AttachedControl, AMessageWithinAMessageDisturbsNothing) {
    WinLib::Attach(probe, window);
    EXPECT_EQ(SendMessageW(window, ControlProbe::Nested, 3000, 0), 3120);
}

TEST_F(AttachedControl, DetachGivesTheWindowItsProcedureBack) {
    const WNDPROC before = ProcedureOf(window);
    WinLib::Attach(probe, window);
    WinLib::Detach(probe);
    EXPECT_EQ(probe.HandleAtDetach, window);
    EXPECT_EQ(probe.Handle, nullptr);
    EXPECT_EQ(ProcedureOf(window), before);
    EXPECT_EQ(UserDataOf(window), 0);
    EXPECT_EQ(SendMessageW(window, ControlProbe::Handled, 3, 4), OwnResult);
}

TEST_F(AttachedControl, AttachesAgainAfterDetach) {
    WinLib::Attach(probe, window);
    WinLib::Detach(probe);
    WinLib::Attach(probe, window);
    EXPECT_EQ(SendMessageW(window, ControlProbe::Handled, 3, 4), 7);
    EXPECT_EQ(SendMessageW(window, ControlProbe::Unhandled, 3, 4), OwnResult);
}

class ThrowingControl : public WinLib::Window::Controller {
public:
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        if (message == WM_USER)
            throw 1;
        return Controller::OnMessage(message, wParam, lParam, result);
    }
};

TEST_F(AttachedControl, ProceduresLetExceptionsThrough) {
    ThrowingControl thrower;
    WinLib::Attach(thrower, window);
    EXPECT_THROW(WindowProcedure(window, WM_USER, 0, 0), int);
    EXPECT_THROW(DialogProcedure(window, WM_USER, 0, 0), int);
    EXPECT_THROW(SendMessageW(window, WM_USER, 0, 0), int);
    DestroyWindow(window);
}

TEST_F(AttachedControl, ADestroyedWindowStillPointsToItsController) {
    ControlProbe other;
    const HWND shortLived = TestWindows::MakeWindow(OwnProcedure);
    WinLib::Attach(other, shortLived);
    DestroyWindow(shortLived);
    EXPECT_EQ(other.Handle, shortLived);
}

TEST_F(AttachedControl, AControllerThatGoesFirstIsForgotten) {
    {
        ControlProbe shortLived;
        WinLib::Attach(shortLived, window);
    }
    EXPECT_EQ(UserDataOf(window), 0);
    EXPECT_EQ(SendMessageW(window, ControlProbe::Handled, 3, 4), 0);
}

TEST_F(AttachedControl, APlainControllerAttachesAndDetaches) {
    WinLib::Window::Controller plain;
    WinLib::Attach(plain, window);
    EXPECT_EQ(SendMessageW(window, ControlProbe::Handled, 3, 4), OwnResult);
    WinLib::Detach(plain);
    EXPECT_EQ(plain.Handle, nullptr);
    EXPECT_EQ(SendMessageW(window, ControlProbe::Handled, 3, 4), OwnResult);
}

TEST(WindowProcedure, WithoutControllerIsTheDefault) {
    const HWND window = TestWindows::MakeWindow();
    EXPECT_EQ(WindowProcedure(window, ControlProbe::Handled, 3, 4), 0);
    CREATESTRUCTW creation = {};
    WindowProcedure(window, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&creation));
    EXPECT_EQ(UserDataOf(window), 0);
    DestroyWindow(window);
}

TEST(WindowProcedure, TakesTheControllerThatAWindowIsMadeWith) {
    const HWND window = TestWindows::MakeWindow();
    ControlProbe probe;
    CREATESTRUCTW creation = {};
    creation.lpCreateParams = static_cast<WinLib::Window::Controller*>(&probe);
    WindowProcedure(window, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&creation));
    EXPECT_EQ(probe.Handle, window);
    EXPECT_EQ(WindowProcedure(window, ControlProbe::Handled, 3, 4), 7);
    DestroyWindow(window);
}

}  // namespace
