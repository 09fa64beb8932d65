#include "app/MainController.h"

#include "app/Commands.h"
#include "app/Menus.h"
#include "app/WorkArea.h"
#include "pages/AboutController.h"
#include "pages/OptionsController.h"
#include "resources/resource.h"
#include "settings/Templates.h"
#include "winlib/Application.h"
#include "winlib/Focus.h"
#include "winlib/FolderPicker.h"
#include "winlib/TabOrder.h"
#include "winlib/layout/ClientArea.h"
#include "winlib/layout/Stack.h"
#include "winlib/layout/Window.h"

using WinLib::Layout::Alignment;

namespace {

// Marks the menu command of a template; the bits below are its number.
constexpr WORD TemplateBit = IDM_TEMPLATE_FIRST;

void SetAccelerators(HWND window, HACCEL table) {
    WinLib::Application& application = *WinLib::Application::Current();
    application.AcceleratorWindow = window;
    application.Accelerators = table;
}

}  // namespace

MainController::MainController() : pages_(focus_), TreeController(*this) {
    Splitter.Cursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZEWE));
}

MainController::~MainController() {
    pages_.RemoveAll();
}

bool MainController::HandleInitDialog(HWND, LPARAM, bool& focusSet) {
    FindControls();
    focus_.Attach(Handle, TreeWindow, CreateListButton);
    WinLib::Layout::Overlapped* const pageSizer = BuildLayout();
    // The marquee runs all the time; only the bar's visibility changes.
    SendMessageW(BusyBar, PBM_SETMARQUEE, TRUE, 0);
    Settings.LoadAll();
    pages_.Attach(Handle, *pageSizer);
    OrderControls();

    // The window's minimum is the layout as the resource drew it, with the page of instructions.
    RootSizer.Measure();
    RootSizer.CurrentRect = RootSizer.MinimumRect;
    RootSizer.Arrange(RootSizer.MinimumRect);

    for (const auto& preset : Settings.Presets) {
        HTREEITEM item = nullptr;
        AddPreset(item, *preset);
    }
    if (const HTREEITEM first = TreeController.FirstItem())
        TreeController.Select(first);
    UpdateControls();
    Settings.Get(MainSettings::FirstRun) = false;

    SetMainMenu();
    // Once more, for the menu's entries.
    UpdateControls();
    Accelerators = MakeAccelerators();
    EnableAccelerators();
    PlaceWindow(Settings.Get(MainSettings::WindowPosX), Settings.Get(MainSettings::WindowPosY),
                static_cast<int>(Settings.Get(MainSettings::WindowWidth)),
                static_cast<int>(Settings.Get(MainSettings::WindowHeight)));
    ShowWindow(Handle, WinLib::Application::Current()->ShowCommand);
    UpdateWindow(Handle);
    WinLib::MoveFocus(IsWindowEnabled(CreateListButton) ? CreateListButton : TreeWindow);
    focusSet = true;
    return true;
}

void MainController::FindControls() {
    TreeWindow = GetDlgItem(Handle, IDC_MAIN_TREE);
    SplitterWindow = GetDlgItem(Handle, IDC_MAIN_SPLITTER);
    CloseButton = GetDlgItem(Handle, IDC_MAIN_CLOSE);
    CreateListButton = GetDlgItem(Handle, IDC_MAIN_CREATE_LIST);
    BusyBar = GetDlgItem(Handle, IDC_MAIN_BUSY_BAR);
    WinLib::Controls::Tree(TreeWindow).UseUnicode();
}

// Returns the sizer of the pages, which the sizer tree owns.
WinLib::Layout::Overlapped* MainController::BuildLayout() {
    WinLib::Layout::HStack* columns =
        RootSizer.AddHStack({.left = 10, .top = 10, .right = 10, .bottom = 10}, 2);
    WinLib::Layout::Sizer* left = columns->AddWindow(0, TreeWindow, Alignment::Fill, Alignment::Fill);
    columns->AddWindow(0, SplitterWindow, Alignment::Fill, Alignment::Fill);
    WinLib::Layout::VStack* right = columns->AddVStack(1, {}, 10);
    WinLib::Layout::Overlapped* const pageSizer = right->AddOverlapped(1);
    WinLib::Layout::HStack* buttons = right->AddHStack(0, {}, 10);
    buttons->AddWindow(0, CloseButton, Alignment::Near, Alignment::Far);
    buttons->AddWindow(1, BusyBar, Alignment::Fill, Alignment::Center);
    buttons->AddWindow(0, CreateListButton, Alignment::Far, Alignment::Far);

    WinLib::Attach(TreeController, TreeWindow);
    WinLib::Attach(Splitter, SplitterWindow);
    Splitter.LeftSizer = left;
    Splitter.RightSizer = right;
    return pageSizer;
}

