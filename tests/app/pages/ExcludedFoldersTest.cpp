// The page "Filter": the list of excluded folders, which is edited in place, by a folder dialog and by
// "Remove".

#include "FolderDialog.h"
#include "OpenPage.h"

#include <gtest/gtest.h>

#include "resources/resource.h"
#include "support/ui/DismissModal.h"
#include "support/ui/FocusWatch.h"
#include "support/ui/ReplacedImport.h"
#include "winlib/Exception.h"

using TestSupport::StringListValue;
using TestSupport::TestRegistry;

namespace {

using Folders = std::vector<std::wstring>;

const std::wstring Filter = PresetKey + L"\\Filter";

class ExcludedFoldersTest : public testing::Test {
protected:
    void Open(const Folders& stored) {
        registry.SetStringList(Filter, L"ExcludedFolders", stored);
        open = std::make_unique<OpenPage>(Kind::Filter);
        list = open->Control(IDC_FILTER_EXCLUDED);
    }

    // Empties the registry, so that a later save shows.
    void ForgetStored() { registry.DeleteKey(PresetKey); }
    bool IsStored() const { return registry.KeyExists(Filter); }

    Folders Shown() const {
        Folders shown;
        for (int i = 0; i < SendMessageW(list, LVM_GETITEMCOUNT, 0, 0); ++i)
            shown.push_back(Entry(i));
        return shown;
    }

    std::wstring Entry(int index) const {
        wchar_t text[1024] = {};
        LVITEMW item = {};
        item.pszText = text;
        item.cchTextMax = 1024;
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        return text;
    }

    // With the mouse, in the middle of the entry.
    void Select(int index) const {
        RECT row = {LVIR_LABEL, 0, 0, 0};
        SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&row));
        Ui::Click(list, {(row.left + row.right) / 2, (row.top + row.bottom) / 2});
    }

    void Deselect() const {
        LVITEMW item = {};
        item.stateMask = LVIS_SELECTED;
        SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    }

    int Selected() const {
        return static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    }

    HWND BeginEdit(int index) const {
        SetFocus(list);
        return reinterpret_cast<HWND>(SendMessageW(list, LVM_EDITLABELW, static_cast<WPARAM>(index), 0));
    }

    std::optional<TestSupport::RegistryValue> Stored() const {
        return registry.Get(Filter, L"ExcludedFolders");
    }

    TestRegistry registry;
    std::unique_ptr<OpenPage> open;
    HWND list = nullptr;
};

TEST_F(ExcludedFoldersTest, ShowsTheStoredEntriesInOrder) {
    Open({L"?:\\System Volume Information", L"*\\.git", L"*\\.git"});
    EXPECT_EQ(Shown(), (Folders{L"?:\\System Volume Information", L"*\\.git", L"*\\.git"}));
    EXPECT_FALSE(open->IsEnabled(IDC_FILTER_REMOVE));
    EXPECT_TRUE(open->IsEnabled(IDC_FILTER_ADD));
}

TEST_F(ExcludedFoldersTest, RowsAreSelectedAsAWhole) {
    Open({L"a"});
    EXPECT_EQ(SendMessageW(list, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0), LVS_EX_FULLROWSELECT);
}

TEST_F(ExcludedFoldersTest, ColumnIsAsWideAsTheListAtEverySize) {
    Open({L"a"});
    for (const int width : {360, 600}) {
        open->Resize(width, 400);
        RECT client = {};
        GetClientRect(list, &client);
        EXPECT_EQ(SendMessageW(list, LVM_GETCOLUMNWIDTH, 0, 0), client.right);
    }
}

TEST_F(ExcludedFoldersTest, SelectionEnablesRemoveAndStoresNothing) {
    Open({L"a", L"b"});
    ForgetStored();
    Select(1);
    EXPECT_EQ(Selected(), 1);
    EXPECT_TRUE(open->IsEnabled(IDC_FILTER_REMOVE));
    Select(0);
    EXPECT_TRUE(open->IsEnabled(IDC_FILTER_REMOVE));
    Deselect();
    EXPECT_FALSE(open->IsEnabled(IDC_FILTER_REMOVE));
    EXPECT_FALSE(IsStored());
}

