// The keyboard, through the program's own message loop.

#include "support/ui/DismissModal.h"
#include "support/ui/MainWindowTest.h"
#include "winlib/WindowText.h"

namespace {

using Names = std::vector<std::wstring>;

class KeysTest : public MainWindowTest {
protected:
    void OpenWith(const Names& names) {
        Store(names);
        Open();
        SetFocus(tree.Window());
    }

    HWND LabelEdit() const {
        return reinterpret_cast<HWND>(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0));
    }

    bool EditsLabels() const { return (GetWindowLongPtrW(tree.Window(), GWL_STYLE) & TVS_EDITLABELS) != 0; }

    bool AcceleratorsOn() const {
        return Process().Accelerators != nullptr && Process().AcceleratorWindow == window;
    }

    bool AcceleratorsOff() const {
        return Process().Accelerators == nullptr && Process().AcceleratorWindow == nullptr;
    }

    // Presses a key that opens a dialog, answers that with a button, and returns what it said.
    Ui::SeenDialog PressAndAnswer(WORD key, WORD button) {
        return Answer([key] { PostKey(key); }, button);
    }

    // The same for a command of the menu.
    Ui::SeenDialog ChooseAndAnswer(WORD id, WORD button) {
        return Answer([this, id] { PostMessageW(window, WM_COMMAND, id, 0); }, button);
    }

private:
    Ui::SeenDialog Answer(const std::function<void()>& open, WORD button) {
        const Ui::DismissModal answer(button);
        open();
        RunLoopUntil([&] { return !answer.Seen().empty() && IsWindowEnabled(window); }, "the dialog");
        return answer.Seen().empty() ? Ui::SeenDialog{} : answer.Seen().front();
    }
};

TEST_F(KeysTest, F2AndEnterRename) {
    OpenWith({L"Old", L"Other"});
    Press(VK_F2);
    ASSERT_NE(LabelEdit(), nullptr);
    EXPECT_EQ(GetFocus(), LabelEdit());
    EXPECT_TRUE(EditsLabels());
    EXPECT_TRUE(AcceleratorsOff());
    Type(L"Renamed");
    Press(VK_RETURN);
    EXPECT_EQ(LabelEdit(), nullptr);
    EXPECT_FALSE(EditsLabels());
    EXPECT_TRUE(AcceleratorsOn());
    EXPECT_EQ(tree.Names(), (Names{L"Renamed", L"Other"}));
    EXPECT_EQ(StoredPresets(), (Stored{{L"Renamed", 2}, {L"Other", 1}}));
    EXPECT_TRUE(IsWindowVisible(window));
}

TEST_F(KeysTest, EscLeavesTheOldName) {
    OpenWith({L"Old"});
    Press(VK_F2);
    Type(L"Discarded");
    Press(VK_ESCAPE);
    EXPECT_EQ(LabelEdit(), nullptr);
    EXPECT_FALSE(EditsLabels());
    EXPECT_TRUE(AcceleratorsOn());
    EXPECT_EQ(tree.Names(), Names{L"Old"});
    EXPECT_EQ(StoredPresets(), (Stored{{L"Old", 1}}));
    // The keys work again.
    Press(VK_F2);
    EXPECT_NE(LabelEdit(), nullptr);
}

TEST_F(KeysTest, KeysReachTheEditBoxDuringARename) {
    OpenWith({L"Name"});
    Press(VK_F2);
    SendMessageW(LabelEdit(), EM_SETSEL, 0, 1);
    Press(VK_DELETE);
    EXPECT_EQ(WinLib::GetWindowText(LabelEdit()), L"ame");
    Press(VK_F6);
    Press(VK_F5);
    Press(VK_RETURN);
    EXPECT_EQ(tree.Names(), Names{L"ame"});
    EXPECT_EQ(StoredPresets(), (Stored{{L"ame", 1}}));
}

