#include <array>

#include "ConsoleRun.h"
#include "listmaker/OutputName.h"
#include "listmaker/ScanOptions.h"
#include "report/Page.h"
#include "scanner/Listener.h"
#include "scanner/Scan.h"
#include "settings/MainSettings.h"
#include "settings/Templates.h"
#include "winlib/Windows.h"
#include "writers/WriteList.h"

using Console::Arguments;
using Console::ExitCode;
using Console::RunProgram;
using FakeWin::Contents;
using FakeWin::StandardError;
using FakeWin::StandardOutput;

namespace {

struct ListCommand : ListFixture {
    // Stores a preset with the values of a template.
    static Preset& AddPreset(MainSettings& settings, const std::wstring& key, const std::wstring& name,
                             uint32_t number = 0) {
        Preset& preset = settings.CreateFromTemplate(number, key);
        preset.Get(Preset::Name) = name;
        preset.Save();
        return preset;
    }
};

// Takes the reports of the scan that makes the expected lists.
struct NoReports : Scanner::Listener {
    void OnProgress(const std::wstring&, const std::wstring&) override {}
    void OnError(const std::wstring&) override {}
    Scanner::AccessDeniedAnswer OnAccessDenied(const std::wstring&) override {
        return Scanner::AccessDeniedAnswer::Continue;
    }
    bool IsCancelled() override { return false; }
};

// Writes the list as the window program does, and returns it.
std::string ListOfWindowProgram(const Preset& preset, const std::wstring& folder) {
    NoReports listener;
    Scanner::Result result;
    EXPECT_TRUE(Scanner::Scan(result, ScanOptions(preset, &listener), folder));
    WriteList(preset, result.root, L"C:\\expected");
    return Contents(L"C:\\expected").value_or("");
}

TEST_F(ListCommand, WritesTheListAndPrintsItsName) {
    EXPECT_EQ(RunList(), ExitCode::Complete);
    EXPECT_EQ(Contents(Output), Today);
    EXPECT_EQ(StandardOutput(), "C:\\Lists\\out.txt\n");
    EXPECT_EQ(StandardError(), "");
    EXPECT_FALSE(FakeWin::EntryExists(Part));
}

TEST_F(ListCommand, QuietPrintsNothing) {
    EXPECT_EQ(RunList({L"-q"}), ExitCode::Complete);
    EXPECT_EQ(Contents(Output), Today);
    EXPECT_EQ(StandardOutput(), "");
    EXPECT_EQ(StandardError(), "");
}

TEST_F(ListCommand, AHyphenIsTheStandardOutput) {
    EXPECT_EQ(RunList({L"-o", L"-"}), ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), Today);
    EXPECT_EQ(Contents(Output), Yesterday);
}

TEST_F(ListCommand, ListsAreThoseOfTheWindowProgramForAllTemplatesAndShapes) {
    FakeWin::AddFile(L"C:\\Data\\Sub\\song.mp3", 9);
    FakeWin::AddFile(L"C:\\Data\\Sub\\film.avi", 4096);
    FakeWin::AddFolder(L"C:\\Data\\Empty");
    MainSettings settings;
    for (uint32_t number = 0; number < TemplateCount; ++number) {
        for (const bool flat : {false, true}) {
            Preset& preset = AddPreset(settings, L"key", L"name", number);
            preset.Get(Display::ShowFlatStyle) = flat;
            preset.Save();
            EXPECT_EQ(RunProgram({L"list", L"key", L"C:\\Data", L"-o", Output}), ExitCode::Complete);
            const std::string expected = ListOfWindowProgram(preset, L"C:\\Data");
            EXPECT_NE(expected.find("Sub"), std::string::npos);
            EXPECT_EQ(Contents(Output), expected) << number << (flat ? " flat" : "");
            settings.Remove(preset);
        }
    }
}

TEST_F(ListCommand, TheFormatReplacesThatOfThePreset) {
    EXPECT_EQ(RunList({L"-f", L"html"}), ExitCode::Complete);
    EXPECT_TRUE(Contents(Output)->starts_with("\xEF\xBB\xBF<!DOCTYPE html"));
    EXPECT_EQ(RunList({L"--format=preset"}), ExitCode::Complete);
    EXPECT_EQ(Contents(Output), Today);
    EXPECT_EQ(RunProgram({L"list", L"--template=1", L"C:\\Data", L"-o", Output, L"-f", L"text"}),
              ExitCode::Complete);
    EXPECT_TRUE(Contents(Output)->starts_with("\xEF\xBB\xBFTamblewick"));
}

