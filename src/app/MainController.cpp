#include "app/MainController.h"

#include "app/Commands.h"
#include "app/WorkArea.h"
#include "listmaker/ListMakerWithUI.h"
#include "pages/AboutController.h"
#include "pages/DialogLayout.h"
#include "pages/ManageController.h"
#include "pages/OptionsController.h"
#include "pages/PropertyController.h"
#include "resources/resource.h"
#include "winlib/Application.h"

namespace {

// Marks the menu command of a template; its number stands in the bits below.
constexpr WORD TemplateBit = IDM_TEMPLATE_FIRST;

void SetAccelerators(HWND window, HACCEL table) {
    WinLib::Application& application = *WinLib::Application::Current();
    application.AcceleratorWindow = window;
    application.Accelerators = table;
}

}  // namespace

MainController::MainController() : TreeController(*this) {
    Splitter.Cursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZEWE));
}

MainController::~MainController() {
    for (auto& [id, page] : Pages) {
        page->OnCancel();
        page.reset();
    }
    // Members go in the reverse of their order: the list that may still run first, the settings last.
}

bool MainController::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_SIZING:
            return Handler<WM_SIZING>::Dispatch(wParam, lParam, result);
        case WM_SIZE:
            return Handler<WM_SIZE>::Dispatch(wParam, lParam, result);
        case WM_DESTROY:
            return Handler<WM_DESTROY>::Dispatch(wParam, lParam, result);
        case WM_CLOSE:
            return Handler<WM_CLOSE>::Dispatch(wParam, lParam, result);
        case WM_GETMINMAXINFO:
            return Handler<WM_GETMINMAXINFO>::Dispatch(wParam, lParam, result);
        case WM_SYSCOLORCHANGE:
            return Handler<WM_SYSCOLORCHANGE>::Dispatch(wParam, lParam, result);
        case WM_DISPLAYCHANGE:
            return Handler<WM_DISPLAYCHANGE>::Dispatch(wParam, lParam, result);
        case WM_APP:
            return HandleJobEnded();
        case WM_ACTIVATE:
            return HandleActivate(LOWORD(wParam));
        case FocusRestored:
            return HandleFocusRestored();
        default:
            return WinLib::Dialog::Controller::OnMessage(message, wParam, lParam, result);
    }
}

bool MainController::OnMenuCommand(WORD id) {
    if (id & TemplateBit) {
        NewFromTemplate(id & (TemplateBit - 1));
        return true;
    }
    const CommandRow* command = FindMenuCommand(id);
    const HTREEITEM selected = TreeController.SelectedItem();
    if (command == nullptr || (command->needsPreset && selected == nullptr))
        return false;
    command->run({Handle, *this, TreeController, selected});
    return true;
}

bool MainController::OnAccelerator(WORD id) {
    const bool taken = RunAccelerator(id);
    WinLib::Application::Current()->AcceleratorRefused = !taken;
    return taken;
}

bool MainController::RunAccelerator(WORD id) {
    const CommandRow* command = FindKeyCommand(id);
    const HTREEITEM selected = TreeController.SelectedItem();
    if (command == nullptr ||
        (command->needsPreset && TreeController.ItemKindOf(selected) != ItemKind::Preset))
        return false;
    command->run({Handle, *this, TreeController, selected});
    return true;
}

// Nothing is left to the dialog's own handling, which destroys the window for IDOK and IDCANCEL.
bool MainController::OnControlCommand(WORD id, HWND, WORD code) {
    if (code != BN_CLICKED)
        return false;
    switch (id) {
        case IDC_MAIN_CREATE_LIST:
            CreateList();
            return true;
        case IDC_MAIN_CLOSE:
            SendMessageW(Handle, WM_CLOSE, 0, 0);
            return true;
        default:
            return false;
    }
}

bool MainController::HandleNotify(NMHDR& header, LRESULT& result) {
    switch (static_cast<int>(header.code)) {
        case static_cast<int>(TVN_ENDLABELEDITW):
            return TreeController.EndRename(reinterpret_cast<const NMTVDISPINFOW&>(header), result);
        case static_cast<int>(TVN_BEGINLABELEDITW):
            DisableAccelerators();
            TreeController.AttachLabelEdit();
            return true;
        case static_cast<int>(TVN_SELCHANGEDW):
            ShowPage(TreeController.SelectedItem());
            return true;
        case static_cast<int>(NM_CLICK):
        case static_cast<int>(TVN_KEYDOWN):
            FocusLent = false;
            return false;
        case static_cast<int>(NM_KILLFOCUS):
            // Another program or a dialog takes it only for a time.
            if (IsChild(Handle, GetFocus()))
                FocusLent = false;
            return false;
        default:
            return false;
    }
}

bool MainController::HandleSizing(WPARAM, RECT&) {
    ArrangeControls();
    return true;
}

bool MainController::HandleSize(WORD type, WORD, WORD) {
    if (type == SIZE_MINIMIZED)
        return false;
    ArrangeControls();
    return true;
}

bool MainController::HandleDestroy() {
    PostQuitMessage(0);
    return true;
}

bool MainController::HandleGetMinMaxInfo(MINMAXINFO& info) {
    RECT outer = RootSizer.MinimumRect;
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(Handle, GWL_STYLE)), TRUE,
                       static_cast<DWORD>(GetWindowLongPtrW(Handle, GWL_EXSTYLE)));
    const POINT size = {outer.right - outer.left, outer.bottom - outer.top};
    info.ptMinTrackSize = size;
    info.ptMaxTrackSize = {size.x * 2, size.y * 2};
    return true;
}

// The controls are told here, and the platform does the rest.
bool MainController::HandleSysColorChange() {
    SendMessageW(TreeWindow, WM_SYSCOLORCHANGE, 0, 0);
    for (const auto& [id, page] : Pages)
        SendMessageW(page->Handle, WM_SYSCOLORCHANGE, 0, 0);
    return false;
}

bool MainController::HandleDisplayChange() {
    RECT window;
    GetWindowRect(Handle, &window);
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof(monitor);
    if (!GetMonitorInfoW(MonitorFromRect(&window, MONITOR_DEFAULTTOPRIMARY), &monitor))
        return false;
    const RECT fitted = FitToWorkArea(window, monitor);
    if (!EqualRect(&fitted, &window))
        PlaceWindow(fitted.left, fitted.top, fitted.right - fitted.left, fitted.bottom - fitted.top);
    return false;
}

void MainController::ArrangeControls() {
    ArrangeOnClient(RootSizer, Handle);
}

void MainController::PlaceWindow(int x, int y, int width, int height) {
    SetWindowPos(Handle, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SetWindowPos(Handle, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
}

void MainController::ShowOptions() {
    OptionsController controller(&Settings);
    WinLib::RunModal(controller, IDD_OPTIONS, Handle, WinLib::Application::Current()->Instance);
}

void MainController::ShowAbout() {
    AboutController controller;
    WinLib::RunModal(controller, IDD_ABOUT, Handle, WinLib::Application::Current()->Instance);
}

void MainController::EnableAccelerators() {
    SetAccelerators(Handle, Accelerators.get());
}

void MainController::DisableAccelerators() {
    SetAccelerators(nullptr, nullptr);
}
