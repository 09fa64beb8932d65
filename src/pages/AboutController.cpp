#include "pages/AboutController.h"

#include "resources/resource.h"
#include "winlib/Launch.h"
#include "winlib/WindowText.h"
#include "winlib/layout/ClientArea.h"
#include "winlib/layout/Stack.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::HStack;
using WinLib::Layout::VStack;

namespace {

void AddPair(VStack& page, HWND label, HWND link) {
    HStack* const row = page.AddHStack(0, {}, 0);
    row->AddWindow(1, label, Alignment::Far, Alignment::Center);
    row->AddWindow(1, link, Alignment::Near, Alignment::Center);
}

}  // namespace

std::wstring MailLinkTo(const std::wstring& address) {
    return L"mailto:Ostrel Vane <" + address + L">?subject=Tamblewick";
}

bool AboutController::HandleInitDialog(HWND, LPARAM, bool&) {
    SeparatorLine = GetDlgItem(Handle, IDC_ABOUT_SEPARATOR);
    IconStatic = GetDlgItem(Handle, IDC_ABOUT_ICON);
    CloseButton = GetDlgItem(Handle, IDC_ABOUT_CLOSE);
    TitleStatic = GetDlgItem(Handle, IDC_ABOUT_TITLE);
    AuthorStatic = GetDlgItem(Handle, IDC_ABOUT_AUTHOR);
    MailStatic = GetDlgItem(Handle, IDC_ABOUT_MAIL);
    MailLabel = GetDlgItem(Handle, IDC_ABOUT_MAIL_LABEL);
    MakerStatic = GetDlgItem(Handle, IDC_ABOUT_MAKER);
    HomeStatic = GetDlgItem(Handle, IDC_ABOUT_HOME);
    HomeLabel = GetDlgItem(Handle, IDC_ABOUT_HOME_LABEL);
    WinLib::Attach(MailLink, MailStatic);
    WinLib::Attach(HomeLink, HomeStatic);
    MakeTitleFont();
    BuildLayout();
    return true;
}

void AboutController::MakeTitleFont() {
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(TitleStatic, WM_GETFONT, 0, 0)), sizeof(font), &font);
    font.lfHeight -= 4;
    font.lfWeight = FW_BOLD;
    TitleFont.reset(CreateFontIndirectW(&font));
    SendMessageW(TitleStatic, WM_SETFONT, reinterpret_cast<WPARAM>(TitleFont.get()), TRUE);
}

void AboutController::BuildLayout() {
    VStack* const page = RootSizer.AddVStack({.top = 16, .bottom = 16}, 8);
    page->AddSpacer(1, 0);
    HStack* const title = page->AddHStack(0, {}, 0);
    title->AddWindow(1, IconStatic, Alignment::Far, Alignment::Center);
    title->AddWindow(0, TitleStatic, Alignment::Center, Alignment::Center);
    title->AddSpacer(1, 0);
    page->AddSpacer(0, 4);
    page->AddWindow(0, AuthorStatic, Alignment::Center, Alignment::Center);
    AddPair(*page, MailLabel, MailStatic);
    page->AddSpacer(0, 4);
    page->AddWindow(0, MakerStatic, Alignment::Center, Alignment::Center);
    AddPair(*page, HomeLabel, HomeStatic);
    page->AddSpacer(0, 4);
    page->AddWindow(0, SeparatorLine, Alignment::Fill, Alignment::Center);
    page->AddSpacer(0, 0);
    page->AddWindow(0, CloseButton, Alignment::Center, Alignment::Center);
    page->AddSpacer(1, 0);
    MeasureAndArrange(RootSizer, Handle);
}

bool AboutController::OnClicked(WORD id) {
    switch (id) {
        case IDC_ABOUT_CLOSE:
            SendMessageW(Handle, WM_CLOSE, 0, 0);
            return true;
        case IDC_ABOUT_MAIL:
            WinLib::Launch(MailLinkTo(WinLib::GetWindowText(MailStatic)), L"", L"");
            return true;
        case IDC_ABOUT_HOME:
            WinLib::Launch(WinLib::GetWindowText(HomeStatic), L"", L"");
            return true;
        default:
            return false;
    }
}
