// The job as the application uses it: with a progress dialog on the thread that starts it. The user can
// cancel, or send the job to the background, where it goes on alone and posts WM_APP to its owner at its end.
#pragma once

#include <atomic>
#include <string>

#include "listmaker/ListMaker.h"
#include "winlib/Windows.h"

class ProgressController;

class ListMakerWithUI : public ListMaker {
public:
    // ownerWindow is the parent of the dialog and receives the end message; null if there is no window.
    ListMakerWithUI(HWND ownerWindow, const Preset& source, const std::wstring& listedPath);

    void OnProgress(const std::wstring& status, const std::wstring& detail) override;
    void OnError(const std::wstring& message) override;
    bool IsCancelled() override;

    // Waits for the worker and serves the messages that it sends to this thread meanwhile.
    ~ListMakerWithUI() override;

    // Starts the worker and runs the dialog. True when the job ended while the dialog was open, false when
    // the user sent it to the background. Throws WinLib::Win32Error.
    bool Start() override;

protected:
    void Finish() override;

private:
    // Shows the message on the dialog, once it has been created, and waits for the answer. Returns false if
    // there is no dialog to show it on.
    bool ShowOnDialog(const std::wstring& message);

    // Posts the end message, on which the owner collects the job.
    void PostEnd();

    const HWND owner;

    // The dialog's object, which is owned, and at the same time its lock: a thread that exchanges it for null
    // owns the dialog until it stores it back. A thread that gets null continues as without a dialog. Remains
    // null after Start has deleted the dialog.
    std::atomic<ProgressController*> progress;
};
