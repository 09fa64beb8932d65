// "presets get" and "presets set".
#include "PresetsRun.h"
#include "settings/Preset.h"
#include "support/native/Snapshot.h"
#include "support/settings/RecordFields.h"

using Console::ExitCode;
using TestSupport::DwordValue;
using TestSupport::StringListValue;
using TestSupport::StringValue;

namespace {

struct FieldCommands : PresetsFixture {
    FieldCommands() : key(Make(L"Mine")) {}

    // Expects that setting these fields fails with this message and stores nothing.
    void ExpectRefused(Console::Arguments assignments, const std::string& message) const {
        const TestSupport::Snapshot before = TestSupport::RegistryNow();
        assignments.insert(assignments.begin(), {L"set", key});
        ExpectFailure(assignments, ExitCode::WrongUsage, message);
        EXPECT_EQ(TestSupport::Differences(TestSupport::RegistryNow(), before), "") << message;
    }

    const std::wstring key;
};

}  // namespace

TEST_F(FieldCommands, GetPrintsAllFieldsInTheFormOfSet) {
    EXPECT_EQ(
        Printed({L"get", L"Mine"}),
        "Name=Mine\n"
        "Position=1\n"
        "Format.ListStyle=Text\n"
        "Format.EnableUtf8=true\n"
        "Display.SearchSubfolders=true\n"
        "Display.SearchHidden=false\n"
        "Display.ShowStatistics=false\n"
        "Display.ShowFlatStyle=false\n"
        "Display.IndentSize=1\n"
        "Display.SizeStyle=Dynamic\n"
        "Columns.ShowHeaders=false\n"
        "Columns.FolderColumns=[\"PathAndName\",\"Number\",\"Path\",\"Name\",\"Size\",\"Attributes\","
        "\"TimeCreated\",\"LastTimeAccessed\",\"LastTimeWritten\",\"NumberOfFolders\",\"NumberOfFiles\","
        "\"NumberOfFoldersAndFiles\"]\n"
        "Columns.FolderEnabled=[true,false,false,false,false,false,false,false,false,false,false,false]\n"
        "Columns.FileColumns=[\"PathAndFilename\",\"Number\",\"Path\",\"Filename\","
        "\"FilenameWithoutExtension\",\"Extension\",\"Size\",\"Attributes\",\"TimeCreated\","
        "\"LastTimeAccessed\",\"LastTimeWritten\"]\n"
        "Columns.FileEnabled=[true,false,false,false,false,false,false,false,false,false,false]\n"
        "Filter.PresetSearchPattern=0\n"
        "Filter.CustomSearchPattern=*\n"
        "Filter.ExcludedFolders=[\"?:\\\\System Volume Information\"]\n"
        "Saving.SaveLocation=Temporary\n"
        "Saving.CustomFolderPath=\n"
        "Saving.OverwriteExisting=false\n"
        "Opening.OpenMethod=Default\n"
        "Opening.CustomProgramPath=\n"
        "Sorting.SortDigitsAsNumbers=false\n"
        "Sorting.FolderSortKeys=[\"Path\",\"Name\",\"Size\",\"TimeCreated\",\"LastTimeAccessed\","
        "\"LastTimeWritten\",\"NumberOfFolders\",\"NumberOfFiles\",\"NumberOfFoldersAndFiles\"]\n"
        "Sorting.FolderSortOrder=[\"Ascending\",\"Ascending\",\"Descending\",\"Ascending\",\"Ascending\","
        "\"Ascending\",\"Ascending\",\"Ascending\",\"Ascending\"]\n"
        "Sorting.FileSortKeys=[\"Path\",\"Name\",\"Extension\",\"Size\",\"TimeCreated\","
        "\"LastTimeAccessed\",\"LastTimeWritten\"]\n"
        "Sorting.FileSortOrder=[\"Ascending\",\"Ascending\",\"Ascending\",\"Descending\",\"Ascending\","
        "\"Ascending\",\"Ascending\"]\n");
}

TEST_F(FieldCommands, GetPrintsTheValueOfAFieldOrAnElement) {
    EXPECT_EQ(Printed({L"get", key, L"Name"}), "Mine\n");
    EXPECT_EQ(Printed({L"get", key, L"Saving.CustomFolderPath"}), "\n");
    EXPECT_EQ(Printed({L"get", key, L"Display.SearchSubfolders"}), "true\n");
    EXPECT_EQ(Printed({L"get", key, L"Columns.FolderColumns[3]"}), "Name\n");
    EXPECT_EQ(Printed({L"get", key, L"Columns.FileEnabled[10]"}), "false\n");
    EXPECT_EQ(Printed({L"get", key, L"Filter.ExcludedFolders"}), "[\"?:\\\\System Volume Information\"]\n");
    EXPECT_EQ(Printed({L"get", key, L"Filter.ExcludedFolders[0]"}), "?:\\System Volume Information\n");
}

