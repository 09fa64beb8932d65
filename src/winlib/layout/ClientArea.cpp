#include "winlib/layout/ClientArea.h"

namespace WinLib::Layout {

void ArrangeOnClient(Sizer& root, HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    root.Arrange(client);
    // A moved control takes along what its neighbours have drawn on it, and a frame does not erase where it
    // was.
    RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

}  // namespace WinLib::Layout
