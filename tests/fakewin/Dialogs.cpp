// Dialogs from templates, and the loop of the modal ones.
#include "Internal.h"
#include "WindowWorld.h"

namespace FakeWin::Internal {
namespace {

int TemplateId(LPCWSTR name) {
    return static_cast<int>(reinterpret_cast<ULONG_PTR>(name));
}

RECT DialogRect(const DialogTemplate& dialog, const RECT& desktop) {
    RECT rect = {0, 0, dialog.size.cx, dialog.size.cy};
    AdjustWindowRectEx(&rect, dialog.style, FALSE, dialog.exStyle);
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    const bool centred = (dialog.style & DS_CENTER) != 0;
    const LONG x = centred ? (desktop.left + desktop.right - width) / 2 : desktop.left;
    const LONG y = centred ? (desktop.top + desktop.bottom - height) / 2 : desktop.top;
    return {x, y, x + width, y + height};
}

std::shared_ptr<Window> AddWindow(std::wstring className, std::wstring text, DWORD style, DWORD exStyle,
                                  RECT rect, HWND parent, int id, WNDPROC procedure, HINSTANCE instance) {
    auto window = std::make_shared<Window>();
    window->handle = NextHandle();
    window->queue = MyQueue();
    window->className = std::move(className);
    window->text = std::move(text);
    window->style = style;
    window->exStyle = exStyle;
    window->rect = rect;
    window->parent = parent;
    window->id = id;
    window->procedure = procedure;
    window->instance = instance != nullptr ? instance : reinterpret_cast<HINSTANCE>(ProgramInstance);
    Windows().windows[window->handle] = window;
    return window;
}

// The windows of a dialog, before any message is sent to them. Null, and the last error set, if the template
// or the owner does not exist.
HWND MakeWindows(HINSTANCE instance, int templateId, HWND owner, DLGPROC procedure, bool enablesOwner) {
    const std::lock_guard lock(WindowsMutex());
    const auto found = Windows().templates.find(templateId);
    if (found == Windows().templates.end()) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    if (owner != nullptr && !FindWindow(owner))
        return nullptr;
    const DialogTemplate& shape = found->second;
    const std::shared_ptr<Window> dialog =
        AddWindow(L"#32770", shape.caption, shape.style, shape.exStyle, DialogRect(shape, Windows().desktop),
                  owner, 0, DialogWindowProcedure, instance);
    dialog->dialog = std::make_unique<DialogState>();
    dialog->dialog->templateId = templateId;
    dialog->dialog->procedure = procedure;
    dialog->dialog->enablesOwner = enablesOwner;
    for (const ControlTemplate& control : shape.controls) {
        const std::shared_ptr<Window> child =
            AddWindow(control.className, control.text, control.style | WS_CHILD, control.exStyle,
                      control.rect, dialog->handle, control.id, ControlProcedure, instance);
        dialog->children.push_back(child->handle);
    }
    return dialog->handle;
}

// The control that gets the focus first.
HWND FirstControl(HWND handle) {
    HWND first = nullptr;
    WithWindow(handle, [&](const Window& dialog) {
        for (const HWND child : dialog.children) {
            const DWORD style = FindWindow(child)->style;
            if (first == nullptr && (style & WS_TABSTOP) != 0 && (style & WS_DISABLED) == 0)
                first = child;
        }
        if (first == nullptr && !dialog.children.empty())
            first = dialog.children.front();
    });
    return first;
}

void GiveFocus(HWND handle) {
    WithWindow(
        handle,
        [handle](const Window& control) {
            if ((control.style & WS_DISABLED) == 0)
                control.queue->focus = handle;
        });
}

HWND MakeDialog(HINSTANCE instance, int templateId, HWND owner, DLGPROC procedure, LPARAM parameter,
                bool enablesOwner) {
    const HWND dialog = MakeWindows(instance, templateId, owner, procedure, enablesOwner);
    if (dialog == nullptr)
        return nullptr;
    SendMessageW(dialog, WM_SETFONT, 0, 0);
    if (SendMessageW(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(FirstControl(dialog)), parameter))
        GiveFocus(FirstControl(dialog));
    return IsWindow(dialog) ? dialog : nullptr;
}

void TellShown(HWND dialog, int templateId) {
    std::function<void(HWND)> callback;
    {
        const std::lock_guard lock(WindowsMutex());
        const auto found = Windows().shown.find(templateId);
        if (found != Windows().shown.end())
            callback = found->second;
    }
    if (callback)
        callback(dialog);
}

// Whether the dialog's loop is over; also when the window itself is gone. Under the mutex.
bool IsOver(HWND handle) {
    const auto found = Windows().windows.find(handle);
    return found == Windows().windows.end() || found->second->dialog->ended;
}

INT_PTR ResultOf(HWND handle) {
    INT_PTR result = 0;
    WithWindow(handle, [&](const Window& dialog) { result = dialog.dialog->result; });
    return result;
}

void RunModalLoop(HWND handle, int templateId) {
    bool ended = true;
    WithWindow(handle, [&](const Window& dialog) { ended = dialog.dialog->ended; });
    if (ended)
        return;
    ShowWindow(handle, SW_SHOW);
    TellShown(handle, templateId);
    WithWindow(handle, [](Window& dialog) { dialog.dialog->inLoop = true; });
    WindowsChanged().notify_all();
    RunLoop([handle] { return IsOver(handle); },
            [handle](MSG& message) {
                if (!IsDialogMessageW(handle, &message))
                    DispatchMessageW(&message);
            });
}

// These messages take the dialog procedure's own result.
bool ReturnsDirectly(UINT message) {
    return message == WM_INITDIALOG;
}

LRESULT DefaultDialogMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NEXTDLGCTL && LOWORD(lParam) != 0)
        GiveFocus(reinterpret_cast<HWND>(wParam));
    if (message != WM_CLOSE)
        return DefWindowProcW(dialog, message, wParam, lParam);
    const HWND button = GetDlgItem(dialog, IDCANCEL);
    if (button == nullptr || IsWindowEnabled(button))
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, reinterpret_cast<LPARAM>(button));
    return 0;
}

}  // namespace

