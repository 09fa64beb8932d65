// Each window of the program has a controller, which handles its messages. A dialog's controller is given
// when the dialog is created; a control's controller subclasses an existing window with Attach. Neither owns
// the other: the owner of a controller destroys the window first.
#pragma once

#include "winlib/Handlers.h"
#include "winlib/Windows.h"

namespace WinLib {

class Application;

namespace Window {

class Controller : public Handlers::Handler<WM_COMMAND>, public Handlers::Handler<WM_NOTIFY> {
public:
    Controller() = default;
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    // The three origins of WM_COMMAND: a menu, an accelerator, and a control with its notification code. All
    // return whether the command was handled.
    bool OnMenuCommand(WORD id) override;
    bool OnAccelerator(WORD id) override;
    bool OnControlCommand(WORD id, HWND control, WORD code) override;

    virtual ~Controller();

    // Called at the end of Attach and at the beginning of Detach.
    virtual void OnAttach() {}
    virtual void OnDetach() {}

    // Unpacks a message and calls its handler. Returns whether it was handled, and then sets result.
    virtual bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    bool HandleNotify(NMHDR& header, LRESULT& result) override;

    HWND Handle = nullptr;  // null while no window is attached
    WNDPROC Procedure = nullptr;
    WNDPROC OldProcedure = DefWindowProcW;  // receives unhandled messages
};

}  // namespace Window

namespace Dialog {

class Controller : public Window::Controller, public Handlers::Handler<WM_INITDIALOG> {
public:
    // Routes IDOK and IDCANCEL to OnOk and OnCancel.
    bool OnControlCommand(WORD id, HWND control, WORD code) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // Destroy the window.
    virtual void OnOk();
    virtual void OnCancel();
};

class ModalController : public Controller {
public:
    // End the dialog with 1 and with 0.
    void OnOk() override;
    void OnCancel() override;
};

}  // namespace Dialog

// The procedures of all dialogs and of all subclassed windows. They pass each message to the window's
// controller, and unhandled messages to the platform. They catch nothing: an exception passes through the
// platform's frames to AppMain.
INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Subclasses a window: its messages go to the controller first.
void Attach(Window::Controller& controller, HWND window);

// Undoes Attach.
void Detach(Window::Controller& controller);

// Creates a modeless dialog from a template, stores its handle in handleOut and appends it to the
// application's dialogs. A null instance is replaced by that of the owner. Throws Win32Error.
void CreateModeless(Application& application, HWND& handleOut, Dialog::Controller& controller, int templateId,
                    HWND owner, HINSTANCE& instance);

// Runs a modal dialog from a template and returns the value passed to EndDialog. A null instance is replaced
// by that of the owner. Throws Win32Error.
INT_PTR RunModal(Dialog::Controller& controller, int templateId, HWND owner, HINSTANCE& instance);

}  // namespace WinLib