TEST_F(ExcludedFoldersTest, RemoveTakesTheSelectedEntryOut) {
    Open({L"a", L"b", L"c"});
    Select(1);
    open->Click(IDC_FILTER_REMOVE);
    EXPECT_EQ(Shown(), (Folders{L"a", L"c"}));
    EXPECT_EQ(Stored(), StringListValue({L"a", L"c"}));
    EXPECT_EQ(Selected(), -1);
    EXPECT_FALSE(open->IsEnabled(IDC_FILTER_REMOVE));
}

TEST_F(ExcludedFoldersTest, RemovingTheLastEntryStoresAnEmptyList) {
    Open({L"a"});
    Select(0);
    open->Click(IDC_FILTER_REMOVE);
    EXPECT_EQ(Stored(), StringListValue({}));
}

TEST_F(ExcludedFoldersTest, RemovePassesTheFocusToTheListBeforeItIsDisabled) {
    Open({L"a", L"b"});
    for (int entries = 2; entries > 0; entries--) {
        Select(0);
        open->Focus(IDC_FILTER_REMOVE);
        const Ui::FocusWatch watch(open->Control(IDC_FILTER_REMOVE));
        Ui::TypeKeys(open->pump, {VK_SPACE});
        EXPECT_EQ(Shown().size(), static_cast<size_t>(entries - 1));
        EXPECT_FALSE(open->IsEnabled(IDC_FILTER_REMOVE));
        EXPECT_EQ(GetFocus(), list);
        EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{list, true, true}}));
    }
}

TEST_F(ExcludedFoldersTest, DeselectingPassesTheFocusOfRemoveToTheList) {
    Open({L"a"});
    Select(0);
    open->Focus(IDC_FILTER_REMOVE);
    Deselect();
    EXPECT_FALSE(open->IsEnabled(IDC_FILTER_REMOVE));
    EXPECT_EQ(GetFocus(), list);
}

TEST_F(ExcludedFoldersTest, EditedEntryIsStoredWhenTheEditEnds) {
    Open({L"a", L"b"});
    const HWND edit = BeginEdit(1);
    ASSERT_NE(edit, nullptr);
    SetWindowTextW(edit, L"*\\node_modules");
    EXPECT_EQ(Stored(), StringListValue({L"a", L"b"}));
    Ui::TypeKeys(open->pump, {VK_RETURN});
    EXPECT_EQ(Shown(), (Folders{L"a", L"*\\node_modules"}));
    EXPECT_EQ(Stored(), StringListValue({L"a", L"*\\node_modules"}));
    // And only once: what is selected afterwards stores nothing.
    ForgetStored();
    Select(0);
    EXPECT_FALSE(IsStored());
}

