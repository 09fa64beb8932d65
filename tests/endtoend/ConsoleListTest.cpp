// The companion's command "list" as a process: the lists of the window program, exit codes, streams,
// interrupts.
#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "endtoend/Companion.h"
#include "endtoend/Program.h"
#include "support/TempFolder.h"
#include "support/TestRegistry.h"

using EndToEnd::ListsFolder;
using EndToEnd::Printed;
using EndToEnd::RunCompanion;
using EndToEnd::StoredPreset;
using EndToEnd::WithoutStamp;

namespace {

std::string Narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

// A backslash before the closing quotation mark would be doubled.
std::wstring Argument(const std::wstring& text) {
    return text.ends_with(L'\\') ? Quoted(text + L'\\') : Quoted(text);
}

struct ConsoleList : testing::Test {
    ConsoleList() {
        folder.AddFile(L"Data\\a.txt", 5);
        folder.AddFile(L"Data\\Sub\\b.mp3", 7);
        folder.AddFile(L"Data\\Sub\\Deep\\c.avi", 70'000);
        folder.AddFolder(L"Data\\Empty");
        list = ListsFolder() + L"\\List of Data.txt";
    }

    // Runs "list --template 0 DATA" with more arguments.
    Printed List(const std::wstring& more, const std::filesystem::path& current = {}) const {
        return RunCompanion(L"list --template 0 " + Quoted(folder.Path(L"Data")) + L" " + more, current);
    }

    TestSupport::TempFolder folder;
    StoredPreset preset;
    std::wstring list;
};

TEST_F(ConsoleList, WritesWhatTheWindowProgramWritesForAllTemplatesAndShapes) {
    const std::wstring data = Quoted(folder.Path(L"Data"));
    for (uint32_t number = 0; number < 6; ++number) {
        std::string printedKey = RunCompanion(L"presets new " + std::to_wstring(number)).out;
        ASSERT_GT(printedKey.size(), 1u);
        const std::wstring key(printedKey.begin(), printedKey.end() - 1);
        for (const wchar_t* flat : {L"false", L"true"}) {
            ASSERT_EQ(RunCompanion(L"presets set " + key + L" Saving.SaveLocation=Custom " +
                                   Quoted(L"Saving.CustomFolderPath=" + ListsFolder()) +
                                   L" Opening.OpenMethod=Nothing Display.ShowFlatStyle=" + flat)
                          .code,
                      0u);
            const std::wstring written = number == 0 ? list : ListsFolder() + L"\\List of Data.html";
            ASSERT_EQ(EndToEnd::RunProgram(key + L" " + data), 0u);
            const std::string expected = WithoutStamp(EndToEnd::ReadFile(written));
            std::filesystem::remove(written);
            const Printed printed = RunCompanion(L"list " + key + L" " + data);
            EXPECT_EQ(printed.code, 0u);
            EXPECT_EQ(printed.error, "");
            EXPECT_EQ(printed.out, Narrow(written) + "\n");
            EXPECT_EQ(WithoutStamp(EndToEnd::ReadFile(written)), expected) << number << Narrow(flat);
            std::filesystem::remove(written);
            const Printed direct = RunCompanion(L"list " + key + L" " + data + L" -o -");
            EXPECT_EQ(WithoutStamp(direct.out), expected) << number << Narrow(flat);
        }
    }
}

TEST_F(ConsoleList, TakesFoldersAsAtAPrompt) {
    const std::string expected = WithoutStamp(List(L"-o -").out);
    EXPECT_NE(expected.find("b.mp3"), std::string::npos);
    const std::wstring data = folder.Path(L"Data");
    const std::wstring drive = data.substr(0, 2);
    const struct {
        std::wstring argument;
        std::wstring current;
    } rows[] = {
        {L".", data},
        {L"..", data + L"\\Empty"},
        {L".\\Sub\\..", data},
        {drive, data},
        {L"Data", folder.Path()},
        {L"Data\\", folder.Path()},
        {L"Data/", folder.Path()},
        {LR"(\\?\)" + data, folder.Path()},
        {data.substr(2), data},
    };
    for (const auto& row : rows) {
        const Printed printed =
            RunCompanion(L"list --template 0 -o - " + Argument(row.argument), row.current);
        EXPECT_EQ(printed.code, 0u) << Narrow(row.argument) << printed.error;
        EXPECT_EQ(WithoutStamp(printed.out), expected) << Narrow(row.argument);
    }
}

TEST_F(ConsoleList, LongPathsAreListedAndWritten) {
    std::wstring deep = folder.Path(L"Data");
    for (int i = 0; i < 10; ++i)
        deep += L"\\" + std::wstring(50, static_cast<wchar_t>(L'a' + i));
    std::wstring path = folder.Path(L"Data");
    for (size_t end = path.size(); end != std::wstring::npos;) {
        end = deep.find(L'\\', end + 1);
        CreateDirectoryW((LR"(\\?\)" + deep.substr(0, end)).c_str(), nullptr);
    }
    const Printed printed =
        RunCompanion(L"list --template 0 " + Quoted(deep) + L" -o " + Quoted(deep + L"\\out.txt"));
    EXPECT_EQ(printed.code, 0u) << printed.error;
    EXPECT_EQ(printed.out, Narrow(deep) + "\\out.txt\n");
    EXPECT_NE(GetFileAttributesW((LR"(\\?\)" + deep + L"\\out.txt").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(ConsoleList, HashesAreThoseOfTheFiles) {
    folder.AddFile(L"Data\\Sub\\abc.txt", std::string("abc"));
    const std::string hashOfAbc = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    const Printed sums = List(L"-f sha256sum");
    EXPECT_EQ(sums.code, 0u);
    EXPECT_EQ(sums.error, "");
    // The other files are zeros.
    EXPECT_EQ(sums.out, "f51b279903037b37ea1828a1021499995718d38016cad6c0da30962a41be052f *Sub/Deep/c.avi\n" +
                            hashOfAbc +
                            " *Sub/abc.txt\n"
                            "837885c8f8091aeaeb9ec3c3f85a6ff470a415e610b8ba3e49f9b33c9cf9d619 *Sub/b.mp3\n"
                            "8855508aade16ec573d21e6a485dfd0a7624085c1a14b5ecdd6485de0c6839a4 *a.txt\n");
    const Printed table = List(L"-f csv --hash sha256");
    EXPECT_EQ(table.code, 0u);
    EXPECT_NE(table.out.find(",error,sha256\r\n"), std::string::npos);
    EXPECT_NE(table.out.find("," + hashOfAbc + "\r\n"), std::string::npos);
}

TEST_F(ConsoleList, AFileInUseGivesExitCode3) {
    const std::wstring locked = folder.Path(L"Data\\a.txt");
    const HANDLE file = CreateFileW(locked.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    const Printed printed = List(L"-f jsonl --hash sha256");
    CloseHandle(file);
    EXPECT_EQ(printed.code, 3u);
    EXPECT_EQ(printed.error, "tamblewickc: the file '" + Narrow(locked) +
                                 "' could not be read: it is in use by another program\n");
    EXPECT_NE(printed.out.find("\"error\":\"in-use\"}"), std::string::npos);
    EXPECT_TRUE(printed.out.ends_with("\"unreadable\":0,\"unreadable_files\":1}\n"));
}

TEST_F(ConsoleList, AFolderThatCannotBeListedGivesExitCode1) {
    const Printed printed =
        RunCompanion(L"list --template 0 " + Quoted(folder.Path(L"none")) + L" -o " + Quoted(list));
    EXPECT_EQ(printed.code, 1u);
    EXPECT_EQ(printed.out, "");
    EXPECT_EQ(printed.error, "tamblewickc: The folder '" + Narrow(folder.Path(L"none")) +
                                 "' does not exist or cannot be accessed by the application.\n");
    EXPECT_FALSE(std::filesystem::exists(list));
}

TEST_F(ConsoleList, WrongUsageGivesExitCode2) {
    EXPECT_EQ(RunCompanion(L"").code, 2u);
    EXPECT_EQ(RunCompanion(L"list nopreset .").code, 2u);
    EXPECT_EQ(List(L"--format xml").code, 2u);
}

TEST_F(ConsoleList, AListThatCannotBeWrittenGivesExitCode4) {
    const Printed printed = List(L"-o " + Quoted(folder.Path(L"none\\out.txt")));
    EXPECT_EQ(printed.code, 4u);
    EXPECT_EQ(printed.out, "");
    EXPECT_EQ(printed.error.find("tamblewickc: the list '"), 0u) << printed.error;
}

TEST_F(ConsoleList, AListThatIsOpenElsewhereIsKept) {
    folder.AddFile(L"out.txt", std::string("yesterday"));
    const HANDLE open = CreateFileW(folder.Path(L"out.txt").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(List(L"-o " + Quoted(folder.Path(L"out.txt"))).code, 4u);
    CloseHandle(open);
    EXPECT_EQ(folder.Read(L"out.txt"), "yesterday");
    EXPECT_FALSE(folder.Exists(L"out.txt.part"));
}

TEST_F(ConsoleList, AListThatAnotherRunWritesIsLeftToIt) {
    folder.AddFile(L"out.txt.part", std::string("of another run"));
    const HANDLE open = CreateFileW(folder.Path(L"out.txt.part").c_str(), GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(List(L"-o " + Quoted(folder.Path(L"out.txt"))).code, 4u);
    CloseHandle(open);
    EXPECT_EQ(folder.Read(L"out.txt.part"), "of another run");
    EXPECT_FALSE(folder.Exists(L"out.txt"));
}

TEST_F(ConsoleList, AFullStandardOutputGivesExitCode4) {
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    const HANDLE full = CreateFileW(L"Z:\\dev\\full", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    &inherited, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(full, INVALID_HANDLE_VALUE);
    for (const wchar_t* more : {L"-o -", L"-f csv", L"-f jsonl", L"-f report -o -"}) {
        EndToEnd::OutputFile error;
        const std::wstring command =
            EndToEnd::CompanionCommand(L"list --template 0 " + Quoted(folder.Path(L"Data")) + L" " + more);
        EXPECT_EQ(TestSupport::RunProcess(command, {.output = full, .error = error.Handle()}), 4u);
        EXPECT_EQ(error.ReadAll(), "tamblewickc: the standard output could not be written\n");
    }
    CloseHandle(full);
}

TEST_F(ConsoleList, AClosedPipeGivesExitCode4) {
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    HANDLE reader = nullptr;
    HANDLE writer = nullptr;
    ASSERT_TRUE(CreatePipe(&reader, &writer, &inherited, 0));
    CloseHandle(reader);
    EndToEnd::OutputFile error;
    const std::wstring command =
        EndToEnd::CompanionCommand(L"list --template 0 " + Quoted(folder.Path(L"Data")) + L" -f csv");
    EXPECT_EQ(TestSupport::RunProcess(command, {.output = writer, .error = error.Handle()}), 4u);
    CloseHandle(writer);
}

TEST_F(ConsoleList, ProgressIsOnlyOnAConsole) {
    EXPECT_EQ(List(L"-o " + Quoted(list)).error, "");
}

}  // namespace
