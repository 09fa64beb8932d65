#include "console/presets/PresetFile.h"

#include <gtest/gtest.h>

#include "MessageOf.h"
#include "support/settings/RecordFields.h"

using Console::FormatPresetFile;
using Console::ParsePresetFile;

namespace {

std::string File(const std::string& presets) {
    return R"({"format":"tamblewick-presets","version":1,"presets":)" + presets + "}";
}

std::string Refusal(const std::string& text) {
    return MessageOf([&] { ParsePresetFile(text); });
}

}  // namespace

TEST(PresetFile, BeginsWithFormatAndVersionAndListsThePresets) {
    Preset first(L"abc");
    first.Get(Preset::Name) = L"\u00FCber";
    first.Get(Preset::Position) = 2;
    const Preset second(L"def");
    const Preset* const presets[] = {&first, &second};
    const std::string text = FormatPresetFile(presets);
    EXPECT_TRUE(
        text.starts_with("{\n"
                         "  \"format\": \"tamblewick-presets\",\n"
                         "  \"version\": 1,\n"
                         "  \"presets\": [\n"
                         "    {\n"
                         "      \"Key\": \"abc\",\n"
                         "      \"Name\": \"\xC3\xBC"
                         "ber\",\n"
                         "      \"Position\": 2,\n"
                         "      \"Format\": {\n"
                         "        \"ListStyle\": \"Text\",\n"))
        << text;
    EXPECT_TRUE(text.ends_with("\n}\n")) << text;
    EXPECT_EQ(ParsePresetFile(text).size(), 2u);
}

TEST(PresetFile, NoPresetsAreAFileToo) {
    EXPECT_EQ(FormatPresetFile({}),
              "{\n  \"format\": \"tamblewick-presets\",\n  \"version\": 1,\n  \"presets\": []\n}\n");
    EXPECT_TRUE(ParsePresetFile(FormatPresetFile({})).empty());
}

TEST(PresetFile, KeyAndPositionAreIgnoredWhateverTheyAre) {
    for (const char* preset : {R"({"Key":"abc","Position":7,"Name":"N"})",
                               R"({"Key":[1],"Position":"x","Name":"N"})", R"({"Name":"N"})"}) {
        const std::vector<Preset> presets = ParsePresetFile(File("[" + std::string(preset) + "]"));
        ASSERT_EQ(presets.size(), 1u);
        EXPECT_EQ(presets[0].Key(), L"");
        EXPECT_EQ(presets[0].Get(Preset::Position), 0);
        EXPECT_EQ(presets[0].Get(Preset::Name), L"N");
    }
}

TEST(PresetFile, FieldsThatAreMissingAreThoseOfANewPreset) {
    Preset fresh(L"");
    std::vector<Preset> presets = ParsePresetFile(File("[{},{\"Format\":{}}]"));
    ASSERT_EQ(presets.size(), 2u);
    EXPECT_EQ(TextsOf(presets[0]), TextsOf(fresh));
    EXPECT_EQ(TextsOf(presets[1]), TextsOf(fresh));
}

TEST(PresetFile, RefusesWhatIsNoPresetFile) {
    const std::pair<std::string, const char*> rows[] = {
        {"[]", "expected an object"},
        {"{}", "format: the field is missing"},
        {R"({"format":"other"})", "format: expected 'tamblewick-presets'"},
        {R"({"format":1})", "format: expected 'tamblewick-presets'"},
        {R"({"format":"tamblewick-presets"})", "version: the field is missing"},
        {R"({"format":"tamblewick-presets","version":2})", "version: expected 1"},
        {R"({"format":"tamblewick-presets","version":"1"})", "version: expected 1"},
        {R"({"format":"tamblewick-presets","version":1})", "presets: the field is missing"},
        {R"({"format":"tamblewick-presets","version":1,"presets":[],"more":0})",
         "more: there is no such field"},
        {File("{}"), "presets: expected an array"},
        {File("[{},1]"), "presets[1]: expected an object"},
        {File(R"([{"Format":{"ListStyle":"x"}}])"),
         "presets[0].Format.ListStyle: expected one of Text, Html"},
        {File(R"([{"Name":"a","Name":"b"}])"), "presets[0].Name: the field occurs twice"},
    };
    for (const auto& [text, message] : rows)
        EXPECT_EQ(Refusal(text), message) << text;
}

TEST(PresetFile, AThousandPresetsAreTheMost) {
    std::string list = "[{}";
    for (int i = 1; i < 1000; ++i)
        list += ",{}";
    EXPECT_EQ(ParsePresetFile(File(list + "]")).size(), 1000u);
    EXPECT_EQ(Refusal(File(list + ",{}]")), "presets: a file can have at most 1000 presets");
}