TEST_F(FieldCommands, OnlyGetOfOneFieldKeepsLineFeeds) {
    registry.SetString(Root + key, L"Name", L"a\nb\tc");
    EXPECT_EQ(Printed({L"get", key, L"Name"}), "a\nb\tc\n");
    EXPECT_TRUE(Printed({L"get", key}).starts_with("Name=a b c\nPosition=1\n"));
}

TEST_F(FieldCommands, SetStoresEachKindOfValue) {
    EXPECT_EQ(Printed({L"set", L"Mine", L"Saving.SaveLocation=Custom", L"Saving.CustomFolderPath=D:\\Lists",
                       L"Opening.OpenMethod=Nothing", L"Display.IndentSize=7",
                       L"Filter.PresetSearchPattern=8", L"Display.ShowFlatStyle=true",
                       L"Filter.ExcludedFolders=[\"*\\\\.git\", \"x=y\"]", L"Filter.CustomSearchPattern=a=b",
                       L"Name=\u00DCber \"x\"", L"Position=-3", L"Columns.FileEnabled[0]=false",
                       L"Columns.FileEnabled[10]=true", L"Sorting.FileSortOrder[1]=Descending"}),
              "");
    EXPECT_EQ(registry.Get(Root + key + L"\\Saving", L"SaveLocation"), StringValue(L"Custom"));
    EXPECT_EQ(registry.Get(Root + key + L"\\Saving", L"CustomFolderPath"), StringValue(L"D:\\Lists"));
    EXPECT_EQ(registry.Get(Root + key + L"\\Opening", L"OpenMethod"), StringValue(L"Nothing"));
    EXPECT_EQ(registry.Get(Root + key + L"\\Display", L"IndentSize"), DwordValue(7));
    EXPECT_EQ(registry.Get(Root + key + L"\\Display", L"ShowFlatStyle"), DwordValue(1));
    EXPECT_EQ(registry.Get(Root + key + L"\\Filter", L"PresetSearchPattern"), DwordValue(8));
    EXPECT_EQ(registry.Get(Root + key + L"\\Filter", L"ExcludedFolders"),
              StringListValue({L"*\\.git", L"x=y"}));
    EXPECT_EQ(registry.Get(Root + key + L"\\Filter", L"CustomSearchPattern"), StringValue(L"a=b"));
    EXPECT_EQ(registry.Get(Root + key, L"Name"), StringValue(L"\u00DCber \"x\""));
    EXPECT_EQ(registry.Get(Root + key, L"Position"), DwordValue(0xFFFFFFFD));
    EXPECT_EQ(registry.Get(Root + key + L"\\Columns\\FileEnabled", L"0"), DwordValue(0));
    EXPECT_EQ(registry.Get(Root + key + L"\\Columns\\FileEnabled", L"10"), DwordValue(1));
    EXPECT_EQ(registry.Get(Root + key + L"\\Sorting\\FileSortOrder", L"1"), StringValue(L"Descending"));
}

TEST_F(FieldCommands, SetTakesWhatGetPrints) {
    const std::wstring other = Make(L"Other");
    Printed({L"set", key, L"Display.IndentSize=7", L"Columns.FileEnabled[3]=true",
             L"Saving.CustomFolderPath=D:\\a b", L"Filter.ExcludedFolders=[]", L"Format.ListStyle=Html"});
    Console::Arguments arguments = {L"set", other};
    std::wstring lines = TestSupport::Wide(Printed({L"get", key}));
    for (size_t end; (end = lines.find(L'\n')) != std::wstring::npos; lines.erase(0, end + 1))
        arguments.push_back(lines.substr(0, end));
    Printed(arguments);
    Preset first(key);
    Preset second(other);
    EXPECT_TRUE(first.Load());
    EXPECT_TRUE(second.Load());
    EXPECT_EQ(TextsOf(second), TextsOf(first));
}

TEST_F(FieldCommands, SetWritesNothingElse) {
    const TestSupport::Snapshot before = TestSupport::RegistryNow();
    registry.SetString(Root + key + L"\\Format", L"ListStyle", L"unknown");
    registry.SetDword(Root + key, L"Foreign", 1);
    const TestSupport::Snapshot damaged = TestSupport::RegistryNow();
    FakeWin::ClearLog();
    Printed({L"set", key, L"Display.IndentSize=9", L"Display.ShowFlatStyle=false"});
    std::vector<std::wstring> written;
    for (const FakeWin::LoggedCall& call : FakeWin::Log())
        if (call.call == FakeWin::Call::RegSetValueExW)
            written.push_back(call.subject);
    EXPECT_EQ(written,
              std::vector<std::wstring>{L"HKCU\\Software\\Tamblewick\\" + key + L"\\Display\\IndentSize"});
}

