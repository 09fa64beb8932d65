// That the tests' user does what a person does, and notices what a person notices.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "support/ui/DismissModal.h"
#include "support/ui/Input.h"
#include "support/ui/MessageBoxAnswerer.h"
#include "support/ui/ReplacedImport.h"
#include "winlib/WindowText.h"

namespace {

using namespace std::chrono_literals;

// A window with a push button and two edit controls, which the Tab key passes in this order.
class UiSupport : public testing::Test {
protected:
    UiSupport()
        : window(Make(L"#32770", WS_POPUP | WS_VISIBLE, 0, nullptr)),
          button(Make(L"BUTTON", BS_PUSHBUTTON | Child, ButtonId, window)),
          first(Make(L"EDIT", Child, 11, window)),
          second(Make(L"EDIT", Child, 12, window)),
          pump(window) {
        clicks = 0;
        SetWindowLongPtrW(window, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(CountClicks));
        SetFocus(first);
    }
    ~UiSupport() override { DestroyWindow(window); }

    static constexpr int ButtonId = 10;
    static constexpr DWORD Child = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

    static HWND Make(const wchar_t* className, DWORD style, INT_PTR id, HWND parent) {
        return CreateWindowExW(0, className, L"", style, 0, 0, 80, 20, parent, reinterpret_cast<HMENU>(id),
                               GetModuleHandleW(nullptr), nullptr);
    }

    static INT_PTR CALLBACK CountClicks(HWND, UINT message, WPARAM wParam, LPARAM) {
        if (message == WM_COMMAND && wParam == MAKEWPARAM(ButtonId, BN_CLICKED))
            ++clicks;
        return FALSE;
    }

    inline static int clicks = 0;

    HWND window;
    HWND button;
    HWND first;
    HWND second;
    Ui::MessagePump pump;
};

TEST_F(UiSupport, ClickPressesAButton) {
    Ui::Click(button);
    EXPECT_EQ(clicks, 1);
}

TEST_F(UiSupport, ClickDoesNothingToWhatTakesNoInput) {
    EnableWindow(button, FALSE);
    Ui::Click(button);
    EnableWindow(button, TRUE);
    EnableWindow(window, FALSE);
    Ui::Click(button);
    EnableWindow(window, TRUE);
    ShowWindow(button, SW_HIDE);
    Ui::Click(button);
    EXPECT_EQ(clicks, 0);
}

TEST_F(UiSupport, KeysGoToTheFocusAndMoveIt) {
    Ui::TypeText(pump, L"one");
    Ui::TypeKeys(pump, {VK_TAB});
    EXPECT_EQ(GetFocus(), second);
    Ui::TypeText(pump, L"two");
    EXPECT_EQ(WinLib::GetWindowText(first), L"one");
    EXPECT_EQ(WinLib::GetWindowText(second), L"two");
    Ui::TypeKeys(pump, {VK_TAB}, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), first);
    Ui::TypeKeys(pump, {VK_TAB, VK_TAB});
    EXPECT_EQ(GetFocus(), button);
    Ui::TypeKeys(pump, {VK_SPACE});
    EXPECT_EQ(clicks, 1);
}

TEST_F(UiSupport, ThePumpWaitsForAnotherThread) {
    std::atomic<bool> done = false;
    std::thread other([&] {
        // Served by the pump.
        SendMessageW(window, WM_COMMAND, MAKEWPARAM(ButtonId, BN_CLICKED), 0);
        done = true;
    });
    EXPECT_TRUE(pump.RunUntil([&] { return done.load(); }, 10s, "the other thread"));
    other.join();
    EXPECT_EQ(clicks, 1);
}

TEST_F(UiSupport, ThePumpReportsWhatItWaitedForInVain) {
    bool came = true;
    EXPECT_NONFATAL_FAILURE(came = pump.RunUntil([] { return false; }, 1ms, "the cows"),
                            "timed out waiting for the cows");
    EXPECT_FALSE(came);
}

TEST_F(UiSupport, BoxesOfThisThreadAreAnsweredAndRead) {
    const Ui::DismissModal user(IDNO);
    EXPECT_EQ(MessageBoxW(window, L"Really?", L"Question", MB_YESNO), IDNO);
    EXPECT_EQ(MessageBoxW(nullptr, L"Again?", L"Question", MB_YESNO), IDNO);
    ASSERT_EQ(user.Seen().size(), 2U);
    EXPECT_EQ(user.Seen()[0].caption, L"Question");
    EXPECT_EQ(user.Seen()[0].text, L"Really?");
    EXPECT_EQ(user.Seen()[0].owner, window);
    EXPECT_EQ(user.Seen()[1].text, L"Again?");
    EXPECT_EQ(user.Seen()[1].owner, nullptr);
}

// The action itself opens a box, which the inner user answers.
TEST_F(UiSupport, AnActionMayOpenABoxOfItsOwn) {
    int inner = 0;
    const Ui::DismissModal user([&](HWND box) {
        const Ui::DismissModal innerUser(IDCANCEL);
        inner = MessageBoxW(box, L"Inner", L"Box", MB_OKCANCEL);
        EndDialog(box, IDYES);
    });
    EXPECT_EQ(MessageBoxW(window, L"Outer", L"Box", MB_YESNO), IDYES);
    EXPECT_EQ(inner, IDCANCEL);
    EXPECT_EQ(user.Seen().size(), 1U);
}

TEST_F(UiSupport, BoxesOfOtherThreadsAreAnswered) {
    const Ui::MessageBoxAnswerer answerer;
    std::atomic<int> answer = 0;
    std::thread worker([&] { answer = MessageBoxW(window, L"Failed.", L"Worker", MB_ICONERROR); });
    EXPECT_TRUE(pump.RunUntil([&] { return answer != 0; }, 10s, "the answer to the worker's box"));
    worker.join();
    EXPECT_EQ(answer, IDOK);
    ASSERT_EQ(answerer.Seen().size(), 1U);
    EXPECT_EQ(answerer.Seen()[0].caption, L"Worker");
    EXPECT_EQ(answerer.Seen()[0].text, L"Failed.");
    EXPECT_EQ(answerer.Seen()[0].owner, window);
}

BOOL WINAPI FortySeven(HWND) {
    return 47;
}

TEST_F(UiSupport, AReplacedImportLeadsElsewhereAndBack) {
    EXPECT_TRUE(IsWindow(window));
    {
        const Ui::ReplacedImport replaced("IsWindow", FortySeven);
        EXPECT_EQ(IsWindow(nullptr), 47);
    }
    EXPECT_FALSE(IsWindow(nullptr));
    EXPECT_THROW(Ui::ReplacedImport("NoSuchFunction", FortySeven), std::runtime_error);
}

}  // namespace
