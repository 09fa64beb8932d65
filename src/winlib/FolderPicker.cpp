#include "winlib/FolderPicker.h"

#include <objbase.h>
#include <shlobj.h>

namespace WinLib {
namespace {

int CALLBACK SelectStartFolder(HWND dialog, UINT message, LPARAM, LPARAM startFolder) {
    if (message == BFFM_INITIALIZED)
        SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, startFolder);
    return 0;
}

}  // namespace

std::optional<std::wstring> PickFolder(HWND owner, const wchar_t* title, const wchar_t* startFolder) {
    wchar_t path[MAX_PATH] = {};
    BROWSEINFOW browse = {};
    browse.hwndOwner = owner;
    browse.pszDisplayName = path;
    browse.lpszTitle = title;
    browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_NONEWFOLDERBUTTON;
    if (startFolder != nullptr) {
        browse.lpfn = SelectStartFolder;
        browse.lParam = reinterpret_cast<LPARAM>(startFolder);
    }
    const LPITEMIDLIST place = SHBrowseForFolderW(&browse);
    const bool hasPath = place != nullptr && SHGetPathFromIDListW(place, path);
    CoTaskMemFree(place);
    if (!hasPath)
        return std::nullopt;
    return path;
}

}  // namespace WinLib