TEST_F(ListCommand, WithoutOutputTheListIsWhereThePresetSaves) {
    const Arguments arguments = {L"list", L"--template", L"0", L"C:\\Data"};
    EXPECT_EQ(RunProgram(arguments), ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), "C:\\Temp\\List of Data.txt\n");
    EXPECT_EQ(Contents(L"C:\\Temp\\List of Data.txt"), Today);
}

TEST_F(ListCommand, TablesGoToTheStandardOutput) {
    EXPECT_EQ(RunProgram({L"list", L"--template=0", L"C:\\Data", L"-f", L"csv"}), ExitCode::Complete);
    EXPECT_EQ(
        StandardOutput(),
        "type,path,name,extension,size,attributes,created,modified,accessed,files,folders,depth,error\r\n"
        "directory,Sub,Sub,,7,,2020-01-02T03:04:05.0000000Z,2020-01-02T03:04:05.0000000Z,"
        "2020-01-02T03:04:05.0000000Z,1,0,0,\r\n"
        "file,Sub\\b.txt,b.txt,txt,7,A,2020-01-02T03:04:05.0000000Z,2020-01-02T03:04:05.0000000Z,"
        "2020-01-02T03:04:05.0000000Z,,,1,\r\n"
        "file,a.txt,a.txt,txt,5,A,2020-01-02T03:04:05.0000000Z,2020-01-02T03:04:05.0000000Z,"
        "2020-01-02T03:04:05.0000000Z,,,0,\r\n");
    EXPECT_EQ(StandardError(), "");
}

TEST_F(ListCommand, TablesAreWrittenToFiles) {
    EXPECT_EQ(RunList({L"--format=csv", L"--absolute"}), ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), "C:\\Lists\\out.txt\n");
    EXPECT_NE(Contents(Output)->find("\r\nfile,C:\\Data\\Sub\\b.txt,b.txt,txt,7,"), std::string::npos);
}

TEST_F(ListCommand, ATableForExcelHasTheListSeparatorOfTheSystem) {
    EXPECT_EQ(RunList({L"--format=csv", L"--excel"}), ExitCode::Complete);
    EXPECT_TRUE(Contents(Output)->starts_with("\xEF\xBB\xBFtype;path;name;extension;"));
}

TEST_F(ListCommand, JsonLinesBeginWithTheListAndEndWithItsSummary) {
    FakeWin::FailOn(FakeWin::Call::FindFirstFileExW, L"C:\\Data\\Sub", ERROR_ACCESS_DENIED);
    EXPECT_EQ(RunList({L"--format=jsonl"}), ExitCode::Incomplete);
    const std::string list = Contents(Output).value_or("");
    EXPECT_EQ(list.substr(0, list.find('\n')),
              R"*({"type":"list","format":1,"program":"Tamblewick 4.0.1","root":"C:\\Data",)*"
              R"*("preset":"All files (Simple, Text)","created":"2024-03-09T16:05:09.0000000Z"})*");
    EXPECT_TRUE(
        list.ends_with("\n{\"type\":\"summary\",\"size\":5,\"folders\":1,\"files\":1,\"unreadable\":1}\n"))
        << list;
    EXPECT_NE(list.find("\"error\":\"access-denied\""), std::string::npos);
}

TEST_F(ListCommand, ATableHasTheKindsOfEntriesThatThePresetShows) {
    MainSettings settings;
    Preset& preset = AddPreset(settings, L"key", L"name");
    for (size_t i = 0; i < FolderColumnCount; ++i)
        preset.Get(Columns::FolderEnabled, i) = false;
    preset.Save();
    EXPECT_EQ(RunProgram({L"list", L"key", L"C:\\Data", L"-f", L"csv"}), ExitCode::Complete);
    EXPECT_EQ(StandardOutput().find("directory"), std::string::npos);
    EXPECT_NE(StandardOutput().find("file,Sub\\b.txt"), std::string::npos);
}

TEST_F(ListCommand, AReportIsAPageWhereThePresetSaves) {
    EXPECT_EQ(RunProgram({L"list", L"--template", L"0", L"C:\\Data", L"-f", L"report"}), ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), "C:\\Temp\\List of Data.html\n");
    const std::string report = Contents(L"C:\\Temp\\List of Data.html").value_or("");
    EXPECT_TRUE(report.starts_with(Report::PageStart));
    EXPECT_TRUE(report.ends_with(Report::PageEnd));
    EXPECT_NE(report.find("\"root\":\"C:\\u005cData\",\"preset\":\"All files (Simple, Text)\",\"created\":\""
                          "2024-03-09T16:05:09.0000000Z\",\"size\":12,\"folders\":1,\"files\":2,"),
              std::string::npos);
    EXPECT_NE(report.find("\"names\":\"Sub\\bb.txt\\ba.txt\",\"tree\":\"(1)1\""), std::string::npos);
}

