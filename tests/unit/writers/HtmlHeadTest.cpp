#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/lists/ListSupport.h"

namespace {

// The style sheet as written to the disk, but for the CR before each line feed.
constexpr std::string_view StyleSheet = R"(
	<style type="text/css">
		body
		{
			margin: 16px; 16px; 16px; 16px;
			font-size: 11px;
			font-style: normal;
			font-variant: normal;
			font-family: Verdana, sans-serif;
			color: #FFFFFF;
			background-color: #003366;
		}

		table
		{
			font-size: 11px;
			font-style: normal;
			font-variant: normal;
			font-family: Verdana, sans-serif;
			margin-top: 4px;
			border-style: none;
			border-width: 2px;
			border-spacing: 2px;
			white-space: nowrap;
		}

		table.folders
		{
			font-weight: normal;
		}

		table.files
		{
			font-style: normal;
		}

		th
		{
			text-align: left;
			padding-top: 4px;
			padding-left: 8px;
			padding-right: 8px;
			padding-bottom: 4px;
			background-color: #004477;
		}

		td
		{
			text-align: left;
			padding-top: 4px;
			padding-left: 8px;
			padding-right: 8px;
			padding-bottom: 4px;
		}

		.td-right
		{
			text-align: right
		}

		.header
		{
			font-size: 18px;
			font-weight: bold;
		}

		.summary
		{
			font-size: 12px;
			font-style: normal;
		}
	</style>
)";

std::string WithCarriageReturns(std::string_view text) {
    std::string result;
    for (const char c : text)
        result.append(c == '\n' ? "\r" : "").push_back(c);
    return result;
}

// Everything up to and with the line of the opening tag of the body.
std::string HeadOf(const Preset& preset) {
    const std::string list = ListOf(preset, ScanTree());
    const std::string_view opening = "<body>\r\n";
    const size_t place = list.find(opening);
    return place == std::string::npos ? "no body in: " + list : list.substr(0, place + opening.size());
}

const std::string TitleAndStyle = "\t<title>Tamblewick 4.0.1</title>" + WithCarriageReturns(StyleSheet);

TEST(HtmlHead, DeclaresUtf8) {
    EXPECT_EQ(HeadOf(ListPreset().Style(ListStyle::Html).Utf8()),
              "\xEF\xBB\xBF" +
                  Lines({
                      "<!DOCTYPE html>",
                      "<html>",
                      "<head>",
                      "\t<meta charset=\"utf-8\">",
                      "\t<meta name=\"viewport\" content=\"width=device-width, initial-scale=1.0\">",
                  }) +
                  TitleAndStyle + Lines({"</head>", "<body>"}));
}

TEST(HtmlHead, WithoutUtf8GoesFromTheHeadToTheTitle) {
    EXPECT_EQ(HeadOf(ListPreset().Style(ListStyle::Html).Utf8(false)),
              Lines({"<!DOCTYPE html>", "<html>", "<head>"}) + TitleAndStyle + Lines({"</head>", "<body>"}));
}

}  // namespace
