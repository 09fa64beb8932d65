#include "WindowWorld.h"

#include <algorithm>

#include "Internal.h"

namespace FakeWin::Internal {
namespace {

// Ends each message that waits in the queue for this window, or for any if it is null, without an answer.
// Under the mutex.
void FailSent(Queue& queue, HWND window) {
    std::erase_if(
        queue.sent,
        [window](const std::shared_ptr<SentMessage>& sent) {
            if (window != nullptr && sent->window != window)
                return false;
            sent->done = true;
            sent->sender->wake.notify_all();
            return true;
        });
}

// The queue of a thread goes with the thread, and its windows with the queue.
class QueueOwner {
public:
    QueueOwner() : queue_(std::make_shared<Queue>()) {
        queue_->thread = std::this_thread::get_id();
        Windows().queues.push_back(queue_);
    }
    ~QueueOwner() {
        const std::lock_guard lock(WindowsMutex());
        FailSent(*queue_, nullptr);
        std::erase_if(
            Windows().windows, [this](const auto& entry) { return entry.second->queue == queue_; });
        std::erase_if(Windows().queues, [this](const auto& queue) { return queue.lock() == queue_; });
        WindowsChanged().notify_all();
    }
    QueueOwner(const QueueOwner&) = delete;
    QueueOwner& operator=(const QueueOwner&) = delete;

    const std::shared_ptr<Queue>& Get() const { return queue_; }

private:
    std::shared_ptr<Queue> queue_;
};

}  // namespace

std::mutex& WindowsMutex() {
    static std::mutex mutex;
    return mutex;
}

std::condition_variable& WindowsChanged() {
    static std::condition_variable changed;
    return changed;
}

WindowWorld& Windows() {
    static WindowWorld world;
    return world;
}

std::shared_ptr<Window> FindWindow(HWND handle) {
    const auto found = Windows().windows.find(handle);
    if (found != Windows().windows.end())
        return found->second;
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
}

std::shared_ptr<Queue> MyQueue() {
    thread_local const QueueOwner owner;
    return owner.Get();
}

void DropWindow(HWND handle) {
    const std::shared_ptr<Window> window = FindWindow(handle);
    if (!window)
        return;
    Windows().windows.erase(handle);
    FailSent(*window->queue, handle);
    std::erase_if(window->queue->posted, [handle](const MSG& message) { return message.hwnd == handle; });
    if (window->queue->focus == handle)
        window->queue->focus = nullptr;
    if (const std::shared_ptr<Window> parent = FindWindow(window->parent))
        std::erase(parent->children, handle);
    window->queue->wake.notify_all();
    WindowsChanged().notify_all();
}

HWND NextHandle() {
    static LONG_PTR last = 0x20000;
    return reinterpret_cast<HWND>(last += 2);
}

void ResetWindows() {
    ResetMessageBoxes();
    const std::lock_guard lock(WindowsMutex());
    std::vector<std::weak_ptr<Queue>> queues = std::move(Windows().queues);
    for (const std::weak_ptr<Queue>& weak : queues) {
        if (const std::shared_ptr<Queue> queue = weak.lock()) {
            FailSent(*queue, nullptr);
            queue->posted.clear();
            queue->quit = false;
            queue->wake.notify_all();
        }
    }
    Windows() = WindowWorld();
    Windows().queues = std::move(queues);
    WindowsChanged().notify_all();
}

}  // namespace FakeWin::Internal
