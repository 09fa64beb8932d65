// The main window: builds it, routes its messages, and carries out the commands on presets. Its parts have
// classes of their own: the tree of presets at the left, the page of the selected item at the right, the
// table of commands, and the one list that may be running. Owned by AppMain, which creates the dialog
// IDD_MAIN with it; everything happens on the user-interface thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/FocusKeeper.h"
#include "app/ICommand.h"
#include "app/MainTreeController.h"
#include "app/PageStack.h"
#include "app/RunningList.h"
#include "settings/MainSettings.h"
#include "winlib/Controller.h"
#include "winlib/Handles.h"
#include "winlib/controls/SplitterCtrl.h"
#include "winlib/layout/Overlapped.h"

class MainController : public WinLib::Dialog::Controller,
                       public ICommand,
                       public WinLib::Handlers::Handler<WM_SIZING>,
                       public WinLib::Handlers::Handler<WM_SIZE>,
                       public WinLib::Handlers::Handler<WM_DESTROY>,
                       public WinLib::Handlers::Handler<WM_CLOSE>,
                       public WinLib::Handlers::Handler<WM_GETMINMAXINFO>,
                       public WinLib::Handlers::Handler<WM_SYSCOLORCHANGE>,
                       public WinLib::Handlers::Handler<WM_DISPLAYCHANGE> {
public:
    // REQUIRES: the process's Application, which accelerators and pages are registered with.
    MainController();
    ~MainController() override;

    bool OnMenuCommand(WORD id) override;
    bool OnAccelerator(WORD id) override;
    bool OnControlCommand(WORD id, HWND control, WORD code) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    void NewPreset() override;
    void NewFromTemplate(uint32_t index) override;
    void DuplicatePreset(HTREEITEM item) override;
    void RemovePreset(HTREEITEM item) override;
    void RenamePreset(HTREEITEM item, const std::wstring& text) override;
    void ReorderPresets(const std::vector<uint32_t>& ids) override;
    void ShowPage(HTREEITEM item) override;
    void ShowOptions() override;
    void ShowAbout() override;
    void EnableAccelerators() override;
    void DisableAccelerators() override;

    // "Create List...": asks for a folder and lists it with the selected item's preset.
    void CreateList();

    // What CreateList does once the folder is chosen. id is that of any item of the preset. Returns when the
    // list is finished or in the background.
    void StartList(uint32_t id, const std::wstring& folder);

private:
    bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) override;
    bool HandleNotify(NMHDR& header, LRESULT& result) override;
    bool HandleSizing(WPARAM edge, RECT& rect) override;
    bool HandleSize(WORD type, WORD width, WORD height) override;
    bool HandleDestroy() override;
    bool HandleClose() override;
    bool HandleGetMinMaxInfo(MINMAXINFO& info) override;
    bool HandleSysColorChange() override;
    bool HandleDisplayChange() override;

    void FindControls();
    WinLib::Layout::Overlapped* BuildLayout();
    void SetMainMenu();

    // Whether an accelerator's command was carried out.
    bool RunAccelerator(WORD id);

    // Has Tab go from the tree through the page to the buttons. Again for each new page.
    void OrderControls();

    void ArrangeControls();
    void PlaceWindow(int x, int y, int width, int height);

    // Makes the items and the pages of a preset, which stays with Settings; itemOut takes its item.
    void AddPreset(HTREEITEM& itemOut, Preset& preset);

    Preset* PresetOf(HTREEITEM item) const;  // null if there is none
    std::optional<ItemKind> SelectedKind() const;
    bool CanCreateList() const;
    void UpdateControls();

    // Destroys a list that has ended and shows that another one can be created. Does nothing while the list
    // is being started.
    void CollectJob();

    // Destroys the window as soon as the running list allows it.
    void FinishClosing();

    // Destroyed in reverse order, after the pages of the presets.
    MainSettings Settings;
    FocusKeeper focus_;
    PageStack pages_;
    WinLib::UniqueHandle<HACCEL> Accelerators;
    WinLib::UniqueHandle<HMENU> MenuBar;
    WinLib::UniqueHandle<HMENU> TemplateMenu;
    HWND TreeWindow = nullptr;
    HWND SplitterWindow = nullptr;
    HWND CloseButton = nullptr;
    HWND CreateListButton = nullptr;
    HWND BusyBar = nullptr;
    MainTreeController TreeController;
    WinLib::SplitterCtrl Splitter;
    WinLib::Layout::Overlapped RootSizer;
    std::wstring LastFolder;  // of this run only
    RunningList list_;
};
