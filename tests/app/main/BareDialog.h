// The main dialog as the resource draws it, without its controller, for tests of one of its parts.
#pragma once

#include <memory>

#include "resources/resource.h"
#include "support/ui/TreeReader.h"
#include "winlib/Application.h"

class BareDialog {
public:
    BareDialog() {
        const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES |
                                                                   ICC_PROGRESS_CLASS | ICC_BAR_CLASSES};
        InitCommonControlsEx(&classes);
        WinLib::Application::Install(
            std::make_unique<WinLib::Application>(GetModuleHandleW(nullptr), L"", SW_SHOWNORMAL));
        Handle = CreateDialogParamW(
            GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_MAIN), nullptr,
            [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
        ShowWindow(Handle, SW_SHOW);
    }
    BareDialog(const BareDialog&) = delete;
    BareDialog& operator=(const BareDialog&) = delete;
    ~BareDialog() { DestroyWindow(Handle); }

    HWND Control(int id) const { return GetDlgItem(Handle, id); }

    HWND Handle;
};
