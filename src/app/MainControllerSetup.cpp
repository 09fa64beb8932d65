// How the main window comes to be, inside WM_INITDIALOG.

#include "app/Commands.h"
#include "app/MainController.h"
#include "app/Menus.h"
#include "listmaker/ListMakerWithUI.h"
#include "pages/ManageController.h"
#include "pages/PropertyController.h"
#include "resources/resource.h"
#include "winlib/Application.h"
#include "winlib/Focus.h"
#include "winlib/TabOrder.h"
#include "winlib/layout/Stack.h"
#include "winlib/layout/Window.h"

using WinLib::Layout::Alignment;

bool MainController::HandleInitDialog(HWND, LPARAM, bool& focusSet) {
    FindControls();
    BuildLayout();
    // The marquee runs for good; only the bar's visibility changes.
    SendMessageW(BusyBar, PBM_SETMARQUEE, TRUE, 0);
    Settings.LoadAll();
    MakeManagePage();
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

void MainController::BuildLayout() {
    WinLib::Layout::HStack* columns = RootSizer.AddHStack(10, 10, 10, 10, 2);
    WinLib::Layout::Sizer* left = columns->AddWindow(0, TreeWindow, Alignment::Fill, Alignment::Fill);
    columns->AddWindow(0, SplitterWindow, Alignment::Fill, Alignment::Fill);
    WinLib::Layout::VStack* right = columns->AddVStack(1, 0, 0, 0, 0, 10);
    PageSizer = right->AddOverlapped(1);
    WinLib::Layout::HStack* buttons = right->AddHStack(0, 0, 0, 0, 0, 10);
    buttons->AddWindow(0, CloseButton, Alignment::Near, Alignment::Far);
    buttons->AddWindow(1, BusyBar, Alignment::Fill, Alignment::Center);
    buttons->AddWindow(0, CreateListButton, Alignment::Far, Alignment::Far);

    WinLib::Attach(TreeController, TreeWindow);
    WinLib::Attach(Splitter, SplitterWindow);
    Splitter.LeftSizer = left;
    Splitter.RightSizer = right;
}

void MainController::MakeManagePage() {
    WinLib::Application& application = *WinLib::Application::Current();
    ManagePage = std::make_unique<ManageController>();
    HWND page = nullptr;
    WinLib::CreateModeless(application, page, *ManagePage, IDD_MANAGE, Handle, application.Instance);
    PageSizer->AddWindow(page, Alignment::Fill, Alignment::Fill);
    ShowWindow(page, SW_SHOW);
}

void MainController::OrderControls() {
    WinLib::PutLast(Handle, {IDC_MAIN_CLOSE, IDC_MAIN_CREATE_LIST});
}

void MainController::SetMainMenu() {
    TemplateMenu = MakeTemplateMenu(IDM_TEMPLATE_FIRST);
    MenuBar = MakeMenuBar(WinLib::Application::Current()->Instance, TemplateMenu.get());
    SetMenu(Handle, MenuBar.get());
}
