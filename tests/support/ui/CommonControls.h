// The window classes of the common controls, which a process registers before it creates their windows.
#pragma once

#include <gtest/gtest.h>

#include "winlib/Windows.h"

#include <commctrl.h>

namespace Ui {

// Registers all classes that the program uses. Fails the test if the system refuses.
inline void InitCommonControls() {
    const INITCOMMONCONTROLSEX classes = {
        sizeof(classes), ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_BAR_CLASSES};
    EXPECT_TRUE(InitCommonControlsEx(&classes));
}

}  // namespace Ui
