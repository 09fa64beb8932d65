#include "writers/WriteList.h"

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "support/TempFolder.h"
#include "support/lists/ListSupport.h"

namespace {

using TestSupport::TempFolder;

ListPreset Names() {
    ListPreset preset;
    preset.Folders({FolderColumn::Name}).Files({FileColumn::Filename});
    return preset;
}

bool IsPage(const std::string& list) {
    return list.rfind("<!DOCTYPE html>\r\n", 0) == 0;
}

TEST(WriteList, WritesHtmlForItsStyleAndTextForAnyOther) {
    const ScanTree tree;
    EXPECT_TRUE(IsPage(ListOf(Names().Style(ListStyle::Html), tree)));
    const std::string text = ListOf(Names().Style(ListStyle::Text), tree);
    EXPECT_EQ(text.rfind("Tamblewick 4.0.1\r\n", 0), 0u);
    EXPECT_EQ(ListOf(Names().Style(static_cast<ListStyle>(2)), tree), text);
    EXPECT_EQ(ListOf(Names().Style(static_cast<ListStyle>(UINT32_MAX)), tree), text);
}

TEST(WriteList, TheMarkIsAllThatUtf8AddsToText) {
    ScanTree tree;
    tree.AddFile(tree.root, L"\x00E4\x20AC.txt");
    const std::string plain = ListOf(Names().Utf8(false), tree);
    EXPECT_EQ(ListOf(Names().Utf8(true), tree), "\xEF\xBB\xBF" + plain);
    EXPECT_NE(plain.find("\xC3\xA4\xE2\x82\xAC.txt\r\n"), std::string::npos);
}

TEST(WriteList, TheMarkAndTwoLinesAreAllThatUtf8AddsToHtml) {
    ScanTree tree;
    tree.AddFile(tree.root, L"\x00E4\x20AC.txt");
    std::string declared = ListOf(Names().Style(ListStyle::Html).Utf8(true), tree);
    const std::string lines = Lines({
        "\t<meta charset=\"utf-8\">",
        "\t<meta name=\"viewport\" content=\"width=device-width, initial-scale=1.0\">",
    });
    const size_t place = declared.find(lines);
    ASSERT_NE(place, std::string::npos);
    declared.erase(place, lines.size());
    EXPECT_EQ(declared, "\xEF\xBB\xBF" + ListOf(Names().Style(ListStyle::Html).Utf8(false), tree));
}

TEST(WriteList, NamesMayHoldAnyUnits) {
    ScanTree tree;
    std::wstring pair;
    pair += static_cast<wchar_t>(0xD83D);
    pair += static_cast<wchar_t>(0xDE00);
    tree.AddFile(tree.root, pair);
    tree.AddFile(tree.root, pair.substr(1));
    tree.AddFile(tree.root, pair.substr(0, 1));
    const std::string list = ListOf(Names(), tree);
    const std::string rows = Lines({"\xF0\x9F\x98\x80", "\xED\xB8\x80", "\xF0\x91\xA0\x80"});
    ASSERT_GE(list.size(), rows.size());
    EXPECT_EQ(list.substr(list.size() - rows.size()), rows);
}

TEST(WriteList, ReplacesAnOlderList) {
    const TempFolder folder;
    folder.AddFile(L"list.txt", std::string(100000, 'x'));
    WriteList(Names(), ScanTree().root, folder.Path(L"list.txt").c_str());
    const std::string list = folder.Read(L"list.txt").value_or("no file");
    EXPECT_EQ(list.rfind("Tamblewick 4.0.1\r\n", 0), 0u);
    EXPECT_EQ(list.find('x'), std::string::npos);
}

TEST(WriteList, PassesOverAPathThatCannotBeWritten) {
    const TempFolder folder;
    folder.AddFolder(L"Sub");
    ScanTree tree;
    tree.AddFile(tree.AddFolder(tree.root, L"A"), L"a.txt");
    for (const ListStyle style : {ListStyle::Text, ListStyle::Html}) {
        const ListPreset preset = Names().Style(style).Utf8().Statistics();
        EXPECT_NO_THROW(WriteList(preset, tree.root, folder.Path(L"Missing\\list.txt").c_str()));
        EXPECT_NO_THROW(WriteList(preset, tree.root, folder.Path(L"Sub").c_str()));
        EXPECT_NO_THROW(WriteList(preset, tree.root, L""));
    }
    EXPECT_FALSE(folder.Exists(L"Missing"));
}

// The exception is a plain one, and the older list is still whole.
TEST(WriteList, RefusesValuesOutsideTheirEnumerationBeforeItTouchesTheFile) {
    const ListPreset presets[] = {
        Names().Folders({static_cast<FolderColumn>(FolderColumnCount)}),
        Names().Files({static_cast<FileColumn>(FileColumnCount)}),
        Names().Sizes(static_cast<SizeStyle>(7)),
    };
    const TempFolder folder;
    folder.AddFile(L"list", std::string("older list"));
    for (ListPreset preset : presets) {
        for (const ListStyle style : {ListStyle::Text, ListStyle::Html}) {
            preset.Style(style);
            try {
                WriteList(preset, ScanTree().root, folder.Path(L"list").c_str());
                ADD_FAILURE() << "no exception";
            } catch (const std::exception& exception) {
                EXPECT_TRUE(typeid(exception) == typeid(std::exception));
            }
            EXPECT_EQ(folder.Read(L"list"), "older list");
            EXPECT_THROW(WriteList(preset, ScanTree().root, folder.Path(L"new").c_str()), std::exception);
            EXPECT_FALSE(folder.Exists(L"new"));
        }
    }
}

}  // namespace
