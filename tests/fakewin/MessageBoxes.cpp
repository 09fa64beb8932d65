// Message boxes and the user who answers them.
#include <algorithm>
#include <chrono>
#include <optional>

#include "Internal.h"
#include "WindowWorld.h"

namespace FakeWin {
namespace {

using namespace Internal;

// A box that waits for its answer.
struct Box {
    std::shared_ptr<Queue> queue;
    std::optional<int> answer;
};

// Under the mutex of the windows, as all of this file.
struct Boxes {
    std::vector<MessageBoxCall> calls;
    std::vector<std::shared_ptr<Box>> waiting;
    std::function<int(const MessageBoxCall&)> user;
    int answer = IDOK;
    int failure = 0;
    bool hold = false;
};

Boxes& State() {
    static Boxes boxes;
    return boxes;
}

// Records the box and finds out how it is to be answered: by the user function, by a test that releases it
// later, or at once.
struct Answering {
    MessageBoxCall call;
    std::function<int(const MessageBoxCall&)> user;
    std::shared_ptr<Box> box;
    int answer;
};

Answering Show(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) {
    const std::lock_guard lock(WindowsMutex());
    Answering answering;
    answering.call = {owner,
                      text != nullptr ? text : L"",
                      caption != nullptr ? caption : L"Error",
                      type,
                      owner != nullptr && FindWindow(owner) != nullptr,
                      std::this_thread::get_id()};
    State().calls.push_back(answering.call);
    answering.user = State().user;
    answering.answer = State().answer;
    if (!answering.user && State().hold) {
        answering.box = std::make_shared<Box>(Box{MyQueue(), std::nullopt});
        State().waiting.push_back(answering.box);
    }
    WindowsChanged().notify_all();
    return answering;
}

int WaitForAnswer(const Answering& answering) {
    if (answering.user)
        return answering.user(answering.call);
    if (!answering.box)
        return answering.answer;
    RunLoop([&] { return answering.box->answer.has_value(); },
            [](MSG& message) { DispatchMessageW(&message); });
    const std::lock_guard lock(WindowsMutex());
    std::erase(State().waiting, answering.box);
    return answering.box->answer.value_or(0);
}

int Failed(DWORD error) {
    SetLastError(error);
    const std::lock_guard lock(WindowsMutex());
    return State().failure;
}

}  // namespace

std::vector<MessageBoxCall> MessageBoxes() {
    const std::lock_guard lock(WindowsMutex());
    return State().calls;
}

void AnswerMessageBoxes(int answer) {
    const std::lock_guard lock(WindowsMutex());
    State().answer = answer;
}

void SetMessageBoxFailure(int result) {
    const std::lock_guard lock(WindowsMutex());
    State().failure = result;
}

void OnMessageBox(std::function<int(const MessageBoxCall&)> user) {
    const std::lock_guard lock(WindowsMutex());
    State().user = std::move(user);
}

void HoldMessageBoxes() {
    const std::lock_guard lock(WindowsMutex());
    State().hold = true;
}

void ReleaseMessageBox(int answer) {
    std::unique_lock lock(WindowsMutex());
    std::shared_ptr<Box> box;
    WindowsChanged().wait_for(lock, std::chrono::seconds(10), [&] {
        const auto found = std::ranges::find_if(
            State().waiting, [](const auto& waiting) { return !waiting->answer.has_value(); });
        if (found != State().waiting.end())
            box = *found;
        return box != nullptr;
    });
    if (!box)
        return;
    box->answer = answer;
    box->queue->wake.notify_all();
}

bool WaitForMessageBox(int count) {
    std::unique_lock lock(WindowsMutex());
    return WindowsChanged().wait_for(lock, std::chrono::seconds(10),
                                     [&] { return State().calls.size() >= static_cast<size_t>(count); });
}

namespace Internal {

void ResetMessageBoxes() {
    const std::lock_guard lock(WindowsMutex());
    for (const std::shared_ptr<Box>& box : State().waiting) {
        box->answer = 0;
        box->queue->wake.notify_all();
    }
    State() = Boxes();
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) {
    if (const DWORD fault = Watched(Call::MessageBoxW, text != nullptr ? text : L""))
        return Failed(fault);
    const Answering answering = Show(owner, text, caption, type);
    if (owner != nullptr && !answering.call.ownerExisted)
        return Failed(ERROR_INVALID_WINDOW_HANDLE);
    // The owner's thread has to serve what disables and enables its window.
    const bool ownerWasEnabled = owner != nullptr && IsWindowEnabled(owner);
    if (ownerWasEnabled)
        EnableWindow(owner, FALSE);
    const int answer = WaitForAnswer(answering);
    if (ownerWasEnabled)
        EnableWindow(owner, TRUE);
    return answer;
}
