#include "progress/ProgressController.h"

#include "resources/resource.h"
#include "winlib/Focus.h"
#include "winlib/layout/ClientArea.h"
#include "winlib/layout/Stack.h"
#include "winlib/layout/Window.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::ArrangeOnClient;
using WinLib::Layout::OuterMinimum;

void ProgressController::Report(const std::wstring& status, const std::wstring& detail) {
    if (Window() == nullptr)
        return;
    // Asked before each line, so that the text of a cancel in between stays.
    if (!IsCancelled())
        SetWindowTextW(StatusLine, status.c_str());
    if (!IsCancelled())
        SetWindowTextW(DetailLine, detail.c_str());
}

HWND ProgressController::WaitForWindow() const {
    while (creating_.load())
        Sleep(25);
    return Window();
}

void ProgressController::End() {
    ended_.store(true);
    if (const HWND window = Window())
        EndDialog(window, 1);
}

void ProgressController::EndCreation() {
    creating_.store(false);
}

bool ProgressController::OnControlCommand(WORD id, HWND control, WORD code) {
    if (code == BN_CLICKED && id == IDC_PROGRESS_BACKGROUND) {
        EndDialog(Handle, 0);
        return true;
    }
    if (code == BN_CLICKED && id == IDC_PROGRESS_CANCEL) {
        Cancelled.exchange(1);
        WinLib::EnableControl(CancelButton, false, BackgroundButton);
        SetWindowTextW(StatusLine, L"Cancelling...");
        SetWindowTextW(DetailLine, L"");
        return true;
    }
    return ModalController::OnControlCommand(id, control, code);
}

bool ProgressController::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_SIZING:
            return Handler<WM_SIZING>::Dispatch(wParam, lParam, result);
        case WM_SIZE:
            return Handler<WM_SIZE>::Dispatch(wParam, lParam, result);
        case WM_GETMINMAXINFO:
            return Handler<WM_GETMINMAXINFO>::Dispatch(wParam, lParam, result);
        default:
            return ModalController::OnMessage(message, wParam, lParam, result);
    }
}

bool ProgressController::HandleInitDialog(HWND, LPARAM, bool&) {
    StatusLine = GetDlgItem(Handle, IDC_PROGRESS_STATUS_LINE);
    DetailLine = GetDlgItem(Handle, IDC_PROGRESS_DETAIL_LINE);
    Bar = GetDlgItem(Handle, IDC_PROGRESS_BAR);
    Marquee = GetDlgItem(Handle, IDC_PROGRESS_MARQUEE);
    BackgroundButton = GetDlgItem(Handle, IDC_PROGRESS_BACKGROUND);
    CancelButton = GetDlgItem(Handle, IDC_PROGRESS_CANCEL);
    IconStatic = GetDlgItem(Handle, IDC_PROGRESS_ICON);

    SendMessageW(Bar, PBM_SETRANGE32, 0, 100);
    SendMessageW(Bar, PBM_SETPOS, 0, 0);
    SetWindowTextW(StatusLine, L"");
    SetWindowTextW(DetailLine, L"");
    BuildLayout();
    SendMessageW(Marquee, PBM_SETMARQUEE, TRUE, 0);
    RootSizer.Measure();
    RootSizer.CurrentRect = RootSizer.MinimumRect;
    RootSizer.Arrange(RootSizer.MinimumRect);
    const SIZE size = OuterMinimum(RootSizer, Handle, false);
    SetWindowPos(Handle, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    SetWindowTextW(Handle, Title.c_str());
    // Without an owner the dialog has a button in the taskbar.
    icon_.Set(Handle, reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(Handle, GWLP_HINSTANCE)), IDI_PROGRAM);

    // The system would show it later, and so take the keyboard from an error box that is already there.
    if (!ended_.load())
        ShowWindow(Handle, SW_SHOW);
    // From here on the worker finds the window. If it called End before, it did not close the dialog.
    window_.store(Handle);
    EndCreation();
    if (ended_.load())
        EndDialog(Handle, 1);
    return true;
}

void ProgressController::BuildLayout() {
    auto* const rows = RootSizer.AddVStack({.left = 16, .top = 16, .right = 16, .bottom = 16}, 12);

    auto* const top = rows->AddHStack(0, {.right = 10}, 0);
    auto* const lines = top->AddVStack(1, {}, 8);
    lines->AddWindow(0, StatusLine, Alignment::Fill, Alignment::Center);
    lines->AddWindow(0, DetailLine, Alignment::Fill, Alignment::Center);
    top->AddWindow(0, IconStatic, Alignment::Far, Alignment::Center);

    auto* const bars = rows->AddOverlapped(0);
    bars->AddWindow(Bar, Alignment::Fill, Alignment::Center);
    bars->AddWindow(Marquee, Alignment::Fill, Alignment::Center);

    auto* const buttons = rows->AddHStack(0, {}, 8);
    buttons->AddSpacer(1, 0);
    buttons->AddWindow(0, BackgroundButton, Alignment::Far, Alignment::Center);
    buttons->AddWindow(0, CancelButton, Alignment::Near, Alignment::Center);
}

bool ProgressController::HandleSizing(WPARAM, RECT&) {
    ArrangeOnClient(RootSizer, Handle);
    return true;
}

bool ProgressController::HandleSize(WORD type, WORD, WORD) {
    if (type != SIZE_MINIMIZED)
        ArrangeOnClient(RootSizer, Handle);
    return true;
}

bool ProgressController::HandleGetMinMaxInfo(MINMAXINFO& info) {
    const SIZE size = OuterMinimum(RootSizer, Handle, false);
    info.ptMinTrackSize = {size.cx, size.cy};
    info.ptMaxTrackSize = {3 * size.cx, size.cy};
    return true;
}

bool ProgressController::HandleSysColorChange() {
    SendMessageW(Bar, WM_SYSCOLORCHANGE, 0, 0);
    return true;
}
