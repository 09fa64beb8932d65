#include "settings/MainSettings.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "PresetValues.h"
#include "settings/Templates.h"
#include "support/TestRegistry.h"
#include "winlib/Windows.h"

using namespace TestSupport;

namespace {

const std::wstring Root = L"Software\\Tamblewick";

std::vector<std::wstring> Keys(const MainSettings& settings) {
    std::vector<std::wstring> keys;
    for (const auto& preset : settings.Presets)
        keys.push_back(preset->Key());
    return keys;
}

TEST(MainSettings, ANewObjectHasTheDefaultsAndTouchesNoRegistry) {
    TestRegistry registry;
    const MainSettings settings;
    EXPECT_EQ(settings.Get(MainSettings::WindowWidth), 580u);
    EXPECT_EQ(settings.Get(MainSettings::WindowHeight), 360u);
    EXPECT_TRUE(settings.Get(MainSettings::FirstRun));
    EXPECT_FALSE(settings.Get(MainSettings::ConfirmExit));
    EXPECT_TRUE(settings.Presets.empty());
    EXPECT_FALSE(registry.KeyExists(Root));
}

TEST(MainSettings, TheWindowIsInTheMiddleOfTheDesktop) {
    RECT desktop{};
    ASSERT_TRUE(GetWindowRect(GetDesktopWindow(), &desktop));
    ASSERT_GT(desktop.right - desktop.left, 580);
    ASSERT_GT(desktop.bottom - desktop.top, 360);
    const MainSettings settings;
    const int32_t x = settings.Get(MainSettings::WindowPosX);
    const int32_t y = settings.Get(MainSettings::WindowPosY);
    // As much room on the left as on the right, but for an odd pixel.
    EXPECT_NEAR(x - desktop.left, desktop.right - (x + 580), 1);
    EXPECT_NEAR(y - desktop.top, desktop.bottom - (y + 360), 1);
}

TEST(MainSettings, TheShellExtensionIsOurs) {
    const MainSettings settings;
    EXPECT_EQ(settings.Shell.Name, L"Tamblewick");
    EXPECT_EQ(settings.Shell.ClassId, L"{5E2C81D4-3B7F-4A16-9C0E-7F41D2A96B3C}");
}

TEST(MainSettings, SaveMainWritesSixNumbers) {
    TestRegistry registry;
    MainSettings settings;
    settings.Get<int32_t>(0) = -8;
    settings.Get<int32_t>(1) = 20;
    settings.Get<uint32_t>(2) = 800;
    settings.Get<uint32_t>(3) = 600;
    settings.Get<bool>(4) = false;
    settings.Get<bool>(5) = true;
    EXPECT_TRUE(settings.SaveMain());
    EXPECT_EQ(registry.ValueNames(Root),
              (std::vector<std::wstring>{L"ConfirmExit", L"FirstRun", L"WindowHeight", L"WindowPosX",
                                         L"WindowPosY", L"WindowWidth"}));
    EXPECT_EQ(registry.Get(Root, L"WindowPosX"), DwordValue(0xFFFFFFF8));
    EXPECT_EQ(registry.Get(Root, L"WindowPosY"), DwordValue(20));
    EXPECT_EQ(registry.Get(Root, L"WindowWidth"), DwordValue(800));
    EXPECT_EQ(registry.Get(Root, L"WindowHeight"), DwordValue(600));
    EXPECT_EQ(registry.Get(Root, L"FirstRun"), DwordValue(0));
    EXPECT_EQ(registry.Get(Root, L"ConfirmExit"), DwordValue(1));
    EXPECT_TRUE(registry.Subkeys(Root).empty());
}

TEST(MainSettings, LoadAllOfAnEmptyRegistryKeepsTheDefaultsAndMakesNothing) {
    TestRegistry registry;
    MainSettings settings;
    const int32_t x = settings.Get(MainSettings::WindowPosX);
    EXPECT_FALSE(settings.LoadAll());
    EXPECT_TRUE(settings.Presets.empty());
    EXPECT_EQ(settings.Get(MainSettings::WindowPosX), x);
    EXPECT_TRUE(settings.Get(MainSettings::FirstRun));
    EXPECT_FALSE(registry.KeyExists(Root));
}

TEST(MainSettings, LoadAllReadsTheApplicationsValues) {
    TestRegistry registry;
    registry.SetDword(Root, L"WindowPosX", 0xFFFFFFFF);
    registry.SetDword(Root, L"WindowPosY", 2);
    registry.SetDword(Root, L"WindowWidth", 3);
    registry.SetDword(Root, L"WindowHeight", 0xFFFFFFFE);
    registry.SetDword(Root, L"FirstRun", 0);
    registry.SetDword(Root, L"ConfirmExit", 5);
    MainSettings settings;
    EXPECT_TRUE(settings.LoadAll());
    EXPECT_TRUE(settings.Presets.empty());
    EXPECT_EQ(settings.Get(MainSettings::WindowPosX), -1);
    EXPECT_EQ(settings.Get(MainSettings::WindowPosY), 2);
    EXPECT_EQ(settings.Get(MainSettings::WindowWidth), 3u);
    EXPECT_EQ(settings.Get(MainSettings::WindowHeight), 0xFFFFFFFEu);
    EXPECT_FALSE(settings.Get(MainSettings::FirstRun));
    EXPECT_TRUE(settings.Get(MainSettings::ConfirmExit));
}

TEST(MainSettings, LoadAllFailsForOneMissingValueAndReadsTheOthers) {
    TestRegistry registry;
    EXPECT_TRUE(MainSettings().SaveMain());
    registry.SetDword(Root, L"WindowWidth", 999);
    registry.SetString(Root, L"ConfirmExit", L"1");
    MainSettings settings;
    EXPECT_FALSE(settings.LoadAll());
    EXPECT_EQ(settings.Get(MainSettings::WindowWidth), 999u);
    EXPECT_FALSE(settings.Get(MainSettings::ConfirmExit));
}

TEST(MainSettings, EverySubkeyBecomesAPreset) {
    TestRegistry registry;
    Preset saved(L"abc");
    ChangeEveryValue(saved);
    EXPECT_TRUE(saved.Save());
    registry.SetString(Root + L"\\Foreign and far too long a key", L"What", L"ever");
    MainSettings settings;
    settings.LoadAll();
    ASSERT_EQ(Keys(settings), (std::vector<std::wstring>{L"abc", L"Foreign and far too long a key"}));
    ExpectEqual(ValuesOf(*settings.Presets.front()), ChangedValues());
    ExpectEqual(ValuesOf(*settings.Presets.back()), PresetValues{});
    EXPECT_EQ(registry.ValueNames(Root + L"\\Foreign and far too long a key"),
              std::vector<std::wstring>{L"What"});
}

TEST(MainSettings, SectionsInTheRootKeyAppearAsPresets) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"").Save());
    MainSettings settings;
    settings.LoadAll();
    EXPECT_EQ(Keys(settings), (std::vector<std::wstring>{L"Columns", L"Display", L"Filter", L"Format",
                                                         L"Opening", L"Saving", L"Sorting"}));
}

