// An update takes the place of the whole installation or changes nothing. The installed files are other ones
// than those of the setup, so that each exchange shows.
#include <memory>
#include <vector>

#include "packages/Installation.h"

using namespace Packaging;

namespace {

class Update : public Installation {
protected:
    Update() {
        Install();
        fresh_ = ContentsOf(installed);
        for (const std::wstring& name : InstalledFiles)
            WriteFile(installed / name, Bytes(installed / name) + "older");
    }

    Contents fresh_;
};

TEST_F(Update, ExchangesEveryFile) {
    EXPECT_EQ(RunSetup(), 0u);
    EXPECT_EQ(ContentsOf(installed), fresh_);
}

TEST_F(Update, RenamesAModuleInUseAndTheNextOneDeletesIt) {
    const HMODULE module = LoadLibraryW((installed / L"tamblewick.dll").c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(RunSetup(), 0u);
    Names withOld = InstalledFiles;
    withOld.insert(L"tamblewick.dll.1.old");
    EXPECT_EQ(NamesIn(installed), withOld);
    EXPECT_EQ(RunSetup(), 0u);
    EXPECT_EQ(NamesIn(installed), withOld);
    FreeLibrary(module);
    EXPECT_EQ(RunSetup(), 0u);
    EXPECT_EQ(NamesIn(installed), InstalledFiles);
}

TEST_F(Update, ExchangesARunningProgram) {
    Process program(Quoted(installed / L"tamblewick.exe"), installed);
    const HWND close = program.WaitForControl(AnyControl, L"Close");
    EXPECT_EQ(RunSetup(), 0u);
    EXPECT_EQ(ContentsOf(installed)[L"tamblewick.exe"], fresh_[L"tamblewick.exe"]);
    PostMessageW(GetAncestor(close, GA_ROOT), WM_CLOSE, 0, 0);
}

// Whichever file cannot be renamed, those before it get their old bytes again.
TEST_F(Update, ThatCannotExchangeAFileChangesNothing) {
    Contents before = ContentsOf(installed);
    const std::string shortcutBefore = Summary(Bytes(shortcut));
    std::vector<fs::path> files = {shortcut};
    for (const std::wstring& name : InstalledFiles)
        files.push_back(installed / name);
    for (const fs::path& file : files) {
        const LockedFile locked(file);
        EXPECT_EQ(RunSetup(), 2u) << file;
        EXPECT_EQ(ContentsOf(installed), before) << file;
        EXPECT_EQ(Summary(Bytes(shortcut)), shortcutBefore) << file;
        EXPECT_EQ(NamesIn(shortcut.parent_path()).count(L"Tamblewick.lnk.new"), 0u) << file;
        EXPECT_TRUE(ProgramRuns(installed)) << file;
    }
    EXPECT_EQ(RunSetup(), 0u);
    EXPECT_EQ(ContentsOf(installed), fresh_);
}

// Under a tenth name the file would never be deleted.
TEST_F(Update, ChangesNothingIfAllNamesForOldFilesAreInUse) {
    std::vector<std::unique_ptr<LockedFile>> locked;
    for (int i = 1; i <= 9; ++i) {
        const fs::path old = installed / (L"tamblewick.dll." + std::to_wstring(i) + L".old");
        WriteFile(old, "in use");
        locked.push_back(std::make_unique<LockedFile>(old));
    }
    const Contents before = ContentsOf(installed);
    EXPECT_EQ(RunSetup(), 2u);
    EXPECT_EQ(ContentsOf(installed), before);
    locked.pop_back();
    EXPECT_EQ(RunSetup(), 0u);
    EXPECT_EQ(ContentsOf(installed)[L"tamblewick.dll"], fresh_[L"tamblewick.dll"]);
    locked.clear();
}

TEST_F(Update, TakesWhatABrokenOneHasLeft) {
    WriteFile(installed / L"tamblewick.exe.new", "half of");
    fs::rename(installed / L"tamblewick.exe", installed / L"tamblewick.exe.1.old");
    EXPECT_EQ(RunSetup(), 0u);
    EXPECT_EQ(ContentsOf(installed), fresh_);
}

// The file under the other name may be the only one left.
TEST_F(Update, ThatFailsKeepsWhatABrokenOneHasLeft) {
    fs::rename(installed / L"tamblewick.exe", installed / L"tamblewick.exe.1.old");
    const Contents before = ContentsOf(installed);
    const LockedFile locked(installed / L"README.txt");
    EXPECT_EQ(RunSetup(), 2u);
    EXPECT_EQ(ContentsOf(installed), before);
}

TEST_F(Update, ThatFailsSaysThatNothingHasChanged) {
    const LockedFile locked(installed / L"README.txt");
    const Contents before = ContentsOf(installed);
    Process window(Quoted(setup));
    EXPECT_TRUE(window.Press(IDOK, L"Next"));
    EXPECT_TRUE(window.Press(IDOK, L"Install"));
    EXPECT_NE(window.WaitForControl(AnyControl, L"could not be installed into " + installed.wstring()),
              nullptr);
    EXPECT_EQ(ContentsOf(installed), before);
    EXPECT_TRUE(window.Press(AnyControl, L"OK"));
    EXPECT_TRUE(window.Press(IDCANCEL, L"Cancel"));
    EXPECT_EQ(window.Wait(), 2u);
}

}  // namespace
