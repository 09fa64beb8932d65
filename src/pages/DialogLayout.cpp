#include "pages/DialogLayout.h"

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
