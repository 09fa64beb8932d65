#include "console/presets/JsonSerializer.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "console/presets/PresetJson.h"
#include "settings/Preset.h"
#include "settings/metatypes/MakeRow.h"

using MetaTypes::EndOfTable;
using MetaTypes::FieldRow;
using MetaTypes::MakeRow;
using nlohmann::ordered_json;

TEST(JsonSerializer, WritesANewPresetAsTheRegistryHasIt) {
    EXPECT_EQ(
        Console::FieldsOf(Preset(L"key")).dump(),
        R"({"Name":"New Preset","Position":0,)"
        R"("Format":{"ListStyle":"Text","EnableUtf8":true},)"
        R"("Display":{"SearchSubfolders":false,"SearchHidden":false,"ShowStatistics":false,)"
        R"("ShowFlatStyle":false,"IndentSize":1,"SizeStyle":"Dynamic"},)"
        R"("Columns":{"ShowHeaders":true,)"
        R"("FolderColumns":["PathAndName","Number","Path","Name","Size","Attributes","TimeCreated",)"
        R"("LastTimeAccessed","LastTimeWritten","NumberOfFolders","NumberOfFiles","NumberOfFoldersAndFiles"],)"
        R"("FolderEnabled":[true,false,false,false,false,false,false,false,false,false,false,false],)"
        R"("FileColumns":["PathAndFilename","Number","Path","Filename","FilenameWithoutExtension",)"
        R"("Extension","Size","Attributes","TimeCreated","LastTimeAccessed","LastTimeWritten"],)"
        R"("FileEnabled":[true,false,false,false,false,false,false,false,false,false,false]},)"
        R"("Filter":{"PresetSearchPattern":0,"CustomSearchPattern":"*",)"
        R"("ExcludedFolders":["?:\\System Volume Information"]},)"
        R"("Saving":{"SaveLocation":"Temporary","CustomFolderPath":"","OverwriteExisting":false},)"
        R"("Opening":{"OpenMethod":"Default","CustomProgramPath":""},)"
        R"("Sorting":{"SortDigitsAsNumbers":false,)"
        R"("FolderSortKeys":["Path","Name","Size","TimeCreated","LastTimeAccessed","LastTimeWritten",)"
        R"("NumberOfFolders","NumberOfFiles","NumberOfFoldersAndFiles"],)"
        R"("FolderSortOrder":["Ascending","Ascending","Descending","Ascending","Ascending","Ascending",)"
        R"("Ascending","Ascending","Ascending"],)"
        R"("FileSortKeys":["Path","Name","Extension","Size","TimeCreated","LastTimeAccessed","LastTimeWritten"],)"
        R"("FileSortOrder":["Ascending","Ascending","Ascending","Descending","Ascending","Ascending",)"
        R"("Ascending"]}})");
}

TEST(JsonSerializer, WritesNumbersAndTextsOfAnyValue) {
    Preset preset(L"key");
    preset.Get(Preset::Name) = L"\u00FC \"\\\n\xD83D\xDE00";
    preset.Get(Preset::Position) = INT32_MIN;
    preset.Get(Display::IndentSize) = UINT32_MAX;
    preset.Get(Filter::ExcludedFolders).clear();
    const ordered_json fields = Console::FieldsOf(preset);
    EXPECT_EQ(fields["Name"], "\xC3\xBC \"\\\n\xF0\x9F\x98\x80");
    EXPECT_EQ(fields["Position"].dump(), "-2147483648");
    EXPECT_EQ(fields["Display"]["IndentSize"].dump(), "4294967295");
    EXPECT_EQ(fields["Filter"]["ExcludedFolders"].dump(), "[]");
}

TEST(JsonSerializer, HalfASurrogatePairBecomesAReplacementCharacter) {
    Preset preset(L"key");
    preset.Get(Preset::Name) = L"a\xD800z";
    preset.Get(Filter::ExcludedFolders) = {L"\xDC00"};
    const ordered_json fields = Console::FieldsOf(preset);
    EXPECT_EQ(fields["Name"], "a\xEF\xBF\xBDz");
    EXPECT_EQ(fields["Filter"]["ExcludedFolders"][0], "\xEF\xBF\xBD");
}

TEST(JsonSerializer, LeavesOutWhatHasNoWord) {
    Preset preset(L"key");
    preset.Get(Format::ListStyle) = static_cast<ListStyle>(7);
    preset.Get(Columns::FolderColumns, 11) = static_cast<FolderColumn>(99);
    ordered_json fields;
    Console::JsonSerializer serializer(fields);
    EXPECT_FALSE(preset.Serialize(serializer));
    EXPECT_EQ(fields["Format"].dump(), R"({"EnableUtf8":true})");
    EXPECT_FALSE(fields["Columns"].contains("FolderColumns"));
    EXPECT_TRUE(fields["Columns"].contains("FolderEnabled"));
}

TEST(JsonSerializer, LeavesOutAFieldOfATypeThatNoPresetHas) {
    struct Record {
        double number;
        bool flag;
    } record = {1.5, true};
    const FieldRow table[] = {MakeRow<double>("Number", offsetof(Record, number)),
                              MakeRow<bool>("Flag", offsetof(Record, flag)), EndOfTable};
    ordered_json fields;
    EXPECT_FALSE(Console::JsonSerializer(fields).Serialize(table, &record));
    EXPECT_EQ(fields.dump(), R"({"Flag":true})");
}