void MainController::OrderControls() {
    WinLib::PutLast(Handle, {IDC_MAIN_CLOSE, IDC_MAIN_CREATE_LIST});
}

void MainController::SetMainMenu() {
    TemplateMenu = MakeTemplateMenu(IDM_TEMPLATE_FIRST);
    MenuBar = MakeMenuBar(WinLib::Application::Current()->Instance, TemplateMenu.get());
    SetMenu(Handle, MenuBar.get());
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
            CollectJob();
            return true;
        case WM_ACTIVATE:
            focus_.Activated(LOWORD(wParam));
            return true;
        case WM_SETFOCUS:
            focus_.Restore();
            return true;
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
            focus_.Forget();
            return false;
        case static_cast<int>(NM_KILLFOCUS):
            // Another program or a dialog takes it only for a time.
            if (IsChild(Handle, GetFocus()))
                focus_.Forget();
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
    return WinLib::Layout::ArrangeOnSize(RootSizer, Handle, type);
}

bool MainController::HandleDestroy() {
    PostQuitMessage(0);
    return true;
}

bool MainController::HandleGetMinMaxInfo(MINMAXINFO& info) {
    const SIZE size = WinLib::Layout::OuterMinimum(RootSizer, Handle, true);
    info.ptMinTrackSize = {size.cx, size.cy};
    info.ptMaxTrackSize = {size.cx * 2, size.cy * 2};
    return true;
}

// Forwards the message to the controls; unhandled, so that the platform redraws the dialog.
bool MainController::HandleSysColorChange() {
    SendMessageW(TreeWindow, WM_SYSCOLORCHANGE, 0, 0);
    pages_.ForwardSysColorChange();
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
    WinLib::Layout::ArrangeOnClient(RootSizer, Handle);
}

