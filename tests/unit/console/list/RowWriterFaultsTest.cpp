#include <gtest/gtest.h>
#include <share.h>

#include <functional>
#include <memory>
#include <string>

#include "FakeWin.h"
#include "RowSupport.h"
#include "support/native/ScarceMemory.h"
#include "writers/PathState.h"
#include "writers/WalkTree.h"

namespace {

constexpr wchar_t Path[] = L"C:\\Temp\\table";

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File Open() {
    return {_wfsopen(Path, L"wb", _SH_DENYNO), std::fclose};
}

ScanTree LargeTree() {
    ScanTree tree;
    for (int folder = 0; folder < 30; ++folder) {
        Scanner::Node& node = tree.AddFolder(tree.root, L"Folder " + std::to_wstring(folder));
        for (int file = 0; file < 100; ++file)
            tree.AddFile(node, L"File " + std::to_wstring(file) + L".txt", 7);
    }
    return tree;
}

using MakeVisitor = std::function<std::unique_ptr<Console::RowWriter>(std::FILE*)>;

std::unique_ptr<Console::RowWriter> MakeCsv(std::FILE* stream) {
    return std::make_unique<Console::CsvWriter>(Console::CsvOptions(), stream);
}

std::unique_ptr<Console::RowWriter> MakeJson(std::FILE* stream) {
    return std::make_unique<Console::JsonLinesWriter>(RowSupport::PlainJson(), stream);
}

// Returns whether the list was reported as written.
bool WriteTable(const MakeVisitor& make, const ScanTree& tree) {
    const File stream = Open();
    const std::unique_ptr<Console::RowWriter> writer = make(stream.get());
    WalkTree(*writer, tree.root, false);
    return writer->Finish();
}

TEST(RowWriterFaults, EachWriteThatFailsIsReported) {
    const ScanTree tree = LargeTree();
    for (const MakeVisitor& make : {MakeVisitor(MakeCsv), MakeVisitor(MakeJson)}) {
        FakeWin::Reset();
        ASSERT_TRUE(WriteTable(make, tree));
        const int writes = FakeWin::Uses(FakeWin::Call::WriteFile);
        EXPECT_GE(writes, 3);
        for (int use = 1; use <= writes; ++use) {
            FakeWin::Reset();
            FakeWin::FailNth(FakeWin::Call::WriteFile, use, ERROR_DISK_FULL);
            EXPECT_FALSE(WriteTable(make, tree)) << use;
        }
    }
}

TEST(RowWriterFaults, AFullDiskCutsTheListOffAndIsReported) {
    const ScanTree tree = LargeTree();
    for (const MakeVisitor& make : {MakeVisitor(MakeCsv), MakeVisitor(MakeJson)}) {
        FakeWin::Reset();
        ASSERT_TRUE(WriteTable(make, tree));
        const std::string whole = *FakeWin::Contents(Path);
        for (size_t room = 0; room < whole.size(); room += 10007) {
            FakeWin::Reset();
            FakeWin::FailWritesAfter(Path, room);
            EXPECT_FALSE(WriteTable(make, tree)) << room;
            const std::string contents = *FakeWin::Contents(Path);
            EXPECT_EQ(contents, whole.substr(0, contents.size())) << room;
        }
    }
}

TEST(RowWriterFaults, AnInterruptedListIsNotComplete) {
    FakeWin::Reset();
    const ScanTree tree = LargeTree();
    {
        const File stream = Open();
        const std::unique_ptr<Console::RowWriter> writer = MakeJson(stream.get());
        writer->WriteHeader(PathState(), *tree.root.folder);
        writer->WriteFolder(PathState(), *tree.root.folders[0].folder);
    }
    EXPECT_EQ(FakeWin::Contents(Path), "");
}

// Memory must not grow with the list. What the stand-in allocates would count.
TEST(RowWriterFaults, RowsTakeNoMemory) {
    const ScanTree tree = LargeTree();
    for (const MakeVisitor& make : {MakeVisitor(MakeCsv), MakeVisitor(MakeJson)}) {
        const File stream = {std::fopen("/dev/null", "wb"), std::fclose};
        ASSERT_NE(stream, nullptr);
        const std::unique_ptr<Console::RowWriter> writer = make(stream.get());
        const PathState state;
        const Scanner::Node& folder = tree.root.folders.back();
        writer->WriteHeader(state, *tree.root.folder);
        writer->WriteFile(state, *folder.files.back());
        const long before = ScarceMemory::Made();
        for (int repeat = 0; repeat < 10; ++repeat) {
            for (const Scanner::Node& each : tree.root.folders) {
                writer->WriteFolder(state, *each.folder);
                for (const Scanner::File* file : each.files)
                    writer->WriteFile(state, *file);
            }
        }
        EXPECT_EQ(ScarceMemory::Made(), before);
        EXPECT_TRUE(writer->Finish());
    }
}

}  // namespace
