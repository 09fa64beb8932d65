#include "console/presets/PresetCommands.h"

#include <set>

#include "PresetsRun.h"
#include "settings/Preset.h"
#include "settings/PresetKey.h"
#include "settings/Templates.h"
#include "support/native/Snapshot.h"
#include "support/settings/RecordFields.h"

using Console::ExitCode;
using TestSupport::DwordValue;
using TestSupport::StringValue;
using TestSupport::Wide;

namespace {

using PresetCommands = PresetsFixture;

}  // namespace

TEST_F(PresetCommands, TemplatesHaveNumbersAndNames) {
    EXPECT_EQ(Printed({L"templates"}),
              "0\tAll files (Simple, Text)\n"
              "1\tAll files (Simple, HTML)\n"
              "2\tAll files (Details, HTML)\n"
              "3\tAudio-files (HTML)\n"
              "4\tVideo-files (HTML)\n"
              "5\tRepository (Exclude .git, .svn and .hg)\n");
}

TEST_F(PresetCommands, ListShowsKeyPositionAndNameInTheOrderOfTheWindow) {
    registry.SetString(Root + L"aaa", L"Name", L"Low");
    registry.SetDword(Root + L"aaa", L"Position", 1);
    registry.SetString(Root + L"bbb", L"Name", L"\u00DCber");
    registry.SetDword(Root + L"bbb", L"Position", 2);
    registry.SetString(Root + L"ccc", L"Name", L"Lowest");
    registry.SetDword(Root + L"ccc", L"Position", 0xFFFFFFFF);
    EXPECT_EQ(Printed({L"list"}),
              "bbb\t2\t\xC3\x9C"
              "ber\naaa\t1\tLow\nccc\t-1\tLowest\n");
}

TEST_F(PresetCommands, ListOfAnEmptyRegistryIsEmpty) {
    EXPECT_EQ(Printed({L"list"}), "");
    EXPECT_EQ(Printed({L"list", L"--json"}), "");
    EXPECT_FALSE(registry.KeyExists(L"Software\\Tamblewick"));
}

TEST_F(PresetCommands, ListShowsANameInOneLine) {
    registry.SetString(Root + L"aaa", L"Name", L"a\tb\r\nc\xD800z");
    EXPECT_EQ(Printed({L"list"}), "aaa\t0\ta b  c\xEF\xBF\xBDz\n");
    EXPECT_EQ(Printed({L"list", L"--json"}),
              "{\"key\":\"aaa\",\"position\":0,\"name\":\"a\\tb\\r\\nc\xEF\xBF\xBDz\"}\n");
}

TEST_F(PresetCommands, ListShowsWhatCouldBeReadOfADamagedPreset) {
    MakeDamaged(L"bad", L"Damaged", 2);
    registry.SetString(Root + L"good", L"Name", L"Whole");
    registry.SetDword(Root + L"good", L"Position", 1);
    const std::string warning =
        "tamblewickc: the preset 'bad' is damaged; remove it with 'tamblewickc presets remove bad'\n";
    const Outcome plain = Run({L"list"});
    EXPECT_EQ(plain.code, ExitCode::Complete);
    EXPECT_EQ(plain.out, "bad\t2\tDamaged\ngood\t1\tWhole\n");
    EXPECT_EQ(plain.error, warning);
    const Outcome json = Run({L"list", L"--json"});
    EXPECT_EQ(json.out,
              "{\"key\":\"bad\",\"position\":2,\"name\":\"Damaged\",\"damaged\":true}\n"
              "{\"key\":\"good\",\"position\":1,\"name\":\"Whole\"}\n");
    EXPECT_EQ(json.error, warning);
}

TEST_F(PresetCommands, NewStoresTheValuesOfTheTemplate) {
    for (const wchar_t* name : {L"3", L"Audio-files (HTML)"}) {
        std::string key = Printed({L"new", name});
        key.pop_back();
        Preset stored(Wide(key));
        EXPECT_TRUE(stored.Load());
        Preset expected(L"");
        ApplyTemplate(expected, 3);
        expected.Get(Preset::Position) = stored.Get(Preset::Position);
        EXPECT_EQ(TextsOf(stored), TextsOf(expected));
    }
}

