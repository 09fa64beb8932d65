#include "winlib/Controller.h"

#include "winlib/Application.h"
#include "winlib/Win32Error.h"

namespace WinLib {

namespace {

Window::Controller* ControllerOf(HWND window) {
    return reinterpret_cast<Window::Controller*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

}  // namespace

namespace Window {

// A window outlives its controller only after an exception that ends the program. The message box that
// reports it still dispatches messages to the window, which must then have no controller.
Controller::~Controller() {
    if (ControllerOf(Handle) == this)
        SetWindowLongPtrW(Handle, GWLP_USERDATA, 0);
    Handle = nullptr;
}

bool Controller::OnMenuCommand(WORD) {
    return false;
}

bool Controller::OnAccelerator(WORD) {
    return false;
}

bool Controller::OnControlCommand(WORD, HWND, WORD) {
    return false;
}

bool Controller::HandleNotify(NMHDR&, LRESULT&) {
    return false;
}

bool Controller::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_NOTIFY:
            return Handler<WM_NOTIFY>::Dispatch(wParam, lParam, result);
        case WM_COMMAND:
            return Handler<WM_COMMAND>::Dispatch(wParam, lParam, result);
        default:
            return false;
    }
}

}  // namespace Window

namespace Dialog {

bool Controller::OnControlCommand(WORD id, HWND, WORD) {
    switch (id) {
        case IDOK:
            OnOk();
            return true;
        case IDCANCEL:
            OnCancel();
            return true;
        default:
            return false;
    }
}

bool Controller::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_INITDIALOG:
            return Handler<WM_INITDIALOG>::Dispatch(wParam, lParam, result);
        default:
            return Window::Controller::OnMessage(message, wParam, lParam, result);
    }
}

void Controller::OnOk() {
    DestroyWindow(Handle);
}

void Controller::OnCancel() {
    DestroyWindow(Handle);
}

void ModalController::OnOk() {
    EndDialog(Handle, 1);
}

void ModalController::OnCancel() {
    EndDialog(Handle, 0);
}

}  // namespace Dialog

namespace {

void Bind(Window::Controller& controller, HWND window) {
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&controller));
    controller.Handle = window;
}

// The init parameter of a dialog, which DialogProcedure casts back.
LPARAM InitParameter(Window::Controller& controller) {
    return reinterpret_cast<LPARAM>(&controller);
}

void FetchInstance(HINSTANCE& instance, HWND owner) {
    if (instance == nullptr)
        instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(owner, GWLP_HINSTANCE));
}

}  // namespace

INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Window::Controller* controller = ControllerOf(window);
    if (controller == nullptr) {
        if (message != WM_INITDIALOG || lParam == 0)
            return 0;
        controller = reinterpret_cast<Window::Controller*>(lParam);
        Bind(*controller, window);
    }
    LRESULT result = 0;
    if (!controller->OnMessage(message, wParam, lParam, result))
        return 0;
    SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
    return 1;
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Window::Controller* controller = ControllerOf(window);
    if (controller == nullptr) {
        if (message == WM_NCCREATE)
            controller = static_cast<Window::Controller*>(
                reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        if (controller == nullptr)
            return DefWindowProcW(window, message, wParam, lParam);
        Bind(*controller, window);
    }
    LRESULT result = 0;
    if (controller->OnMessage(message, wParam, lParam, result))
        return result;
    return CallWindowProcW(controller->OldProcedure, controller->Handle, message, wParam, lParam);
}

void Attach(Window::Controller& controller, HWND window) {
    controller.Procedure = WindowProcedure;
    // The user data is set last: a message that arrives earlier must not reach a half-attached controller.
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    controller.OldProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(controller.Procedure)));
    Bind(controller, window);
    controller.OnAttach();
}

void Detach(Window::Controller& controller) {
    controller.OnDetach();
    SetWindowLongPtrW(controller.Handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(controller.OldProcedure));
    SetWindowLongPtrW(controller.Handle, GWLP_USERDATA, 0);
    controller.Handle = nullptr;
}

void CreateModeless(Application& application, HWND& handleOut, Dialog::Controller& controller, int templateId,
                    HWND owner, HINSTANCE& instance) {
    FetchInstance(instance, owner);
    handleOut = CreateDialogParamW(instance, MAKEINTRESOURCEW(templateId), owner, DialogProcedure,
                                   InitParameter(controller));
    if (handleOut == nullptr)
        throw Win32Error();
    application.Dialogs.push_back(handleOut);
}

INT_PTR RunModal(Dialog::Controller& controller, int templateId, HWND owner, HINSTANCE& instance) {
    FetchInstance(instance, owner);
    const INT_PTR result = DialogBoxParamW(instance, MAKEINTRESOURCEW(templateId), owner, DialogProcedure,
                                           InitParameter(controller));
    if (result == -1)
        throw Win32Error();
    return result;
}

}  // namespace WinLib