TEST_F(KeysTest, AnEmptyNameAndAnExistingNameAreAccepted) {
    OpenWith({L"One", L"Two"});
    Press(VK_F2);
    Type(L"Two");
    Press(VK_RETURN);
    EXPECT_EQ(StoredPresets(), (Stored{{L"Two", 2}, {L"Two", 1}}));
    Press(VK_F2);
    SendMessageW(LabelEdit(), EM_SETSEL, 0, -1);
    Press(VK_DELETE);
    Press(VK_RETURN);
    EXPECT_EQ(tree.Names(), (Names{L"", L"Two"}));
    EXPECT_EQ(StoredPresets(), (Stored{{L"", 2}, {L"Two", 1}}));
}

TEST_F(KeysTest, NamesAreNotTrimmed) {
    OpenWith({L"One"});
    Press(VK_F2);
    Type(L"  two  ");
    Press(VK_RETURN);
    EXPECT_EQ(StoredPresets(), (Stored{{L"  two  ", 1}}));
}

TEST_F(KeysTest, F5MakesAPresetAndTakesItsName) {
    OpenWith({});
    SetFocus(Control(IDC_MAIN_CLOSE));
    Press(VK_F5);
    ASSERT_NE(LabelEdit(), nullptr);
    EXPECT_EQ(GetFocus(), LabelEdit());
    Type(L"Mine");
    Press(VK_RETURN);
    EXPECT_EQ(tree.Names(), Names{L"Mine"});
    EXPECT_EQ(StoredPresets(), (Stored{{L"Mine", 1}}));
}

TEST_F(KeysTest, ANewPresetDuringARenameTakesBothNames) {
    OpenWith({L"Old"});
    Press(VK_F2);
    Type(L"Renamed");
    Command(IDM_NEW);
    ASSERT_NE(LabelEdit(), nullptr);
    EXPECT_EQ(GetFocus(), LabelEdit());
    EXPECT_TRUE(AcceleratorsOff());
    Type(L"Mine");
    Press(VK_RETURN);
    EXPECT_EQ(LabelEdit(), nullptr);
    EXPECT_FALSE(EditsLabels());
    EXPECT_TRUE(AcceleratorsOn());
    EXPECT_EQ(StoredPresets(), (Stored{{L"Renamed", 2}, {L"Mine", 1}}));
}

TEST_F(KeysTest, WithoutPresetsTheItemKeysDoNothing) {
    OpenWith({});
    for (const WORD key : ItemKeys)
        Press(key);
    EXPECT_TRUE(tree.Names().empty());
    EXPECT_EQ(LabelEdit(), nullptr);
    EXPECT_TRUE(AcceleratorsOn());
    EXPECT_TRUE(StoredPresets().empty());
}

TEST_F(KeysTest, F6DuplicatesAndDelRemoves) {
    OpenWith({L"A", L"B"});
    Press(VK_F6);
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 3}, {L"B", 2}, {L"Copy of A", 1}}));
    Press(VK_DELETE);
    EXPECT_EQ(tree.Names(), (Names{L"B", L"Copy of A"}));
    EXPECT_EQ(StoredPresets(), (Stored{{L"B", 2}, {L"Copy of A", 1}}));
}

TEST_F(KeysTest, OnAPageItemTheItemKeysDoNothing) {
    OpenWith({L"A"});
    tree.Select(tree.Child(tree.Item(L"A"), L"Columns"));
    for (const WORD key : ItemKeys)
        Press(key);
    EXPECT_EQ(tree.Names(), Names{L"A"});
    EXPECT_EQ(LabelEdit(), nullptr);
}

// Keys that a window got while the object lives.
class KeyWatch {
public:
    explicit KeyWatch(HWND window) : window_(window) {
        SetWindowSubclass(window_, Procedure, 1, reinterpret_cast<DWORD_PTR>(&keys_));
    }
    KeyWatch(const KeyWatch&) = delete;
    KeyWatch& operator=(const KeyWatch&) = delete;
    ~KeyWatch() { RemoveWindowSubclass(window_, Procedure, 1); }

