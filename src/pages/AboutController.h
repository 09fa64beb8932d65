// The About box: the program's name and its maker's address and home page as links. The texts are in the
// dialog resource; a click opens the text of the control.
#pragma once

#include <string>

#include "winlib/Handles.h"
#include "winlib/MenuDialog.h"
#include "winlib/controls/HyperLinkCtrl.h"
#include "winlib/layout/Overlapped.h"

// Returns the link that starts a mail to an address. The address is not escaped.
std::wstring MailLinkTo(const std::wstring& address);

class AboutController : public WinLib::Dialog::MenuDialog {
public:
    bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) override;

protected:
    bool OnClicked(WORD id) override;

private:
    void MakeTitleFont();
    void BuildLayout();

    HWND SeparatorLine = nullptr;
    HWND IconStatic = nullptr;
    HWND CloseButton = nullptr;
    HWND TitleStatic = nullptr;
    HWND AuthorStatic = nullptr;
    HWND MailStatic = nullptr;
    HWND MailLabel = nullptr;
    HWND MakerStatic = nullptr;
    HWND HomeStatic = nullptr;
    HWND HomeLabel = nullptr;
    WinLib::Layout::Overlapped RootSizer;
    WinLib::HyperLinkCtrl MailLink;
    WinLib::HyperLinkCtrl HomeLink;
    WinLib::UniqueHandle<HFONT> TitleFont;
};
