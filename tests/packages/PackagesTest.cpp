// What the setup leaves on the disk and in the registry, and what its removal takes away again; the portable
// program in a folder whose name has unusual characters. Run on the packages that package.sh has made.
#include "packages/Installation.h"

using namespace Packaging;

namespace {

class Packages : public Installation {
protected:
    // The removal goes on in a copy of itself when the first process has ended.
    void Remove(const std::wstring& switches) const {
        ASSERT_EQ(RunProcess(Quoted(installed / L"uninstall.exe") + switches), 0u);
        for (int i = 0; i < 2000 && (fs::exists(installed) || KeyExists(HKEY_CURRENT_USER, UninstallKey));
             ++i)
            Sleep(10);
    }

    const fs::path portable = (fs::path(PORTABLE_FOLDER) / "tamblewick-4.0.1").make_preferred();
};

TEST_F(Packages, SetupInstallsForTheUser) {
    Install();
    EXPECT_EQ(NamesIn(installed), InstalledFiles);
    EXPECT_TRUE(fs::exists(shortcut));
    for (const auto& [name, bytes] : ContentsOf(portable))
        EXPECT_EQ(ContentsOf(installed)[name], bytes) << testing::PrintToString(name);
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, L"Software\\Tamblewick"));
    EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, ClassKey));
}

TEST_F(Packages, SetupEntersTheListOfInstalledPrograms) {
    Install();
    const std::wstring folder = installed.wstring();
    const std::pair<const wchar_t*, std::wstring> texts[] = {
        {L"DisplayName", L"Tamblewick"},
        {L"DisplayVersion", L"4.0.1"},
        {L"Publisher", L"Ostrel Vane"},
        {L"DisplayIcon", folder + L"\\tamblewick.exe"},
        {L"URLInfoAbout", L"https://www.tamblewick.example/"},
        {L"InstallLocation", folder},
        {L"UninstallString", L"\"" + folder + L"\\uninstall.exe\""},
        {L"QuietUninstallString", L"\"" + folder + L"\\uninstall.exe\" /S"},
    };
    for (const auto& [name, text] : texts)
        EXPECT_EQ(registry.Get(UninstallKey, name), TestSupport::StringValue(text))
            << testing::PrintToString(name);
    EXPECT_EQ(registry.Get(UninstallKey, L"NoModify"), TestSupport::DwordValue(1));
    EXPECT_EQ(registry.Get(UninstallKey, L"NoRepair"), TestSupport::DwordValue(1));
    uintmax_t bytes = 0;
    for (const auto& [name, packed] : ContentsOf(portable))
        bytes += fs::file_size(installed / name);
    const auto size = registry.Get(UninstallKey, L"EstimatedSize");
    ASSERT_TRUE(size && size->data.size() == 4);
    uint32_t kilobytes = 0;
    std::copy(size->data.begin(), size->data.end(), reinterpret_cast<char*>(&kilobytes));
    EXPECT_GE(kilobytes, bytes / 1024);
    EXPECT_LE(kilobytes, bytes / 1024 + 512);
}

TEST_F(Packages, RemovalTakesEverythingButThePresets) {
    Install();
    const std::wstring module = (installed / L"tamblewick.dll").wstring();
    ASSERT_EQ(RunProcess(L"regsvr32.exe /s \"" + module + L"\""), 0u);
    ASSERT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, ClassKey));
    ASSERT_TRUE(KeyExists(HKEY_CURRENT_USER, ClassKey));
    registry.SetString(L"Software\\Tamblewick\\abc", L"Name", L"Kept");
    Remove(L" /S");
    EXPECT_FALSE(fs::exists(installed));
    EXPECT_FALSE(fs::exists(shortcut));
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, UninstallKey));
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER})
        for (const std::wstring& key : {ClassKey, FolderMenuKey, DriveMenuKey})
            EXPECT_FALSE(KeyExists(root, key)) << testing::PrintToString(key);
    EXPECT_EQ(registry.Get(L"Software\\Tamblewick\\abc", L"Name"), TestSupport::StringValue(L"Kept"));
}

TEST_F(Packages, RemovalLeavesARegistrationOfAnotherCopy) {
    Install();
    const std::wstring other = (portable / L"tamblewick.dll").wstring();
    ASSERT_EQ(RunProcess(L"regsvr32.exe /s \"" + other + L"\""), 0u);
    Remove(L" /S");
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, ClassKey));
    EXPECT_EQ(RunProcess(L"regsvr32.exe /s /u \"" + other + L"\""), 0u);
}

TEST_F(Packages, RemovalTakesThePresetsWhenAskedTo) {
    Install();
    registry.SetString(L"Software\\Tamblewick\\abc", L"Name", L"Gone");
    Remove(L" /S /PRESETS");
    EXPECT_FALSE(fs::exists(installed));
    // They go last.
    for (int i = 0; i < 2000 && KeyExists(HKEY_CURRENT_USER, L"Software\\Tamblewick"); ++i)
        Sleep(10);
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, L"Software\\Tamblewick"));
}

TEST_F(Packages, ProgramCanBeInstalledAgain) {
    Install();
    Remove(L" /S");
    Install();
    EXPECT_EQ(NamesIn(installed), InstalledFiles);
}

TEST_F(Packages, PortableProgramMakesAListFromAnyFolder) {
    EXPECT_EQ(NamesIn(portable), (Names{L"README.txt", L"THIRD-PARTY.txt", L"tamblewick.dll",
                                        L"tamblewick.exe", L"tamblewickc.exe"}));
    EXPECT_TRUE(ProgramRuns(portable));
}

}  // namespace
