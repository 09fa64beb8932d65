#include "console/presets/JsonDeserializer.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "MessageOf.h"
#include "console/presets/JsonText.h"
#include "console/presets/PresetJson.h"
#include "settings/Preset.h"
#include "support/Random.h"
#include "support/settings/RecordFields.h"

using Console::FieldsOf;
using Console::SetFields;
using nlohmann::json;

namespace {

// The message with which these fields are refused; the preset must not have changed.
std::string Refusal(const json& fields, const std::string& path = {}) {
    Preset preset(L"key");
    const std::vector<std::wstring> before = TextsOf(preset);
    const std::string message = MessageOf([&] { SetFields(preset, fields, path); });
    EXPECT_EQ(TextsOf(preset), before) << fields;
    return message;
}

json NewFields() {
    return FieldsOf(Preset(L"key"));
}

struct Row {
    const char* fields;
    const char* message;
};

}  // namespace

TEST(JsonDeserializer, ReadsWhatTheSerializerWrites) {
    Preset preset(L"key");
    preset.Get(Preset::Name) = L"\u00FC\xD83D\xDE00";
    preset.Get(Preset::Position) = -7;
    preset.Get(Format::ListStyle) = ListStyle::Html;
    preset.Get(Display::IndentSize) = UINT32_MAX;
    preset.Get(Columns::FolderEnabled, 11) = true;
    std::swap(preset.Get(Columns::FolderColumns, 0), preset.Get(Columns::FolderColumns, 11));
    preset.Get(Filter::ExcludedFolders) = {L"one", L"two"};
    preset.Get(Sorting::FileSortOrder, 6) = SortOrder::Descending;
    Preset again(L"again");
    SetFields(again, FieldsOf(preset));
    EXPECT_EQ(TextsOf(again), TextsOf(preset));
}

TEST(JsonDeserializer, FieldsThatAreMissingKeepTheirValues) {
    Preset preset(L"key");
    preset.Get(Preset::Name) = L"Before";
    preset.Get(Filter::ExcludedFolders) = {L"kept"};
    SetFields(preset, json::parse(R"({"Filter":{"CustomSearchPattern":"*.txt"},"Saving":{}})"));
    EXPECT_EQ(preset.Get(Preset::Name), L"Before");
    EXPECT_EQ(preset.Get(Filter::ExcludedFolders), std::vector<std::wstring>{L"kept"});
    EXPECT_EQ(preset.Get(Filter::CustomSearchPattern), L"*.txt");
}

TEST(JsonDeserializer, AnEmptyListEmptiesTheField) {
    Preset preset(L"key");
    SetFields(preset, json::parse(R"({"Filter":{"ExcludedFolders":[]}})"));
    EXPECT_TRUE(preset.Get(Filter::ExcludedFolders).empty());
}

