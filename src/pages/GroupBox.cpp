#include "pages/GroupBox.h"

using WinLib::Layout::Alignment;

WinLib::Layout::VStack& AddGroupBox(WinLib::Layout::Overlapped& root, HWND groupBox,
                                    const WinLib::Layout::Margins& margins) {
    root.AddWindow(groupBox, Alignment::Fill, Alignment::Fill);
    return *root.AddVStack(margins, 8);
}
