// Owning handles of the window system. A null handle is not destroyed. Handles that are not owned (windows,
// the system's cursors and fonts) stay plain.
#pragma once

#include <memory>
#include <type_traits>

#include "winlib/Windows.h"

#include <commctrl.h>

namespace WinLib {

struct HandleDestroyer {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
    void operator()(HACCEL table) const { DestroyAcceleratorTable(table); }
    void operator()(HICON icon) const { DestroyIcon(icon); }
    void operator()(HFONT font) const { DeleteObject(font); }
    void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
};

// UniqueHandle<HMENU>, UniqueHandle<HACCEL>, ...
template <typename Handle>
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<Handle>, HandleDestroyer>;

}  // namespace WinLib
