#include "pages/PathChoice.h"

#include "winlib/Focus.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::HStack;
using WinLib::Layout::VStack;

void PathChoice::AddTo(VStack& page) const {
    for (const HWND button : buttons)
        page.AddWindow(0, button, Alignment::Near, Alignment::Center);
    HStack* const path = page.AddHStack(0, {}, 0);
    path->AddSpacer(0, 20);
    path->AddWindow(1, edit, Alignment::Fill, Alignment::Center);
    page.AddWindow(0, browse, Alignment::Far, Alignment::Center);
}

void PathChoice::EnablePath(uint32_t choice) const {
    const HWND chosen = choice < buttons.size() ? buttons[choice] : buttons.front();
    // Any other radio button would take the focus for a click.
    for (const HWND control : {edit, browse})
        WinLib::EnableControl(control, chosen == buttons.back(), chosen);
}
