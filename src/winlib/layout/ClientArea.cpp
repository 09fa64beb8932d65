#include "winlib/layout/ClientArea.h"

namespace WinLib::Layout {

void ArrangeOnClient(Sizer& root, HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    root.Arrange(client);
}

void MeasureAndArrange(Sizer& root, HWND dialog) {
    root.Measure();
    ArrangeOnClient(root, dialog);
}

bool ArrangeOnSize(Sizer& root, HWND dialog, WORD type) {
    if (type == SIZE_MINIMIZED)
        return false;
    ArrangeOnClient(root, dialog);
    return true;
}

SIZE OuterMinimum(const Sizer& root, HWND dialog, bool hasMenu) {
    RECT outer = root.MinimumRect;
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_STYLE)), hasMenu,
                       static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_EXSTYLE)));
    return {Width(outer), Height(outer)};
}

}  // namespace WinLib::Layout
