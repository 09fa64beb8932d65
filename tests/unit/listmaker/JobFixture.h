// The world of a job with its dialog: a folder to list, an owner that receives the end message, and the
// template of the progress dialog.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FakeWin.h"
#include "FakeWindows.h"
#include "TestJob.h"
#include "resources/resource.h"
#include "winlib/WindowText.h"

namespace JobTest {

inline constexpr wchar_t Folder[] = L"C:\\Photos";
inline constexpr wchar_t List[] = L"C:\\Lists\\List of Photos.txt";

// Saves the list of Folder as List and opens it.
inline Preset MakePreset() {
    return MakeJobPreset(L"C:\\Lists", OpenMethod::Default);
}

struct Fixture : testing::Test {
    Fixture() : owner(FakeWin::CreatePlainWindow(L"Owner")) {
        FakeWin::AddFile(std::wstring(Folder) + L"\\inside.txt", 1);
        FakeWin::AddFolder(L"C:\\Lists");
        FakeWin::DefineDialog(IDD_PROGRESS,
                              {L"###",
                               {400, 150},
                               WS_POPUP | WS_CAPTION | WS_THICKFRAME,
                               0,
                               {{IDC_PROGRESS_CANCEL, L"BUTTON", L"Cancel", {210, 100, 320, 130}},
                                {IDC_PROGRESS_BACKGROUND, L"BUTTON", L"Background", {80, 100, 190, 130}},
                                {IDC_PROGRESS_STATUS_LINE, L"STATIC", L"###", {10, 10, 300, 23}},
                                {IDC_PROGRESS_DETAIL_LINE, L"STATIC", L"###", {10, 30, 300, 43}},
                                {IDC_PROGRESS_MARQUEE, L"msctls_progress32", L"", {40, 70, 310, 93}},
                                {IDC_PROGRESS_BAR, L"msctls_progress32", L"", {20, 60, 290, 83}},
                                {IDC_PROGRESS_ICON, L"STATIC", L"", {350, 10, 382, 42}}}});
    }
    ~Fixture() override {
        EXPECT_EQ(FakeWin::LeftOpen(), "");
        EXPECT_EQ(FakeWin::OpenWindows(), 1) << "the owner alone";
    }

    // How many end messages the owner has been posted; each has both parameters zero.
    int EndMessages() const {
        int count = 0;
        for (const FakeWin::Message& message : FakeWin::PostedTo(owner)) {
            EXPECT_EQ(message.message, static_cast<UINT>(WM_APP));
            EXPECT_EQ(message.wParam, 0u);
            EXPECT_EQ(message.lParam, 0);
            count++;
        }
        return count;
    }

    // The user who presses this button as soon as the dialog shows.
    static void ClickWhenShown(int id) {
        FakeWin::OnDialogShown(
            IDD_PROGRESS, [id](HWND dialog) { EXPECT_TRUE(FakeWin::Click(dialog, id)); });
    }

    // The dialog with its buttons, from the worker.
    static HWND WaitForDialog() {
        const HWND dialog = FakeWin::WaitForDialog(IDD_PROGRESS);
        EXPECT_NE(dialog, nullptr);
        return dialog;
    }

    static std::wstring LineOf(HWND dialog, int id) { return WinLib::GetWindowText(GetDlgItem(dialog, id)); }

    const HWND owner;
};

}  // namespace JobTest
