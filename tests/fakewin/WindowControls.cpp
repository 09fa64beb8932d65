// The tests' side of the windows.
#include <chrono>

#include "Internal.h"
#include "WindowWorld.h"

namespace FakeWin {
namespace {

using namespace Internal;

constexpr auto Patience = std::chrono::seconds(10);

template <typename Condition>
bool WaitFor(Condition condition) {
    std::unique_lock lock(WindowsMutex());
    return WindowsChanged().wait_for(lock, Patience, condition);
}

HWND AddPlain(const std::wstring& className, const std::wstring& title, DWORD style, RECT rect, HWND parent,
              int id, WNDPROC procedure) {
    const std::lock_guard lock(WindowsMutex());
    auto window = std::make_shared<Window>();
    window->handle = NextHandle();
    window->queue = MyQueue();
    window->className = className;
    window->text = title;
    window->style = style;
    window->exStyle = 0;
    window->rect = rect;
    window->parent = parent;
    window->id = id;
    window->procedure = procedure;
    window->instance = reinterpret_cast<HINSTANCE>(ProgramInstance);
    Windows().windows[window->handle] = window;
    if (const std::shared_ptr<Window> above = FindWindow(parent))
        above->children.push_back(window->handle);
    return window->handle;
}

std::vector<Message> Copy(const std::map<HWND, std::vector<Message>>& messages, HWND window) {
    const auto found = messages.find(window);
    return found == messages.end() ? std::vector<Message>() : found->second;
}

}  // namespace

void DefineDialog(int templateId, DialogTemplate dialog) {
    const std::lock_guard lock(WindowsMutex());
    Windows().templates[templateId] = std::move(dialog);
}

void UndefineDialog(int templateId) {
    const std::lock_guard lock(WindowsMutex());
    Windows().templates.erase(templateId);
}

HWND CreatePlainWindow(const std::wstring& title, RECT rect) {
    return AddPlain(L"Plain", title, WS_VISIBLE | WS_CAPTION, rect, nullptr, 0, DefWindowProcW);
}

HWND CreatePlainWindow(WNDPROC procedure) {
    return AddPlain(L"Plain", L"", WS_VISIBLE | WS_CAPTION, {0, 0, 640, 480}, nullptr, 0, procedure);
}

HWND CreateChildWindow(HWND parent, int id, const std::wstring& className, RECT rect) {
    return AddPlain(className, L"", WS_CHILD | WS_VISIBLE, rect, parent, id, ControlProcedure);
}

void SetDesktop(RECT rect) {
    const std::lock_guard lock(WindowsMutex());
    Windows().desktop = rect;
    Windows().hasDesktop = true;
}

void RemoveDesktop() {
    const std::lock_guard lock(WindowsMutex());
    Windows().hasDesktop = false;
}

int OpenWindows() {
    const std::lock_guard lock(WindowsMutex());
    return static_cast<int>(Windows().windows.size());
}

int Moves(HWND handle) {
    int moves = 0;
    WithWindow(handle, [&](const Window& window) { moves = window.moves; });
    return moves;
}

std::vector<Message> PostedTo(HWND window) {
    const std::lock_guard lock(WindowsMutex());
    return Copy(Windows().posted, window);
}

std::vector<Message> ControlMessages(HWND control) {
    const std::lock_guard lock(WindowsMutex());
    return Copy(Windows().controlMessages, control);
}

bool WaitForPosted(HWND window, UINT message, int count) {
    return WaitFor([&] {
        int posted = 0;
        for (const Message& one : Copy(Windows().posted, window))
            posted += one.message == message;
        return posted >= count;
    });
}

void OnDialogShown(int templateId, std::function<void(HWND)> callback) {
    const std::lock_guard lock(WindowsMutex());
    Windows().shown[templateId] = std::move(callback);
}

HWND WaitForDialog(int templateId) {
    HWND dialog = nullptr;
    WaitFor([&] {
        for (const auto& [handle, window] : Windows().windows) {
            const DialogState* const state = window->dialog.get();
            if (state != nullptr && state->templateId == templateId && state->inLoop && !state->ended)
                dialog = handle;
        }
        return dialog != nullptr;
    });
    return dialog;
}

bool WaitForDestroyed(HWND window) {
    return WaitFor([&] { return !Windows().windows.contains(window); });
}

bool Click(HWND dialog, int id) {
    const HWND button = GetDlgItem(dialog, id);
    if (button == nullptr || !IsWindowEnabled(button))
        return false;
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
    return true;
}

void PressKey(HWND dialog, WPARAM key) {
    PostMessageW(dialog, WM_KEYDOWN, key, 0);
}

}  // namespace FakeWin
