#include "console/Options.h"

#include <gtest/gtest.h>

#include <array>

#include "console/Errors.h"

using Console::Arguments;
using Console::Option;
using Console::Options;

namespace {

constexpr std::array<Option, 4> Known = {{
    {"output", 'o', true},
    {"quiet", 'q'},
    {"preset", 0, true},
    {"open"},
}};

// The message of the error that these arguments cause.
std::string ErrorOf(const Arguments& arguments) {
    try {
        const Options options(arguments, Known);
    } catch (const Console::UsageError& error) {
        EXPECT_EQ(error.code, Console::ExitCode::WrongUsage);
        return error.what();
    }
    return "none";
}

}  // namespace

TEST(ConsoleOptions, OperandsKeepTheirOrderAmongOptions) {
    const Options options({L"one", L"-q", L"two", L"--output", L"file", L"three"}, Known);
    EXPECT_EQ(options.operands, (std::vector<std::wstring>{L"one", L"two", L"three"}));
    EXPECT_TRUE(options.Has("quiet"));
    EXPECT_EQ(options.Value("output"), L"file");
    EXPECT_FALSE(options.Has("open"));
}

TEST(ConsoleOptions, TakesAValueInTheSameArgument) {
    const Options options({L"--output=a=b", L"--preset="}, Known);
    EXPECT_EQ(options.Value("output"), L"a=b");
    EXPECT_EQ(options.Value("preset"), L"");
    EXPECT_EQ(Options({L"-ofile"}, Known).Value("output"), L"file");
    EXPECT_EQ(Options({L"-qofile"}, Known).Value("output"), L"file");
}

TEST(ConsoleOptions, AHyphenIsAnOperandOrAValue) {
    EXPECT_EQ(Options({L"-"}, Known).operands, std::vector<std::wstring>{L"-"});
    EXPECT_EQ(Options({L"-o", L"-"}, Known).Value("output"), L"-");
}

TEST(ConsoleOptions, TwoHyphensEndTheOptions) {
    const Options options({L"-q", L"--", L"--open", L"-x", L"a"}, Known);
    EXPECT_EQ(options.operands, (std::vector<std::wstring>{L"--open", L"-x", L"a"}));
    EXPECT_FALSE(options.Has("open"));
}

TEST(ConsoleOptions, TheLastValueCounts) {
    EXPECT_EQ(Options({L"-o", L"a", L"--output=b"}, Known).Value("output"), L"b");
}

TEST(ConsoleOptions, ValuesAndOperandsMayHoldAnyUnits) {
    const std::wstring odd = {L'a', 0xD83D, L'b'};
    const Options options({odd, L"-o", odd, L"-o\u20AC"}, Known);
    EXPECT_EQ(options.operands, std::vector<std::wstring>{odd});
    EXPECT_EQ(options.Value("output"), L"\u20AC");
    EXPECT_EQ(Options({L"-o", odd}, Known).Value("output"), odd);
}

TEST(ConsoleOptions, EachParseStartsAnew) {
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(ErrorOf({L"-qx", L"a"}), "there is no option '-x' here");
        EXPECT_EQ(Options({L"a", L"-q"}, Known).operands.size(), 1u);
    }
}

TEST(ConsoleOptions, NamesTheOptionThatIsWrong) {
    EXPECT_EQ(ErrorOf({L"a", L"--bogus"}), "there is no option '--bogus' here");
    EXPECT_EQ(ErrorOf({L"--bogus=x", L"a"}), "there is no option '--bogus=x' here");
    EXPECT_EQ(ErrorOf({L"-x"}), "there is no option '-x' here");
    EXPECT_EQ(ErrorOf({L"a", L"-o"}), "the option '-o' needs a value");
    EXPECT_EQ(ErrorOf({L"--output"}), "the option '--output' needs a value");
    EXPECT_EQ(ErrorOf({L"--open=x"}), "the option '--open=x' takes no value");
    EXPECT_EQ(ErrorOf({}), "none");
}
