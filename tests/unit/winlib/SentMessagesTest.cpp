#include "winlib/SentMessages.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "TestWindows.h"

namespace {

constexpr UINT Sent = WM_USER + 1;
constexpr UINT Posted = WM_USER + 2;

int sentCount = 0;
int postedCount = 0;

LRESULT CALLBACK Count(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == Sent)
        return ++sentCount;
    if (message == Posted)
        return ++postedCount;
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST(SentMessages, ReturnsAtOnceWhenThereIsNothingToWaitFor) {
    int asked = 0;
    WinLib::WaitServingSentMessages([&] {
        ++asked;
        return true;
    });
    EXPECT_EQ(asked, 1);
}

// Each of the worker's calls blocks until this thread serves it.
TEST(SentMessages, AreServedWhileWaiting) {
    const HWND window = TestWindows::MakeWindow(Count);
    sentCount = 0;
    std::atomic<bool> done = false;
    LRESULT last = 0;
    std::thread worker([&] {
        SendMessageW(window, Sent, 0, 0);
        SendMessageW(window, Sent, 0, 0);
        last = SendMessageW(window, Sent, 0, 0);
        done = true;
    });
    WinLib::WaitServingSentMessages([&] { return done.load(); });
    worker.join();
    EXPECT_EQ(sentCount, 3);
    EXPECT_EQ(last, 3);
    DestroyWindow(window);
}

TEST(SentMessages, LeavesPostedMessagesInTheQueue) {
    const HWND window = TestWindows::MakeWindow(Count);
    postedCount = 0;
    PostMessageW(window, Posted, 0, 0);
    int asked = 0;
    WinLib::WaitServingSentMessages([&] { return ++asked == 103; });
    EXPECT_EQ(postedCount, 0);
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, window, Posted, Posted, PM_REMOVE));
    DestroyWindow(window);
}

}  // namespace
