// "presets export" and "presets import".
#include <nlohmann/json.hpp>

#include "PresetsRun.h"
#include "console/presets/PresetFile.h"
#include "settings/Preset.h"
#include "support/native/Snapshot.h"
#include "support/settings/RecordFields.h"

using Console::ExitCode;
using nlohmann::json;
using TestSupport::Differences;
using TestSupport::DwordValue;
using TestSupport::RegistryNow;
using TestSupport::Snapshot;
using TestSupport::StringValue;
using TestSupport::Utf8;
using TestSupport::Wide;

namespace {

constexpr wchar_t File[] = L"C:\\Lists\\presets.json";

std::string FileOf(const std::string& presets) {
    return R"({"format":"tamblewick-presets","version":1,"presets":)" + presets + "}";
}

struct TravelCommands : PresetsFixture {
    TravelCommands() { FakeWin::AddFolder(L"C:\\Lists"); }

    static std::vector<std::wstring> Lines(const std::string& text) {
        std::vector<std::wstring> lines;
        std::wstring rest = Wide(text);
        for (size_t end; (end = rest.find(L'\n')) != std::wstring::npos; rest.erase(0, end + 1))
            lines.push_back(rest.substr(0, end));
        return lines;
    }

    // Imports a file that must fit and returns the keys.
    std::vector<std::wstring> Import(const std::string& file, Console::Arguments options = {}) {
        FakeWin::AddFile(File, file);
        options.insert(options.begin(), {L"import", File});
        return Lines(Printed(options));
    }

    void ExpectRefused(const std::string& file, ExitCode code, const std::string& message,
                       Console::Arguments options = {}) {
        const Snapshot before = RegistryNow();
        FakeWin::AddFile(File, file);
        options.insert(options.begin(), {L"import", File});
        ExpectFailure(options, code, message);
        EXPECT_EQ(Differences(RegistryNow(), before), "") << message;
    }

    std::vector<std::wstring> ValuesOf(const std::wstring& key) const {
        Preset preset(key);
        EXPECT_TRUE(preset.Load());
        return TextsOf(preset);
    }
};

}  // namespace

TEST_F(TravelCommands, ExportPrintsAllPresetsFromTheTop) {
    const std::wstring low = Make(L"Low");
    const std::wstring high = Make(L"High");
    const json file = json::parse(Printed({L"export"}));
    EXPECT_EQ(file["format"], "tamblewick-presets");
    EXPECT_EQ(file["version"], 1);
    ASSERT_EQ(file["presets"].size(), 2u);
    EXPECT_EQ(file["presets"][0]["Key"], Utf8(high));
    EXPECT_EQ(file["presets"][0]["Name"], "High");
    EXPECT_EQ(file["presets"][0]["Position"], 2);
    EXPECT_EQ(file["presets"][1]["Key"], Utf8(low));
}

TEST_F(TravelCommands, ExportTakesKeysAndNames) {
    Make(L"A");
    const std::wstring second = Make(L"B");
    Make(L"C");
    const json file = json::parse(Printed({L"export", L"A", second, second}));
    ASSERT_EQ(file["presets"].size(), 2u);
    EXPECT_EQ(file["presets"][0]["Name"], "B");
    EXPECT_EQ(file["presets"][1]["Name"], "A");
}

TEST_F(TravelCommands, ExportWritesAFile) {
    Make(L"A");
    EXPECT_EQ(Printed({L"export", L"-o", File}), "");
    EXPECT_EQ(FakeWin::Contents(File), Printed({L"export", L"--output", L"-"}));
    EXPECT_FALSE(FakeWin::EntryExists(std::wstring(File) + L".part"));
}

TEST_F(TravelCommands, ExportOfAnEmptyRegistryIsAFileWithoutPresets) {
    EXPECT_EQ(Printed({L"export"}), Console::FormatPresetFile({}));
}