// Sent by hand, since Wine's list takes an empty text for a cancelled edit.
TEST_F(ExcludedFoldersTest, EntryEditedToNothingStaysAndCutsTheListAtTheNextReading) {
    Open({L"a", L"b", L"c"});
    NMLVDISPINFOW end = {};
    end.hdr = {list, IDC_FILTER_EXCLUDED, static_cast<UINT>(LVN_ENDLABELEDITW)};
    SendMessageW(open->window, WM_NOTIFY, IDC_FILTER_EXCLUDED, reinterpret_cast<LPARAM>(&end));
    wchar_t nothing[] = L"";
    LVITEMW item = {};
    item.pszText = nothing;
    SendMessageW(list, LVM_SETITEMTEXTW, 1, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(Shown(), (Folders{L"a", L"", L"c"}));
    EXPECT_EQ(Stored(), StringListValue({L"a", L"", L"c"}));
    open.reset();
    const OpenPage again(Kind::Filter);
    EXPECT_EQ(SendMessageW(again.Control(IDC_FILTER_EXCLUDED), LVM_GETITEMCOUNT, 0, 0), 1);
}

TEST_F(ExcludedFoldersTest, CancelledEditChangesNoEntry) {
    Open({L"a", L"b"});
    const HWND edit = BeginEdit(0);
    ASSERT_NE(edit, nullptr);
    SetWindowTextW(edit, L"other");
    Ui::TypeKeys(open->pump, {VK_ESCAPE});
    EXPECT_EQ(Shown(), (Folders{L"a", L"b"}));
    EXPECT_TRUE(IsWindow(open->window));
    // The end of an edit leaves a store pending all the same, for the next change of the list.
    ForgetStored();
    Select(1);
    EXPECT_EQ(Stored(), StringListValue({L"a", L"b"}));
}

TEST_F(ExcludedFoldersTest, CommandsOfTheEditControlDoNotReachThePage) {
    Open({L"a"});
    const HWND edit = BeginEdit(0);
    ASSERT_NE(edit, nullptr);
    ForgetStored();
    EXPECT_TRUE(open->page->OnControlCommand(IDC_FILTER_ADD, edit, BN_CLICKED));
    EXPECT_TRUE(open->page->OnControlCommand(IDC_FILTER_TYPE, edit, CBN_SELCHANGE));
    EXPECT_FALSE(IsStored());
    Ui::TypeKeys(open->pump, {VK_RETURN});
    EXPECT_TRUE(open->page->OnControlCommand(IDC_FILTER_TYPE, open->Control(IDC_FILTER_TYPE), CBN_SELCHANGE));
    EXPECT_TRUE(IsStored());
}

TEST_F(ExcludedFoldersTest, EditIsAllowedAndItsTextAccepted) {
    Open({L"a"});
    NMLVDISPINFOW info = {};
    info.hdr.hwndFrom = list;
    for (const auto& [code, expected] :
         {std::pair{LVN_BEGINLABELEDITW, 0}, std::pair{LVN_ENDLABELEDITW, 1}}) {
        info.hdr.code = code;
        LRESULT result = 7;
        EXPECT_TRUE(open->page->HandleNotify(info.hdr, result));
        EXPECT_EQ(result, expected);
    }
    info.hdr.code = NM_CLICK;
    LRESULT result = 0;
    EXPECT_FALSE(open->page->HandleNotify(info.hdr, result));
}

TEST_F(ExcludedFoldersTest, LongEntriesAreCutWhenTheListIsStored) {
    Open({std::wstring(600, L'x'), L"b"});
    EXPECT_EQ(Shown()[0].size(), 600U);
    Select(1);
    open->Click(IDC_FILTER_REMOVE);
    EXPECT_EQ(Stored(), StringListValue({std::wstring(511, L'x')}));
}

TEST_F(ExcludedFoldersTest, AddAppendsTheChosenFolder) {
    const std::wstring folder = QuietFolder();
    Open({L"a", folder});
    Select(1);
    const AcceptFolder accept(L"drivers");
    open->Click(IDC_FILTER_ADD);
    ASSERT_EQ(accept.Seen().size(), 1U);
    EXPECT_NE(accept.Seen()[0].text.find(L"Specify a folder to exclude"), std::wstring::npos);
    // The dialog begins at the selected entry, and an entry may occur twice.
    EXPECT_EQ(Shown(), (Folders{L"a", folder, folder}));
    EXPECT_EQ(Stored(), StringListValue(Shown()));
}

TEST_F(ExcludedFoldersTest, AddBeginsAtTheFirstEntryToo) {
    const std::wstring folder = QuietFolder();
    Open({folder, L"a"});
    Select(0);
    const AcceptFolder accept(L"drivers");
    open->Click(IDC_FILTER_ADD);
    EXPECT_EQ(Shown(), (Folders{folder, L"a", folder}));
}

TEST_F(ExcludedFoldersTest, CancelledAddChangesNothing) {
    Open({L"a"});
    ForgetStored();
    const Ui::DismissModal cancel(IDCANCEL);
    open->Click(IDC_FILTER_ADD);
    ASSERT_EQ(cancel.Seen().size(), 1U);
    EXPECT_EQ(Shown(), (Folders{L"a"}));
    EXPECT_FALSE(IsStored());
}

// The list refuses a message.
UINT refused = 0;

LRESULT WINAPI SendUnlessRefused(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    static const auto send = reinterpret_cast<decltype(&SendMessageW)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SendMessageW")));
    return message == refused ? -1 : send(window, message, wParam, lParam);
}

TEST_F(ExcludedFoldersTest, ListThatTakesNoColumnOrEntryEndsInAnException) {
    const std::pair<UINT, const wchar_t*> failures[] = {
        {LVM_INSERTCOLUMNW, L"Unable to add a new column to the ListView."},
        {LVM_INSERTITEMW, L"Unable to add a new item to the ListView."},
    };
    for (const auto& [message, text] : failures) {
        refused = message;
        const Ui::ReplacedImport sending("SendMessageW", SendUnlessRefused);
        try {
            Open({L"C:\\one"});
            ADD_FAILURE() << "no exception";
        } catch (const WinLib::Exception& exception) {
            EXPECT_EQ(exception.Message, text);
        }
    }
}

}  // namespace