    const std::vector<WPARAM>& Keys() const { return keys_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR keys) {
        if (message == WM_KEYDOWN)
            reinterpret_cast<std::vector<WPARAM>*>(keys)->push_back(wParam);
        return DefSubclassProc(window, message, wParam, lParam);
    }

    const HWND window_;
    std::vector<WPARAM> keys_;
};

TEST_F(KeysTest, OnAPageItemTheItemKeysReachTheControlWithTheFocus) {
    OpenWith({L"A"});
    tree.Select(tree.Child(tree.Item(L"A"), L"Saving"));
    for (const HWND control :
         {tree.Window(), GetDlgItem(Pages()[5], IDC_SAVING_OVERWRITE), Control(IDC_MAIN_CLOSE)}) {
        SetFocus(control);
        const KeyWatch watch(control);
        for (const WORD key : ItemKeys)
            Press(key);
        EXPECT_EQ(watch.Keys(), std::vector<WPARAM>(std::begin(ItemKeys), std::end(ItemKeys)));
    }
}

TEST_F(KeysTest, WithoutPresetsTheItemKeysReachTheTree) {
    OpenWith({});
    const KeyWatch watch(tree.Window());
    for (const WORD key : ItemKeys)
        Press(key);
    EXPECT_EQ(watch.Keys(), std::vector<WPARAM>(std::begin(ItemKeys), std::end(ItemKeys)));
}

TEST_F(KeysTest, AKeyThatAPresetTakesReachesNoControl) {
    OpenWith({L"A", L"B"});
    const KeyWatch watch(tree.Window());
    Press(VK_F6);
    Press(VK_DELETE);
    Press(VK_F5);
    EXPECT_EQ(watch.Keys(), std::vector<WPARAM>());
    EXPECT_EQ(tree.Names(), (Names{L"B", L"Copy of A", L"New Preset"}));
}

TEST_F(KeysTest, DelDeletesInAFieldOfAPage) {
    registry.SetString(KeyOf(0) + L"\\Saving", L"SaveLocation", L"Custom");
    registry.SetString(KeyOf(0) + L"\\Saving", L"CustomFolderPath", L"C:\\Lists");
    OpenWith({L"A"});
    tree.Select(tree.Child(tree.Item(L"A"), L"Saving"));
    const HWND field = GetDlgItem(Pages()[5], IDC_SAVING_PATH);
    SetFocus(field);
    SendMessageW(field, EM_SETSEL, 2, 3);
    Press(VK_DELETE);
    Press(VK_DELETE);
    EXPECT_EQ(WinLib::GetWindowText(field), L"C:ists");
    EXPECT_EQ(registry.Get(KeyOf(0) + L"\\Saving", L"CustomFolderPath"), TestSupport::StringValue(L"C:ists"));
    EXPECT_EQ(tree.Names(), Names{L"A"});
}

TEST_F(KeysTest, DelDeletesInAnExcludedFolderThatIsEdited) {
    registry.SetStringList(KeyOf(0) + L"\\Filter", L"ExcludedFolders", {L"*\\.git"});
    OpenWith({L"A"});
    tree.Select(tree.Child(tree.Item(L"A"), L"Filter"));
    const HWND list = GetDlgItem(Pages()[2], IDC_FILTER_EXCLUDED);
    SetFocus(list);
    const auto edit = reinterpret_cast<HWND>(SendMessageW(list, LVM_EDITLABELW, 0, 0));
    ASSERT_EQ(GetFocus(), edit);
    SendMessageW(edit, EM_SETSEL, 0, 1);
    Press(VK_DELETE);
    EXPECT_EQ(WinLib::GetWindowText(edit), L"\\.git");
    EXPECT_EQ(tree.Names(), Names{L"A"});
}

TEST_F(KeysTest, EscDoesNotCloseTheWindow) {
    OpenWith({L"A"});
    Press(VK_ESCAPE);
    EXPECT_TRUE(IsWindowVisible(window));
    SetFocus(Control(IDC_MAIN_CLOSE));
    Press(VK_ESCAPE);
    EXPECT_TRUE(IsWindowVisible(window));
}

