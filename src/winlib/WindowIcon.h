// Icons from resources: those of a top-level window in the two sizes that the system shows, for the taskbar
// and for the caption, and small ones for controls.
#pragma once

#include "winlib/Handles.h"
#include "winlib/Windows.h"

namespace WinLib {

// Loads an icon in the size of a caption's icon. Returns null on failure.
UniqueHandle<HICON> LoadSmallIcon(HINSTANCE instance, int id);

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
