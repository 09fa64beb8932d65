#include "winlib/controls/HyperLinkCtrl.h"

#include <cstring>
#include <string>

#include "winlib/WindowStyle.h"
#include "winlib/WindowText.h"

namespace WinLib {
namespace {

constexpr COLORREF LinkColor = RGB(0, 0, 192);
constexpr UINT CopyCommand = 0xABCD;

HCURSOR LoadHandCursor() {
    const HCURSOR hand = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND));
    return hand != nullptr ? hand : LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
}

}  // namespace

HyperLinkCtrl::HyperLinkCtrl() : HandCursor(LoadHandCursor()) {}

void HyperLinkCtrl::OnAttach() {
    // Without this style a static reports no clicks and is transparent to hit testing.
    AddStyle(Handle, SS_NOTIFY);
    NormalFont = reinterpret_cast<HFONT>(SendMessageW(Handle, WM_GETFONT, 0, 0));
    LOGFONTW font = {};
    GetObjectW(NormalFont, sizeof(font), &font);
    font.lfUnderline = 1;
    UnderlinedFont.reset(CreateFontIndirectW(&font));
}

bool HyperLinkCtrl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_PAINT:
            return Handler<WM_PAINT>::Dispatch(wParam, lParam, result);
        case WM_MOUSEMOVE:
            return Handler<WM_MOUSEMOVE>::Dispatch(wParam, lParam, result);
        case WM_SETCURSOR:
            return Handler<WM_SETCURSOR>::Dispatch(wParam, lParam, result);
        case WM_RBUTTONUP:
            return Handler<WM_RBUTTONUP>::Dispatch(wParam, lParam, result);
        default:
            return Controller::OnMessage(message, wParam, lParam, result);
    }
}

bool HyperLinkCtrl::HandlePaint() {
    const HDC dc = GetDC(Handle);
    const HGDIOBJ oldFont = SelectObject(dc, Hovering ? UnderlinedFont.get() : NormalFont);
    SetTextColor(dc, LinkColor);
    SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    const std::wstring text = GetWindowText(Handle);
    TextOutW(dc, 0, 0, text.c_str(), static_cast<int>(text.size()));
    SelectObject(dc, oldFont);
    ReleaseDC(Handle, dc);
    ValidateRect(Handle, nullptr);
    return true;
}

// Captures the mouse while it is over the link, so that the link notices when the mouse leaves.
bool HyperLinkCtrl::HandleMouseMove(int x, int y, WPARAM) {
    if (GetCapture() != Handle) {
        Hovering = true;
        InvalidateRect(Handle, nullptr, FALSE);
        SetCapture(Handle);
        return true;
    }
    POINT point = {x, y};
    ClientToScreen(Handle, &point);
    RECT window = {};
    GetWindowRect(Handle, &window);
    if (!PtInRect(&window, point))
        EndHover();
    return true;
}

void HyperLinkCtrl::EndHover() {
    Hovering = false;
    InvalidateRect(Handle, nullptr, FALSE);
    ReleaseCapture();
}

bool HyperLinkCtrl::HandleSetCursor(HWND, WORD, WORD, bool& cursorSet) {
    if (HandCursor != nullptr)
        SetCursor(HandCursor);
    cursorSet = true;
    return true;
}

bool HyperLinkCtrl::HandleRButtonUp(int x, int y, WPARAM) {
    const UniqueHandle<HMENU> menu(CreatePopupMenu());
    AppendMenuW(menu.get(), MF_STRING, CopyCommand, L"Copy");
    POINT point = {x, y};
    ClientToScreen(Handle, &point);
    const BOOL command =
        TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY, point.x, point.y, 0, Handle, nullptr);
    if (static_cast<UINT>(command) == CopyCommand)
        CopyText();
    EndHover();
    return true;
}

// Failures are ignored. SetClipboardData passes ownership of the memory to the clipboard if it succeeds.
void HyperLinkCtrl::CopyText() const {
    const std::wstring text = GetWindowText(Handle);
    const size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (void* const place = GlobalLock(memory)) {
        std::memcpy(place, text.c_str(), size);
        GlobalUnlock(memory);
    }
    if (!OpenClipboard(Handle))
        return;
    EmptyClipboard();
    if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr)
        GlobalFree(memory);
    CloseClipboard();
}

}  // namespace WinLib
