#include <gtest/gtest.h>

#include "FakeWin.h"
#include "FakeWindows.h"
#include "settings/MainSettings.h"
#include "support/TestRegistry.h"

using namespace TestSupport;
using FakeWin::Call;

namespace {

const std::wstring Root = L"Software\\Tamblewick";
const std::wstring RootSubject = L"HKCU\\Software\\Tamblewick";

struct Placement {
    RECT desktop;
    int32_t x;
    int32_t y;
};

TEST(MainSettingsFaults, TheWindowIsCentredInUnsignedArithmetic) {
    const Placement rows[] = {
        {{0, 0, 1024, 768}, 222, 204},
        {{0, 0, 1025, 769}, 222, 204},
        {{-1280, -200, 0, 824}, 350, 332},
        {{0, 0, 580, 360}, 0, 0},
        {{0, 0, 400, 300}, 2147483558, 2147483618},
        {{0, 0, 579, 359}, 2147483647, 2147483647},
        {{0, 0, 0, 0}, 2147483358, 2147483468},
    };
    for (const Placement& row : rows) {
        FakeWin::SetDesktop(row.desktop);
        const MainSettings settings;
        EXPECT_EQ(settings.Get(MainSettings::WindowPosX), row.x) << row.desktop.right;
        EXPECT_EQ(settings.Get(MainSettings::WindowPosY), row.y) << row.desktop.bottom;
    }
}

TEST(MainSettingsFaults, WithoutADesktopTheWindowIsAt100) {
    FakeWin::RemoveDesktop();
    const MainSettings settings;
    EXPECT_EQ(settings.Get(MainSettings::WindowPosX), 100);
    EXPECT_EQ(settings.Get(MainSettings::WindowPosY), 100);
}

TEST(MainSettingsFaults, AFailedSaveIsSilent) {
    TestRegistry registry;
    FakeWin::Fail(Call::RegCreateKeyExW, ERROR_ACCESS_DENIED);
    MainSettings settings;
    EXPECT_FALSE(settings.SaveMain());
    const Preset& preset = settings.CreatePreset();
    EXPECT_EQ(preset.Get(Preset::Position), 1);
    EXPECT_FALSE(preset.Save());
    EXPECT_FALSE(registry.KeyExists(Root));
}

TEST(MainSettingsFaults, ARootKeyThatCannotBeReadGivesAnEmptyList) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    FakeWin::FailOn(Call::RegOpenKeyExW, RootSubject, ERROR_ACCESS_DENIED);
    MainSettings settings;
    EXPECT_FALSE(settings.LoadAll());
    EXPECT_TRUE(settings.Presets.empty());
    EXPECT_EQ(settings.FindPreset(L"abc"), nullptr);
}

TEST(MainSettingsFaults, AnEnumerationThatCannotBeginGivesAnEmptyList) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    FakeWin::FailOn(Call::RegQueryInfoKeyW, RootSubject, ERROR_ACCESS_DENIED);
    MainSettings settings;
    settings.LoadAll();
    EXPECT_TRUE(settings.Presets.empty());
}

TEST(MainSettingsFaults, ASubkeyThatCannotBeEnumeratedIsSkipped) {
    TestRegistry registry;
    for (const wchar_t* key : {L"a", L"b", L"c"})
        EXPECT_TRUE(Preset(key).Save());
    FakeWin::FailNth(Call::RegEnumKeyExW, 2, ERROR_MORE_DATA);
    MainSettings settings;
    settings.LoadAll();
    ASSERT_EQ(settings.Presets.size(), 2u);
    EXPECT_EQ(settings.Presets.front()->Key(), L"a");
    EXPECT_EQ(settings.Presets.back()->Key(), L"c");
}

TEST(MainSettingsFaults, KeysAreComparedUnitByUnitWhenTheLocaleFails) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    MainSettings settings;
    FakeWin::Fail(Call::CompareStringW, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(settings.FindPreset(L"abd"), nullptr);
    EXPECT_EQ(settings.FindPreset(L"ABC"), nullptr);
    EXPECT_NE(settings.FindPreset(L"abc"), nullptr);
    EXPECT_NE(settings.FindPreset(L"abc"), nullptr);
    EXPECT_EQ(settings.Presets.size(), 1u);
}

TEST(MainSettingsFaults, KeysAreOpenedWithTheAccessTheyNeedAndClosed) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    FakeWin::ClearLog();
    MainSettings settings;
    settings.LoadAll();
    for (const FakeWin::LoggedCall& logged : FakeWin::Log()) {
        EXPECT_NE(logged.call, Call::RegCreateKeyExW);
        if (logged.call == Call::RegOpenKeyExW)
            EXPECT_EQ(logged.detail, DWORD{0x20019});
    }
    FakeWin::ClearLog();
    settings.Presets.front()->DeleteKey();
    for (const FakeWin::LoggedCall& logged : FakeWin::Log())
        if (logged.call == Call::RegOpenKeyExW)
            EXPECT_EQ(logged.detail, DWORD{0xF003F});
    EXPECT_EQ(FakeWin::OpenKeys(), 0);
}

TEST(MainSettingsFaults, DeleteKeyOfTheEmptyKeyDoesNotEvenOpenTheRootKey) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    FakeWin::ClearLog();
    Preset(L"").DeleteKey();
    EXPECT_TRUE(FakeWin::Log().empty());
}

TEST(MainSettingsFaults, AFailedDeleteLeavesThePresetForTheNextStart) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    FakeWin::FailOn(Call::RegOpenKeyExW, RootSubject, ERROR_ACCESS_DENIED, 1);
    Preset(L"abc").DeleteKey();
    EXPECT_TRUE(registry.KeyExists(Root + L"\\abc\\Format"));
    FakeWin::FailOn(Call::RegDeleteKeyW, RootSubject + L"\\abc", ERROR_ACCESS_DENIED, 1);
    Preset(L"abc").DeleteKey();
    MainSettings settings;
    settings.LoadAll();
    EXPECT_EQ(settings.Presets.size(), 1u);
}

}  // namespace
