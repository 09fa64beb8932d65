// What windows are and have: their text, state, place and data.
#include <algorithm>

#include "Internal.h"
#include "WindowWorld.h"

namespace FakeWin::Internal {
namespace {

constexpr LONG SizingBorder = 8;
constexpr LONG PlainBorder = 3;
constexpr LONG CaptionHeight = 23;
constexpr LONG MenuHeight = 20;
constexpr LONG ClientEdge = 2;

POINT operator+(POINT first, POINT second) {
    return {first.x + second.x, first.y + second.y};
}

}  // namespace

RECT FrameOf(DWORD style, bool menu, DWORD exStyle) {
    LONG border = 0;
    if ((style & WS_THICKFRAME) != 0)
        border = SizingBorder;
    else if ((style & WS_CAPTION) != 0 || (exStyle & WS_EX_DLGMODALFRAME) != 0)
        border = PlainBorder;
    if ((exStyle & WS_EX_CLIENTEDGE) != 0)
        border += ClientEdge;
    const LONG caption = (style & WS_CAPTION) == WS_CAPTION ? CaptionHeight : 0;
    return {border, border + caption + (menu ? MenuHeight : 0), border, border};
}

namespace {

bool IsDesktop(HWND window) {
    return Windows().hasDesktop && window == reinterpret_cast<HWND>(DesktopHandle);
}

// The upper left corners of a window and of its client area on the screen. Under the mutex.
POINT ClientOrigin(const Window& window);

POINT Origin(const Window& window) {
    const POINT corner = {window.rect.left, window.rect.top};
    const std::shared_ptr<Window> parent =
        (window.style & WS_CHILD) != 0 ? FindWindow(window.parent) : nullptr;
    return parent ? ClientOrigin(*parent) + corner : corner;
}

POINT ClientOrigin(const Window& window) {
    const RECT frame = FrameOf(window.style, false, window.exStyle);
    return Origin(window) + POINT{frame.left, frame.top};
}

SIZE ClientSize(const Window& window) {
    const RECT frame = FrameOf(window.style, false, window.exStyle);
    return {std::max<LONG>(window.rect.right - window.rect.left - frame.left - frame.right, 0),
            std::max<LONG>(window.rect.bottom - window.rect.top - frame.top - frame.bottom, 0)};
}

// The place of the client area on the screen, of the desktop too.
bool FindClientOrigin(HWND handle, POINT& origin) {
    {
        const std::lock_guard lock(WindowsMutex());
        if (IsDesktop(handle)) {
            origin = {Windows().desktop.left, Windows().desktop.top};
            return true;
        }
    }
    return WithWindow(handle, [&](const Window& window) { origin = ClientOrigin(window); });
}

// Sets or clears a bit of the style and returns whether it was set. Nothing if there is no such window.
bool ChangeStyle(HWND handle, DWORD bit, bool set) {
    bool before = set;
    WithWindow(handle, [&](Window& window) {
        before = (window.style & bit) != 0;
        window.style = set ? window.style | bit : window.style & ~bit;
    });
    WindowsChanged().notify_all();
    return before;
}

// The size that the window accepts when it is asked for another one.
SIZE AcceptedSize(HWND handle, SIZE wanted) {
    MINMAXINFO info = {};
    info.ptMinTrackSize = {1, 1};
    info.ptMaxTrackSize = {0x7FFF, 0x7FFF};
    SendMessageW(handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {std::max(std::min(wanted.cx, info.ptMaxTrackSize.x), info.ptMinTrackSize.x),
            std::max(std::min(wanted.cy, info.ptMaxTrackSize.y), info.ptMinTrackSize.y)};
}

BOOL Place(HWND handle, const RECT& wanted) {
    RECT rect = wanted;
    DWORD style = 0;
    if (!WithWindow(handle, [&](Window& window) {
            style = window.style;
            ++window.moves;
        }))
        return FALSE;
    if ((style & WS_THICKFRAME) != 0) {
        const SIZE size = AcceptedSize(handle, {rect.right - rect.left, rect.bottom - rect.top});
        rect.right = rect.left + size.cx;
        rect.bottom = rect.top + size.cy;
    }
    SIZE before = {};
    SIZE after = {};
    WithWindow(handle, [&](Window& window) {
        before = ClientSize(window);
        window.rect = rect;
        after = ClientSize(window);
    });
    if (before.cx != after.cx || before.cy != after.cy)
        SendMessageW(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(after.cx, after.cy));
    return TRUE;
}

// Destroys a window with all that it holds or owns.
void Destroy(HWND handle) {
    SendMessageW(handle, WM_DESTROY, 0, 0);
    std::vector<HWND> below;
    {
        const std::lock_guard lock(WindowsMutex());
        for (const auto& [other, window] : Windows().windows)
            if (window->parent == handle)
                below.push_back(other);
    }
    for (const HWND other : below)
        Destroy(other);
    SendMessageW(handle, WM_NCDESTROY, 0, 0);
    const std::lock_guard lock(WindowsMutex());
    DropWindow(handle);
}

// The place of a dialog's own long values; null for other indices and windows.
LONG_PTR* DialogValue(Window& window, int index) {
    if (!window.dialog)
        return nullptr;
    if (index == DWLP_MSGRESULT)
        return &window.dialog->messageResult;
    return index == DWLP_USER ? &window.dialog->user : nullptr;
}

LONG_PTR GetValue(Window& window, int index) {
    switch (index) {
        case GWLP_USERDATA:
            return window.userData;
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(window.procedure);
        case GWLP_HINSTANCE:
            return reinterpret_cast<LONG_PTR>(window.instance);
        case GWLP_HWNDPARENT:
            return reinterpret_cast<LONG_PTR>(window.parent);
        case GWLP_ID:
            return window.id;
        case GWL_STYLE:
            return static_cast<LONG>(window.style);
        case GWL_EXSTYLE:
            return static_cast<LONG>(window.exStyle);
        case DWLP_DLGPROC:
            return window.dialog ? reinterpret_cast<LONG_PTR>(window.dialog->procedure) : 0;
        default:
            const LONG_PTR* const value = DialogValue(window, index);
            return value != nullptr ? *value : 0;
    }
}

void SetValue(Window& window, int index, LONG_PTR value) {
    switch (index) {
        case GWLP_USERDATA:
            window.userData = value;
            break;
        case GWLP_WNDPROC:
            window.procedure = reinterpret_cast<WNDPROC>(value);
            break;
        case GWL_STYLE:
            window.style = static_cast<DWORD>(value);
            break;
        case GWL_EXSTYLE:
            window.exStyle = static_cast<DWORD>(value);
            break;
        default:
            if (LONG_PTR* const place = DialogValue(window, index))
                *place = value;
    }
}

}  // namespace
}  // namespace FakeWin::Internal

using namespace FakeWin;
using namespace FakeWin::Internal;

LONG_PTR GetWindowLongPtrW(HWND handle, int index) {
    LONG_PTR value = 0;
    WithWindow(handle, [&](Window& window) { value = GetValue(window, index); });
    return value;
}

LONG_PTR SetWindowLongPtrW(HWND handle, int index, LONG_PTR value) {
    LONG_PTR before = 0;
    WithWindow(handle, [&](Window& window) {
        before = GetValue(window, index);
        SetValue(window, index, value);
    });
    return before;
}

LONG GetWindowLongW(HWND window, int index) {
    return static_cast<LONG>(GetWindowLongPtrW(window, index));
}

LONG SetWindowLongW(HWND window, int index, LONG value) {
    return static_cast<LONG>(SetWindowLongPtrW(window, index, value));
}

BOOL SetWindowTextW(HWND window, LPCWSTR text) {
    return SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0;
}

int GetWindowTextW(HWND window, LPWSTR buffer, int size) {
    return static_cast<int>(
        SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthW(HWND window) {
    return static_cast<int>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
}

BOOL EnableWindow(HWND window, BOOL enable) {
    const bool wasDisabled = ChangeStyle(window, WS_DISABLED, !enable);
    if (wasDisabled == (enable != FALSE)) {
        if (!enable) {
            SendMessageW(window, WM_CANCELMODE, 0, 0);
            WithWindow(window, [window](const Window& disabled) {
                if (disabled.queue->focus == window)
                    disabled.queue->focus = nullptr;
            });
        }
        SendMessageW(window, WM_ENABLE, static_cast<WPARAM>(enable), 0);
    }
    return wasDisabled;
}

HWND GetFocus() {
    const std::lock_guard lock(WindowsMutex());
    return MyQueue()->focus;
}

BOOL IsWindowEnabled(HWND handle) {
    bool enabled = false;
    WithWindow(handle, [&](const Window& window) { enabled = (window.style & WS_DISABLED) == 0; });
    return enabled;
}

BOOL ShowWindow(HWND window, int command) {
    const bool show = command != SW_HIDE;
    const bool wasVisible = ChangeStyle(window, WS_VISIBLE, show);
    if (wasVisible != show)
        SendMessageW(window, WM_SHOWWINDOW, show, 0);
    return wasVisible;
}

BOOL IsWindowVisible(HWND handle) {
    bool visible = false;
    HWND parent = nullptr;
    WithWindow(handle, [&](const Window& window) {
        visible = (window.style & WS_VISIBLE) != 0;
        parent = (window.style & WS_CHILD) != 0 ? window.parent : nullptr;
    });
    return visible && (parent == nullptr || IsWindowVisible(parent));
}

BOOL IsWindow(HWND handle) {
    const std::lock_guard lock(WindowsMutex());
    return IsDesktop(handle) || Windows().windows.contains(handle);
}

BOOL DestroyWindow(HWND handle) {
    bool mine = false;
    if (!WithWindow(handle, [&](const Window& window) { mine = window.queue == MyQueue(); }))
        return FALSE;
    if (!mine)
        return Succeeded(ERROR_ACCESS_DENIED);
    Destroy(handle);
    return TRUE;
}

HWND GetParent(HWND handle) {
    HWND parent = nullptr;
    WithWindow(handle, [&](const Window& window) {
        if ((window.style & (WS_CHILD | WS_POPUP)) != 0)
            parent = window.parent;
    });
    return parent;
}

HWND GetDesktopWindow() {
    const DWORD fault = Enter(Call::GetDesktopWindow);
    const std::lock_guard lock(WindowsMutex());
    return fault == 0 && Windows().hasDesktop ? reinterpret_cast<HWND>(DesktopHandle) : nullptr;
}

HWND FindWindowW(LPCWSTR className, LPCWSTR title) {
    if (const DWORD fault = Watched(Call::FindWindowW, title))
        return SetLastError(fault), nullptr;
    const std::lock_guard lock(WindowsMutex());
    for (const auto& [handle, window] : Windows().windows)
        if ((window->style & WS_CHILD) == 0 && window->className == className && window->text == title)
            return handle;
    return nullptr;
}

DWORD GetWindowThreadProcessId(HWND handle, LPDWORD processId) {
    if (processId != nullptr)
        *processId = 1;
    return WithWindow(handle, [](const Window&) {}) ? 1 : 0;
}

BOOL GetWindowRect(HWND handle, LPRECT rect) {
    {
        const std::lock_guard lock(WindowsMutex());
        if (IsDesktop(handle)) {
            *rect = Windows().desktop;
            return TRUE;
        }
    }
    return WithWindow(handle, [&](const Window& window) {
        const POINT origin = Origin(window);
        *rect = {origin.x, origin.y, origin.x + window.rect.right - window.rect.left,
                 origin.y + window.rect.bottom - window.rect.top};
    });
}

BOOL GetClientRect(HWND handle, LPRECT rect) {
    return WithWindow(
        handle,
        [&](const Window& window) {
            const SIZE size = ClientSize(window);
            *rect = {0, 0, size.cx, size.cy};
        });
}

BOOL ScreenToClient(HWND window, LPPOINT point) {
    POINT origin;
    if (!FindClientOrigin(window, origin))
        return FALSE;
    *point = {point->x - origin.x, point->y - origin.y};
    return TRUE;
}

BOOL ClientToScreen(HWND window, LPPOINT point) {
    POINT origin;
    if (!FindClientOrigin(window, origin))
        return FALSE;
    *point = {point->x + origin.x, point->y + origin.y};
    return TRUE;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL) {
    return Place(window, {x, y, x + width, y + height});
}

BOOL SetWindowPos(HWND handle, HWND, int x, int y, int width, int height, UINT flags) {
    RECT rect = {};
    if (!WithWindow(handle, [&](const Window& window) { rect = window.rect; }))
        return FALSE;
    if ((flags & SWP_NOSIZE) != 0) {
        width = rect.right - rect.left;
        height = rect.bottom - rect.top;
    }
    if ((flags & SWP_NOMOVE) != 0) {
        x = rect.left;
        y = rect.top;
    }
    if ((flags & SWP_SHOWWINDOW) != 0)
        ShowWindow(handle, SW_SHOW);
    if ((flags & SWP_HIDEWINDOW) != 0)
        ShowWindow(handle, SW_HIDE);
    return Place(handle, {x, y, x + width, y + height});
}

BOOL AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle) {
    const RECT frame = FrameOf(style, menu, exStyle);
    *rect = {rect->left - frame.left, rect->top - frame.top, rect->right + frame.right,
             rect->bottom + frame.bottom};
    return TRUE;
}

BOOL RedrawWindow(HWND window, const RECT*, HANDLE, UINT) {
    return IsWindow(window);
}

BOOL EqualRect(const RECT* first, const RECT* second) {
    return first->left == second->left && first->top == second->top && first->right == second->right &&
           first->bottom == second->bottom;
}
