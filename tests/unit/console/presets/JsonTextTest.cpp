#include "console/presets/JsonText.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "MessageOf.h"

using Console::JsonError;
using Console::ParseJson;
using nlohmann::json;

namespace {

std::string Refusal(const std::string& text) {
    return MessageOf([&] { ParseJson(text); });
}

}  // namespace

TEST(JsonText, ReadsEveryKindOfValue) {
    const json value = ParseJson(R"({"a":[null,true,false,-1,18446744073709551615,1.5,"\u00fc\n"],"b":{}})");
    EXPECT_EQ(value, json({{"a", {nullptr, true, false, -1, 18446744073709551615u, 1.5, "\xC3\xBC\n"}},
                           {"b", json::object()}}));
}

TEST(JsonText, ReadsATextAfterAByteOrderMark) {
    EXPECT_EQ(ParseJson("\xEF\xBB\xBF{}"), json::object());
}

TEST(JsonText, NamesTheLineAndTheColumnOfAnError) {
    EXPECT_EQ(Refusal("{\n  \"a\": ?\n}"), "line 2, column 8: this is not valid JSON");
    EXPECT_EQ(Refusal("?"), "line 1, column 1: this is not valid JSON");
    EXPECT_EQ(Refusal(""), "line 1, column 1: this is not valid JSON");
    EXPECT_EQ(Refusal("[1,2"), "line 1, column 5: this is not valid JSON");
    EXPECT_EQ(Refusal("{} x"), "line 1, column 4: this is not valid JSON");
}

TEST(JsonText, RefusesWhatIsNoJson) {
    for (const std::string& text :
         {std::string("{'a':1}"), std::string("[1,]"), std::string("{\"a\":1,}"), std::string("[01]"),
          std::string("[NaN]"), std::string("// comment\n1"), std::string("\"\x01\""),
          std::string("\"a\0b\"", 5), std::string("{}\0", 3), std::string("\"open"), std::string("\"\\x\""),
          std::string("[1 2]"), std::string("tru"), std::string("{\"a\" 1}"), std::string("{1:2}"),
          std::string("]")})
        EXPECT_NE(Refusal(text).find(": this is not valid JSON"), std::string::npos) << text;
}

TEST(JsonText, RefusesTextThatIsNoUtf8) {
    for (const char* text :
         {"\"\xFF\"", "\"\xC3\"", "\"\xC0\xAF\"", "\"\xED\xA0\x80\"", "\"\xF4\x90\x80\x80\""})
        EXPECT_NE(Refusal(text).find(": this is not valid JSON"), std::string::npos) << text;
}

TEST(JsonText, RefusesEscapesOfHalfASurrogatePair) {
    for (const char* text :
         {R"("\ud800")", R"("\ud800x")", R"("\udc00")", R"("\ud800\ud800")", R"("\ud800\u0041")"})
        EXPECT_NE(Refusal(text).find(": this is not valid JSON"), std::string::npos) << text;
    EXPECT_EQ(ParseJson(R"("\ud83d\ude00")"), json("\xF0\x9F\x98\x80"));
}

TEST(JsonText, RefusesANumberThatIsTooLarge) {
    EXPECT_EQ(Refusal("[1,\n1e400]"), "line 2, column 5: this is not valid JSON");
}

TEST(JsonText, RefusesAFieldThatOccursTwice) {
    EXPECT_EQ(Refusal(R"({"a":1,"a":1})"), "a: the field occurs twice");
    EXPECT_EQ(Refusal(R"({"list":[{},{"Format":{"x":1,"y":2,"x":3}}]})"),
              "list[1].Format.x: the field occurs twice");
    EXPECT_EQ(ParseJson(R"([{"a":1},{"a":1}])").size(), 2u);
}

TEST(JsonText, ANameInAMessageIsShortAndInOneLine) {
    const std::string longName(70, 'n');
    EXPECT_EQ(Refusal("{\"" + longName + "\":1,\"" + longName + "\":1}"),
              std::string(60, 'n') + "...: the field occurs twice");
    EXPECT_EQ(Refusal(R"({"a\nb\u0000c":1,"a\nb\u0000c":1})"), "a?b?c: the field occurs twice");
    // A character is not cut in half.
    std::string umlauts = "x";
    for (int i = 0; i < 40; ++i)
        umlauts += "\xC3\xBC";
    EXPECT_EQ(Refusal("{\"" + umlauts + "\":1,\"" + umlauts + "\":1}"),
              umlauts.substr(0, 59) + "...: the field occurs twice");
}

TEST(JsonText, EightLevelsAreTheMost) {
    EXPECT_EQ(ParseJson("[[[[[[[[]]]]]]]]").size(), 1u);
    EXPECT_EQ(Refusal("[[[[[[[[[]]]]]]]]]"),
              "[0][0][0][0][0][0][0][0]: arrays and objects are nested too deeply");
    EXPECT_EQ(Refusal(R"({"a":[{"b":[{"c":[{"d":[{}]}]}]}]})"),
              "a[0].b[0].c[0].d[0]: arrays and objects are nested too deeply");
}

TEST(JsonText, AHundredMillionLevelsTakeNoTime) {
    EXPECT_NE(Refusal(std::string(100'000'000, '[')).find("nested too deeply"), std::string::npos);
}

TEST(JsonText, ManyFieldsAndElementsTakeTimeInProportion) {
    std::string object = "{";
    std::string array = "[";
    for (int i = 0; i < 300'000; ++i) {
        object += "\"f" + std::to_string(i) + "\":{},";
        array += "{},";
    }
    EXPECT_EQ(ParseJson(object + "\"end\":0}").size(), 300'001u);
    EXPECT_EQ(ParseJson(array + "{}]").size(), 300'001u);
}
