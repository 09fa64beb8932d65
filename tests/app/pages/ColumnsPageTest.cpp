// The page "Columns", and what it has in common with "Sorting": order, buttons, and the moments of storing.

#include "OrderPageTest.h"
#include "resources/resource.h"
#include "support/ui/FocusWatch.h"

namespace {

using Names = std::vector<std::wstring>;
using TestSupport::DwordValue;

class ColumnsPageTest : public OrderPageTest {
protected:
    ColumnsPageTest() : OrderPageTest(Kind::Columns, IDC_COLUMNS_TREE, IDC_COLUMNS_UP, IDC_COLUMNS_DOWN) {}

    // Moves the focus out of the tree.
    void Leave() const { open->Focus(IDC_COLUMNS_HEADERS); }
};

// By the value of the column: its word in the registry and its label.
const std::pair<std::wstring, std::wstring> FolderColumns[] = {
    {L"Number", L"Number"},
    {L"Path", L"Path"},
    {L"Name", L"Name"},
    {L"PathAndName", L"Path and Name (fully qualified path)"},
    {L"Size", L"Size"},
    {L"Attributes", L"Attributes (read-only, archive, hidden, system)"},
    {L"TimeCreated", L"Time Created"},
    {L"LastTimeAccessed", L"Last Time Accessed"},
    {L"LastTimeWritten", L"Last Time Written"},
    {L"NumberOfFolders", L"Number of Folders"},
    {L"NumberOfFiles", L"Number of Files"},
    {L"NumberOfFoldersAndFiles", L"Number of Folders and Files"},
};

const std::pair<std::wstring, std::wstring> FileColumns[] = {
    {L"Number", L"Number"},
    {L"Path", L"Path"},
    {L"Filename", L"Filename"},
    {L"PathAndFilename", L"Path and Filename (fully qualified path)"},
    {L"FilenameWithoutExtension", L"Filename without Extension"},
    {L"Extension", L"Extension"},
    {L"Size", L"Size"},
    {L"Attributes", L"Attributes (read-only, archive, hidden, system)"},
    {L"TimeCreated", L"Time Created"},
    {L"LastTimeAccessed", L"Last Time Accessed"},
    {L"LastTimeWritten", L"Last Time Written"},
};

TEST_F(ColumnsPageTest, EachStateHasItsPicture) {
    Open();
    ExpectStatePictures(IDI_UNCHECKED, IDI_CHECKED, IDI_MIXED);
}

TEST_F(ColumnsPageTest, ButtonsShowTheirArrowsAndAreNamed) {
    Open();
    ExpectButtons();
}

TEST_F(ColumnsPageTest, ShowsTwoRootsOpenWithTheFirstSelected) {
    Open();
    ExpectTwoRoots();
}

TEST_F(ColumnsPageTest, ShowsEveryColumnInStoredOrderUnderItsLabel) {
    // Backwards, every second one shown.
    Names folders, files;
    std::vector<ItemState> folderStates, fileStates;
    for (int i = 11; i >= 0; i--) {
        const std::wstring place = std::to_wstring(11 - i);
        registry.SetString(PresetKey + L"\\Columns\\FolderColumns", place, FolderColumns[i].first);
        registry.SetDword(PresetKey + L"\\Columns\\FolderEnabled", place, i % 2);
        folders.push_back(FolderColumns[i].second);
        folderStates.push_back(i % 2 ? ItemState::Checked : ItemState::Unchecked);
    }
    for (int i = 10; i >= 0; i--) {
        const std::wstring place = std::to_wstring(10 - i);
        registry.SetString(PresetKey + L"\\Columns\\FileColumns", place, FileColumns[i].first);
        registry.SetDword(PresetKey + L"\\Columns\\FileEnabled", place, i % 2);
        files.push_back(FileColumns[i].second);
        fileStates.push_back(i % 2 ? ItemState::Checked : ItemState::Unchecked);
    }
    Open();
    EXPECT_EQ(tree.Children(Folders()), folders);
    EXPECT_EQ(tree.Children(Files()), files);
    EXPECT_EQ(Parameters(Folders()), (std::vector<LPARAM>{11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0}));
    EXPECT_EQ(Parameters(Files()), (std::vector<LPARAM>{10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0}));
    EXPECT_EQ(States(Folders()), folderStates);
    EXPECT_EQ(States(Files()), fileStates);
}

TEST_F(ColumnsPageTest, RootShowsWhatItsChildrenHaveInCommon) {
    for (int i = 0; i < 12; ++i)
        registry.SetDword(PresetKey + L"\\Columns\\FolderEnabled", std::to_wstring(i), 1);
    Open();
    EXPECT_EQ(State(Folders()), ItemState::Checked);
    EXPECT_EQ(State(Files()), ItemState::Mixed);
    open.reset();
    for (int i = 0; i < 12; ++i)
        registry.SetDword(PresetKey + L"\\Columns\\FolderEnabled", std::to_wstring(i), 0);
    Open();
    EXPECT_EQ(State(Folders()), ItemState::Unchecked);
}

TEST_F(ColumnsPageTest, TickIsStoredWhenTheTreeLosesTheFocus) {
    Open();
    SetFocus(tree.Window());
    ForgetStored();
    ClickState(Child(Folders(), 2));
    EXPECT_EQ(State(Child(Folders(), 2)), ItemState::Checked);
    ClickLabel(Child(Folders(), 5));
    EXPECT_FALSE(IsStored());
    Leave();
    // Defaults, and the third column: 3 first, then 0, 1, 2, 4, ...
    EXPECT_EQ(Stored(L"Columns\\FolderColumns"),
              Words({L"PathAndName", L"Number", L"Path", L"Name", L"Size", L"Attributes", L"TimeCreated",
                     L"LastTimeAccessed", L"LastTimeWritten", L"NumberOfFolders", L"NumberOfFiles",
                     L"NumberOfFoldersAndFiles"}));
    EXPECT_EQ(Stored(L"Columns\\FolderEnabled"), Bools({1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(
        Stored(L"Columns\\FileColumns"),
        Words({L"PathAndFilename", L"Number", L"Path", L"Filename", L"FilenameWithoutExtension", L"Extension",
               L"Size", L"Attributes", L"TimeCreated", L"LastTimeAccessed", L"LastTimeWritten"}));
    EXPECT_EQ(Stored(L"Columns\\FileEnabled"), Bools({1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ColumnsPageTest, RootTickGoesToAllItsColumns) {
    Open();
    SetFocus(tree.Window());
    EXPECT_EQ(State(Folders()), ItemState::Mixed);
    ClickState(Folders());
    EXPECT_EQ(States(Folders()), std::vector<ItemState>(12, ItemState::Checked));
    ClickState(Folders());
    EXPECT_EQ(States(Folders()), std::vector<ItemState>(12, ItemState::Unchecked));
    Leave();
    EXPECT_EQ(Stored(L"Columns\\FolderEnabled"), Bools(std::vector<uint32_t>(12, 0)));
    EXPECT_EQ(Stored(L"Columns\\FileEnabled"), Bools({1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ColumnsPageTest, MoveIsStoredAtOnceAndTakesTickAndSelectionAlong) {
    Open();
    ClickLabel(Child(Folders(), 0));
    MoveDown();
    EXPECT_EQ(tree.Text(tree.Selected()), L"Path and Name (fully qualified path)");
    EXPECT_EQ(tree.Selected(), Child(Folders(), 1));
    MoveDown();
    EXPECT_EQ(Parameters(Folders()), (std::vector<LPARAM>{0, 1, 3, 2, 4, 5, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(Stored(L"Columns\\FolderColumns"),
              Words({L"Number", L"Path", L"PathAndName", L"Name", L"Size", L"Attributes", L"TimeCreated",
                     L"LastTimeAccessed", L"LastTimeWritten", L"NumberOfFolders", L"NumberOfFiles",
                     L"NumberOfFoldersAndFiles"}));
    EXPECT_EQ(Stored(L"Columns\\FolderEnabled"), Bools({0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    MoveUp();
    EXPECT_EQ(Parameters(Folders()), (std::vector<LPARAM>{0, 3, 1, 2, 4, 5, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(Stored(L"Columns\\FolderEnabled"), Bools({0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ColumnsPageTest, MoveStoresPendingTicksToo) {
    Open();
    ClickState(Child(Files(), 3));
    ClickLabel(Child(Folders(), 1));
    ForgetStored();
    // A click on a button by message leaves the focus where it is.
    SendMessageW(open->window, WM_COMMAND, MAKEWPARAM(IDC_COLUMNS_UP, BN_CLICKED),
                 reinterpret_cast<LPARAM>(open->Control(IDC_COLUMNS_UP)));
    EXPECT_EQ(Stored(L"Columns\\FileEnabled"), Bools({1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ColumnsPageTest, ButtonsFollowTheSelectedColumn) {
    Open();
    struct Row {
        HTREEITEM item;
        bool up, down;
    };
    const Row rows[] = {{Child(Folders(), 0), false, true},
                        {Child(Folders(), 1), true, true},
                        {Child(Folders(), 11), true, false},
                        {Folders(), false, false},
                        {Child(Files(), 0), false, true},
                        {Child(Files(), 10), true, false},
                        {Files(), false, false}};
    for (const Row& row : rows) {
        tree.Select(row.item);
        EXPECT_EQ(CanMoveUp(), row.up) << tree.Parameter(row.item);
        EXPECT_EQ(CanMoveDown(), row.down) << tree.Parameter(row.item);
    }
    tree.Select(nullptr);
    EXPECT_FALSE(CanMoveUp());
    EXPECT_FALSE(CanMoveDown());
}

TEST_F(ColumnsPageTest, FirstColumnCannotGoUpNorTheLastDown) {
    Open();
    ClickLabel(Child(Files(), 0));
    ForgetStored();
    MoveUp();
    EXPECT_FALSE(IsStored());
    EXPECT_EQ(Parameters(Files()).front(), 3);
    ClickLabel(Child(Folders(), 11));
    MoveDown();
    EXPECT_EQ(Parameters(Folders()).back(), 11);
    EXPECT_EQ(Parameters(Files()).front(), 3);
}

TEST_F(ColumnsPageTest, ButtonThatIsDisabledPassesTheFocusToTheOther) {
    Open();
    struct Row {
        int pressed, other, from, to;
    };
    const Row rows[] = {{IDC_COLUMNS_UP, IDC_COLUMNS_DOWN, 1, 0}, {IDC_COLUMNS_DOWN, IDC_COLUMNS_UP, 10, 11}};
    for (const Row& row : rows) {
        ClickLabel(Child(Folders(), row.from));
        open->Focus(row.pressed);
        const Ui::FocusWatch watch(open->Control(row.pressed));
        Ui::TypeKeys(open->pump, {VK_SPACE});
        EXPECT_EQ(tree.Selected(), Child(Folders(), row.to));
        EXPECT_FALSE(open->IsEnabled(row.pressed));
        EXPECT_EQ(GetFocus(), open->Control(row.other));
        EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{open->Control(row.other), true, true}}));
    }
}

TEST_F(ColumnsPageTest, ButtonsThatBothGoGrayHandTheFocusToTheTree) {
    Open();
    struct Row {
        int button, selected;
    };
    // At either end the other button is gray already.
    const Row rows[] = {
        {IDC_COLUMNS_UP, 1}, {IDC_COLUMNS_UP, 11}, {IDC_COLUMNS_DOWN, 1}, {IDC_COLUMNS_DOWN, 0}};
    for (const Row& row : rows) {
        tree.Select(Child(Folders(), row.selected));
        open->Focus(row.button);
        tree.Select(Folders());
        EXPECT_FALSE(CanMoveUp());
        EXPECT_FALSE(CanMoveDown());
        EXPECT_EQ(GetFocus(), tree.Window());
    }
}

TEST_F(ColumnsPageTest, ColumnNamedTwiceIsShownAndStoredTwice) {
    registry.SetString(PresetKey + L"\\Columns\\FileColumns", L"0", L"Size");
    registry.SetString(PresetKey + L"\\Columns\\FileColumns", L"3", L"Size");
    Open();
    EXPECT_EQ(Parameters(Files()), (std::vector<LPARAM>{6, 0, 1, 6, 4, 5, 6, 7, 8, 9, 10}));
    ClickLabel(Child(Files(), 0));
    MoveDown();
    EXPECT_EQ(Stored(L"Columns\\FileColumns"),
              Words({L"Number", L"Size", L"Path", L"Size", L"FilenameWithoutExtension", L"Extension", L"Size",
                     L"Attributes", L"TimeCreated", L"LastTimeAccessed", L"LastTimeWritten"}));
}

TEST_F(ColumnsPageTest, SpaceTicksTheSelectedColumn) {
    Open();
    SetFocus(tree.Window());
    tree.Select(Child(Folders(), 1));
    Ui::TypeKeys(open->pump, {VK_SPACE});
    EXPECT_EQ(State(Child(Folders(), 1)), ItemState::Checked);
    Ui::TypeKeys(open->pump, {VK_SPACE});
    EXPECT_EQ(State(Child(Folders(), 1)), ItemState::Unchecked);
}

TEST_F(ColumnsPageTest, StateImagesAndButtonsHaveTheirIcons) {
    Open();
    const auto images =
        reinterpret_cast<HIMAGELIST>(SendMessageW(tree.Window(), TVM_GETIMAGELIST, TVSIL_STATE, 0));
    EXPECT_EQ(ImageList_GetImageCount(images), 4);
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(images, &width, &height);
    EXPECT_EQ(width, 16);
    EXPECT_EQ(height, 16);
    EXPECT_NE(SendMessageW(open->Control(IDC_COLUMNS_UP), BM_GETIMAGE, IMAGE_ICON, 0), 0);
    EXPECT_NE(SendMessageW(open->Control(IDC_COLUMNS_DOWN), BM_GETIMAGE, IMAGE_ICON, 0), 0);
}

TEST_F(ColumnsPageTest, TreeHasBoxesAndLinesAndSpeaksUnicode) {
    Open();
    const LONG_PTR style = GetWindowLongPtrW(tree.Window(), GWL_STYLE);
    EXPECT_EQ(style & (TVS_CHECKBOXES | TVS_LINESATROOT), TVS_CHECKBOXES | TVS_LINESATROOT);
    EXPECT_NE(SendMessageW(tree.Window(), CCM_GETUNICODEFORMAT, 0, 0), 0);
}

TEST_F(ColumnsPageTest, SecondRefreshReplacesTheTree) {
    Open();
    open->page->Refresh();
    EXPECT_EQ(tree.Names(), (Names{L"Folders", L"Files"}));
    EXPECT_EQ(tree.Children(Folders()).size(), 12U);
}

}  // namespace
