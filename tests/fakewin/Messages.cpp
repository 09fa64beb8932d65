// Sending, posting and taking messages.
#include <algorithm>
#include <utility>

#include "Internal.h"
#include "WindowWorld.h"

namespace FakeWin::Internal {
namespace {

// Wakes the sender of a message when it was handled, also if the window procedure throws.
class Completion {
public:
    Completion(std::unique_lock<std::mutex>& lock, std::shared_ptr<SentMessage> sent)
        : lock_(lock), sent_(std::move(sent)) {
        lock_.unlock();
    }
    ~Completion() {
        lock_.lock();
        sent_->done = true;
        sent_->sender->wake.notify_all();
    }
    Completion(const Completion&) = delete;
    Completion& operator=(const Completion&) = delete;

private:
    std::unique_lock<std::mutex>& lock_;
    std::shared_ptr<SentMessage> sent_;
};

bool IsWanted(const MSG& message, HWND window, UINT first, UINT last) {
    const bool inRange = (first == 0 && last == 0) || (message.message >= first && message.message <= last);
    return inRange && (window == nullptr || message.hwnd == window);
}

// Takes or only looks at the first posted message that is wanted. Under the mutex.
bool TakePosted(Queue& queue, MSG& message, HWND window, UINT first, UINT last, bool remove) {
    const auto found = std::ranges::find_if(
        queue.posted, [&](const MSG& waiting) { return IsWanted(waiting, window, first, last); });
    if (found == queue.posted.end())
        return false;
    message = *found;
    if (remove)
        queue.posted.erase(found);
    return true;
}

bool TakeQuit(Queue& queue, MSG& message, bool remove) {
    if (!queue.quit)
        return false;
    message = {nullptr, WM_QUIT, static_cast<WPARAM>(queue.exitCode), 0, 0, {}};
    queue.quit = !remove;
    return true;
}

}  // namespace

LRESULT CallProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    WNDPROC procedure = nullptr;
    WithWindow(window, [&](const Window& found) { procedure = found.procedure; });
    return procedure != nullptr ? procedure(window, message, wParam, lParam) : 0;
}

bool ServeSent(std::unique_lock<std::mutex>& lock) {
    const std::shared_ptr<Queue> queue = MyQueue();
    if (queue->sent.empty())
        return false;
    const std::shared_ptr<SentMessage> sent = queue->sent.front();
    queue->sent.pop_front();
    const Completion completion(lock, sent);
    sent->result = CallProcedure(sent->window, sent->message, sent->wParam, sent->lParam);
    return true;
}

void RunLoop(const std::function<bool()>& done, const std::function<void(MSG&)>& pump) {
    std::unique_lock lock(WindowsMutex());
    const std::shared_ptr<Queue> queue = MyQueue();
    while (!done() && !queue->quit) {
        MSG message;
        if (ServeSent(lock))
            continue;
        if (TakePosted(*queue, message, nullptr, 0, 0, true)) {
            lock.unlock();
            pump(message);
            lock.lock();
        } else {
            queue->wake.wait(lock);
        }
    }
}

}  // namespace FakeWin::Internal

using namespace FakeWin;
using namespace FakeWin::Internal;

LRESULT SendMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    std::unique_lock lock(WindowsMutex());
    const std::shared_ptr<Queue> mine = MyQueue();
    const std::shared_ptr<Window> window = FindWindow(handle);
    if (!window)
        return 0;
    if (window->queue == mine) {
        lock.unlock();
        return CallProcedure(handle, message, wParam, lParam);
    }
    const auto sent = std::make_shared<SentMessage>(SentMessage{handle, message, wParam, lParam, mine});
    window->queue->sent.push_back(sent);
    window->queue->wake.notify_all();
    while (!sent->done)
        if (!ServeSent(lock))
            mine->wake.wait(lock);
    return sent->result;
}