TEST_F(TravelCommands, ExportLeavesOutWhatIsDamaged) {
    MakeDamaged(L"bad", L"Damaged", 9);
    Make(L"Whole");
    const Outcome outcome = Run({L"export"});
    EXPECT_EQ(outcome.code, ExitCode::Incomplete);
    EXPECT_EQ(outcome.error,
              "tamblewickc: the preset 'bad' is damaged; remove it with 'tamblewickc presets remove bad'\n");
    const json file = json::parse(outcome.out);
    ASSERT_EQ(file["presets"].size(), 1u);
    EXPECT_EQ(file["presets"][0]["Name"], "Whole");
    EXPECT_EQ(Printed({L"export", L"Whole"}), outcome.out);
}

TEST_F(TravelCommands, ExportLeavesOutWhatImportWouldRefuse) {
    const std::wstring key = Make(L"Doubled");
    registry.SetString(Root + key + L"\\Columns\\FolderColumns", L"3", L"Path");
    const Outcome outcome = Run({L"export"});
    EXPECT_EQ(outcome.code, ExitCode::Incomplete);
    EXPECT_EQ(outcome.error,
              "tamblewickc: the preset '" + Utf8(key) +
                  "' is not exported; set the field Columns.FolderColumns[3]: 'Path' occurs twice\n");
    EXPECT_EQ(outcome.out, Console::FormatPresetFile({}));
}

TEST_F(TravelCommands, ImportStoresThePresetsInTheirOrderAboveAllOthers) {
    const std::wstring before = Make(L"Before");
    const std::vector<std::wstring> keys = Import(FileOf(R"([{"Name":"High"},{"Name":"Low","Position":9}])"));
    ASSERT_EQ(keys.size(), 2u);
    EXPECT_EQ(registry.Get(Root + keys[0], L"Name"), StringValue(L"High"));
    EXPECT_EQ(registry.Get(Root + keys[0], L"Position"), DwordValue(3));
    EXPECT_EQ(registry.Get(Root + keys[1], L"Name"), StringValue(L"Low"));
    EXPECT_EQ(registry.Get(Root + keys[1], L"Position"), DwordValue(2));
    EXPECT_EQ(registry.Get(Root + before, L"Position"), DwordValue(1));
    EXPECT_EQ(registry.Subkeys(L"Software\\Tamblewick").size(), 3u);
}

TEST_F(TravelCommands, ImportOfAnExportGivesTheSameValuesUnderNewKeys) {
    const std::wstring key = Make(L"\u00DCber \xD83D\xDE00");
    Printed({L"set", key, L"Display.IndentSize=4294967295", L"Columns.FileEnabled[9]=true",
             L"Filter.ExcludedFolders=[]", L"Saving.CustomFolderPath=D:\\\"a\""});
    const std::vector<std::wstring> keys = Import(Printed({L"export"}));
    ASSERT_EQ(keys.size(), 1u);
    EXPECT_NE(keys[0], key);
    std::vector<std::wstring> expected = ValuesOf(key);
    expected[1] = L"\\Position: 2";
    EXPECT_EQ(ValuesOf(keys[0]), expected);
}

TEST_F(TravelCommands, ImportReadsTheStandardInput) {
    FakeWin::SetStandardInput(FileOf(R"([{"Name":"Piped"}])"));
    const std::vector<std::wstring> keys = Lines(Printed({L"import", L"-"}));
    ASSERT_EQ(keys.size(), 1u);
    EXPECT_EQ(Text(keys[0], L"Name"), L"Piped");
}

TEST_F(TravelCommands, ImportOfNoPresetsStoresNothing) {
    EXPECT_TRUE(Import(FileOf("[]")).empty());
    EXPECT_FALSE(registry.KeyExists(L"Software\\Tamblewick"));
}

