// The one list that the main window may have running or finished and not yet collected. Its worker posts
// WM_APP to the owner when it has ended, and before that when it has shown an error, so there may be more
// messages than lists; each may arrive while Start still runs the progress dialog.
#pragma once

#include <memory>
#include <string>

#include "winlib/Windows.h"

class ListMakerWithUI;
class Preset;

class RunningList {
public:
    RunningList();

    // Waits for the worker.
    ~RunningList();

    // Starts a list of the folder and runs its progress dialog. Returns true if the list has ended, false if
    // it goes on in the background.
    bool Start(HWND owner, const Preset& preset, const std::wstring& folder);

    bool Exists() const { return Lister != nullptr; }

    // Whether there is a list whose worker has nothing left to do.
    bool IsFinished() const;

    // Destroys the list, if there is one, after its worker has ended. Does nothing and returns false while
    // Start is on the stack: the list must outlive it.
    bool Collect();

    // The same for the end of the owner. CloseRequested returns true after Close has returned false: the
    // owner calls Close once more when Start has returned.
    bool Close();
    bool CloseRequested() const { return closeRequested_; }

private:
    std::unique_ptr<ListMakerWithUI> Lister;
    bool starting_ = false;
    bool closeRequested_ = false;
};
