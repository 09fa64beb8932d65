#include "console/list/Sha256SumWriter.h"

#include <gtest/gtest.h>
#include <share.h>

#include <memory>

#include "RowSupport.h"
#include "support/TempFolder.h"
#include "writers/WalkTree.h"

namespace {

constexpr char HashOfAbc[] = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
constexpr char HashOfNothing[] = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";

struct Sha256SumWriterTest : testing::Test {
    std::string Write() {
        Console::FileHasher hasher(0, {.progress = false, .warnings = false});
        const TestSupport::TempFolder lists;
        {
            const File stream = Open(lists);
            Console::Sha256SumWriter writer(hasher, stream.get());
            WalkTree(writer, tree.root, false);
            EXPECT_TRUE(writer.Finish());
        }
        return lists.Read(L"sums").value_or("no file");
    }

    // The line of a file with this path.
    static std::string Line(const std::wstring& path) {
        const TestSupport::TempFolder lists;
        {
            const File stream = Open(lists);
            Console::ByteOutput output(stream.get());
            Console::AppendSum(output, HashOfAbc, path);
            EXPECT_TRUE(output.Finish());
        }
        return lists.Read(L"sums").value_or("no file");
    }

    using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

    static File Open(const TestSupport::TempFolder& lists) {
        return {_wfsopen(lists.Path(L"sums").c_str(), L"wb", _SH_DENYNO), std::fclose};
    }

    TestSupport::TempFolder folder;
    ScanTree tree{folder.Path()};
};

}  // namespace

TEST_F(Sha256SumWriterTest, ALineHasTheHashAndTheRelativePath) {
    folder.AddFile(L"Sub\\Deep\\empty.txt", "");
    folder.AddFile(L"a b.txt", "abc");
    tree.AddFile(tree.AddFolder(tree.AddFolder(tree.root, L"Sub"), L"Deep"), L"empty.txt");
    tree.AddFile(tree.root, L"a b.txt", 3);
    EXPECT_EQ(Write(), HashOfNothing + std::string(" *Sub/Deep/empty.txt\n") + HashOfAbc + " *a b.txt\n");
}

TEST_F(Sha256SumWriterTest, NamesAreUtf8) {
    const std::wstring name = RowSupport::Units({0xE9, 0xD83D, 0xDE00});
    folder.AddFile(name, "abc");
    tree.AddFile(tree.root, name, 3);
    EXPECT_EQ(Write(), HashOfAbc + std::string(" *\xC3\xA9\xF0\x9F\x98\x80\n"));
}

TEST_F(Sha256SumWriterTest, FilesWithoutAHashHaveNoLine) {
    folder.AddFile(L"link", "abc");
    folder.AddFile(L"there", "abc");
    tree.AddFile(tree.root, L"link", 3).attributes = FILE_ATTRIBUTE_REPARSE_POINT;
    tree.AddFile(tree.root, L"removed", 3);
    tree.AddFile(tree.root, L"there", 3);
    EXPECT_EQ(Write(), HashOfAbc + std::string(" *there\n"));
}

// As sha256sum writes and reads them.
TEST_F(Sha256SumWriterTest, NamesThatWouldBreakTheLineAreEscaped) {
    EXPECT_EQ(Line(L"a/b"), HashOfAbc + std::string(" *a/b\n"));
    EXPECT_EQ(Line(L"a\\b"), "\\" + std::string(HashOfAbc) + " *a\\\\b\n");
    EXPECT_EQ(Line(L"a\nb"), "\\" + std::string(HashOfAbc) + " *a\\nb\n");
    EXPECT_EQ(Line(L"a\r"), "\\" + std::string(HashOfAbc) + " *a\\r\n");
}

TEST_F(Sha256SumWriterTest, ALongPathIsWrittenWhole) {
    const std::wstring path(32'000, 0x20AC);
    std::string encoded;
    for (size_t i = 0; i < path.size(); ++i)
        encoded += "\xE2\x82\xAC";
    EXPECT_EQ(Line(path), HashOfAbc + std::string(" *") + encoded + "\n");
}
