// The page "Sorting", where it differs from "Columns".

#include "OrderPageTest.h"
#include "resources/resource.h"

namespace {

using Names = std::vector<std::wstring>;

class SortingPageTest : public OrderPageTest {
protected:
    SortingPageTest() : OrderPageTest(Kind::Sorting, IDC_SORTING_TREE, IDC_SORTING_UP, IDC_SORTING_DOWN) {}

    void Leave() const { open->Focus(IDC_SORTING_NATURAL); }
};

// By the value of the key: its word in the registry and its label.
const std::pair<std::wstring, std::wstring> FolderKeys[] = {
    {L"Path", L"Path and Name (fully qualified path)"},
    {L"Name", L"Name"},
    {L"Size", L"Size"},
    {L"TimeCreated", L"Time Created"},
    {L"LastTimeAccessed", L"Last Time Accessed"},
    {L"LastTimeWritten", L"Last Time Written"},
    {L"NumberOfFolders", L"Number of Folders"},
    {L"NumberOfFiles", L"Number of Files"},
    {L"NumberOfFoldersAndFiles", L"Number of Folders and Files"},
};

const std::pair<std::wstring, std::wstring> FileKeys[] = {
    {L"Path", L"Path (excluding filename)"},
    {L"Name", L"Filename (without extension)"},
    {L"Extension", L"Extension"},
    {L"Size", L"Size"},
    {L"TimeCreated", L"Time Created"},
    {L"LastTimeAccessed", L"Last Time Accessed"},
    {L"LastTimeWritten", L"Last Time Written"},
};

TEST_F(SortingPageTest, EachStateHasItsPicture) {
    Open();
    ExpectStatePictures(IDI_ASCENDING, IDI_DESCENDING, IDI_MIXED_ORDER);
}

TEST_F(SortingPageTest, ButtonsShowTheirArrowsAndAreNamed) {
    Open();
    ExpectButtons();
}

TEST_F(SortingPageTest, ShowsTwoRootsOpenWithTheFirstSelected) {
    Open();
    ExpectTwoRoots();
}

TEST_F(SortingPageTest, ShowsEveryKeyInStoredOrderUnderItsLabel) {
    // Backwards, every second one descending.
    Names folders, files;
    std::vector<ItemState> folderStates, fileStates;
    for (int i = 8; i >= 0; i--) {
        const std::wstring place = std::to_wstring(8 - i);
        registry.SetString(PresetKey + L"\\Sorting\\FolderSortKeys", place, FolderKeys[i].first);
        registry.SetString(PresetKey + L"\\Sorting\\FolderSortOrder", place,
                           i % 2 ? L"Descending" : L"Ascending");
        folders.push_back(FolderKeys[i].second);
        folderStates.push_back(i % 2 ? ItemState::Checked : ItemState::Unchecked);
    }
    for (int i = 6; i >= 0; i--) {
        const std::wstring place = std::to_wstring(6 - i);
        registry.SetString(PresetKey + L"\\Sorting\\FileSortKeys", place, FileKeys[i].first);
        registry.SetString(PresetKey + L"\\Sorting\\FileSortOrder", place,
                           i % 2 ? L"Descending" : L"Ascending");
        files.push_back(FileKeys[i].second);
        fileStates.push_back(i % 2 ? ItemState::Checked : ItemState::Unchecked);
    }
    Open();
    EXPECT_EQ(tree.Children(Folders()), folders);
    EXPECT_EQ(tree.Children(Files()), files);
    EXPECT_EQ(Parameters(Folders()), (std::vector<LPARAM>{8, 7, 6, 5, 4, 3, 2, 1, 0}));
    EXPECT_EQ(Parameters(Files()), (std::vector<LPARAM>{6, 5, 4, 3, 2, 1, 0}));
    EXPECT_EQ(States(Folders()), folderStates);
    EXPECT_EQ(States(Files()), fileStates);
    EXPECT_EQ(State(Folders()), ItemState::Mixed);
}

TEST_F(SortingPageTest, ClickFlipsTheDirectionAndLeavingStoresIt) {
    Open();
    SetFocus(tree.Window());
    ForgetStored();
    ClickState(Child(Folders(), 0));
    ClickState(Child(Folders(), 2));
    EXPECT_FALSE(IsStored());
    Leave();
    EXPECT_EQ(Stored(L"Sorting\\FolderSortKeys"),
              Words({L"Path", L"Name", L"Size", L"TimeCreated", L"LastTimeAccessed", L"LastTimeWritten",
                     L"NumberOfFolders", L"NumberOfFiles", L"NumberOfFoldersAndFiles"}));
    // By default the third, the size, is the only one to descend.
    EXPECT_EQ(Stored(L"Sorting\\FolderSortOrder"),
              Words({L"Descending", L"Ascending", L"Ascending", L"Ascending", L"Ascending", L"Ascending",
                     L"Ascending", L"Ascending", L"Ascending"}));
    EXPECT_EQ(Stored(L"Sorting\\FileSortOrder"),
              Words({L"Ascending", L"Ascending", L"Ascending", L"Descending", L"Ascending", L"Ascending",
                     L"Ascending"}));
}

TEST_F(SortingPageTest, RootGivesAllItsKeysOneDirection) {
    Open();
    SetFocus(tree.Window());
    EXPECT_EQ(State(Files()), ItemState::Mixed);
    ClickState(Files());
    EXPECT_EQ(State(Files()), ItemState::Checked);
    EXPECT_EQ(States(Files()), std::vector<ItemState>(7, ItemState::Checked));
    ClickState(Files());
    EXPECT_EQ(State(Files()), ItemState::Unchecked);
    Leave();
    EXPECT_EQ(Stored(L"Sorting\\FileSortOrder"), Words(Names(7, L"Ascending")));
}

TEST_F(SortingPageTest, KeyMovedToTheTopComesFirstAndTheOthersKeepTheirOrder) {
    Open();
    ClickLabel(Child(Files(), 4));
    for (int i = 0; i < 4; ++i)
        MoveUp();
    EXPECT_FALSE(CanMoveUp());
    EXPECT_EQ(Stored(L"Sorting\\FileSortKeys"), Words({L"TimeCreated", L"Path", L"Name", L"Extension",
                                                       L"Size", L"LastTimeAccessed", L"LastTimeWritten"}));
    EXPECT_EQ(Stored(L"Sorting\\FileSortOrder"),
              Words({L"Ascending", L"Ascending", L"Ascending", L"Ascending", L"Descending", L"Ascending",
                     L"Ascending"}));
    EXPECT_EQ(Stored(L"Sorting\\FolderSortKeys").size(), 9U);
}

TEST_F(SortingPageTest, MixedKeyCountsAsAscending) {
    Open();
    SetFocus(tree.Window());
    TVITEMW item = {};
    item.mask = TVIF_STATE;
    item.hItem = Child(Files(), 3);
    item.stateMask = TVIS_STATEIMAGEMASK;
    item.state = INDEXTOSTATEIMAGEMASK(3);
    SendMessageW(tree.Window(), TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    Leave();
    EXPECT_EQ(Stored(L"Sorting\\FileSortOrder"), Words(Names(7, L"Ascending")));
}

TEST_F(SortingPageTest, StateImagesHaveTheirIcons) {
    Open();
    const auto images =
        reinterpret_cast<HIMAGELIST>(SendMessageW(tree.Window(), TVM_GETIMAGELIST, TVSIL_STATE, 0));
    EXPECT_EQ(ImageList_GetImageCount(images), 4);
}

}  // namespace
