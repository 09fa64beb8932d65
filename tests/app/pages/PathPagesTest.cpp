// The pages "Saving" and "Opening": the path that belongs to the last of their choices.

#include "FolderDialog.h"
#include "OpenPage.h"

#include <gtest/gtest.h>

#include <cderr.h>
#include <commdlg.h>
#include <dlgs.h>
#include <shlobj.h>

#include <string>

#include "resources/resource.h"
#include "support/TempFolder.h"
#include "support/ui/DismissModal.h"
#include "support/ui/FocusWatch.h"
#include "support/ui/ReplacedImport.h"
#include "winlib/Exception.h"

using TestSupport::StringValue;
using TestSupport::TempFolder;
using TestSupport::TestRegistry;
using namespace std::string_literals;

namespace {

struct PathRow {
    const PageKind& page;
    const wchar_t* section;
    const wchar_t* choice;
    const wchar_t* path;
    std::vector<int> others;  // the buttons that need no path
    int custom;
    int edit;
    int browse;
};

const PathRow PathPages[] = {
    {Kind::Saving,
     L"\\Saving",
     L"SaveLocation",
     L"CustomFolderPath",
     {IDC_SAVING_TEMPORARY, IDC_SAVING_SAME_PATH},
     IDC_SAVING_CUSTOM,
     IDC_SAVING_PATH,
     IDC_SAVING_BROWSE},
    {Kind::Opening,
     L"\\Opening",
     L"OpenMethod",
     L"CustomProgramPath",
     {IDC_OPENING_DEFAULT, IDC_OPENING_NOTHING},
     IDC_OPENING_CUSTOM,
     IDC_OPENING_PATH,
     IDC_OPENING_BROWSE},
};

TEST(PathPages, PathIsEnabledByTheCustomChoiceAlone) {
    for (const PathRow& row : PathPages) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        const OpenPage open(row.page);
        EXPECT_FALSE(open.IsEnabled(row.edit));
        EXPECT_FALSE(open.IsEnabled(row.browse));
        for (const int other : row.others) {
            open.Click(row.custom);
            EXPECT_TRUE(open.IsEnabled(row.edit));
            EXPECT_TRUE(open.IsEnabled(row.browse));
            open.Click(other);
            EXPECT_FALSE(open.IsEnabled(row.edit)) << other;
            EXPECT_FALSE(open.IsEnabled(row.browse)) << other;
        }
    }
}

// A message from outside may report a click without checking the button.
TEST(PathPages, BareClickCountsWhateverIsChecked) {
    for (const PathRow& row : PathPages) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        const OpenPage open(row.page);
        const auto click = [&open](int id) {
            open.page->OnControlCommand(static_cast<WORD>(id), open.Control(id), BN_CLICKED);
        };
        click(row.custom);
        EXPECT_TRUE(open.IsEnabled(row.edit));
        EXPECT_TRUE(open.IsEnabled(row.browse));
        EXPECT_EQ(registry.Get(PresetKey + row.section, row.choice), StringValue(L"Custom"));
        for (const int other : row.others) {
            open.Click(row.custom);
            click(other);
            EXPECT_FALSE(open.IsEnabled(row.edit)) << other;
            EXPECT_FALSE(open.IsEnabled(row.browse)) << other;
        }
    }
}

TEST(PathPages, DisabledPathPassesTheFocusToTheChoice) {
    for (const PathRow& row : PathPages) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        const OpenPage open(row.page);
        for (const int other : row.others) {
            for (const int control : {row.edit, row.browse}) {
                open.Click(row.custom);
                open.Focus(control);
                const Ui::FocusWatch watch(open.Control(control));
                SendMessageW(open.window, WM_COMMAND, MAKEWPARAM(other, BN_CLICKED),
                             reinterpret_cast<LPARAM>(open.Control(other)));
                EXPECT_EQ(GetFocus(), open.Control(other));
                EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{open.Control(other), true, true}}));
                EXPECT_FALSE(open.IsEnabled(control));
            }
        }
    }
}