void MainController::PlaceWindow(int x, int y, int width, int height) {
    SetWindowPos(Handle, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SetWindowPos(Handle, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
}

void MainController::CreateList() {
    const HTREEITEM selected = TreeController.SelectedItem();
    if (!TreeController.ItemKindOf(selected))
        return;
    const uint32_t id = TreeController.ItemId(selected);
    const std::wstring start = LastFolder;
    if (const auto folder =
            WinLib::PickFolder(Handle, L"Select a folder", start.empty() ? nullptr : start.c_str()))
        StartList(id, *folder);
}

void MainController::StartList(uint32_t id, const std::wstring& folder) {
    LastFolder = folder;
    const Preset* preset = pages_.PresetOf(id);
    if (preset == nullptr)
        return;
    focus_.Lend();
    EnableWindow(CreateListButton, FALSE);
    const bool ended = list_.Start(Handle, *preset, folder);
    // The dialog cannot activate the window if it is gone before the window has been enabled.
    if (GetForegroundWindow() == nullptr && IsWindowEnabled(Handle))
        SetActiveWindow(Handle);
    if (!ended)
        ShowWindow(BusyBar, SW_SHOW);
    // The end message may have come already; a job that has not ended has yet to send it.
    if (list_.IsFinished())
        CollectJob();
    if (list_.CloseRequested())
        FinishClosing();
}

void MainController::CollectJob() {
    // Not visible while the window is closing.
    if (!list_.Collect() || !IsWindowVisible(Handle))
        return;
    ShowWindow(BusyBar, SW_HIDE);
    UpdateControls();
    focus_.Return();
}

bool MainController::HandleClose() {
    if (Settings.Get(MainSettings::ConfirmExit) &&
        MessageBoxW(Handle, L"Are you sure you want to quit?", L"Tamblewick", MB_YESNO | MB_ICONQUESTION) ==
            IDNO)
        return true;
    RECT window;
    // A second WM_CLOSE that arrived while the question was open may already have destroyed the window.
    if (!GetWindowRect(Handle, &window))
        return true;
    Settings.Get(MainSettings::WindowPosX) = window.left;
    Settings.Get(MainSettings::WindowPosY) = window.top;
    Settings.Get(MainSettings::WindowWidth) = static_cast<uint32_t>(window.right - window.left);
    Settings.Get(MainSettings::WindowHeight) = static_cast<uint32_t>(window.bottom - window.top);
    Settings.SaveMain();
    ShowWindow(Handle, SW_HIDE);
    FinishClosing();
    return true;
}

// A list that still runs is not cancelled: the window is hidden, but the process stays until it is done.
void MainController::FinishClosing() {
    if (list_.Close())
        DestroyWindow(Handle);
}

void MainController::AddPreset(HTREEITEM& itemOut, Preset& preset) {
    std::vector<uint32_t> ids;
    TreeController.AddItems(itemOut, preset.Get(Preset::Name), ids);
    pages_.Add(ids, preset);
    OrderControls();
    ArrangeControls();
}

Preset* MainController::PresetOf(HTREEITEM item) const {
    return pages_.PresetOf(TreeController.ItemId(item));
}

std::optional<ItemKind> MainController::SelectedKind() const {
    return TreeController.ItemKindOf(TreeController.SelectedItem());
}

bool MainController::CanCreateList() const {
    return SelectedKind().has_value() && !list_.Exists();
}

void MainController::UpdateControls() {
    pages_.ShowInstructions(TreeController.FirstItem() == nullptr);

    // A tree without a selection selects an item when it gets the focus.
    if (!CanCreateList())
        focus_.TakeFrom(CreateListButton);
    EnableWindow(CreateListButton, CanCreateList());

    EnablePresetCommands(MenuBar.get(), SelectedKind() == ItemKind::Preset);
}

void MainController::ShowPage(HTREEITEM item) {
    focus_.Forget();
    UpdateControls();
    pages_.Show(TreeController.ItemId(item));
}

void MainController::NewPreset() {
    Preset& preset = Settings.CreatePreset();
    preset.Get(Preset::Name) = L"New Preset";
    HTREEITEM item = nullptr;
    AddPreset(item, preset);
    TreeController.BeginRename(item);
    preset.Save();
    UpdateControls();
}

void MainController::NewFromTemplate(uint32_t index) {
    // A command from outside may carry any number.
    if (index >= TemplateCount)
        return;
    Preset& preset = Settings.CreateFromTemplate(index);
    HTREEITEM item = nullptr;
    AddPreset(item, preset);
    TreeController.Select(item);
    preset.Save();
    UpdateControls();
}

void MainController::DuplicatePreset(HTREEITEM item) {
    const Preset* source = PresetOf(item);
    if (source == nullptr)
        return;
    Preset& copy = Settings.CreatePreset();
    copy.Assign(*source);
    copy.Get(Preset::Name) = L"Copy of " + source->Get(Preset::Name);
    copy.Save();
    HTREEITEM copyItem = nullptr;
    AddPreset(copyItem, copy);
    UpdateControls();
}

void MainController::RemovePreset(HTREEITEM item) {
    const std::vector<uint32_t> ids = TreeController.RemoveItems(item);
    const Preset* preset = ids.empty() ? nullptr : pages_.PresetOf(ids.front());
    if (preset == nullptr)
        return;
    pages_.Remove(ids);
    preset->DeleteKey();
    Settings.Remove(*preset);
    Settings.Renumber();
    UpdateControls();
}

void MainController::RenamePreset(HTREEITEM item, const std::wstring& text) {
    Preset* preset = PresetOf(item);
    if (preset == nullptr)
        return;
    preset->Get(Preset::Name) = text;
    preset->Save();
}

void MainController::ReorderPresets(const std::vector<uint32_t>& ids) {
    int32_t position = 1;
    for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
        Preset* preset = pages_.PresetOf(*id);
        if (preset == nullptr)
            continue;
        preset->Get(Preset::Position) = position++;
        preset->Save();
    }
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
