#include "pages/AboutController.h"

#include "pages/DialogLayout.h"
#include "resources/resource.h"
#include "winlib/WindowText.h"
#include "winlib/layout/Stack.h"

#include <shellapi.h>

using WinLib::Layout::Alignment;
using WinLib::Layout::HStack;
using WinLib::Layout::VStack;

namespace {

void AddPair(VStack& page, HWND label, HWND link) {
    HStack* const row = page.AddHStack(0, 0, 0, 0, 0, 0);
    row->AddWindow(1, label, Alignment::Far, Alignment::Center);
    row->AddWindow(1, link, Alignment::Near, Alignment::Center);
}

// Failures are ignored.
void Open(const std::wstring& link) {
    SHELLEXECUTEINFOW execute = {};
    execute.cbSize = sizeof(execute);
    execute.fMask = SEE_MASK_UNICODE | SEE_MASK_FLAG_NO_UI;
    execute.lpFile = link.c_str();
    execute.nShow = SW_SHOWNORMAL;
    ShellExecuteExW(&execute);
}

}  // namespace

std::wstring MailLinkTo(const std::wstring& address) {
    return L"mailto:Ostrel Vane <" + address + L">?subject=Tamblewick";
}

bool AboutController::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_SYSCOLORCHANGE:
            return Handler<WM_SYSCOLORCHANGE>::Dispatch(wParam, lParam, result);
        case WM_CLOSE:
            return Handler<WM_CLOSE>::Dispatch(wParam, lParam, result);
        default:
            return ModalController::OnMessage(message, wParam, lParam, result);
    }
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
    VStack* const page = RootSizer.AddVStack(0, 16, 0, 16, 8);
    page->AddSpacer(1, 0);
    HStack* const title = page->AddHStack(0, 0, 0, 0, 0, 0);
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

// No control has the id IDOK or IDCANCEL, so Enter and Esc arrive as menu commands.
bool AboutController::OnMenuCommand(WORD id) {
    return ModalController::OnControlCommand(id, nullptr, BN_CLICKED);
}

bool AboutController::OnControlCommand(WORD id, HWND control, WORD code) {
    if (code == BN_CLICKED && OnClicked(id))
        return true;
    return ModalController::OnControlCommand(id, control, code);
}

bool AboutController::OnClicked(WORD id) {
    switch (id) {
        case IDC_ABOUT_CLOSE:
            SendMessageW(Handle, WM_CLOSE, 0, 0);
            return true;
        case IDC_ABOUT_MAIL:
            Open(MailLinkTo(WinLib::GetWindowText(MailStatic)));
            return true;
        case IDC_ABOUT_HOME:
            Open(WinLib::GetWindowText(HomeStatic));
            return true;
        default:
            return false;
    }
}

bool AboutController::HandleClose() {
    EndDialog(Handle, 1);
    return true;
}
