// Lists of very large trees. Each is made by a whole job, whose worker gets a stack too small for
// anything that grows with the tree.
#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "FakeWin.h"
#include "listmaker/ListMaker.h"
#include "support/Text.h"
#include "support/lists/ListSupport.h"

namespace {

constexpr wchar_t List[] = L"C:\\Lists\\List of Tree.txt";
constexpr wchar_t HtmlList[] = L"C:\\Lists\\List of Tree.html";

// As long as one exists, new threads start with this stack.
class SmallStacks {
public:
    SmallStacks() {
        pthread_attr_t attributes;
        pthread_getattr_default_np(&previous_);
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, 128 * 1024);
        EXPECT_EQ(pthread_setattr_default_np(&attributes), 0);
        pthread_attr_destroy(&attributes);
    }
    ~SmallStacks() {
        pthread_setattr_default_np(&previous_);
        pthread_attr_destroy(&previous_);
    }
    SmallStacks(const SmallStacks&) = delete;
    SmallStacks& operator=(const SmallStacks&) = delete;

private:
    pthread_attr_t previous_;
};

class LargeTrees : public testing::Test {
protected:
    LargeTrees() {
        FakeWin::SetLogging(false);
        FakeWin::AddFolder(L"C:\\Lists");
        preset.Headers(false)
            .Folders({FolderColumn::Name, FolderColumn::NumberOfFiles})
            .Files({FileColumn::Filename});
        preset.Get(Display::SearchSubfolders) = true;
        preset.Get(Saving::SaveLocation) = SaveLocation::Custom;
        preset.Get(Saving::CustomFolderPath) = L"C:\\Lists";
        preset.Get(Opening::OpenMethod) = OpenMethod::Nothing;
    }
    ~LargeTrees() override { FakeWin::SetLogging(true); }

    // Lists C:\Tree; gives the bytes of the file, without the title lines of a text.
    std::string ListTree() {
        {
            const SmallStacks stacks;
            ListMaker(preset, L"C:\\Tree").Start();
        }
        const bool text = FakeWin::EntryExists(List);
        const std::string list = FakeWin::Contents(text ? List : HtmlList).value_or("no list");
        constexpr std::string_view title =
            "Tamblewick 4.0.1\r\n\r\nSummary of path: C:\\Tree\r\nCreated: 2024-03-09 17:05:09\r\n\r\n";
        return list.starts_with(title) ? list.substr(title.length()) : list;
    }

    ListPreset preset;
};

size_t CountOf(std::string_view part, std::string_view text) {
    size_t count = 0;
    for (size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.length()))
        ++count;
    return count;
}

// Not EXPECT_EQ, which would print millions of characters that differ in one.
void ExpectSame(const std::string& list, const std::string& expected) {
    const auto [differs, unused] = std::ranges::mismatch(list, expected);
    const auto at = static_cast<size_t>(differs - list.begin());
    EXPECT_TRUE(list == expected) << list.length() << " bytes instead of " << expected.length()
                                  << ", the first difference at " << at << ": " << list.substr(at, 60);
}

// A folder in a folder, this many times, with a file in each.
constexpr size_t Levels = 4000;

void AddChain() {
    std::wstring path = L"C:\\Tree";
    for (size_t level = 0; level < Levels; ++level) {
        path += L"\\d";
        FakeWin::AddFile(path + L"\\f");
    }
}

TEST_F(LargeTrees, AChainOfFoldersGrouped) {
    AddChain();
    preset.Indent(1);
    std::string expected;
    for (size_t level = 0; level < Levels; ++level)
        expected += std::string(level, '\t') + "d\t1\r\n";
    for (size_t level = Levels; level > 0; --level)
        expected += std::string(level, '\t') + "f\r\n";
    ExpectSame(ListTree(), expected);
}

TEST_F(LargeTrees, AChainOfFoldersGroupedAsHtml) {
    AddChain();
    preset.Style(ListStyle::Html).Indent(0);
    const std::string list = ListTree();
    EXPECT_EQ(CountOf("<td>d</td>", list), Levels);
    EXPECT_EQ(CountOf("<td>f</td>", list), Levels);
}

TEST_F(LargeTrees, AChainOfFoldersFlat) {
    AddChain();
    preset.Flat().Folders({FolderColumn::PathAndName}).Files({FileColumn::PathAndFilename});
    std::string folders;
    std::string files;
    std::string path = "C:\\Tree";
    for (size_t level = 0; level < Levels; ++level) {
        path += "\\d";
        folders += path + "\r\n";
        files += path + "\\f\r\n";
    }
    ExpectSame(ListTree(), folders + "\r\n\r\n\r\n" + files);
}

// Names as long as a file system allows, and a path of more than ten thousand characters.
TEST_F(LargeTrees, LongNamesInALongPath) {
    constexpr int levels = 45;
    const std::wstring longest(255, L'n');
    std::wstring path = L"C:\\Tree";
    for (int level = 0; level < levels; ++level)
        path += L"\\" + longest;
    ASSERT_GT(path.length(), 10000u);
    FakeWin::AddFile(path + L"\\" + std::wstring(251, L'f') + L".txt");

    preset.Flat().Folders({FolderColumn::Name}).Files({FileColumn::PathAndFilename});
    std::string expected;
    for (int level = 0; level < levels; ++level)
        expected += std::string(255, 'n') + "\r\n";
    expected += "\r\n\r\n\r\n" + TestSupport::Utf8(path) + "\\" + std::string(251, 'f') + ".txt\r\n";
    ExpectSame(ListTree(), expected);
}

// Half folders and half files, which the file system gives in the opposite order.
TEST_F(LargeTrees, AFolderOf300000Entries) {
    constexpr int half = 150'000;
    constexpr int first = 1'000'000;
    for (int number = first + half - 1; number >= first; --number) {
        FakeWin::AddFolder(L"C:\\Tree\\d" + std::to_wstring(number));
        FakeWin::AddFile(L"C:\\Tree\\f" + std::to_wstring(number));
    }
    std::string expected;
    for (int number = first; number < first + half; ++number)
        expected += "d" + std::to_string(number) + "\t0\r\n";
    for (int number = first; number < first + half; ++number)
        expected += "f" + std::to_string(number) + "\r\n";
    ExpectSame(ListTree(), expected);
}

}  // namespace
