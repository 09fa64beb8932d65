// The messages that controllers can handle, one mixin each. A controller derives from Handler<N> for each
// message that it handles, so that its list of bases is the list of its messages. Dispatch unpacks the
// parameters and calls the operation; the controller's OnMessage calls Dispatch. Both return whether the
// message was handled; an operation without a result parameter gives the result 0.
//
// OnMessage is a switch with a case for each message, in the order of the bases. Naming the base selects its
// Dispatch; no using-declaration is needed:
//
//     switch (message) {
//         case WM_SIZE:
//             return Handler<WM_SIZE>::Dispatch(wParam, lParam, result);
//         default:
//             return ModalController::OnMessage(message, wParam, lParam, result);
//     }
#pragma once

#include "winlib/Windows.h"

#include <commctrl.h>

namespace WinLib::Handlers {

// N is the number of a message, or the (negative) code of a notification.
template <int N>
class Handler;

// The low or high 16 bits of the lParam of a mouse message: negative to the left of or above the window.
inline int SignedLow(LPARAM value) {
    return static_cast<short>(LOWORD(value));
}
inline int SignedHigh(LPARAM value) {
    return static_cast<short>(HIWORD(value));
}

template <>
class Handler<WM_DESTROY> {
public:
    virtual bool HandleDestroy() = 0;
    bool Dispatch(WPARAM, LPARAM, LRESULT&) { return HandleDestroy(); }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_SIZE> {
public:
    // type is one of the SIZE_ constants; width and height are those of the client area in pixels.
    virtual bool HandleSize(WORD type, WORD width, WORD height) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        return HandleSize(LOWORD(wParam), LOWORD(lParam), HIWORD(lParam));
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_PAINT> {
public:
    virtual bool HandlePaint() = 0;
    bool Dispatch(WPARAM, LPARAM, LRESULT&) { return HandlePaint(); }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_CLOSE> {
public:
    virtual bool HandleClose() = 0;
    bool Dispatch(WPARAM, LPARAM, LRESULT&) { return HandleClose(); }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_SYSCOLORCHANGE> {
public:
    virtual bool HandleSysColorChange() = 0;
    bool Dispatch(WPARAM, LPARAM, LRESULT&) { return HandleSysColorChange(); }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_SETCURSOR> {
public:
    // cursorSet is the result of the message: true if the cursor has been set and must not be changed.
    virtual bool HandleSetCursor(HWND window, WORD hitTest, WORD mouseMessage, bool& cursorSet) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT& result) {
        bool cursorSet = false;
        const bool handled =
            HandleSetCursor(reinterpret_cast<HWND>(wParam), LOWORD(lParam), HIWORD(lParam), cursorSet);
        result = cursorSet;
        return handled;
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_GETMINMAXINFO> {
public:
    virtual bool HandleGetMinMaxInfo(MINMAXINFO& info) = 0;
    bool Dispatch(WPARAM, LPARAM lParam, LRESULT&) {
        return HandleGetMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam));
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_NOTIFY> {
public:
    virtual bool HandleNotify(NMHDR& header, LRESULT& result) = 0;
    bool Dispatch(WPARAM, LPARAM lParam, LRESULT& result) {
        return HandleNotify(*reinterpret_cast<NMHDR*>(lParam), result);
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_DISPLAYCHANGE> {
public:
    virtual bool HandleDisplayChange() = 0;
    bool Dispatch(WPARAM, LPARAM, LRESULT&) { return HandleDisplayChange(); }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_GETDLGCODE> {
public:
    // result is a combination of DLGC_ flags.
    virtual bool HandleGetDlgCode(LRESULT& result) = 0;
    bool Dispatch(WPARAM, LPARAM, LRESULT& result) { return HandleGetDlgCode(result); }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_KEYDOWN> {
public:
    virtual bool HandleKeyDown(WPARAM virtualKey) = 0;
    bool Dispatch(WPARAM wParam, LPARAM, LRESULT&) { return HandleKeyDown(wParam); }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_INITDIALOG> {
public:
    // Set focusSet if the handler has set the focus; otherwise the dialog manager sets it.
    virtual bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) = 0;

    // The result of the dialog procedure: true leaves the focus to the dialog manager.
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        bool focusSet = false;
        HandleInitDialog(reinterpret_cast<HWND>(wParam), lParam, focusSet);
        return !focusSet;
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_COMMAND> {
public:
    virtual bool OnMenuCommand(WORD id) = 0;
    virtual bool OnAccelerator(WORD id) = 0;
    virtual bool OnControlCommand(WORD id, HWND control, WORD code) = 0;

    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        const WORD id = LOWORD(wParam);
        const WORD code = HIWORD(wParam);
        if (lParam == 0 && code == 0)
            return OnMenuCommand(id);
        if (lParam == 0 && code == 1)
            return OnAccelerator(id);
        return OnControlCommand(id, reinterpret_cast<HWND>(lParam), code);
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_HSCROLL> {
public:
    virtual bool HandleHScroll(WORD code, WORD position, HWND control) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        return HandleHScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_SIZING> {
public:
    virtual bool HandleSizing(WPARAM edge, RECT& rect) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT& result) {
        result = TRUE;
        return HandleSizing(wParam, *reinterpret_cast<RECT*>(lParam));
    }

protected:
    ~Handler() = default;
};

// Mouse messages: the position in client coordinates and the MK_ flags of the keys and buttons that are down.

template <>
class Handler<WM_MOUSEMOVE> {
public:
    virtual bool HandleMouseMove(int x, int y, WPARAM keys) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        return HandleMouseMove(SignedLow(lParam), SignedHigh(lParam), wParam);
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_LBUTTONDOWN> {
public:
    virtual bool HandleLButtonDown(int x, int y, WPARAM keys) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        return HandleLButtonDown(SignedLow(lParam), SignedHigh(lParam), wParam);
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_LBUTTONUP> {
public:
    virtual bool HandleLButtonUp(int x, int y, WPARAM keys) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        return HandleLButtonUp(SignedLow(lParam), SignedHigh(lParam), wParam);
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_LBUTTONDBLCLK> {
public:
    virtual bool HandleLButtonDoubleClick(int x, int y, WPARAM keys) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        return HandleLButtonDoubleClick(SignedLow(lParam), SignedHigh(lParam), wParam);
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_RBUTTONDOWN> {
public:
    virtual bool HandleRButtonDown(int x, int y, WPARAM keys) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        return HandleRButtonDown(SignedLow(lParam), SignedHigh(lParam), wParam);
    }

protected:
    ~Handler() = default;
};

template <>
class Handler<WM_RBUTTONUP> {
public:
    virtual bool HandleRButtonUp(int x, int y, WPARAM keys) = 0;
    bool Dispatch(WPARAM wParam, LPARAM lParam, LRESULT&) {
        return HandleRButtonUp(SignedLow(lParam), SignedHigh(lParam), wParam);
    }

protected:
    ~Handler() = default;
};

// Notifications; a controller's HandleNotify selects them by their code.

template <>
class Handler<static_cast<int>(NM_KILLFOCUS)> {
public:
    virtual bool HandleKillFocus(NMHDR& header, LRESULT& result) = 0;

protected:
    ~Handler() = default;
};

template <>
class Handler<static_cast<int>(LVN_ITEMCHANGED)> {
public:
    virtual bool HandleItemChanged(NMHDR& header, LRESULT& result) = 0;

protected:
    ~Handler() = default;
};

template <>
class Handler<static_cast<int>(LVN_BEGINLABELEDITW)> {
public:
    virtual bool HandleBeginLabelEdit(NMHDR& header, LRESULT& result) = 0;

protected:
    ~Handler() = default;
};

template <>
class Handler<static_cast<int>(LVN_ENDLABELEDITW)> {
public:
    virtual bool HandleEndLabelEdit(NMHDR& header, LRESULT& result) = 0;

protected:
    ~Handler() = default;
};

template <>
class Handler<static_cast<int>(TVN_SELCHANGEDW)> {
public:
    virtual bool HandleSelectionChanged(NMHDR& header, LRESULT& result) = 0;

protected:
    ~Handler() = default;
};

}  // namespace WinLib::Handlers