TEST_F(TravelCommands, ImportNamesAForeignProgramAndDoesNotStartIt) {
    const std::string file =
        FileOf(R"([{"Name":"Mine","Opening":{"OpenMethod":"Custom","CustomProgramPath":"C:\\evil.exe"}},)"
               R"({"Name":"Plain","Opening":{"OpenMethod":"Default"}}])");
    FakeWin::AddFile(File, file);
    const Outcome outcome = Run({L"import", File});
    EXPECT_EQ(outcome.code, ExitCode::Complete);
    EXPECT_EQ(outcome.error,
              "tamblewickc: the preset 'Mine' would open its lists with the program 'C:\\evil.exe'; its "
              "OpenMethod is "
              "now Nothing; use --trust if you know the program\n");
    const std::vector<std::wstring> keys = Lines(outcome.out);
    ASSERT_EQ(keys.size(), 2u);
    EXPECT_EQ(Text(keys[0] + L"\\Opening", L"OpenMethod"), L"Nothing");
    EXPECT_EQ(Text(keys[0] + L"\\Opening", L"CustomProgramPath"), L"C:\\evil.exe");
    EXPECT_EQ(Text(keys[1] + L"\\Opening", L"OpenMethod"), L"Default");

    const std::vector<std::wstring> trusted = Import(file, {L"--trust"});
    EXPECT_EQ(Text(trusted[0] + L"\\Opening", L"OpenMethod"), L"Custom");
}

TEST_F(TravelCommands, ReplaceTakesTheKeyAndThePositionOfTheSameName) {
    const std::wstring first = Make(L"First");
    const std::wstring second = Make(L"Second");
    registry.SetDword(Root + first, L"Foreign", 5);
    const std::vector<std::wstring> keys =
        Import(FileOf(R"([{"Name":"New"},{"Name":"First","Position":9,"Display":{"IndentSize":3}}])"),
               {L"--replace"});
    ASSERT_EQ(keys.size(), 2u);
    EXPECT_EQ(keys[1], first);
    Preset expected(L"");
    expected.Get(Preset::Name) = L"First";
    expected.Get(Preset::Position) = 1;
    expected.Get(Display::IndentSize) = 3;
    EXPECT_EQ(ValuesOf(first), TextsOf(expected));
    EXPECT_EQ(registry.Get(Root + first, L"Foreign"), DwordValue(5));
    EXPECT_EQ(registry.Get(Root + keys[0], L"Position"), DwordValue(3));
    EXPECT_EQ(registry.Get(Root + second, L"Position"), DwordValue(2));
    EXPECT_EQ(registry.Subkeys(L"Software\\Tamblewick").size(), 3u);
}

TEST_F(TravelCommands, ReplaceTakesNamesAndNoKeys) {
    const std::wstring key = Make(L"First");
    Import(FileOf("[{\"Name\":\"" + Utf8(key) + "\"}]"), {L"--replace"});
    EXPECT_EQ(Text(key, L"Name"), L"First");
}

TEST_F(TravelCommands, ReplaceTakesTheNameEvenIfItIsTheKeyOfAnother) {
    const std::wstring key = Make(L"First");
    const std::wstring named = Make(key);
    EXPECT_EQ(Import(FileOf("[{\"Name\":\"" + Utf8(key) + "\"}]"), {L"--replace"}),
              std::vector<std::wstring>{named});
    EXPECT_EQ(Text(key, L"Name"), L"First");
}

TEST_F(TravelCommands, AnInterruptWhileTheInputIsReadStoresNothing) {
    FakeWin::SetStandardInput(FileOf("[{}]"));
    FakeWin::AtUse(FakeWin::Call::ReadFile, 1, [] { FakeWin::SendConsoleEvent(CTRL_C_EVENT); });
    EXPECT_EQ(Run({L"import", L"-"}).code, ExitCode::Cancelled);
    Console::CatchInterrupts();
    // The read itself then ends without data.
    FakeWin::SetStandardInput("");
    FakeWin::AtUse(FakeWin::Call::ReadFile, 1, [] { FakeWin::SendConsoleEvent(CTRL_C_EVENT); });
    EXPECT_EQ(Run({L"import", L"-"}).code, ExitCode::Cancelled);
    EXPECT_TRUE(registry.Subkeys(L"Software\\Tamblewick").empty());
}

