#include <gtest/gtest.h>
#include <share.h>

#include <memory>
#include <string>

#include "FakeWin.h"
#include "RowSupport.h"
#include "support/native/ScarceMemory.h"
#include "writers/PathState.h"
#include "writers/WalkTree.h"

namespace {

using Console::ReportWriter;

constexpr wchar_t Path[] = L"C:\\Temp\\report";

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

ScanTree LargeTree() {
    ScanTree tree;
    Scanner::Node& folder = tree.AddFolder(tree.root, L"Folder");
    for (size_t file = 0; file < 3 * ReportWriter::BlockRows; ++file)
        tree.AddFile(folder, L"File " + std::to_wstring(file) + L".txt", 7);
    return tree;
}

// Returns whether the report was reported as written.
bool Write(const ScanTree& tree) {
    const File stream(_wfsopen(Path, L"wb", _SH_DENYNO), std::fclose);
    ReportWriter writer({}, stream.get());
    WalkTree(writer, tree.root, false);
    return writer.Finish();
}

TEST(ReportWriterFaults, EachWriteThatFailsIsReported) {
    const ScanTree tree = LargeTree();
    FakeWin::Reset();
    ASSERT_TRUE(Write(tree));
    const int writes = FakeWin::Uses(FakeWin::Call::WriteFile);
    EXPECT_GE(writes, 3);
    for (int use = 1; use <= writes; ++use) {
        FakeWin::Reset();
        FakeWin::FailNth(FakeWin::Call::WriteFile, use, ERROR_DISK_FULL);
        EXPECT_FALSE(Write(tree)) << use;
    }
}

// Memory must not grow with the list: the second and all later blocks are written from the memory of the
// first.
TEST(ReportWriterFaults, LaterBlocksTakeNoMemory) {
    const ScanTree tree = LargeTree();
    const File stream = {std::fopen("/dev/null", "wb"), std::fclose};
    ASSERT_NE(stream, nullptr);
    ReportWriter writer({}, stream.get());
    const PathState state;
    writer.WriteHeader(state, *tree.root.folder);
    const auto writeBlocks = [&](size_t count) {
        for (size_t file = 0; file < count * ReportWriter::BlockRows; ++file)
            writer.WriteFile(state, *tree.root.folders[0].files.back());
    };
    writeBlocks(2);
    const long before = ScarceMemory::Made();
    writeBlocks(20);
    EXPECT_EQ(ScarceMemory::Made(), before);
}

}  // namespace
