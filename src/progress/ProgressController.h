// The modal progress dialog of a running list: two lines of text, a moving bar, "Background" and "Cancel". It
// does not know the list. A worker thread may call the operations of the first group while it owns the
// object; all others must be called on the thread that runs the dialog.
#pragma once

#include <atomic>
#include <string>

#include "winlib/Controller.h"
#include "winlib/WindowIcon.h"
#include "winlib/layout/Overlapped.h"

class ProgressController : public WinLib::Dialog::ModalController,
                           public WinLib::Handlers::Handler<WM_SIZING>,
                           public WinLib::Handlers::Handler<WM_SIZE>,
                           public WinLib::Handlers::Handler<WM_GETMINMAXINFO>,
                           public WinLib::Handlers::Handler<WM_SYSCOLORCHANGE> {
public:
    explicit ProgressController(std::wstring title) : Title(std::move(title)) {}

    // For the worker.

    // Shows what is being done, unless the user has cancelled. Dropped while there is no window.
    void Report(const std::wstring& status, const std::wstring& detail);

    // Whether "Cancel" was pressed.
    bool IsCancelled() const { return Cancelled.load() != 0; }

    // The dialog's window, or null before it is complete.
    HWND Window() const { return window_.load(); }

    // Waits for the window to be complete and returns it, or null if its creation has failed. Polls every 25
    // milliseconds.
    HWND WaitForWindow() const;

    // Ends the dialog with 1, at once or as soon as it has been created.
    void End();

    // For the thread of the dialog.

    // Ends WaitForWindow, also without a window. Call when the dialog has ended or could not be created.
    void EndCreation();

    bool OnControlCommand(WORD id, HWND control, WORD code) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) override;
    bool HandleSizing(WPARAM edge, RECT& rect) override;
    bool HandleSize(WORD type, WORD width, WORD height) override;
    bool HandleGetMinMaxInfo(MINMAXINFO& info) override;
    bool HandleSysColorChange() override;  // OnMessage has no case for it

    const std::wstring Title;
    std::atomic<uint8_t> Cancelled = 0;
    WinLib::Layout::Overlapped RootSizer;
    HWND StatusLine = nullptr;
    HWND DetailLine = nullptr;
    HWND Bar = nullptr;
    HWND Marquee = nullptr;
    HWND BackgroundButton = nullptr;
    HWND CancelButton = nullptr;
    HWND IconStatic = nullptr;

private:
    void BuildLayout();

    WinLib::WindowIcon icon_;

    // The worker stores ended_ and then reads window_; the dialog's thread does the reverse. Sequential
    // consistency guarantees that at least one of them sees the other's store and ends the dialog.
    std::atomic<HWND> window_ = nullptr;
    std::atomic<bool> ended_ = false;

    // Until window_ is set, or the dialog has ended without it.
    std::atomic<bool> creating_ = true;
};