TEST_F(ListCommand, AReportIsGroupedWhateverThePresetShows) {
    MainSettings settings;
    Preset& preset = AddPreset(settings, L"key", L"name");
    preset.Get(Display::ShowFlatStyle) = true;
    preset.Save();
    EXPECT_EQ(RunProgram({L"list", L"key", L"C:\\Data", L"-f", L"report", L"-o", L"-"}), ExitCode::Complete);
    EXPECT_NE(StandardOutput().find("\"tree\":\"(1)1\""), std::string::npos);
}

TEST_F(ListCommand, AReportMarksFoldersThatCouldNotBeRead) {
    FakeWin::FailOn(FakeWin::Call::FindFirstFileExW, L"C:\\Data\\Sub", ERROR_ACCESS_DENIED);
    EXPECT_EQ(RunList({L"--format=report"}), ExitCode::Incomplete);
    EXPECT_NE(Contents(Output)->find("\"tree\":\"[)1\""), std::string::npos);
}

TEST_F(ListCommand, TheExtensionIsThatOfTheFormat) {
    EXPECT_EQ(RunProgram({L"list", L"--template", L"0", L"C:\\Data", L"-f", L"html"}), ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), "C:\\Temp\\List of Data.html\n");
}

TEST_F(ListCommand, OutputIsRelativeToTheCurrentFolder) {
    EXPECT_EQ(RunList({L"-o", L"Lists\\.\\new.txt"}), ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), "C:\\Lists\\new.txt\n");
    EXPECT_EQ(Contents(L"C:\\Lists\\new.txt"), Today);
}

TEST_F(ListCommand, FolderIsTakenAsAtAPrompt) {
    for (const wchar_t* folder : {L"Data", L".\\Data", L"C:Data", L"C:/Data", L"C:\\Data\\",
                                  LR"(\\?\C:\Data)", L"C:\\Lists\\..\\Data"}) {
        EXPECT_EQ(RunProgram({L"list", L"--template", L"0", folder, L"-o", Output}), ExitCode::Complete);
        EXPECT_EQ(Contents(Output), Today);
    }
}

TEST_F(ListCommand, NetworkFoldersAndLongPathsAreListed) {
    const std::wstring deep =
        L"\\\\server\\share\\" + std::wstring(200, L'a') + L"\\" + std::wstring(200, L'b');
    FakeWin::AddFile(deep + L"\\file.txt");
    FakeWin::AddFolder(deep + L"\\lists");
    const std::wstring output = deep + L"\\lists\\out.txt";
    const std::wstring long_ = LR"(\\?\UNC)" + deep.substr(1);
    EXPECT_EQ(RunProgram({L"list", L"--template", L"0", long_, L"-o", LR"(\\?\UNC)" + output.substr(1)}),
              ExitCode::Complete);
    EXPECT_NE(Contents(output).value_or("").find("bbb\\file.txt\r\n"), std::string::npos);
    EXPECT_EQ(RunProgram({L"list", L"--template", L"0", L"\\\\server\\share", L"-o", Output}),
              ExitCode::Complete);
    EXPECT_NE(Contents(Output)->find("\\\\server\\share\\aaa"), std::string::npos);
}

TEST_F(ListCommand, APresetIsChosenByItsKeyOrItsName) {
    MainSettings settings;
    AddPreset(settings, L"key1", L"My preset");
    AddPreset(settings, L"key2", L"key1", 1);
    EXPECT_EQ(RunProgram({L"list", L"key1", L"C:\\Data", L"-o", Output}), ExitCode::Complete);
    EXPECT_EQ(Contents(Output), Today);
    EXPECT_EQ(RunProgram({L"list", L"My preset", L"C:\\Data", L"-o", L"C:\\second"}), ExitCode::Complete);
    EXPECT_EQ(Contents(L"C:\\second"), Today);
}

TEST_F(ListCommand, ATemplateIsChosenByItsName) {
    EXPECT_EQ(RunProgram({L"list", L"--template", L"All files (Simple, Text)", L"C:\\Data", L"-o", Output}),
              ExitCode::Complete);
    EXPECT_EQ(Contents(Output), Today);
}

