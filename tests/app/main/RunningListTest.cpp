// The one running list, without the main window.

#include "app/RunningList.h"

#include <gtest/gtest.h>

#include <thread>

#include "BareDialog.h"
#include "BlockedListFile.h"
#include "settings/Preset.h"
#include "support/TempFolder.h"
#include "support/ui/DismissModal.h"

namespace {

class RunningListTest : public testing::Test {
protected:
    RunningListTest() {
        folder.AddFile(L"Listed\\a file.txt");
        preset.Get(Opening::OpenMethod) = OpenMethod::Nothing;
        SaveIn(folder.Path());
    }

    void SaveIn(const std::wstring& path) {
        preset.Get(Saving::SaveLocation) = SaveLocation::Custom;
        preset.Get(Saving::CustomFolderPath) = path;
    }

    bool Start() { return list.Start(owner.Handle, preset, folder.Path(L"Listed")); }

    TestSupport::TempFolder folder;
    BareDialog owner;
    Preset preset{L"Software\\Tamblewick\\unused"};
    RunningList list;
};

TEST_F(RunningListTest, ThereIsNoneAtFirst) {
    EXPECT_FALSE(list.Exists());
    EXPECT_FALSE(list.IsFinished());
    EXPECT_TRUE(list.Collect());
    EXPECT_TRUE(list.Close());
    EXPECT_FALSE(list.CloseRequested());
}

TEST_F(RunningListTest, AListThatHasEndedExistsUntilItIsCollected) {
    EXPECT_TRUE(Start());
    EXPECT_TRUE(folder.Exists(L"List of Listed.txt"));
    EXPECT_TRUE(list.Exists());
    EXPECT_TRUE(list.IsFinished());
    EXPECT_TRUE(list.Collect());
    EXPECT_FALSE(list.Exists());
}

TEST_F(RunningListTest, IsNeitherCollectedNorClosedWhileItStarts) {
    SaveIn(BlockedListFile::Folder());
    BlockedListFile file(L"List of Listed.txt");
    std::thread reader;
    const Ui::DismissModal meddle([&](HWND) {
        EXPECT_FALSE(list.Collect());
        EXPECT_TRUE(list.Exists());
        EXPECT_FALSE(list.CloseRequested());
        EXPECT_FALSE(list.Close());
        EXPECT_TRUE(list.Exists());
        reader = std::thread([&] { file.Read(); });
    });
    EXPECT_TRUE(Start());
    reader.join();
    EXPECT_TRUE(list.Exists());
    EXPECT_TRUE(list.CloseRequested());
    EXPECT_TRUE(list.Close());
    EXPECT_FALSE(list.Exists());
}

TEST_F(RunningListTest, CloseWaitsForAListInTheBackground) {
    SaveIn(BlockedListFile::Folder());
    BlockedListFile file(L"List of Listed.txt");
    {
        const Ui::DismissModal background(IDC_PROGRESS_BACKGROUND);
        EXPECT_FALSE(Start());
    }
    EXPECT_TRUE(list.Exists());
    EXPECT_FALSE(list.IsFinished());
    std::string text;
    std::thread reader([&] { text = file.Read(); });
    EXPECT_TRUE(list.Close());
    reader.join();
    EXPECT_FALSE(list.Exists());
    EXPECT_NE(text.find("a file.txt"), std::string::npos);
}

}  // namespace
