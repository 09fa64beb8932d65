// "tamblewickc presets ..." as a person or a script calls it: what it prints, where, and with which exit
// code.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <vector>

#include "endtoend/Companion.h"
#include "endtoend/Program.h"
#include "settings/MainSettings.h"
#include "support/TempFolder.h"
#include "support/TestRegistry.h"
#include "support/Text.h"

namespace {

using EndToEnd::OutputFile;
using EndToEnd::Printed;
using TestSupport::DwordValue;
using TestSupport::StringValue;

const std::wstring Root = L"Software\\Tamblewick";

// Twenty characters that take three bytes each in UTF-8.
const std::wstring LongName =
    L"\u4E00\u4E8C\u4E09\u56DB\u4E94\u516D\u4E03\u516B\u4E5D\u5341"
    L"\u7532\u4E59\u4E19\u4E01\u620A\u5DF1\u5E9A\u8F9B\u58EC\u7678";

std::wstring CommandLine(const std::wstring& arguments) {
    return EndToEnd::CompanionCommand(L"presets " + arguments);
}

Printed RunPresets(const std::wstring& arguments) {
    return EndToEnd::RunCompanion(L"presets " + arguments);
}

// Runs the program with these handles for its output and returns its exit code.
DWORD RunPresets(const std::wstring& arguments, HANDLE out, HANDLE error) {
    return TestSupport::RunProcess(CommandLine(arguments), {.output = out, .error = error});
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

TEST_F(Presets, ListShowsKeyPositionAndNameInTheOrderOfTheWindow) {
    registry.SetString(Root + L"\\aaa", L"Name", L"Low");
    registry.SetDword(Root + L"\\aaa", L"Position", 1);
    registry.SetString(Root + L"\\bbb", L"Name", LongName);
    registry.SetDword(Root + L"\\bbb", L"Position", 2);
    const Printed output = RunPresets(L"list");
    EXPECT_EQ(output.code, 0u);
    EXPECT_EQ(output.out, "bbb\t2\t" + TestSupport::Utf8(LongName) + "\naaa\t1\tLow\n");
    EXPECT_EQ(output.error, "");
}

TEST_F(Presets, NewStoresThePresetOfATemplateAndPrintsItsKey) {
    const Printed output = RunPresets(L"new 3 \"My music\"");
    EXPECT_EQ(output.code, 0u);
    ASSERT_GE(output.out.size(), 2u);
    const std::wstring key(output.out.begin(), output.out.end() - 1);
    EXPECT_EQ(registry.Get(Root + L"\\" + key, L"Name"), StringValue(L"My music"));
    EXPECT_EQ(registry.Get(Root + L"\\" + key, L"Position"), DwordValue(1));
    EXPECT_EQ(registry.Get(Root + L"\\" + key + L"\\Filter", L"PresetSearchPattern"), DwordValue(1));
}

TEST_F(Presets, AWalkThroughAllCommands) {
    EXPECT_EQ(RunPresets(L"new 2 Photos").code, 0u);
    EXPECT_EQ(RunPresets(L"set Photos Saving.SaveLocation=Custom Saving.CustomFolderPath=D:\\Lists "
                         L"Opening.OpenMethod=Nothing Columns.FileEnabled[0]=false")
                  .code,
              0u);
    EXPECT_EQ(RunPresets(L"get Photos Saving.CustomFolderPath").out, "D:\\Lists\n");
    EXPECT_EQ(RunPresets(L"duplicate Photos").code, 0u);
    EXPECT_EQ(RunPresets(L"rename \"Copy of Photos\" Videos").code, 0u);
    const TestSupport::TempFolder folder;
    const std::wstring file = folder.Path(L"presets.json");
    EXPECT_EQ(RunPresets(L"export Videos -o \"" + file + L"\"").code, 0u);
    EXPECT_EQ(folder.Read(L"presets.json"), RunPresets(L"export Videos").out);
    EXPECT_EQ(RunPresets(L"remove Videos").code, 0u);
    EXPECT_EQ(RunPresets(L"import \"" + file + L"\"").code, 0u);
    EXPECT_EQ(RunPresets(L"import --replace \"" + file + L"\"").code, 0u);
    EXPECT_EQ(RunPresets(L"get Videos").out.substr(0, 23), "Name=Videos\nPosition=2\n");
    EXPECT_EQ(registry.Subkeys(Root).size(), 2u);
}

TEST_F(Presets, ImportReadsTheStandardInput) {
    registry.SetString(Root + L"\\aaa", L"Name", L"Piped \u00FC");
    OutputFile file;
    OutputFile error;
    EXPECT_EQ(RunPresets(L"export", file.Handle(), error.Handle()), 0u);
    SetFilePointer(file.Handle(), 0, nullptr, FILE_BEGIN);
    OutputFile keys;
    EXPECT_EQ(
        TestSupport::RunProcess(CommandLine(L"import -"),
                                {.output = keys.Handle(), .error = error.Handle(), .input = file.Handle()}),
        0u);
    const std::string key = keys.ReadAll();
    ASSERT_GE(key.size(), 2u) << error.ReadAll();
    EXPECT_EQ(registry.Get(Root + L"\\" + std::wstring(key.begin(), key.end() - 1), L"Name"),
              StringValue(L"Piped \u00FC"));
}

TEST_F(Presets, WhatIsUnknownGetsOneLineOnStandardErrorAndExitCode2) {
    for (const wchar_t* arguments :
         {L"remove nope", L"new 9", L"new nope Name", L"set nope Name=x", L"get nope"}) {
        const Printed output = RunPresets(arguments);
        EXPECT_EQ(output.code, 2u) << testing::PrintToString(arguments);
        EXPECT_EQ(output.out, "") << testing::PrintToString(arguments);
        EXPECT_EQ(output.error.find('\n'), output.error.size() - 1) << output.error;
        EXPECT_FALSE(registry.KeyExists(Root)) << testing::PrintToString(arguments);
    }
}

TEST_F(Presets, OutputThatCannotBeWrittenIsAnErrorAndStoresNothing) {
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
    ASSERT_TRUE(CreatePipe(&reader, &writer, &inherited, 0));
    CloseHandle(writer);
    registry.SetString(Root + L"\\aaa", L"Name", L"A preset");
    for (const wchar_t* arguments : {L"list", L"templates", L"--help", L"new 0", L"export"}) {
        OutputFile error;
        EXPECT_EQ(RunPresets(arguments, reader, error.Handle()), 4u) << testing::PrintToString(arguments);
        EXPECT_EQ(error.ReadAll(), "tamblewickc: the standard output could not be written\n");
    }
    EXPECT_EQ(registry.Subkeys(Root), std::vector<std::wstring>{L"aaa"});
    CloseHandle(reader);
}

TEST_F(Presets, AConsoleShowsNamesOfAnyScriptAndKeepsItsCodePage) {
    registry.SetString(Root + L"\\aaa", L"Name", LongName);
    registry.SetDword(Root + L"\\aaa", L"Position", 1);
    const Console console;
    SetConsoleOutputCP(437);
    EXPECT_EQ(RunPresets(L"list", console.Handle(), console.Handle()), 0u);
    EXPECT_EQ(console.Line(0), L"aaa1" + LongName);
    EXPECT_EQ(RunPresets(L"remove \u7532\u4E59", console.Handle(), console.Handle()), 2u);
    EXPECT_EQ(console.Line(1), L"tamblewickc:thereisnopreset'\u7532\u4E59';see'tamblewickcpresetslist'");
    EXPECT_EQ(GetConsoleOutputCP(), 437u);
}

TEST_F(Presets, AnOpenMainWindowIsReportedAfterAChange) {
    const EndToEnd::Process program(L"");
    const HWND window = program.WaitForWindow(L"Tamblewick 4.0.1");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(RunPresets(L"list").error, "");
    EXPECT_EQ(
        RunPresets(L"new 0").error,
        "tamblewickc: a window of Tamblewick is open, and its next change overwrites this one; close it and "
        "open it again\n");
    PostMessageW(window, WM_CLOSE, 0, 0);
}

// Twenty programs at once, and one that renumbers and saves its presets all the time as the window does.
TEST_F(Presets, ManyProgramsAtOnceLoseNothing) {
    const TestSupport::TempFolder folder;
    folder.AddFile(L"presets.json", std::string(R"({"format":"tamblewick-presets","version":1,"presets":[)"
                                                R"({"Name":"imported 1"},{"Name":"imported 2"}]})"));
    const std::wstring file = L"\"" + folder.Path(L"presets.json") + L"\"";
    MainSettings window;
    window.CreatePreset(L"window1").Get(Preset::Name) = L"of the window 1";
    window.CreatePreset(L"window2").Get(Preset::Name) = L"of the window 2";
    window.Renumber();
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(RunPresets(L"new 0 \"removed " + std::to_wstring(i) + L"\"").code, 0u);
    OutputFile out;
    {
        OutputFile error;
        std::vector<std::unique_ptr<TestSupport::Process>> programs;
        const auto start = [&](const std::wstring& arguments) {
            programs.push_back(std::make_unique<TestSupport::Process>(
                CommandLine(arguments),
                TestSupport::ProcessOptions{.output = out.Handle(), .error = error.Handle()}));
        };
        for (int i = 0; i < 5; ++i) {
            start(L"new 1 \"new " + std::to_wstring(i) + L"\"");
            start(L"import " + file);
            start(L"remove \"removed " + std::to_wstring(i) + L"\"");
            start(L"new 2 \"new " + std::to_wstring(i + 5) + L"\"");
        }
        while (std::ranges::any_of(programs, [](const auto& program) { return program->IsRunning(); }))
            window.Renumber();
        for (const auto& program : programs)
            EXPECT_EQ(program->Wait(), 0u);
        EXPECT_EQ(error.ReadAll(), "");
    }

    // Each printed key is that of a preset, and no other has it.
    std::istringstream lines(out.ReadAll());
    std::set<std::wstring> keys = {L"window1", L"window2"};
    for (std::string line; std::getline(lines, line);)
        EXPECT_TRUE(keys.insert(std::wstring(line.begin(), line.end())).second) << line;
    const std::vector<std::wstring> stored = registry.Subkeys(Root);
    EXPECT_EQ(std::set(stored.begin(), stored.end()), keys);

    std::map<std::wstring, int> names;
    for (const std::wstring& key : stored) {
        Preset preset(key);
        EXPECT_TRUE(preset.Load()) << TestSupport::Utf8(key) << " is half";
        ++names[preset.Get(Preset::Name)];
    }
    std::map<std::wstring, int> expected = {
        {L"of the window 1", 1}, {L"of the window 2", 1}, {L"imported 1", 5}, {L"imported 2", 5}};
    for (int i = 0; i < 10; ++i)
        expected[L"new " + std::to_wstring(i)] = 1;
    EXPECT_EQ(names, expected);
}

}  // namespace
