#include "winlib/layout/ClientArea.h"

namespace WinLib::Layout {

void ArrangeOnClient(Sizer& root, HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    root.Arrange(client);
}

}  // namespace WinLib::Layout