TEST_F(PresetCommands, NewTakesANameAndTheFirstPlace) {
    EXPECT_EQ(registry.Get(Root + Make(L"First"), L"Position"), DwordValue(1));
    const std::wstring key = Make(L"Second");
    EXPECT_EQ(registry.Get(Root + key, L"Position"), DwordValue(2));
    EXPECT_EQ(registry.Get(Root + key, L"Name"), StringValue(L"Second"));
}

TEST_F(PresetCommands, TheHighestPositionIsNotExceeded) {
    registry.SetDword(Root + L"aaa", L"Position", 0x7FFFFFFF);
    EXPECT_EQ(registry.Get(Root + Make(L"Another"), L"Position"), DwordValue(0x7FFFFFFF));
}

TEST_F(PresetCommands, ThePositionsOfPresetsBelowZeroDoNotCount) {
    registry.SetDword(Root + L"aaa", L"Position", 0xFFFFFFF0);
    EXPECT_EQ(registry.Get(Root + Make(L"Another"), L"Position"), DwordValue(1));
}

TEST_F(PresetCommands, NewKeysAreDifferentInOneSecond) {
    std::set<std::wstring> keys;
    for (int i = 0; i < 60; ++i) {
        const std::wstring key = Make(L"x");
        EXPECT_FALSE(key.empty());
        keys.insert(key);
    }
    EXPECT_EQ(keys.size(), 60u);
    EXPECT_EQ(registry.Subkeys(L"Software\\Tamblewick").size(), 60u);
}

// The window program draws its keys from the current second.
TEST_F(PresetCommands, NewKeysAreNotThoseOfTheWindow) {
    std::set<std::wstring> keys;
    for (int i = 0; i < 20; ++i)
        keys.insert(Make(L"x"));
    EXPECT_FALSE(keys.contains(MakePresetKey()));
    EXPECT_FALSE(keys.contains(MakePresetKey()));
}

TEST_F(PresetCommands, DuplicateCopiesAllButThePosition) {
    const std::wstring key = Make(L"Source");
    Printed({L"set", key, L"Display.IndentSize=17", L"Opening.OpenMethod=Nothing"});
    Make(L"Between");
    std::string copy = Printed({L"duplicate", L"Source"});
    copy.pop_back();
    Preset source(key);
    Preset stored(Wide(copy));
    EXPECT_TRUE(source.Load());
    EXPECT_TRUE(stored.Load());
    EXPECT_EQ(stored.Get(Preset::Name), L"Copy of Source");
    EXPECT_EQ(stored.Get(Preset::Position), 3);
    stored.Get(Preset::Name) = L"Source";
    stored.Get(Preset::Position) = 1;
    EXPECT_EQ(TextsOf(stored), TextsOf(source));

    std::string named = Printed({L"duplicate", key, L"Own name"});
    named.pop_back();
    EXPECT_EQ(Text(Wide(named), L"Name"), L"Own name");
}

TEST_F(PresetCommands, RenameWritesTheNameAlone) {
    const std::wstring key = Make(L"Before");
    FakeWin::ClearLog();
    EXPECT_EQ(Printed({L"rename", L"Before", L"After"}), "");
    EXPECT_EQ(Text(key, L"Name"), L"After");
    for (const FakeWin::LoggedCall& call : FakeWin::Log())
        if (call.call == FakeWin::Call::RegSetValueExW)
            EXPECT_EQ(call.subject, L"HKCU\\Software\\Tamblewick\\" + key + L"\\Name");
}

TEST_F(PresetCommands, RemoveTakesKeysAndNames) {
    const std::wstring first = Make(L"First");
    const std::wstring second = Make(L"Second");
    const std::wstring third = Make(L"Third");
    EXPECT_EQ(Printed({L"remove", L"Third", first, first}), "");
    EXPECT_EQ(registry.Subkeys(L"Software\\Tamblewick"), std::vector<std::wstring>{second});
    EXPECT_EQ(registry.Get(Root + second, L"Position"), DwordValue(2));
}

