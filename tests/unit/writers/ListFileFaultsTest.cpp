#include <gtest/gtest.h>
#include <share.h>

#include <cstdio>
#include <memory>
#include <string>

#include "FakeWin.h"
#include "support/lists/ListSupport.h"
#include "writers/ListFile.h"
#include "writers/WriteList.h"

namespace {

constexpr wchar_t Path[] = L"C:\\Temp\\list";

ListPreset Names() {
    ListPreset preset;
    preset.Folders({FolderColumn::Name}).Files({FileColumn::Filename});
    return preset;
}

ScanTree OneFile() {
    ScanTree tree;
    tree.AddFile(tree.AddFolder(tree.root, L"Sub"), L"a.txt", 1536);
    return tree;
}

TEST(ListFileFaults, OneFlushIsOneWrite) {
    FakeWin::Reset();
    ListFile file(Path);
    EXPECT_EQ(FakeWin::WritesTo(Path), 0);
    for (int line = 1; line <= 100; ++line) {
        file << "cell" << '\t' << line << "\tcell" << std::endl;
        EXPECT_EQ(FakeWin::WritesTo(Path), line);
    }
    for (const size_t length : {4095u, 4096u, 4097u, 8192u, 20000u, 65000u}) {
        const int before = FakeWin::WritesTo(Path);
        file << std::string(length, 'x') << std::endl;
        EXPECT_EQ(FakeWin::WritesTo(Path), before + 1) << length;
    }
}

TEST(ListFileFaults, GroupedTextListTakesOneWriteForEachLine) {
    FakeWin::Reset();
    WriteList(Names().Utf8().Statistics(), OneFile().root, Path);
    // Five lines of title, five of statistics, two rows.
    EXPECT_EQ(FakeWin::WritesTo(Path), 12);
}

TEST(ListFileFaults, HeadingsOfAFlatTextListLeaveWithTheRowBelow) {
    FakeWin::Reset();
    ScanTree tree = OneFile();
    tree.Flatten();
    WriteList(Names().Flat(), tree.root, Path);
    // Five lines of title, heading and row, three empty lines, heading and row.
    EXPECT_EQ(FakeWin::WritesTo(Path), 10);
}

TEST(ListFileFaults, LineFeedsWithinTheLiteralsOfAPageTakeNoWrite) {
    FakeWin::Reset();
    WriteList(Names().Style(ListStyle::Html).Utf8(), OneFile().root, Path);
    // Head 9, title 5, separator 3, two tables of 5 each, separator 3, end 2.
    EXPECT_EQ(FakeWin::WritesTo(Path), 32);
}

TEST(ListFileFaults, TheFileIsSharedWithAll) {
    FakeWin::Reset();
    WriteList(Names(), OneFile().root, Path);
    ASSERT_EQ(FakeWin::Log().front().call, FakeWin::Call::OpenFile);
    EXPECT_EQ(FakeWin::Log().front().subject, Path);
    EXPECT_EQ(FakeWin::Log().front().detail, 0x40u);
}

TEST(ListFileFaults, TheFileIsClosedAtTheEnd) {
    FakeWin::Reset();
    WriteList(Names(), OneFile().root, Path);
    EXPECT_EQ(FakeWin::OpenFiles(), 0);
    EXPECT_EQ(FakeWin::Uses(FakeWin::Call::OpenFile), 1);
}

TEST(ListFileFaults, MomentIsTheLocalTimeOfWriting) {
    FakeWin::Reset();
    FakeWin::SetLocalTime({2021, 3, 4, 4, 12, 34, 56, 0});
    WriteList(Names(), ScanTree().root, Path);
    EXPECT_EQ(FakeWin::Contents(Path), Lines({"Tamblewick 4.0.1", "", "Summary of path: C:\\Data",
                                              "Created: 2021-03-04 12:34:56", ""}));
    WriteList(Names().Style(ListStyle::Html), ScanTree().root, Path);
    EXPECT_NE(FakeWin::Contents(Path)->find("Created: 2021-03-04 12:34:56</span>"), std::string::npos);
}

TEST(ListFileFaults, RefusedFileIsPassedOver) {
    FakeWin::Reset();
    FakeWin::FailOn(FakeWin::Call::OpenFile, Path, ERROR_ACCESS_DENIED);
    EXPECT_NO_THROW(WriteList(Names().Style(ListStyle::Html).Utf8(), OneFile().root, Path));
    EXPECT_FALSE(FakeWin::EntryExists(Path));
    EXPECT_EQ(FakeWin::OpenFiles(), 0);
}

std::string WholeList(ListStyle style) {
    FakeWin::Reset();
    WriteList(Names().Style(style), OneFile().root, Path);
    return *FakeWin::Contents(Path);
}

TEST(ListFileFaults, FullDiskCutsTheListOffAtItsByte) {
    for (const ListStyle style : {ListStyle::Text, ListStyle::Html}) {
        const std::string whole = WholeList(style);
        for (size_t room = 0; room <= whole.size(); room += 7) {
            FakeWin::Reset();
            FakeWin::FailWritesAfter(Path, room);
            EXPECT_NO_THROW(WriteList(Names().Style(style), OneFile().root, Path));
            EXPECT_EQ(FakeWin::Contents(Path), whole.substr(0, room)) << room;
            EXPECT_EQ(FakeWin::OpenFiles(), 0);
        }
    }
}

TEST(ListFileFaults, NothingFollowsAWriteThatFailed) {
    const std::string whole = WholeList(ListStyle::Text);
    FakeWin::Reset();
    FakeWin::FailNth(FakeWin::Call::WriteFile, 3, ERROR_DISK_FULL);
    EXPECT_NO_THROW(WriteList(Names(), OneFile().root, Path));
    EXPECT_EQ(FakeWin::Contents(Path), Lines({"Tamblewick 4.0.1", ""}));
}

TEST(ListFileFaults, ALineThatOutgrowsTheMemoryOnAFullDiskFailsInSilence) {
    FakeWin::Reset();
    ListFile file(Path);
    FakeWin::FailNth(FakeWin::Call::WriteFile, 1, ERROR_DISK_FULL);
    file << std::string(200000, 'x');
    EXPECT_TRUE(file.bad());
    file << "more" << std::endl;
    EXPECT_EQ(FakeWin::Contents(Path), "");
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File OpenList() {
    return {_wfsopen(Path, L"w", _SH_DENYNO), std::fclose};
}

TEST(ListFileFaults, AnOpenStreamTakesOneWriteForManyLines) {
    FakeWin::Reset();
    const File stream = OpenList();
    ListFile file(stream.get());
    const std::string line(99, 'x');
    for (int i = 0; i < 3000; ++i)
        file << line << std::endl;
    EXPECT_TRUE(file.Finish());
    // Pieces of 64 KiB, each of which the runtime may divide into a multiple of its own buffer and a rest.
    EXPECT_LE(FakeWin::WritesTo(Path), 10);
}

TEST(ListFileFaults, FinishReportsEachWriteOfAnOpenStreamThatFailed) {
    for (int use = 1; use <= 10; ++use) {
        FakeWin::Reset();
        const File stream = OpenList();
        ListFile file(stream.get());
        FakeWin::FailNth(FakeWin::Call::WriteFile, use, ERROR_DISK_FULL);
        for (int i = 0; i < 3000; ++i)
            file << std::string(99, 'x') << std::endl;
        const bool written = file.Finish();
        EXPECT_EQ(written, FakeWin::FaultsStruck() == 0) << use;
        EXPECT_EQ(file.Finish(), written) << use;
    }
}

TEST(ListFileFaults, FinishReportsAFullDisk) {
    for (const uint64_t room : {0u, 1u, 3u, 4u}) {
        FakeWin::Reset();
        const File stream = OpenList();
        FakeWin::FailWritesAfter(Path, room);
        ListFile file(stream.get());
        file << "abc" << std::endl;
        EXPECT_FALSE(file.Finish()) << room;
    }
    FakeWin::Reset();
    const File stream = OpenList();
    FakeWin::FailWritesAfter(Path, 5);
    ListFile file(stream.get());
    file << "abc" << std::endl;
    EXPECT_TRUE(file.Finish());
}

}  // namespace