TEST(MainSettings, CreatePresetAppendsAStoredPreset) {
    TestRegistry registry;
    Preset old(L"old");
    old.Get(Preset::Position) = 1;
    EXPECT_TRUE(old.Save());
    MainSettings settings;
    settings.LoadAll();
    const Preset& preset = settings.CreatePreset();
    ASSERT_EQ(settings.Presets.size(), 2u);
    EXPECT_EQ(settings.Presets.back().get(), &preset);
    PresetValues expected;
    expected.position = 1;
    ExpectEqual(ValuesOf(preset), expected);
    EXPECT_EQ(settings.Presets.front()->Get(Preset::Position), 2);
    EXPECT_EQ(registry.Get(Root + L"\\old", L"Position"), DwordValue(2));
    EXPECT_EQ(registry.Get(Root + L"\\" + preset.Key(), L"Position"), DwordValue(1));
    EXPECT_LE(preset.Key().length(), 8u);
}

TEST(MainSettings, TwoPresetsOfOneSecondShareTheirKey) {
    TestRegistry registry;
    // Twenty presets take a few milliseconds, so that at least two of them fall into one second.
    MainSettings settings;
    for (int i = 0; i < 20; ++i)
        settings.CreatePreset();
    EXPECT_EQ(settings.Presets.size(), 20u);
    std::vector<std::wstring> keys = Keys(settings);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    EXPECT_LT(keys.size(), 20u);
    if (std::ranges::count(keys, L"") == 0) {
        MainSettings restarted;
        restarted.LoadAll();
        EXPECT_EQ(restarted.Presets.size(), keys.size());
    }
}

