#include "pages/DialogLayout.h"

void ArrangeOnClient(WinLib::Layout::Sizer& root, HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    root.Arrange(client);
    // A moved control takes along what its neighbours have drawn on it, and a frame does not erase where it was.
    RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void MeasureAndArrange(WinLib::Layout::Sizer& root, HWND dialog) {
    root.Measure();
    ArrangeOnClient(root, dialog);
}

bool ArrangeOnSize(WinLib::Layout::Sizer& root, HWND dialog, WORD type) {
    if (type == SIZE_MINIMIZED)
        return false;
    ArrangeOnClient(root, dialog);
    return true;
}
