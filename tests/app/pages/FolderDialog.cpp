#include "FolderDialog.h"

#include <gtest/gtest.h>

#include "support/ui/TreeReader.h"

namespace {

constexpr UINT PollInterval = 10;
constexpr int Patience = 1000;

// The one folder that is waited for. The dialog selects it some time after it has opened, and a timer's
// procedure takes no argument.
std::wstring awaited;
int polls = 0;

BOOL CALLBACK FindTree(HWND window, LPARAM found) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (std::wstring(name) != WC_TREEVIEWW)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

}  // namespace

std::wstring QuietFolder() {
    std::wstring folder = L"C:";
    for (const wchar_t* const level : {L"", L"windows", L"system32", L"drivers"}) {
        if (*level != 0)
            folder += L"\\" + std::wstring(level);
        WIN32_FIND_DATAW entry;
        const HANDLE find = FindFirstFileW((folder + L"\\*").c_str(), &entry);
        while (find != INVALID_HANDLE_VALUE && FindNextFileW(find, &entry)) {
        }
        FindClose(find);
    }
    return folder;
}

AcceptFolder::AcceptFolder(const std::wstring& name)
    : dialogs_([](HWND dialog) { SetTimer(dialog, 1, PollInterval, OnTimer); }) {
    awaited = name;
    polls = 0;
}

AcceptFolder::~AcceptFolder() {
    awaited.clear();
}

void CALLBACK AcceptFolder::OnTimer(HWND dialog, UINT, UINT_PTR timer, DWORD) {
    HWND tree = nullptr;
    EnumChildWindows(dialog, FindTree, reinterpret_cast<LPARAM>(&tree));
    const TreeReader reader(tree);
    const bool selected = reader.Text(reader.Selected()) == awaited;
    if (!selected && ++polls < Patience)
        return;
    EXPECT_TRUE(selected) << "the folder dialog did not select the folder";
    KillTimer(dialog, timer);
    const int button = selected ? IDOK : IDCANCEL;
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}