TEST_F(PresetCommands, RemoveRemovesNothingIfOneIsUnknown) {
    const std::wstring key = Make(L"First");
    ExpectFailure({L"remove", L"First", L"nope"}, ExitCode::WrongUsage,
                  "there is no preset 'nope'; see 'tamblewickc presets list'");
    EXPECT_TRUE(registry.KeyExists(Root + key));
}

TEST_F(PresetCommands, ADamagedPresetCanBeRemovedAndStopsNoOther) {
    MakeDamaged(L"bad", L"Damaged", 7);
    const std::wstring key = Make(L"Whole");
    EXPECT_EQ(registry.Get(Root + key, L"Position"), DwordValue(8));
    Printed({L"rename", key, L"Renamed"});
    Printed({L"set", key, L"Display.IndentSize=3"});
    EXPECT_EQ(Text(L"bad\\Format", L"ListStyle"), L"Ht\xD800");
    Printed({L"remove", L"Damaged"});
    EXPECT_EQ(registry.Subkeys(L"Software\\Tamblewick"), std::vector<std::wstring>{key});
}

TEST_F(PresetCommands, ADamagedPresetIsNotRead) {
    MakeDamaged(L"bad", L"Damaged", 7);
    const TestSupport::Snapshot before = TestSupport::RegistryNow();
    const std::string message =
        "the preset 'bad' is damaged; remove it with 'tamblewickc presets remove bad'";
    ExpectFailure({L"get", L"bad"}, ExitCode::Failed, message);
    ExpectFailure({L"set", L"bad", L"Name=x"}, ExitCode::Failed, message);
    ExpectFailure({L"rename", L"Damaged", L"x"}, ExitCode::Failed, message);
    ExpectFailure({L"duplicate", L"bad"}, ExitCode::Failed, message);
    EXPECT_EQ(TestSupport::Differences(TestSupport::RegistryNow(), before), "");
}

TEST_F(PresetCommands, AKeyComesBeforeAName) {
    registry.SetString(Root + L"aaa", L"Name", L"bbb");
    registry.SetString(Root + L"bbb", L"Name", L"aaa");
    EXPECT_EQ(Printed({L"get", L"aaa", L"Name"}), "bbb\n");
    EXPECT_EQ(Printed({L"get", L"bbb", L"Name"}), "aaa\n");
}

TEST_F(PresetCommands, ANameThatSeveralPresetsHaveIsRefusedWithTheirKeys) {
    registry.SetString(Root + L"aaa", L"Name", L"Same");
    registry.SetDword(Root + L"aaa", L"Position", 1);
    registry.SetString(Root + L"bbb", L"Name", L"Same");
    registry.SetDword(Root + L"bbb", L"Position", 2);
    for (const Console::Arguments& arguments : {Console::Arguments{L"get", L"Same"},
                                                {L"remove", L"Same"},
                                                {L"duplicate", L"Same"},
                                                {L"export", L"Same"}})
        ExpectFailure(arguments, ExitCode::WrongUsage,
                      "several presets have the name 'Same'; use one of the keys bbb, aaa");
}

TEST_F(PresetCommands, ANameWithHalfASurrogatePairIsFoundAsItIsPrinted) {
    registry.SetString(Root + L"aaa", L"Name", L"a\xD800z");
    EXPECT_EQ(Printed({L"get", L"a\uFFFDz", L"Position"}), "0\n");
}

TEST_F(PresetCommands, WhatIsUnknownIsNamed) {
    const std::string unknown = "there is no preset 'nope'; see 'tamblewickc presets list'";
    for (const Console::Arguments& arguments : {Console::Arguments{L"get", L"nope"},
                                                {L"remove", L"nope"},
                                                {L"duplicate", L"nope"},
                                                {L"rename", L"nope", L"x"},
                                                {L"set", L"nope", L"Name=x"},
                                                {L"export", L"nope"}})
        ExpectFailure(arguments, ExitCode::WrongUsage, unknown);
    for (const wchar_t* name : {L"6", L"-1", L"00", L"", L"audio-files (html)"})
        ExpectFailure(
            {L"new", L"--", name}, ExitCode::WrongUsage,
            "there is no template '" + TestSupport::Utf8(name) + "'; see 'tamblewickc presets templates'");
    EXPECT_FALSE(registry.KeyExists(L"Software\\Tamblewick"));
}