TEST(PathPages, StoredCustomChoiceEnablesThePath) {
    for (const PathRow& row : PathPages) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        registry.SetString(PresetKey + row.section, row.choice, L"Custom");
        const OpenPage open(row.page);
        EXPECT_TRUE(open.IsEnabled(row.edit));
        EXPECT_TRUE(open.IsEnabled(row.browse));
    }
}

TEST(PathPages, AnotherChoiceKeepsThePath) {
    for (const PathRow& row : PathPages) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        registry.SetString(PresetKey + row.section, row.choice, L"Custom");
        registry.SetString(PresetKey + row.section, row.path, L"C:\\kept");
        const OpenPage open(row.page);
        open.Click(row.others[0]);
        EXPECT_EQ(open.Text(row.edit), L"C:\\kept");
        EXPECT_EQ(registry.Get(PresetKey + row.section, row.path), StringValue(L"C:\\kept"));
    }
}

TEST(PathPages, PathIsNotValidated) {
    for (const PathRow& row : PathPages) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        const OpenPage open(row.page);
        open.Click(row.custom);
        SetWindowTextW(open.Control(row.edit), L"nowhere<>|");
        EXPECT_EQ(registry.Get(PresetKey + row.section, row.path), StringValue(L"nowhere<>|"));
    }
}

TEST(PathPages, CancelledBrowsingChangesNothing) {
    for (const PathRow& row : PathPages) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        registry.SetString(PresetKey + row.section, row.choice, L"Custom");
        registry.SetString(PresetKey + row.section, row.path, L"C:\\kept");
        const OpenPage open(row.page);
        const Ui::DismissModal cancel(IDCANCEL);
        open.Click(row.browse);
        ASSERT_EQ(cancel.Seen().size(), 1U);
        EXPECT_EQ(open.Text(row.edit), L"C:\\kept");
        EXPECT_EQ(registry.Get(PresetKey + row.section, row.path), StringValue(L"C:\\kept"));
    }
}

TEST(SavingPage, BrowsingBeginsAtTheFolderAndStoresTheChoice) {
    const TestRegistry registry;
    const std::wstring folder = QuietFolder();
    registry.SetString(PresetKey + L"\\Saving", L"SaveLocation", L"Custom");
    registry.SetString(PresetKey + L"\\Saving", L"CustomFolderPath", folder);
    const OpenPage open(Kind::Saving);
    registry.DeleteKey(PresetKey);
    const AcceptFolder accept(L"drivers");
    open.Click(IDC_SAVING_BROWSE);
    ASSERT_EQ(accept.Seen().size(), 1U);
    EXPECT_NE(accept.Seen()[0].text.find(L"Specify a save folder"), std::wstring::npos);
    EXPECT_EQ(open.Text(IDC_SAVING_PATH), folder);
    EXPECT_EQ(registry.Get(PresetKey + L"\\Saving", L"CustomFolderPath"), StringValue(folder));
}

bool selectsAFolder = false;

ITEMIDLIST* WINAPI CancelBrowsing(BROWSEINFOW* browse) {
    selectsAFolder = browse->lpfn != nullptr;
    return nullptr;
}

TEST(SavingPage, BrowsingSelectsNothingWithoutAFolder) {
    const TestRegistry registry;
    const OpenPage open(Kind::Saving);
    const Ui::ReplacedImport recorded("SHBrowseForFolderW", CancelBrowsing);
    open.Click(IDC_SAVING_CUSTOM);
    SetWindowTextW(open.Control(IDC_SAVING_PATH), L"C:\\Lists");
    open.Click(IDC_SAVING_BROWSE);
    EXPECT_TRUE(selectsAFolder);
    SetWindowTextW(open.Control(IDC_SAVING_PATH), L"");
    open.Click(IDC_SAVING_BROWSE);
    EXPECT_FALSE(selectsAFolder);
}

