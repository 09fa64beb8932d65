#include "pages/PathChoice.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::HStack;
using WinLib::Layout::VStack;

void PathChoice::AddTo(VStack& page) const {
    for (const HWND button : buttons)
        page.AddWindow(0, button, Alignment::Near, Alignment::Center);
    HStack* const path = page.AddHStack(0, 0, 0, 0, 0, 0);
    path->AddSpacer(0, 20);
    path->AddWindow(1, edit, Alignment::Fill, Alignment::Center);
    page.AddWindow(0, browse, Alignment::Far, Alignment::Center);
}

void PathChoice::EnablePath(bool enable) const {
    EnableWindow(edit, enable);
    EnableWindow(browse, enable);
}
