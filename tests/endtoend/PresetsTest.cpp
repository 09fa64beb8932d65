// The console companion as a person calls it: what it prints, where, and with which exit code.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "endtoend/Program.h"
#include "support/TestRegistry.h"

namespace {

using TestSupport::DwordValue;
using TestSupport::StringValue;

const std::wstring Root = L"Software\\Tamblewick";

// Twenty characters that take three bytes each in UTF-8.
const std::wstring LongName =
    L"\u4E00\u4E8C\u4E09\u56DB\u4E94\u516D\u4E03\u516B\u4E5D\u5341"
    L"\u7532\u4E59\u4E19\u4E01\u620A\u5DF1\u5E9A\u8F9B\u58EC\u7678";

struct Output {
    DWORD code = 99;
    std::string out;
    std::string error;
};

// A file that takes what a program prints. A pipe would not do: under Wine the desktop's own process, started
// by the first program that needs it, inherits the pipe and keeps it open after the program has ended.
class OutputFile {
public:
    OutputFile() {
        std::array<wchar_t, MAX_PATH> folder;
        std::array<wchar_t, MAX_PATH> path;
        GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
        GetTempFileNameW(folder.data(), L"out", 0, path.data());
        SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
        handle_ = CreateFileW(path.data(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_DELETE, &inherited,
                              CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile() { CloseHandle(handle_); }

    HANDLE Handle() const { return handle_; }

    // Everything that was printed, without carriage returns.
    std::string ReadAll() {
        SetFilePointer(handle_, 0, nullptr, FILE_BEGIN);
        std::string text;
        std::array<char, 4096> block;
        DWORD size = 0;
        while (ReadFile(handle_, block.data(), block.size(), &size, nullptr) && size != 0)
            text.append(block.data(), size);
        std::erase(text, '\r');
        return text;
    }

private:
    HANDLE handle_;
};

// Runs the program with these handles for its output and returns its exit code.
DWORD RunPresets(const std::wstring& arguments, HANDLE out, HANDLE error) {
    return TestSupport::RunProcess(L"\"" + EndToEnd::PathBeside(L"presets.exe") + L"\" " + arguments,
                                   {.output = out, .error = error});
}

Output RunPresets(const std::wstring& arguments) {
    OutputFile out;
    OutputFile error;
    Output output;
    output.code = RunPresets(arguments, out.Handle(), error.Handle());
    output.out = out.ReadAll();
    output.error = error.ReadAll();
    return output;
}

// A console of this process in the place of the one that it may have, and of its standard handles.
class Console {
public:
    Console() {
        for (const DWORD id : StandardHandles)
            before_.push_back(GetStdHandle(id));
        FreeConsole();
        EXPECT_TRUE(AllocConsole());
        SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
        handle_ = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              &inherited, OPEN_EXISTING, 0, nullptr);
    }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    ~Console() {
        CloseHandle(handle_);
        FreeConsole();
        for (size_t i = 0; i < before_.size(); ++i)
            SetStdHandle(StandardHandles[i], before_[i]);
    }

    HANDLE Handle() const { return handle_; }

    // A line of the screen without its blanks.
    std::wstring Line(SHORT number) const {
        std::array<wchar_t, 80> line = {};
        DWORD count = 0;
        EXPECT_TRUE(ReadConsoleOutputCharacterW(handle_, line.data(), line.size(), {0, number}, &count));
        std::wstring text(line.data(), count);
        std::erase(text, L' ');
        return text;
    }

private:
    static constexpr DWORD StandardHandles[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};

    std::vector<HANDLE> before_;
    HANDLE handle_;
};

struct Presets : testing::Test {
    TestSupport::TestRegistry registry;
};

TEST_F(Presets, TemplatesHaveNumbersAndNames) {
    const Output output = RunPresets(L"templates");
    EXPECT_EQ(output.code, 0u);
    EXPECT_EQ(output.out,
              "0\tAll files (Simple, Text)\n"
              "1\tAll files (Simple, HTML)\n"
              "2\tAll files (Details, HTML)\n"
              "3\tAudio-files (HTML)\n"
              "4\tVideo-files (HTML)\n"
              "5\tRepository (Exclude .git, .svn and .hg)\n");
}

TEST_F(Presets, ListShowsKeyPositionAndNameInTheOrderOfTheTree) {
    registry.SetString(Root + L"\\aaa", L"Name", L"Low");
    registry.SetDword(Root + L"\\aaa", L"Position", 1);
    registry.SetString(Root + L"\\bbb", L"Name", L"\u00DCber");
    registry.SetDword(Root + L"\\bbb", L"Position", 2);
    const Output output = RunPresets(L"list");
    EXPECT_EQ(output.code, 0u);
    EXPECT_EQ(output.out,
              "bbb\t2\t\xC3\x9C"
              "ber\naaa\t1\tLow\n");
}

TEST_F(Presets, RemoveTakesTheKeyAndRenumbersTheRest) {
    for (const auto& [key, position] :
         {std::pair(L"\\aaa", 3u), std::pair(L"\\bbb", 2u), std::pair(L"\\ccc", 1u)})
        registry.SetDword(Root + key, L"Position", position);
    const Output output = RunPresets(L"remove bbb");
    EXPECT_EQ(output.code, 0u);
    EXPECT_FALSE(registry.KeyExists(Root + L"\\bbb"));
    EXPECT_EQ(registry.Get(Root + L"\\aaa", L"Position"), DwordValue(2));
    EXPECT_EQ(registry.Get(Root + L"\\ccc", L"Position"), DwordValue(1));
}

TEST_F(Presets, HelpGoesToStandardOutput) {
    const Output output = RunPresets(L"--help");
    EXPECT_EQ(output.code, 0u);
    EXPECT_NE(output.out.find("presets new TEMPLATE [NAME]"), std::string::npos) << output.out;
    EXPECT_EQ(output.error, "");
}

TEST_F(Presets, WhatIsUnknownGetsOneLineOnStandardErrorAndExitCode1) {
    for (const wchar_t* arguments : {L"remove nope", L"new 9", L"new nope Name", L"new", L"frob", L""}) {
        const Output output = RunPresets(arguments);
        EXPECT_EQ(output.code, 1u) << testing::PrintToString(arguments);
        EXPECT_EQ(output.out, "") << testing::PrintToString(arguments);
        EXPECT_EQ(output.error.find('\n'), output.error.size() - 1) << output.error;
        EXPECT_FALSE(registry.KeyExists(Root)) << testing::PrintToString(arguments);
    }
}

TEST_F(Presets, NewStoresThePresetOfATemplateAndPrintsItsKey) {
    const Output output = RunPresets(L"new 3 \"My music\"");
    EXPECT_EQ(output.code, 0u);
    ASSERT_GE(output.out.size(), 2u);
    const std::wstring key(output.out.begin(), output.out.end() - 1);
    EXPECT_EQ(registry.Get(Root + L"\\" + key, L"Name"), StringValue(L"My music"));
    EXPECT_EQ(registry.Get(Root + L"\\" + key, L"Position"), DwordValue(1));
    EXPECT_EQ(registry.Get(Root + L"\\" + key + L"\\Filter", L"PresetSearchPattern"), DwordValue(1));
}

TEST_F(Presets, OutputThatCannotBeWrittenIsAnError) {
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
    ASSERT_TRUE(CreatePipe(&reader, &writer, &inherited, 0));
    CloseHandle(writer);
    for (const wchar_t* arguments : {L"list", L"templates", L"--help", L"new 0"}) {
        registry.SetString(Root + L"\\aaa", L"Name", L"A preset");
        OutputFile error;
        EXPECT_EQ(RunPresets(arguments, reader, error.Handle()), 1u) << testing::PrintToString(arguments);
        EXPECT_EQ(error.ReadAll(), "presets: the output could not be written\n");
    }
    CloseHandle(reader);
}

TEST_F(Presets, AFileTakesNamesOfAnyScriptAsUtf8) {
    registry.SetString(Root + L"\\a", L"Name", LongName);
    registry.SetDword(Root + L"\\a", L"Position", 1);
    EXPECT_EQ(RunPresets(L"list").out,
              "a\t1\t"
              "\u4E00\u4E8C\u4E09\u56DB\u4E94\u516D\u4E03\u516B\u4E5D\u5341"
              "\u7532\u4E59\u4E19\u4E01\u620A\u5DF1\u5E9A\u8F9B\u58EC\u7678\n");
}

TEST_F(Presets, AConsoleShowsNamesOfAnyScriptAndKeepsItsCodePage) {
    registry.SetString(Root + L"\\aaa", L"Name", LongName);
    registry.SetDword(Root + L"\\aaa", L"Position", 1);
    const Console console;
    SetConsoleOutputCP(437);
    EXPECT_EQ(RunPresets(L"list", console.Handle(), console.Handle()), 0u);
    EXPECT_EQ(console.Line(0), L"aaa1" + LongName);
    EXPECT_EQ(RunPresets(L"remove \u7532\u4E59", console.Handle(), console.Handle()), 1u);
    EXPECT_EQ(console.Line(1), L"presets:nosuchpreset:\u7532\u4E59");
    EXPECT_EQ(GetConsoleOutputCP(), 437u);
}

// Two in one second would get one key, and the second preset would take the place of the first.
TEST_F(Presets, NewAsOftenAsOneLikesMakesAsManyPresets) {
    for (const wchar_t* arguments : {L"new 0 No1", L"new 0 No2", L"new 0 No3"})
        EXPECT_EQ(RunPresets(arguments).code, 0u);
    const std::string list = RunPresets(L"list").out;
    EXPECT_NE(list.find("\t3\tNo1\n"), std::string::npos) << list;
    EXPECT_NE(list.find("\t2\tNo2\n"), std::string::npos) << list;
    EXPECT_NE(list.find("\t1\tNo3\n"), std::string::npos) << list;
}

}  // namespace
