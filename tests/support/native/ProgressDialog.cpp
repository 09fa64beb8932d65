#include "support/ProgressDialog.h"
#include "FakeWindows.h"
#include "resources/resource.h"
#include "winlib/Windows.h"

#include <commctrl.h>

// As in the resource script, with two pixels to the dialog unit.
void DefineProgressDialog() {
    FakeWin::DefineDialog(
        IDD_PROGRESS, {.caption = L"###",
                       .size = {606, 170},
                       .style = DS_CENTER | WS_POPUP | WS_CAPTION | WS_THICKFRAME,
                       .controls = {{IDC_PROGRESS_CANCEL, L"BUTTON", L"Cancel", {264, 110, 404, 142}},
                                    {IDC_PROGRESS_BACKGROUND, L"BUTTON", L"Background", {96, 110, 236, 142}},
                                    {IDC_PROGRESS_STATUS_LINE, L"STATIC", L"###", {12, 12, 516, 28}},
                                    {IDC_PROGRESS_DETAIL_LINE, L"STATIC", L"###", {12, 36, 516, 52}},
                                    {IDC_PROGRESS_MARQUEE,
                                     PROGRESS_CLASSW,
                                     L"",
                                     {48, 84, 408, 112},
                                     WS_CHILD | WS_VISIBLE | PBS_MARQUEE},
                                    {IDC_PROGRESS_BAR, PROGRESS_CLASSW, L"", {24, 72, 384, 100}},
                                    {IDC_PROGRESS_ICON, L"STATIC", L"", {540, 18, 580, 58}}}});
}

const int ManyDialogs = 1000;