LRESULT DialogWindowProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    DLGPROC procedure = nullptr;
    WithWindow(handle, [&](Window& dialog) {
        dialog.dialog->messageResult = 0;
        procedure = dialog.dialog->procedure;
    });
    const INT_PTR handled = procedure != nullptr ? procedure(handle, message, wParam, lParam) : 0;
    if (ReturnsDirectly(message))
        return handled;
    if (handled != 0)
        return GetWindowLongPtrW(handle, DWLP_MSGRESULT);
    return DefaultDialogMessage(handle, message, wParam, lParam);
}

LRESULT ControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool ofButtons = message >= BM_GETCHECK && message <= 0xF8;
    const bool ofStatics = message >= STM_SETICON && message <= 0x174;
    if (!ofButtons && !ofStatics && message < WM_USER)
        return DefWindowProcW(handle, message, wParam, lParam);
    LRESULT result = 0;
    WithWindow(handle, [&](Window& control) {
        result = control.progress;
        if (message == WM_USER + 2)  // PBM_SETPOS, whose result is the position before
            control.progress = static_cast<LONG_PTR>(wParam);
        else if (message != WM_USER + 8)  // PBM_GETPOS
            result = 0;
        Windows().controlMessages[handle].push_back({message, wParam, lParam, std::this_thread::get_id()});
    });
    if (message == BM_CLICK && IsWindowEnabled(handle))
        SendMessageW(GetParent(handle), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(handle), BN_CLICKED),
                     reinterpret_cast<LPARAM>(handle));
    return result;
}

}  // namespace FakeWin::Internal

using namespace FakeWin;
using namespace FakeWin::Internal;

HWND CreateDialogParamW(HINSTANCE instance, LPCWSTR templateName, HWND owner, DLGPROC procedure,
                        LPARAM parameter) {
    const int templateId = TemplateId(templateName);
    if (const DWORD fault = Watched(Call::CreateDialogParamW, std::to_wstring(templateId)))
        return SetLastError(fault), nullptr;
    const HWND dialog = MakeDialog(instance, templateId, owner, procedure, parameter, false);
    if (dialog != nullptr)
        TellShown(dialog, templateId);
    return dialog;
}

INT_PTR DialogBoxParamW(HINSTANCE instance, LPCWSTR templateName, HWND owner, DLGPROC procedure,
                        LPARAM parameter) {
    const int templateId = TemplateId(templateName);
    if (const DWORD fault = Watched(Call::DialogBoxParamW, std::to_wstring(templateId)))
        return SetLastError(fault), -1;
    const bool ownerWasEnabled = owner != nullptr && IsWindowEnabled(owner);
    if (ownerWasEnabled)
        EnableWindow(owner, FALSE);
    INT_PTR result = -1;
    const HWND dialog = MakeDialog(instance, templateId, owner, procedure, parameter, ownerWasEnabled);
    if (dialog != nullptr) {
        RunModalLoop(dialog, templateId);
        result = ResultOf(dialog);
    }
    if (ownerWasEnabled)
        EnableWindow(owner, TRUE);
    if (dialog != nullptr)
        DestroyWindow(dialog);
    return result;
}

BOOL EndDialog(HWND handle, INT_PTR result) {
    bool isDialog = false;
    HWND owner = nullptr;
    WithWindow(handle, [&](Window& dialog) {
        isDialog = dialog.dialog != nullptr;
        if (isDialog) {
            dialog.dialog->ended = true;
            dialog.dialog->result = result;
            owner = dialog.dialog->enablesOwner ? dialog.parent : nullptr;
        }
    });
    if (!isDialog)
        return Succeeded(ERROR_INVALID_WINDOW_HANDLE);
    // As on Windows the dialog's thread has to serve these when another thread ends the dialog.
    if (owner != nullptr)
        EnableWindow(owner, TRUE);
    ShowWindow(handle, SW_HIDE);
    WithWindow(handle, [](Window& dialog) { dialog.queue->wake.notify_all(); });
    return TRUE;
}

HWND GetDlgItem(HWND handle, int id) {
    HWND item = nullptr;
    WithWindow(handle, [&](const Window& dialog) {
        for (const HWND child : dialog.children)
            if (item == nullptr && FindWindow(child)->id == id)
                item = child;
    });
    if (item == nullptr)
        SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return item;
}

int GetDlgCtrlID(HWND handle) {
    int id = 0;
    WithWindow(handle, [&](const Window& window) { id = window.id; });
    return id;
}

BOOL IsDialogMessageW(HWND dialog, LPMSG message) {
    if (!IsWindow(dialog) || (message->hwnd != dialog && GetParent(message->hwnd) != dialog))
        return FALSE;
    const bool isKey = message->message == WM_KEYDOWN;
    if (isKey && (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE)) {
        const int id = message->wParam == VK_RETURN ? IDOK : IDCANCEL;
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
    } else {
        TranslateMessage(message);
        DispatchMessageW(message);
    }
    return TRUE;
}
