// The icon of a top-level window in the two sizes that the system shows, for the taskbar and for the caption.
#pragma once

#include "winlib/Handles.h"
#include "winlib/Windows.h"

namespace WinLib {

// Owns what it has loaded, so it must outlive the window.
class WindowIcon {
public:
    // Loads the icon with this number from the resources of the instance and gives it to the window. If it
    // cannot be loaded, the window has none.
    void Set(HWND window, HINSTANCE instance, int id);

private:
    UniqueHandle<HICON> big_;
    UniqueHandle<HICON> small_;
};

}  // namespace WinLib
