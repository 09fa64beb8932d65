// The console companion as a person calls it: what it prints, where, and with which exit code.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "support/TestRegistry.h"

namespace {

using TestSupport::DwordValue;
using TestSupport::StringValue;

const std::wstring Root = L"Software\\Tamblewick";

struct Output {
    DWORD code = 99;
    std::string out;
    std::string error;
};

// A file that takes what a program prints. A pipe would not do: under Wine the desktop's own process, started
// by whoever is the first to need it, inherits the pipe and holds it open when the program has ended.
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

Output RunPresets(const std::wstring& arguments) {
    std::array<wchar_t, MAX_PATH> self;
    GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size()));
    const std::wstring program =
        std::filesystem::path(self.data()).parent_path().wstring() + L"\\presets.exe";
    std::wstring line = L"\"" + program + L"\" " + arguments;
    OutputFile out;
    OutputFile error;
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = out.Handle();
    startup.hStdError = error.Handle();
    PROCESS_INFORMATION process = {};
    Output output;
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        return output;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &output.code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    output.out = out.ReadAll();
    output.error = error.ReadAll();
    return output;
}

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
