// The state of the window calls. One mutex guards all of it; no procedure of a window and no callback of
// a test runs while it is held. What happens to a window happens on the thread that made it, through its
// queue.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "FakeWindows.h"

namespace FakeWin::Internal {

struct Queue;

// A message on its way to another thread, whose sender waits.
struct SentMessage {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    std::shared_ptr<Queue> sender;
    LRESULT result = 0;
    bool done = false;
};

// What each thread has that makes windows or sends messages.
struct Queue {
    std::thread::id thread;
    std::condition_variable wake;  // something arrived, or something that the thread waits for has come true
    std::deque<MSG> posted;
    std::deque<std::shared_ptr<SentMessage>> sent;
    HWND focus = nullptr;  // one of the thread's windows or null
    bool quit = false;
    int exitCode = 0;
};

struct DialogState {
    int templateId = 0;
    DLGPROC procedure = nullptr;
    LONG_PTR messageResult = 0;
    LONG_PTR user = 0;
    bool enablesOwner = false;  // at its end: it is modal and has disabled its owner
    bool inLoop = false;
    bool ended = false;
    INT_PTR result = 0;
};

struct Window {
    HWND handle;
    std::shared_ptr<Queue> queue;
    std::wstring className;
    std::wstring text;
    DWORD style;
    DWORD exStyle;
    RECT rect;    // of a child in client coordinates of its parent, else on the screen
    HWND parent;  // of a child its parent, else the owner or null
    int id;       // of a child
    WNDPROC procedure;
    HINSTANCE instance;
    LONG_PTR userData = 0;
    int moves = 0;
    LONG_PTR progress = 0;                // of a progress bar its position
    std::map<WPARAM, HICON> icons;        // by their kind
    std::unique_ptr<DialogState> dialog;  // null for other windows
    std::vector<HWND> children;           // the topmost first
};

struct WindowWorld {
    std::map<HWND, std::shared_ptr<Window>> windows;
    std::vector<std::weak_ptr<Queue>> queues;
    std::map<int, DialogTemplate> templates;
    std::map<int, std::function<void(HWND)>> shown;
    std::map<HWND, std::vector<Message>> posted;
    std::map<HWND, std::vector<Message>> controlMessages;
    std::map<HICON, Icon> icons;
    bool hasDesktop = true;
    RECT desktop = {0, 0, 1024, 768};
};

std::mutex& WindowsMutex();

// Notified whenever something happens that a test may wait for.
std::condition_variable& WindowsChanged();

// To be used under the mutex.
WindowWorld& Windows();
std::shared_ptr<Window> FindWindow(HWND handle);  // null, and the last error set, if there is none
std::shared_ptr<Queue> MyQueue();
void DropWindow(HWND handle);
HWND NextHandle();

// Runs use(window) under the mutex. False, and the last error set, if there is no such window.
template <typename Use>
bool WithWindow(HWND handle, Use use) {
    const std::lock_guard lock(WindowsMutex());
    const std::shared_ptr<Window> window = FindWindow(handle);
    if (!window)
        return false;
    use(*window);
    return true;
}

// Calls the window's procedure on this thread.
LRESULT CallProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Serves one message sent to this thread, if there is one. Under the lock, which is released meanwhile.
bool ServeSent(std::unique_lock<std::mutex>& lock);

// Serves sent messages and dispatches posted ones on this thread until done, which runs under the mutex, is
// true. pump gets each posted message. Returns at once when the thread is to quit.
void RunLoop(const std::function<bool()>& done, const std::function<void(MSG&)>& pump);

// The procedures of dialogs and of controls.
LRESULT DialogWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// How much wider than its client area a window is on each side.
RECT FrameOf(DWORD style, bool menu, DWORD exStyle);

inline constexpr LONG_PTR DesktopHandle = 0x10010;
inline constexpr LONG_PTR ProgramInstance = 0x400000;

void ResetMessageBoxes();

}  // namespace FakeWin::Internal