BOOL PostMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD error = Enter(Call::PostMessageW);
    const std::lock_guard lock(WindowsMutex());
    std::shared_ptr<Queue> queue = MyQueue();
    if (error == 0 && handle != nullptr) {
        const std::shared_ptr<Window> window = FindWindow(handle);
        if (window)
            queue = window->queue;
        else
            error = ERROR_INVALID_WINDOW_HANDLE;
    }
    if (error != 0)
        return Succeeded(error);
    queue->posted.push_back({handle, message, wParam, lParam, 0, {}});
    Windows().posted[handle].push_back({message, wParam, lParam, std::this_thread::get_id()});
    queue->wake.notify_all();
    WindowsChanged().notify_all();
    return TRUE;
}

BOOL GetMessageW(LPMSG message, HWND window, UINT first, UINT last) {
    if (const DWORD fault = Enter(Call::GetMessageW))
        return SetLastError(fault), -1;
    std::unique_lock lock(WindowsMutex());
    if (window != nullptr && !FindWindow(window))
        return -1;
    const std::shared_ptr<Queue> queue = MyQueue();
    while (true) {
        if (ServeSent(lock))
            continue;
        if (TakePosted(*queue, *message, window, first, last, true))
            return message->message != WM_QUIT;
        if (TakeQuit(*queue, *message, true))
            return FALSE;
        queue->wake.wait(lock);
    }
}

BOOL PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
    std::unique_lock lock(WindowsMutex());
    while (ServeSent(lock)) {
    }
    const UINT kinds = remove >> 16;
    if (kinds != 0 && (kinds & QS_POSTMESSAGE) == 0)
        return FALSE;
    const std::shared_ptr<Queue> queue = MyQueue();
    const bool take = (remove & PM_REMOVE) != 0;
    return TakePosted(*queue, *message, window, first, last, take) || TakeQuit(*queue, *message, take);
}

void PostQuitMessage(int exitCode) {
    const std::lock_guard lock(WindowsMutex());
    const std::shared_ptr<Queue> queue = MyQueue();
    queue->quit = true;
    queue->exitCode = exitCode;
}

BOOL TranslateMessage(const MSG*) {
    return FALSE;
}

// There are no accelerator tables here.
int TranslateAcceleratorW(HWND, HACCEL, LPMSG) {
    return 0;
}

LRESULT DispatchMessageW(const MSG* message) {
    return message->hwnd != nullptr
               ? CallProcedure(message->hwnd, message->message, message->wParam, message->lParam)
               : 0;
}

LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return procedure(window, message, wParam, lParam);
}

LRESULT DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    switch (message) {
        case WM_NCCREATE:
            return TRUE;
        case WM_CLOSE:
            DestroyWindow(handle);
            return 0;
        case WM_SETTEXT:
            WithWindow(handle, [&](Window& window) {
                const auto* text = reinterpret_cast<LPCWSTR>(lParam);
                window.text = text != nullptr ? text : L"";
                result = TRUE;
            });
            WindowsChanged().notify_all();
            return result;
        case WM_GETTEXTLENGTH:
            WithWindow(handle,
                       [&](const Window& window) { result = static_cast<LRESULT>(window.text.size()); });
            return result;
        case WM_GETTEXT:
            WithWindow(handle, [&](const Window& window) {
                const size_t length = wParam == 0 ? 0 : std::min<size_t>(window.text.size(), wParam - 1);
                if (wParam != 0)
                    *std::copy_n(window.text.data(), length, reinterpret_cast<LPWSTR>(lParam)) = 0;
                result = static_cast<LRESULT>(length);
            });
            return result;
        case WM_SETICON:
            WithWindow(handle, [&](Window& window) {
                result = reinterpret_cast<LRESULT>(
                    std::exchange(window.icons[wParam], reinterpret_cast<HICON>(lParam)));
            });
            return result;
        case WM_GETICON:
            WithWindow(handle,
                       [&](Window& window) { result = reinterpret_cast<LRESULT>(window.icons[wParam]); });
            return result;
        default:
            return 0;
    }
}
