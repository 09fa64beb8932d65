// Answers the system's folder dialog in a test.
#pragma once

#include <string>

#include "support/ui/DismissModal.h"

// A folder of three levels that is never written to, after a look into each of them. Wine's dialog
// compares folders by their time of access too, and does not find one whose time the first look has changed.
std::wstring QuietFolder();

// While it lives, presses OK in a folder dialog as soon as the folder of this name is selected there.
class AcceptFolder {
public:
    explicit AcceptFolder(const std::wstring& name);
    AcceptFolder(const AcceptFolder&) = delete;
    AcceptFolder& operator=(const AcceptFolder&) = delete;
    ~AcceptFolder();

    const std::vector<Ui::SeenDialog>& Seen() const { return dialogs_.Seen(); }

private:
    static void CALLBACK OnTimer(HWND dialog, UINT, UINT_PTR timer, DWORD);

    Ui::DismissModal dialogs_;
};