TEST(MainSettings, CreatesAPresetOfTheKeyThatItIsGiven) {
    TestRegistry registry;
    MainSettings settings;
    EXPECT_EQ(settings.CreatePreset(L"chosen").Key(), L"chosen");
    EXPECT_TRUE(registry.KeyExists(std::wstring(MainSettings::RootKey) + L"\\chosen"));
    EXPECT_EQ(settings.CreateFromTemplate(1, L"another").Key(), L"another");
    EXPECT_TRUE(registry.KeyExists(std::wstring(MainSettings::RootKey) + L"\\another"));
}

TEST(MainSettings, CreateFromTemplateSetsTheValuesButDoesNotStoreThem) {
    for (uint32_t number = 0; number < TemplateCount; ++number) {
        SCOPED_TRACE(number);
        TestRegistry registry;
        MainSettings settings;
        const Preset& preset = settings.CreateFromTemplate(number);
        EXPECT_EQ(settings.Presets.back().get(), &preset);
        Preset expected(L"");
        expected.Get(Preset::Position) = 1;
        ApplyTemplate(expected, number);
        ExpectEqual(ValuesOf(preset), ValuesOf(expected));
        EXPECT_EQ(registry.Get(Root + L"\\" + preset.Key(), L"Name"), StringValue(L"New Preset"));
    }
}

TEST(MainSettings, FindPresetLoadsTheOneThatIsAskedFor) {
    TestRegistry registry;
    Preset saved(L"abc");
    ChangeEveryValue(saved);
    EXPECT_TRUE(saved.Save());
    EXPECT_TRUE(Preset(L"other").Save());
    MainSettings settings;
    const Preset* preset = settings.FindPreset(L"abc");
    ASSERT_NE(preset, nullptr);
    EXPECT_EQ(Keys(settings), std::vector<std::wstring>{L"abc"});
    EXPECT_EQ(settings.Presets.front().get(), preset);
    ExpectEqual(ValuesOf(*preset), ChangedValues());
}

TEST(MainSettings, FindPresetTakesOneFromTheList) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    MainSettings settings;
    settings.LoadAll();
    settings.Presets.front()->Get(Preset::Name) = L"In memory";
    EXPECT_EQ(settings.FindPreset(L"abc"), settings.Presets.front().get());
    EXPECT_EQ(settings.Presets.size(), 1u);
    EXPECT_EQ(settings.Presets.front()->Get(Preset::Name), L"In memory");
}

TEST(MainSettings, FindPresetOfAnUnknownKeyIsNullAndChangesNothing) {
    TestRegistry registry;
    MainSettings settings;
    EXPECT_EQ(settings.FindPreset(L"abc"), nullptr);
    registry.CreateKey(Root);
    EXPECT_EQ(settings.FindPreset(L"abc"), nullptr);
    EXPECT_TRUE(Preset(L"abc").Save());
    for (const wchar_t* key : {L"ab", L"abcd", L"ABC", L"abd", L""})
        EXPECT_EQ(settings.FindPreset(key), nullptr) << std::string(key, key + wcslen(key));
    EXPECT_TRUE(settings.Presets.empty());
}

TEST(MainSettings, AShortKeyWorksLikeAnyOther) {
    TestRegistry registry;
    Preset saved(L"7");
    ChangeEveryValue(saved);
    EXPECT_TRUE(saved.Save());
    MainSettings settings;
    Preset* preset = settings.FindPreset(L"7");
    ASSERT_NE(preset, nullptr);
    ExpectEqual(ValuesOf(*preset), ChangedValues());
    preset->DeleteKey();
    EXPECT_TRUE(registry.Subkeys(Root).empty());
}

}  // namespace
