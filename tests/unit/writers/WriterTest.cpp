#include "writers/Writer.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"
#include "support/lists/ListSupport.h"
#include "writers/SizeFormat.h"

namespace {

TEST(Writer, SetsTheNumberFormatOfTheStream) {
    const TestSupport::TempFolder folder;
    const CellWriter writer(ListPreset(), folder.Path(L"list"));
    EXPECT_EQ(writer.stream.flags() & std::ios_base::floatfield, std::ios_base::fixed);
    EXPECT_TRUE(writer.stream.flags() & std::ios_base::showpoint);
    EXPECT_EQ(writer.stream.precision(), 1);
    EXPECT_EQ(writer.stream.exceptions(), std::ios_base::goodbit);
}

TEST(Writer, BeginsWithTheMarkIfThePresetAsksForIt) {
    EXPECT_EQ(Written(ListPreset().Utf8(true), [](Writer&) {}), "\xEF\xBB\xBF");
    EXPECT_EQ(Written(ListPreset().Utf8(false), [](Writer&) {}), "");
}

TEST(Writer, TextIsUtf8AndCountsArePlainDigits) {
    EXPECT_EQ(Written(
                  ListPreset(),
                  [](Writer& writer) {
                      writer.WriteText(L"\x00E4 ");
                      writer.stream << UINT64_MAX;
                      writer.WriteText({L"xyz", 2});
                      writer.EndLine();
                      writer.WriteLine(L"end");
                  }),
              "\xC3\xA4 18446744073709551615xy\r\nend\r\n");
}

TEST(Writer, EndOfLineBringsTheLineIntoTheFile) {
    const TestSupport::TempFolder folder;
    CellWriter writer(ListPreset(), folder.Path(L"list"));
    writer.WriteText(L"one");
    EXPECT_EQ(folder.Read(L"list"), "");
    writer.EndLine();
    EXPECT_EQ(folder.Read(L"list"), "one\r\n");
}

TEST(Writer, HoldsTheChoicesOfThePreset) {
    ListPreset preset;
    preset.Folders({FolderColumn::Name, FolderColumn::Size}).Files({FileColumn::Filename});
    Written(preset, [&](Writer& writer) {
        EXPECT_EQ(writer.folderColumns, MakeFolderColumns(preset));
        EXPECT_EQ(writer.fileColumns, MakeFileColumns(preset));
        EXPECT_EQ(writer.sizeWriter, MakeSizeWriter(SizeStyle::Dynamic));
    });
}

}  // namespace