TEST(JsonDeserializer, RefusesWhatDoesNotFitWithThePathOfTheField) {
    const Row rows[] = {
        {"[]", "expected an object"},
        {R"({"name":"x"})", "name: there is no such field"},
        {R"({"Key":"x"})", "Key: there is no such field"},
        {R"({"Format":{"Style":1}})", "Format.Style: there is no such field"},
        {R"({"":1})", "there is no such field"},
        {R"({"Format":[]})", "Format: expected an object"},
        {R"({"Format":null})", "Format: expected an object"},
        {R"({"Name":1})", "Name: expected a text"},
        {R"({"Name":null})", "Name: expected a text"},
        {R"({"Name":["x"]})", "Name: expected a text"},
        {R"({"Name":"a\u0000b"})", "Name: a text must not contain the character NUL"},
        {R"({"Format":{"ListStyle":"Pdf"}})", "Format.ListStyle: expected one of Text, Html"},
        {R"({"Format":{"ListStyle":"html"}})", "Format.ListStyle: expected one of Text, Html"},
        {R"({"Format":{"ListStyle":1}})", "Format.ListStyle: expected one of Text, Html"},
        {R"({"Format":{"EnableUtf8":1}})", "Format.EnableUtf8: expected true or false"},
        {R"({"Format":{"EnableUtf8":"true"}})", "Format.EnableUtf8: expected true or false"},
        {R"({"Display":{"IndentSize":-1}})",
         "Display.IndentSize: expected a whole number from 0 to 4294967295"},
        {R"({"Display":{"IndentSize":4294967296}})",
         "Display.IndentSize: expected a whole number from 0 to 4294967295"},
        {R"({"Display":{"IndentSize":1.5}})",
         "Display.IndentSize: expected a whole number from 0 to 4294967295"},
        {R"({"Display":{"IndentSize":1.0}})",
         "Display.IndentSize: expected a whole number from 0 to 4294967295"},
        {R"({"Display":{"IndentSize":"1"}})",
         "Display.IndentSize: expected a whole number from 0 to 4294967295"},
        {R"({"Display":{"IndentSize":99999999999999999999}})",
         "Display.IndentSize: expected a whole number from 0 to 4294967295"},
        {R"({"Position":2147483648})", "Position: expected a whole number from -2147483648 to 2147483647"},
        {R"({"Position":-2147483649})", "Position: expected a whole number from -2147483648 to 2147483647"},
        {R"({"Position":true})", "Position: expected a whole number from -2147483648 to 2147483647"},
        {R"({"Filter":{"PresetSearchPattern":9}})",
         "Filter.PresetSearchPattern: expected a whole number from 0 to 8"},
        {R"({"Filter":{"PresetSearchPattern":-1}})",
         "Filter.PresetSearchPattern: expected a whole number from 0 to 8"},
        {R"({"Filter":{"ExcludedFolders":"x"}})", "Filter.ExcludedFolders: expected an array of texts"},
        {R"({"Filter":{"ExcludedFolders":["x",1]}})", "Filter.ExcludedFolders[1]: expected a text"},
        {R"({"Filter":{"ExcludedFolders":["x",""]}})",
         "Filter.ExcludedFolders[1]: the text must not be empty"},
        {R"({"Columns":{"FolderEnabled":true}})", "Columns.FolderEnabled: expected an array of 12 values"},
        {R"({"Columns":{"FileEnabled":[true]}})", "Columns.FileEnabled: expected an array of 11 values"},
        {R"({"Columns":{"FileEnabled":[true,true,true,true,true,true,true,true,true,true,true,true]}})",
         "Columns.FileEnabled: expected an array of 11 values"},
        {R"({"Columns":{"FileColumns":[]}})", "Columns.FileColumns: expected an array of 11 values"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Refusal(json::parse(row.fields)), row.message) << row.fields;
}

TEST(JsonDeserializer, APathPrecedesTheField) {
    EXPECT_EQ(Refusal(json::parse(R"({"Format":{"x":1}})"), "presets[3]"),
              "presets[3].Format.x: there is no such field");
    EXPECT_EQ(Refusal(1, "presets[3]"), "presets[3]: expected an object");
    EXPECT_EQ(Refusal(json::parse(R"({"Filter":{"PresetSearchPattern":9}})"), "presets[3]"),
              "presets[3].Filter.PresetSearchPattern: expected a whole number from 0 to 8");
}

TEST(JsonDeserializer, NamesTheElementThatDoesNotFit) {
    json fields = NewFields();
    fields["Columns"]["FolderEnabled"][11] = 1;
    EXPECT_EQ(Refusal(fields), "Columns.FolderEnabled[11]: expected true or false");

    fields = NewFields();
    fields["Columns"]["FolderColumns"][3] = "Filename";
    EXPECT_EQ(Refusal(fields),
              "Columns.FolderColumns[3]: expected one of Number, Name, Path, PathAndName, Size, Attributes, "
              "TimeCreated, LastTimeAccessed, LastTimeWritten, NumberOfFolders, NumberOfFiles, "
              "NumberOfFoldersAndFiles");
}

TEST(JsonDeserializer, RefusesAColumnOrASortKeyThatOccursTwice) {
    for (const auto& [section, name, last] :
         {std::tuple("Columns", "FolderColumns", 11), std::tuple("Columns", "FileColumns", 10),
          std::tuple("Sorting", "FolderSortKeys", 8), std::tuple("Sorting", "FileSortKeys", 6)}) {
        json fields = NewFields();
        json& array = fields[section][name];
        array[static_cast<size_t>(last)] = array[0];
        EXPECT_EQ(Refusal(fields), std::string(section) + "." + name + "[" + std::to_string(last) + "]: '" +
                                       array[0].get<std::string>() + "' occurs twice");
    }
}

TEST(JsonDeserializer, AnOrderMayOccurOften) {
    Preset preset(L"key");
    SetFields(preset, {{"Sorting", {{"FileSortOrder", json::array_t(7, "Descending")}}}});
    for (size_t i = 0; i < 7; ++i)
        EXPECT_EQ(preset.Get(Sorting::FileSortOrder, i), SortOrder::Descending);
}
