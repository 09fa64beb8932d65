// The main window and hub of the program: the tree of presets at the left, the page of the selected item at
// the right, the menu, and the one list that may be running. Owned by AppMain, which creates the dialog
// IDD_MAIN with it; everything happens on the user-interface thread.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/ICommand.h"
#include "app/MainTreeController.h"
#include "settings/MainSettings.h"
#include "winlib/Controller.h"
#include "winlib/Handles.h"
#include "winlib/controls/SplitterCtrl.h"
#include "winlib/layout/Overlapped.h"

class ListMakerWithUI;
class ManageController;
class PropertyController;

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

    // The part of CreateList behind the folder dialog. id is that of any item of the preset. Returns when the
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

    // The set-up, in MainControllerSetup.cpp.
    void FindControls();
    void BuildLayout();
    void MakeManagePage();
    void SetMainMenu();

    // Whether an accelerator's command was carried out.
    bool RunAccelerator(WORD id);

    // Has Tab go from the tree through the page to the buttons. Again for each new page.
    void OrderControls();

    void ArrangeControls();
    void PlaceWindow(int x, int y, int width, int height);

    // Presets and their pages, in MainControllerPresets.cpp. AddPreset makes the items and the pages of a
    // preset, which stays with Settings; itemOut takes its item.
    void AddPreset(HTREEITEM& itemOut, Preset& preset);
    void MakePage(uint32_t id, size_t index, Preset& preset);
    PropertyController* PageOf(uint32_t id) const;  // null if there is none, as below
    Preset* PresetOf(uint32_t id) const;
    std::optional<ItemKind> SelectedKind() const;
    bool CanCreateList() const;
    void UpdateControls();

    // The keyboard focus, in MainControllerFocus.cpp. TakeFocusFrom gives it to the tree if it is in a
    // control or a page that is about to go; ReturnFocus gives it back to "Create List..." when its list is
    // done.
    static constexpr UINT FocusRestored = WM_APP + 1;
    void TakeFocusFrom(HWND control) const;
    void HidePage(HWND page) const;
    void ReturnFocus();
    bool HandleActivate(WORD state) const;
    bool HandleFocusRestored();

    // The running list, in MainControllerLists.cpp.
    bool HandleJobEnded();
    void CollectJob();
    void FinishClosing();

    MainSettings Settings;
    std::map<uint32_t, std::unique_ptr<PropertyController>> Pages;  // by item id, seven for each preset
    std::unique_ptr<ManageController> ManagePage;
    HWND CurrentPage = nullptr;
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
    WinLib::Layout::Overlapped* PageSizer = nullptr;  // owned by the sizer tree
    std::wstring LastFolder;                          // of this run only
    std::unique_ptr<ListMakerWithUI> Lister;          // running, or finished and not yet collected

    // While Lister's Start is on the stack the job must live: what would delete it is put off until then.
    bool Starting = false;
    bool CloseWhenStarted = false;

    // "Create List..." had the focus when its list began and gets it again at the end, unless the user
    // chooses something else in the window before.
    bool FocusLent = false;
};