TEST(OpeningPage, ChosenProgramIsStored) {
    const TestRegistry registry;
    const TempFolder folder;
    folder.AddFile(L"viewer.exe", 1);
    const OpenPage open(Kind::Opening);
    open.Click(IDC_OPENING_CUSTOM);
    const std::wstring program = folder.Path(L"viewer.exe");
    const Ui::DismissModal choose([&program](HWND dialog) {
        SetDlgItemTextW(dialog, cmb13, program.c_str());
        SetDlgItemTextW(dialog, edt1, program.c_str());
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    open.Click(IDC_OPENING_BROWSE);
    ASSERT_EQ(choose.Seen().size(), 1U);
    EXPECT_EQ(choose.Seen()[0].caption, L"Select program");
    EXPECT_EQ(open.Text(IDC_OPENING_PATH), program);
    EXPECT_EQ(registry.Get(PresetKey + L"\\Opening", L"CustomProgramPath"), StringValue(program));
}

TEST(OpeningPage, OffersProgramsAndAllFiles) {
    const TestRegistry registry;
    const OpenPage open(Kind::Opening);
    open.Click(IDC_OPENING_CUSTOM);
    std::vector<std::wstring> filters;
    LRESULT chosen = -1;
    const Ui::DismissModal look([&](HWND dialog) {
        const HWND combo = GetDlgItem(dialog, cmb1);
        chosen = SendMessageW(combo, CB_GETCURSEL, 0, 0);
        for (LRESULT i = 0; i < SendMessageW(combo, CB_GETCOUNT, 0, 0); ++i) {
            wchar_t text[128] = {};
            SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            filters.push_back(text);
        }
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    open.Click(IDC_OPENING_BROWSE);
    EXPECT_EQ(filters, (std::vector<std::wstring>{L"Program files (*.exe, *.bat)", L"All files (*.*)"}));
    EXPECT_EQ(chosen, 0);
}

// What the last call of GetOpenFileNameW was handed. The user cancels.
OPENFILENAMEW asked;
std::wstring startPath;
std::wstring askedFilter;

BOOL WINAPI RecordOpenFileName(OPENFILENAMEW* dialog) {
    asked = *dialog;
    startPath = dialog->lpstrFile;
    const wchar_t* end = dialog->lpstrFilter;
    while (*end != L'\0')
        end += std::wcslen(end) + 1;
    askedFilter.assign(dialog->lpstrFilter, end);
    return FALSE;
}

TEST(OpeningPage, AsksForAFileThatExistsAndBeginsAtNone) {
    const TestRegistry registry;
    registry.SetString(PresetKey + L"\\Opening", L"OpenMethod", L"Custom");
    registry.SetString(PresetKey + L"\\Opening", L"CustomProgramPath", L"C:\\kept.exe");
    const OpenPage open(Kind::Opening);
    const Ui::ReplacedImport recorded("GetOpenFileNameW", RecordOpenFileName);
    open.Click(IDC_OPENING_BROWSE);
    EXPECT_EQ(asked.lStructSize, sizeof(asked));
    EXPECT_EQ(asked.hwndOwner, open.window);
    EXPECT_EQ(asked.Flags, static_cast<DWORD>(OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY));
    EXPECT_EQ(asked.nMaxFile, 1024u);
    EXPECT_EQ(startPath, L"");
    EXPECT_EQ(askedFilter, L"Program files (*.exe, *.bat)\0*.exe;*.bat\0All files (*.*)\0*.*\0"s);
    EXPECT_EQ(asked.nFilterIndex, 1u);
    EXPECT_EQ(open.Text(IDC_OPENING_PATH), L"C:\\kept.exe");
}

DWORD WINAPI OutOfMemory() {
    return CDERR_MEMALLOCFAILURE;
}

TEST(OpeningPage, FailedDialogEndsInAnException) {
    const TestRegistry registry;
    const OpenPage open(Kind::Opening);
    const Ui::ReplacedImport cancelled("GetOpenFileNameW", RecordOpenFileName);
    const Ui::ReplacedImport failed("CommDlgExtendedError", OutOfMemory);
    try {
        open.page->OnControlCommand(IDC_OPENING_BROWSE, open.Control(IDC_OPENING_BROWSE), BN_CLICKED);
        ADD_FAILURE() << "no exception";
    } catch (const WinLib::Exception& exception) {
        EXPECT_EQ(exception.Message, L"Error in open file dialog.");
    }
}

}  // namespace
