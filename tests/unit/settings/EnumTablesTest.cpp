#include "settings/EnumTables.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "settings/Enumerations.h"

using MetaTypes::EnumRow;

namespace {

using Rows = std::vector<std::pair<std::string, uint32_t>>;

Rows RowsOf(const EnumRow* table) {
    Rows rows;
    for (; table->name; ++table)
        rows.emplace_back(table->name, table->value);
    return rows;
}

TEST(EnumTables, ListStyleHasTheWordsOfTheRegistryInTableOrder) {
    EXPECT_EQ(RowsOf(ListStyleNames), (Rows{{"Text", 0}, {"Html", 1}}));
}

TEST(EnumTables, SizeStyleHasTheWordsOfTheRegistryInTableOrder) {
    EXPECT_EQ(RowsOf(SizeStyleNames), (Rows{{"Dynamic", 0},
                                            {"Dynamic0", 1},
                                            {"Bytes", 2},
                                            {"KibiBytes", 3},
                                            {"MebiBytes", 4},
                                            {"GibiBytes", 5},
                                            {"TebiBytes", 6}}));
}

TEST(EnumTables, SaveLocationHasTheWordsOfTheRegistryInTableOrder) {
    EXPECT_EQ(RowsOf(SaveLocationNames), (Rows{{"Temporary", 0}, {"SamePath", 1}, {"Custom", 2}}));
}

TEST(EnumTables, OpenMethodHasTheWordsOfTheRegistryInTableOrder) {
    EXPECT_EQ(RowsOf(OpenMethodNames), (Rows{{"Default", 0}, {"Nothing", 1}, {"Custom", 2}}));
}

TEST(EnumTables, FolderColumnHasTheWordsOfTheRegistryInTableOrder) {
    EXPECT_EQ(RowsOf(FolderColumnNames), (Rows{{"Number", 0},
                                               {"Name", 2},
                                               {"Path", 1},
                                               {"PathAndName", 3},
                                               {"Size", 4},
                                               {"Attributes", 5},
                                               {"TimeCreated", 6},
                                               {"LastTimeAccessed", 7},
                                               {"LastTimeWritten", 8},
                                               {"NumberOfFolders", 9},
                                               {"NumberOfFiles", 10},
                                               {"NumberOfFoldersAndFiles", 11}}));
}

TEST(EnumTables, FileColumnHasTheWordsOfTheRegistryInTableOrder) {
    EXPECT_EQ(RowsOf(FileColumnNames), (Rows{{"Number", 0},
                                             {"Filename", 2},
                                             {"Path", 1},
                                             {"PathAndFilename", 3},
                                             {"FilenameWithoutExtension", 4},
                                             {"Extension", 5},
                                             {"Size", 6},
                                             {"Attributes", 7},
                                             {"TimeCreated", 8},
                                             {"LastTimeAccessed", 9},
                                             {"LastTimeWritten", 10}}));
}

TEST(EnumTables, FolderSortKeyHasTheWordsOfTheRegistryInTableOrder) {
    EXPECT_EQ(RowsOf(FolderSortKeyNames), (Rows{{"Path", 0},
                                                {"Name", 1},
                                                {"Size", 2},
                                                {"TimeCreated", 3},
                                                {"LastTimeAccessed", 4},
                                                {"LastTimeWritten", 5},
                                                {"NumberOfFolders", 6},
                                                {"NumberOfFiles", 7},
                                                {"NumberOfFoldersAndFiles", 8}}));
}

TEST(EnumTables, FileSortKeyHasTheWordsOfTheRegistryInTableOrder) {
    EXPECT_EQ(RowsOf(FileSortKeyNames), (Rows{{"Path", 0},
                                              {"Name", 1},
                                              {"Extension", 2},
                                              {"Size", 3},
                                              {"TimeCreated", 4},
                                              {"LastTimeAccessed", 5},
                                              {"LastTimeWritten", 6}}));
}

TEST(EnumTables, SortOrderHasTheWordsOfTheRegistryInTableOrder) {
    EXPECT_EQ(RowsOf(SortOrderNames), (Rows{{"Ascending", 0}, {"Descending", 1}}));
}

TEST(EnumTables, EveryNumberHasOneNameOfItsOwn) {
    const std::pair<const EnumRow*, uint32_t> Tables[] = {
        {ListStyleNames, 2},     {SizeStyleNames, 7},     {SaveLocationNames, 3},
        {OpenMethodNames, 3},    {FolderColumnNames, 12}, {FileColumnNames, 11},
        {FolderSortKeyNames, 9}, {FileSortKeyNames, 7},   {SortOrderNames, 2},
    };
    for (const auto& [table, count] : Tables) {
        std::set<std::string> names;
        std::set<uint32_t> values;
        for (const auto& [name, value] : RowsOf(table)) {
            EXPECT_TRUE(names.insert(name).second) << name;
            EXPECT_TRUE(values.insert(value).second) << name;
            EXPECT_LT(value, count) << name;
        }
        EXPECT_EQ(values.size(), count) << table->name;
    }
}

}  // namespace
