// The one list that may run, and the window's end, which waits for it. The worker posts WM_APP when it has
// ended, and before that when it has shown an error; the second message finds no job. Either may come while
// Start still runs its dialog.

#include "app/MainController.h"
#include "listmaker/ListMakerWithUI.h"
#include "pages/ManageController.h"
#include "pages/PropertyController.h"
#include "winlib/FolderPicker.h"

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
    const Preset* preset = PresetOf(id);
    if (preset == nullptr)
        return;
    FocusLent = GetFocus() == CreateListButton;
    TakeFocusFrom(CreateListButton);
    EnableWindow(CreateListButton, FALSE);
    Lister = std::make_unique<ListMakerWithUI>(Handle, *preset, folder);
    Starting = true;
    const bool ended = Lister->Start();
    Starting = false;
    // The dialog cannot activate the window if it is gone before the window has been enabled.
    if (GetForegroundWindow() == nullptr && IsWindowEnabled(Handle))
        SetActiveWindow(Handle);
    if (!ended)
        ShowWindow(BusyBar, SW_SHOW);
    // The end message may have come already; a job that has not ended has yet to send it.
    if (Lister->IsFinished())
        CollectJob();
    if (CloseWhenStarted)
        FinishClosing();
}

bool MainController::HandleJobEnded() {
    if (!Starting)
        CollectJob();
    return true;
}

void MainController::CollectJob() {
    Lister.reset();
    // Not visible while the window is closing.
    if (!IsWindowVisible(Handle))
        return;
    ShowWindow(BusyBar, SW_HIDE);
    UpdateControls();
    ReturnFocus();
}

bool MainController::HandleClose() {
    if (Settings.Get(MainSettings::ConfirmExit) &&
        MessageBoxW(Handle, L"Are you sure you want to quit?", L"Tamblewick", MB_YESNO | MB_ICONQUESTION) ==
            IDNO)
        return true;
    RECT window;
    // A second question, which whoever asks from outside gets while the first one stands, may have closed it.
    if (!GetWindowRect(Handle, &window))
        return true;
    Settings.Get(MainSettings::WindowPosX) = window.left;
    Settings.Get(MainSettings::WindowPosY) = window.top;
    Settings.Get(MainSettings::WindowWidth) = static_cast<uint32_t>(window.right - window.left);
    Settings.Get(MainSettings::WindowHeight) = static_cast<uint32_t>(window.bottom - window.top);
    Settings.SaveMain();
    ShowWindow(Handle, SW_HIDE);
    if (Starting)
        CloseWhenStarted = true;
    else
        FinishClosing();
    return true;
}

// A list that still runs is not cancelled: the window is gone, but the process stays until it is done.
void MainController::FinishClosing() {
    Lister.reset();
    DestroyWindow(Handle);
}