TEST_F(ListCommand, NothingIsOpenedUnlessAskedFor) {
    EXPECT_EQ(RunList(), ExitCode::Complete);
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
    EXPECT_EQ(RunList({L"--open"}), ExitCode::Complete);
    ASSERT_EQ(FakeWin::ShellExecutions().size(), 1u);
    EXPECT_EQ(FakeWin::ShellExecutions()[0].file, L"\"C:\\Lists\\out.txt\"");
}

TEST_F(ListCommand, ProgressIsShownOnAConsole) {
    FakeWin::SetTickStep(100);
    EXPECT_EQ(RunList(), ExitCode::Complete);
    EXPECT_EQ(StandardError(), "");
    FakeWin::SetErrorConsole(80);
    EXPECT_EQ(RunList(), ExitCode::Complete);
    const std::string shown = StandardError();
    EXPECT_NE(shown.find("\r0 entries, 0 folders: C:\\Data"), std::string::npos) << shown;
    EXPECT_NE(shown.find("\r2 entries, 1 folders: C:\\Data\\Sub"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with(" \r"));
}

TEST_F(ListCommand, ProgressIsShownAlwaysOrNever) {
    FakeWin::SetTickStep(100);
    EXPECT_EQ(RunList({L"--progress=always"}), ExitCode::Complete);
    EXPECT_NE(StandardError(), "");
    FakeWin::Reset();
    FakeWin::AddFile(L"C:\\Data\\a.txt", 5);
    FakeWin::AddFolder(L"C:\\Lists");
    FakeWin::SetTickStep(100);
    FakeWin::SetErrorConsole(80);
    EXPECT_EQ(RunList({L"--progress=never"}), ExitCode::Complete);
    EXPECT_EQ(RunList({L"--progress=always", L"--quiet"}), ExitCode::Complete);
    EXPECT_EQ(StandardError(), "");
}

// A wrong use of the command, and its message.
struct WrongUse {
    Arguments arguments;
    const char* message;
};

TEST_F(ListCommand, WrongUseIsExplained) {
    const std::array<WrongUse, 16> rows = {{
        {{L"x"}, "PRESET or FOLDER is missing"},
        {{L"--template", L"0", L"a", L"b"},
         "there is no place for the argument 'a', since an option chooses the preset"},
        {{L"--template", L"6", L"a"}, "there is no template '6'; see 'tamblewickc presets templates'"},
        {{L"--template", L"", L"a"}, "there is no template ''; see 'tamblewickc presets templates'"},
        {{L"none", L"a"}, "there is no preset 'none'; see 'tamblewickc presets list'"},
        {{L"--template", L"0", L""}, "'' is not a path"},
        {{L"--template", L"0", L"a", L"-f", L"xml"},
         "there is no format 'xml'; use preset, text, html, csv, jsonl, report or sha256sum"},
        {{L"--template", L"0", L"a", L"--progress", L"soon"},
         "--progress takes auto, always or never, not 'soon'"},
        {{L"--template", L"0", L"a", L"--absolute"}, "--absolute is for csv and jsonl"},
        {{L"--template", L"0", L"a", L"-f", L"report", L"--absolute"}, "--absolute is for csv and jsonl"},
        {{L"--template", L"0", L"a", L"--excel"}, "--excel is for csv"},
        {{L"--template", L"0", L"a", L"-f", L"csv", L"--hash", L"md5"}, "--hash takes sha256, not 'md5'"},
        {{L"--template", L"0", L"a", L"--hash", L"sha256"}, "--hash is for csv, jsonl and sha256sum"},
        {{L"--template", L"0", L"a", L"-f", L"report", L"--hash", L"sha256"},
         "--hash is for csv, jsonl and sha256sum"},
        {{L"--template", L"0", L"a", L"-f", L"sha256sum", L"--absolute"}, "--absolute is for csv and jsonl"},
        {{L"--template", L"0", L"a", L"-o", L"-", L"--open"},
         "--open needs a list in a file; give it with --output FILE"},
    }};
    for (const WrongUse& row : rows) {
        FakeWin::Reset();
        Arguments arguments = {L"list"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        EXPECT_EQ(RunProgram(arguments), ExitCode::WrongUsage);
        EXPECT_TRUE(StandardError().starts_with("tamblewickc: " + std::string(row.message) + "\n"))
            << StandardError();
        EXPECT_EQ(StandardOutput(), "");
        EXPECT_TRUE(FakeWin::WrittenFiles().empty());
    }
}

}  // namespace