TEST_F(TravelCommands, ReplaceRefusesANameThatIsNotTheOnlyOne) {
    registry.SetString(Root + L"aaa", L"Name", L"Same");
    registry.SetString(Root + L"bbb", L"Name", L"Same");
    ExpectRefused(FileOf(R"([{"Name":"Other"},{"Name":"Same"}])"), ExitCode::WrongUsage,
                  "several presets have the name 'Same'; use one of the keys aaa, bbb", {L"--replace"});
    ExpectRefused(FileOf(R"([{"Name":"x"},{"Name":"x"}])"), ExitCode::Failed,
                  "several presets of the file have the name 'x'; import them without --replace",
                  {L"--replace"});
    EXPECT_EQ(Import(FileOf(R"([{"Name":"x"},{"Name":"x"}])")).size(), 2u);
}

TEST_F(TravelCommands, ReplaceRefusesADamagedPreset) {
    MakeDamaged(L"bad", L"Same", 1);
    ExpectRefused(FileOf(R"([{"Name":"Same"}])"), ExitCode::Failed,
                  "the preset 'bad' is damaged; remove it with 'tamblewickc presets remove bad'",
                  {L"--replace"});
}

TEST_F(TravelCommands, AFileThatDoesNotFitStoresNothing) {
    Make(L"Before");
    const std::string head = "the file 'C:\\Lists\\presets.json' is no file of presets: ";
    const std::pair<std::string, const char*> rows[] = {
        {"", "line 1, column 1: this is not valid JSON"},
        {"\xFF\xFE{", "line 1, column 1: this is not valid JSON"},
        {"{\n\"format\":1e400}", "line 2, column 14: this is not valid JSON"},
        {"{}", "format: the field is missing"},
        {FileOf(R"([{},{"Columns":{"FolderColumns":["Name"]}}])"),
         "presets[1].Columns.FolderColumns: expected an array of 12 values"},
        {FileOf(R"([{},{"Name":"a\ud800"}])"), "line 1, column 74: this is not valid JSON"},
        {FileOf(R"([{},{"Name":"a\u0000b"}])"), "presets[1].Name: a text must not contain the character NUL"},
        {FileOf(R"([{},{"name":"a"}])"), "presets[1].name: there is no such field"},
        {std::string(100'000, '['), "[0][0][0][0][0][0][0][0]: arrays and objects are nested too deeply"},
    };
    for (const auto& [file, message] : rows)
        ExpectRefused(file, ExitCode::Failed, head + message);
}

TEST_F(TravelCommands, AFileThatIsTooLargeIsNotRead) {
    const std::string message =
        "the file 'C:\\Lists\\presets.json' is too large; it can have at most 4194304 bytes";
    ExpectRefused(std::string(100'000'000, ' '), ExitCode::Failed, message);
    const std::string file = FileOf("[{}]");
    ExpectRefused(file + std::string(4194305 - file.size(), ' '), ExitCode::Failed, message);
    EXPECT_EQ(Import(file + std::string(4194304 - file.size(), ' ')).size(), 1u);
}

TEST_F(TravelCommands, AFileThatCannotBeReadIsNamed) {
    ExpectFailure({L"import", L"missing.json"}, ExitCode::Failed,
                  "the file 'missing.json' cannot be opened; check that it exists and may be read");
    ExpectFailure({L"import", L"C:\\Lists"}, ExitCode::Failed,
                  "the file 'C:\\Lists' cannot be opened; check that it exists and may be read");
    FakeWin::AddFile(File, FileOf("[]"));
    FakeWin::FailNth(FakeWin::Call::ReadFile, 1, ERROR_GEN_FAILURE);
    ExpectFailure({L"import", File}, ExitCode::Failed,
                  "the file 'C:\\Lists\\presets.json' could not be read");
    FakeWin::FailNth(FakeWin::Call::ReadFile, 1, ERROR_GEN_FAILURE);
    ExpectFailure({L"import", L"-"}, ExitCode::Failed, "the standard input could not be read");
    FakeWin::SetStandardInput("x");
    ExpectFailure({L"import", L"-"}, ExitCode::Failed,
                  "the standard input is no file of presets: line 1, column 1: this is not valid JSON");
}
