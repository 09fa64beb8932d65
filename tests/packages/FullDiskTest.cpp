// The setup on a disk that fills up while it writes, at each of its files.
#include <vector>

#include "packages/Installation.h"

using namespace Packaging;

namespace {

uint64_t FreeBytes(const fs::path& folder) {
    ULARGE_INTEGER free = {};
    EXPECT_TRUE(GetDiskFreeSpaceExW(folder.c_str(), &free, nullptr, nullptr));
    return free.QuadPart;
}

class FullDisk : public Installation {
protected:
    FullDisk() {
        // Without the disk of its own the test would fill the machine's.
        if (FreeBytes(disk_) > 16'000'000)
            throw std::runtime_error("no small disk is mounted");
        for (const auto& entry : fs::directory_iterator(disk_))
            fs::remove_all(entry);
    }

    ~FullDisk() override {
        for (const auto& entry : fs::directory_iterator(disk_))
            fs::remove_all(entry);
    }

    // Leaves this much free.
    void Fill(uint64_t left) const {
        fs::remove(disk_ / L"filler");
        WriteFile(disk_ / L"filler", std::string(FreeBytes(disk_) - left, '\0'));
        EXPECT_EQ(FreeBytes(disk_), left);
    }

    // The room on the disk for the first files that the setup writes, for each number of files.
    std::vector<uint64_t> RoomForFirstFiles() const {
        constexpr uint64_t Cluster = 4096;
        std::vector<uint64_t> room = {0};
        for (const wchar_t* name : {L"tamblewick.exe", L"tamblewickc.exe", L"tamblewick.dll", L"README.txt",
                                    L"THIRD-PARTY.txt", L"uninstall.exe"})
            room.push_back(room.back() + (Bytes(installed / name).size() + Cluster - 1) / Cluster * Cluster);
        return room;
    }

    const fs::path disk_ = fs::path(DISK_FOLDER).make_preferred();
    const fs::path folder_ = disk_ / L"Tamblewick";
};

TEST_F(FullDisk, KeepsTheOldProgram) {
    Install();
    const std::vector<uint64_t> room = RoomForFirstFiles();
    ASSERT_EQ(RunSetup(folder_), 0u);
    for (const std::wstring& name : InstalledFiles)
        WriteFile(folder_ / name, Bytes(folder_ / name) + "older");
    const Contents before = ContentsOf(folder_);
    const std::string shortcutBefore = Summary(Bytes(shortcut));
    for (size_t files = 0; files < InstalledFiles.size(); ++files) {
        Fill(room[files]);
        EXPECT_EQ(RunSetup(folder_), 2u) << files;
        EXPECT_EQ(ContentsOf(folder_), before) << files;
        EXPECT_EQ(Summary(Bytes(shortcut)), shortcutBefore) << files;
        EXPECT_TRUE(ProgramRuns(folder_)) << files;
    }
    Fill(room.back());
    EXPECT_EQ(RunSetup(folder_), 0u);
    EXPECT_EQ(ContentsOf(folder_), ContentsOf(installed));
}

TEST_F(FullDisk, HoldsNothingOfAFirstSetup) {
    Install();
    const std::vector<uint64_t> room = RoomForFirstFiles();
    ASSERT_EQ(RunRemoval(installed), 0u);
    for (size_t files = 0; files < InstalledFiles.size(); ++files) {
        Fill(room[files]);
        EXPECT_EQ(RunSetup(folder_), 2u) << files;
        EXPECT_EQ(NamesIn(disk_), Names{L"filler"}) << files;
        EXPECT_FALSE(fs::exists(shortcut)) << files;
        EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, UninstallKey)) << files;
    }
}

}  // namespace