TEST_F(FieldCommands, ElementsCanBeExchangedInOneCall) {
    Printed({L"set", key, L"Columns.FolderColumns[0]=Number", L"Columns.FolderColumns[1]=PathAndName"});
    EXPECT_EQ(Text(key + L"\\Columns\\FolderColumns", L"0"), L"Number");
    EXPECT_EQ(Text(key + L"\\Columns\\FolderColumns", L"1"), L"PathAndName");
}

TEST_F(FieldCommands, TheLastValueOfAFieldCounts) {
    Printed({L"set", key, L"Display.IndentSize=5", L"Display.IndentSize=6"});
    EXPECT_EQ(registry.Get(Root + key + L"\\Display", L"IndentSize"), DwordValue(6));
    Printed({L"set", key, L"Columns.FileEnabled[1]=true",
             L"Columns.FileEnabled="
             L"[false,false,false,false,false,"
             L"false,false,false,false,false,true]"});
    EXPECT_EQ(registry.Get(Root + key + L"\\Columns\\FileEnabled", L"1"), DwordValue(0));
    EXPECT_EQ(registry.Get(Root + key + L"\\Columns\\FileEnabled", L"10"), DwordValue(1));
}

TEST_F(FieldCommands, ADamagedValueOfAnotherFieldStopsNothing) {
    registry.SetDword(Root + key + L"\\Filter", L"PresetSearchPattern", 99);
    registry.SetString(Root + key + L"\\Columns\\FolderColumns", L"1", L"PathAndName");
    Printed({L"set", key, L"Display.IndentSize=5"});
    EXPECT_EQ(registry.Get(Root + key + L"\\Display", L"IndentSize"), DwordValue(5));
}

TEST_F(FieldCommands, AValueThatDoesNotFitIsRefusedWithItsField) {
    ExpectRefused(
        {L"Display.IndentSize=5", L"Display.SizeStyle=Huge"},
        "Display.SizeStyle: expected one of Dynamic, Dynamic0, Bytes, KibiBytes, MebiBytes, GibiBytes, "
        "TebiBytes");
    ExpectRefused({L"Display.IndentSize=x"}, "Display.IndentSize: line 1, column 1: this is not valid JSON");
    ExpectRefused({L"Display.IndentSize="}, "Display.IndentSize: line 1, column 1: this is not valid JSON");
    ExpectRefused({L"Display.IndentSize=-1"},
                  "Display.IndentSize: expected a whole number from 0 to 4294967295");
    ExpectRefused({L"Display.SearchHidden=yes"},
                  "Display.SearchHidden: line 1, column 1: this is not valid JSON");
    ExpectRefused({L"Display.SearchHidden=1"}, "Display.SearchHidden: expected true or false");
    ExpectRefused({L"Filter.PresetSearchPattern=9"},
                  "Filter.PresetSearchPattern: expected a whole number from 0 to 8");
    ExpectRefused({L"Filter.ExcludedFolders=*\\.git"},
                  "Filter.ExcludedFolders: line 1, column 1: this is not valid JSON");
    ExpectRefused({L"Columns.FolderColumns[1]=PathAndName"},
                  "Columns.FolderColumns[1]: 'PathAndName' occurs twice");
    ExpectRefused({L"Columns.FileEnabled=[true]"}, "Columns.FileEnabled: expected an array of 11 values");
    ExpectRefused({L"Filter.ExcludedFolders[0]="}, "Filter.ExcludedFolders[0]: the text must not be empty");
}

TEST_F(FieldCommands, AFieldThatDoesNotExistIsRefused) {
    for (const wchar_t* field :
         {L"Format", L"name", L"Format.", L"Format.ListStyle[0]", L"Columns.FileEnabled[11]",
          L"Columns.FileEnabled[01]", L"Columns.FileEnabled[-1]", L"Columns.FileEnabled[0",
          L"Columns.FileEnabled[]", L"Filter.ExcludedFolders[1]", L"/Format/ListStyle", L"Key", L"",
          L"Format.~"}) {
        const std::string message = "there is no field '" + TestSupport::Utf8(field) +
                                    "'; 'tamblewickc presets get PRESET' prints all fields";
        ExpectRefused({std::wstring(field) + L"=x"}, message);
        ExpectFailure({L"get", key, field}, ExitCode::WrongUsage, message);
    }
}

TEST_F(FieldCommands, AnArgumentWithoutAnEqualsSignIsWrongUsage) {
    ExpectRefused({L"Display.IndentSize=5", L"Display.IndentSize"},
                  "the argument 'Display.IndentSize' is not of the form FIELD=VALUE\n"
                  "Usage: tamblewickc presets set PRESET FIELD=VALUE...");
}