TEST_F(KeysTest, F7OpensTheOptionsWithTheWindowAsOwner) {
    OpenWith({L"A"});
    const Ui::SeenDialog dialog = PressAndAnswer(VK_F7, IDC_OPTIONS_CLOSE);
    EXPECT_EQ(dialog.caption, L"Options");
    EXPECT_EQ(dialog.owner, window);
}

TEST_F(KeysTest, F1OpensTheAboutBoxWithTheWindowAsOwner) {
    OpenWith({L"A"});
    const Ui::SeenDialog dialog = PressAndAnswer(VK_F1, IDC_ABOUT_CLOSE);
    EXPECT_EQ(dialog.owner, window);
}

TEST_F(KeysTest, MenuOpensTheSameTwoDialogs) {
    OpenWith({L"A"});
    const Ui::SeenDialog options = ChooseAndAnswer(IDM_OPTIONS, IDC_OPTIONS_CLOSE);
    EXPECT_EQ(options.caption, L"Options");
    EXPECT_EQ(options.owner, window);
    const Ui::SeenDialog about = ChooseAndAnswer(IDM_ABOUT, IDC_ABOUT_CLOSE);
    EXPECT_NE(about.caption, L"Options");
    EXPECT_EQ(about.owner, window);
}

TEST_F(KeysTest, AcceleratorsAreDeadBehindADialog) {
    OpenWith({L"A"});
    const Ui::DismissModal options([](HWND dialog) {
        for (const int key : {VK_F5, VK_F6, VK_DELETE})
            PostMessageW(GetDlgItem(dialog, IDC_OPTIONS_CLOSE), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        PostMessageW(dialog, WM_COMMAND, IDC_OPTIONS_CLOSE,
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDC_OPTIONS_CLOSE)));
    });
    controller->ShowOptions();
    RunLoop();
    EXPECT_EQ(options.Seen().size(), 1u);
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 1}}));
}

TEST_F(KeysTest, EnterPressesCreateList) {
    OpenWith({L"A"});
    const Ui::SeenDialog dialog = PressAndAnswer(VK_RETURN, IDCANCEL);
    EXPECT_EQ(dialog.owner, window);
    EXPECT_NE(dialog.text.find(L"Select a folder"), std::wstring::npos)
        << testing::PrintToString(dialog.text);
    EXPECT_TRUE(CanCreateList());
}

TEST_F(KeysTest, TabGoesFromTheTreeThroughThePageToTheButtons) {
    OpenWith({L"A"});
    // One made while the window is open is no different.
    Command(IDM_TEMPLATE_FIRST);
    for (const wchar_t* const name : {L"A", L"All files (Simple, Text)"}) {
        tree.Select(tree.Item(name));
        SetFocus(tree.Window());
        Press(VK_TAB);
        const HWND page = GetParent(GetFocus());
        EXPECT_EQ(GetFocus(), GetDlgItem(page, IDC_FORMAT_TEXT));
        EXPECT_TRUE(IsWindowVisible(page));
        Press(VK_TAB);
        EXPECT_EQ(GetFocus(), GetDlgItem(page, IDC_FORMAT_UTF8));
        Press(VK_TAB);
        EXPECT_EQ(GetFocus(), Control(IDC_MAIN_CLOSE));
        Press(VK_TAB);
        EXPECT_EQ(GetFocus(), Control(IDC_MAIN_CREATE_LIST));
        Press(VK_TAB);
        EXPECT_EQ(GetFocus(), tree.Window());
    }
}

TEST_F(KeysTest, TabGoesFromTheTreeToCloseWithoutPresets) {
    OpenWith({});
    EXPECT_EQ(GetNextDlgTabItem(window, nullptr, FALSE), tree.Window()) << "the first of all";
    SetFocus(tree.Window());
    Press(VK_TAB);
    EXPECT_EQ(GetFocus(), Control(IDC_MAIN_CLOSE));
    Press(VK_TAB);
    EXPECT_EQ(GetFocus(), tree.Window());
}

}  // namespace
