// The presets that "list" takes: of the registry, of a template and of a file.
#include "console/presets/PresetChoice.h"

#include "PresetsRun.h"
#include "support/native/Snapshot.h"

using Console::ExitCode;

namespace {

constexpr wchar_t File[] = L"C:\\presets.json";

struct PresetChoice : PresetsFixture {
    PresetChoice() { FakeWin::AddFile(L"C:\\Data\\a.txt"); }

    // Runs "list" with these arguments, a folder and "-o -".
    static Outcome List(Console::Arguments arguments) {
        const size_t out = FakeWin::StandardOutput().size();
        const size_t error = FakeWin::StandardError().size();
        arguments.insert(arguments.begin(), L"list");
        arguments.insert(arguments.end(), {L"C:\\Data", L"-o", L"-"});
        const ExitCode code = Console::RunProgram(arguments);
        return {code, FakeWin::StandardOutput().substr(out), FakeWin::StandardError().substr(error)};
    }

    static void AddFile(const std::string& presets) {
        FakeWin::AddFile(File, R"({"format":"tamblewick-presets","version":1,"presets":)" + presets + "}");
    }

    static void ExpectRefused(const Console::Arguments& arguments, ExitCode code,
                              const std::string& message) {
        const Outcome outcome = List(arguments);
        EXPECT_EQ(outcome.code, code);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.error.substr(0, outcome.error.find('\n')), "tamblewickc: " + message);
    }
};

}  // namespace

TEST_F(PresetChoice, ListTakesTheOnlyPresetOfAFileAndStoresNothing) {
    AddFile(R"([{"Name":"Html","Format":{"ListStyle":"Html"}}])");
    const Outcome outcome = List({L"--preset-file", File});
    EXPECT_EQ(outcome.code, ExitCode::Complete) << outcome.error;
    EXPECT_NE(outcome.out.find("<html"), std::string::npos);
    EXPECT_EQ(TestSupport::Differences(TestSupport::RegistryNow(), {}), "");
}

TEST_F(PresetChoice, ListTakesThePresetWithANameOfAFile) {
    AddFile(R"([{"Name":"Text"},{"Name":"Html","Format":{"ListStyle":"Html"}}])");
    const Outcome outcome = List({L"--preset-file", File, L"--preset", L"Html"});
    EXPECT_EQ(outcome.code, ExitCode::Complete) << outcome.error;
    EXPECT_NE(outcome.out.find("<html"), std::string::npos);
}

TEST_F(PresetChoice, ListReadsAFileOfPresetsFromTheStandardInput) {
    FakeWin::SetStandardInput(R"({"format":"tamblewick-presets","version":1,"presets":[{}]})");
    EXPECT_EQ(List({L"--preset-file", L"-"}).code, ExitCode::Complete);
}

TEST_F(PresetChoice, OneOfSeveralPresetsOfAFileMustBeNamed) {
    const std::string file = "the file 'C:\\presets.json' has ";
    AddFile(R"([{"Name":"A"},{"Name":"B"},{"Name":"B"}])");
    ExpectRefused({L"--preset-file", File}, ExitCode::WrongUsage,
                  file + "several presets; choose one with --preset NAME");
    ExpectRefused({L"--preset-file", File, L"--preset", L"B"}, ExitCode::WrongUsage,
                  file + "several presets with the name 'B'");
    ExpectRefused({L"--preset-file", File, L"--preset", L"C"}, ExitCode::WrongUsage,
                  file + "no preset with the name 'C'");
    AddFile("[]");
    ExpectRefused({L"--preset-file", File}, ExitCode::WrongUsage, file + "no preset");
}

TEST_F(PresetChoice, AFileThatDoesNotFitIsRefused) {
    AddFile(R"([{"Name":1}])");
    ExpectRefused({L"--preset-file", File}, ExitCode::Failed,
                  "the file 'C:\\presets.json' is no file of presets: presets[0].Name: expected a text");
    ExpectRefused({L"--preset-file", L"missing"}, ExitCode::Failed,
                  "the file 'missing' cannot be opened; check that it exists and may be read");
}

TEST_F(PresetChoice, AProgramThatAFileNamesIsNotStarted) {
    AddFile(R"([{"Opening":{"OpenMethod":"Custom","CustomProgramPath":"C:\\evil.exe"}}])");
    EXPECT_EQ(Console::PresetOfFile(File, std::nullopt).Get(Opening::OpenMethod), OpenMethod::Nothing);
}

TEST_F(PresetChoice, OptionsThatContradictEachOtherAreWrongUsage) {
    AddFile("[{}]");
    ExpectRefused({L"--preset-file", File, L"--template", L"0"}, ExitCode::WrongUsage,
                  "--template and --preset-file exclude each other");
    ExpectRefused({L"--template", L"0", L"--preset", L"A"}, ExitCode::WrongUsage,
                  "--preset is for --preset-file");
    ExpectRefused({L"--preset-file", File, L"key"}, ExitCode::WrongUsage,
                  "there is no place for the argument 'key', since an option chooses the preset");
}

TEST_F(PresetChoice, ADamagedPresetStopsNoListOfAnother) {
    MakeDamaged(L"bad", L"Damaged", 1);
    const std::wstring key = Make(L"Whole");
    EXPECT_EQ(Console::PresetByName(key).Key(), key);
    EXPECT_EQ(List({L"Whole"}).code, ExitCode::Complete);
}

TEST_F(PresetChoice, ADamagedPresetMakesNoList) {
    MakeDamaged(L"bad", L"Damaged", 1);
    ExpectRefused({L"bad"}, ExitCode::Failed,
                  "the preset 'bad' is damaged; remove it with 'tamblewickc presets remove bad'");
}

TEST_F(PresetChoice, ListTakesNoNameThatSeveralPresetsHave) {
    registry.SetString(Root + L"aaa", L"Name", L"Same");
    registry.SetString(Root + L"bbb", L"Name", L"Same");
    ExpectRefused({L"Same"}, ExitCode::WrongUsage,
                  "several presets have the name 'Same'; use one of the keys aaa, bbb");
}
