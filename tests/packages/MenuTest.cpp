// The entry in the menus of folders and drives: made for this user by the setup unless it is not wanted, kept
// by an update as it is, and gone after a removal.
#include "packages/Installation.h"

using namespace Packaging;

namespace {

const std::wstring MenuBox = L"Add to the menus of folders and drives";

class Menu : public Installation {
protected:
    // Everything below the three keys, as "key|value" with the value's text.
    std::map<std::wstring, std::wstring> Registration() const {
        std::map<std::wstring, std::wstring> values;
        for (const std::wstring& key : {ClassKey, FolderMenuKey, DriveMenuKey})
            Collect(key, values);
        return values;
    }

    // What the module of this folder writes, and no more.
    std::map<std::wstring, std::wstring> RegistrationOf(const fs::path& folder) const {
        const std::wstring id = L"{5E2C81D4-3B7F-4A16-9C0E-7F41D2A96B3C}";
        return {{ClassKey + L"|", L"(key)"},
                {ClassKey + L"\\InProcServer32|", (folder / L"tamblewick.dll").wstring()},
                {ClassKey + L"\\InProcServer32|ThreadingModel", L"Apartment"},
                {FolderMenuKey + L"|", id},
                {DriveMenuKey + L"|", id}};
    }

    const std::map<std::wstring, std::wstring> nothing = {};

    // "/u " unregisters.
    void RunRegsvr32(const std::wstring& switches, const fs::path& folder) const {
        ASSERT_EQ(RunProcess(L"regsvr32.exe /s " + switches + Quoted(folder / L"tamblewick.dll")), 0u);
    }

    // Goes to the page of the menu. Returns its check box, or null.
    static HWND OpenPage(const Process& window) {
        EXPECT_TRUE(window.Press(IDOK, L"Next"));
        return window.WaitForControl(AnyControl, MenuBox);
    }

    static bool IsChecked(HWND box) { return SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED; }

    static void Complete(Process& window) {
        EXPECT_TRUE(window.Press(IDOK, L"Install"));
        EXPECT_NE(window.WaitForControl(AnyControl, L"Completed"), nullptr);
        EXPECT_TRUE(window.Press(IDOK, L"Close"));
        EXPECT_EQ(window.Wait(), 0u);
    }

private:
    void Collect(const std::wstring& key, std::map<std::wstring, std::wstring>& values) const {
        if (!registry.KeyExists(key))
            return;
        const std::vector<std::wstring> names = registry.ValueNames(key);
        if (names.empty())
            values[key + L"|"] = L"(key)";
        for (const std::wstring& name : names) {
            const auto value = registry.Get(key, name);
            ASSERT_TRUE(value && value->type == REG_SZ) << testing::PrintToString(key);
            std::wstring text(value->data.size() / sizeof(wchar_t), L'\0');
            std::copy(value->data.begin(), value->data.end(), reinterpret_cast<char*>(text.data()));
            ASSERT_EQ(text.back(), L'\0');
            text.pop_back();
            values[key + L"|" + name] = text;
        }
        for (const std::wstring& subkey : registry.Subkeys(key))
            Collect(key + L"\\" + subkey, values);
    }
};

TEST_F(Menu, IsAddedForThisUserByTheSetup) {
    Install();
    EXPECT_EQ(Registration(), RegistrationOf(installed));
    for (const std::wstring& key : {ClassKey, FolderMenuKey, DriveMenuKey})
        EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, key)) << testing::PrintToString(key);
}

TEST_F(Menu, OfAFolderWithBlanksIsThatOfItsModule) {
    ASSERT_EQ(RunSetup(tools), 0u);
    EXPECT_EQ(Registration(), RegistrationOf(tools));
}

TEST_F(Menu, IsLeftOutByASwitch) {
    ASSERT_EQ(RunSetupWithoutMenu(), 0u);
    EXPECT_EQ(NamesIn(installed), InstalledFiles);
    EXPECT_EQ(Registration(), nothing);
}

TEST_F(Menu, IsKeptByAnUpdate) {
    Install();
    // The new module may register more than the old one.
    registry.DeleteKey(DriveMenuKey);
    Install();
    EXPECT_EQ(Registration(), RegistrationOf(installed));
}

TEST_F(Menu, ThatWasLeftOutStaysOutAfterAnUpdate) {
    ASSERT_EQ(RunSetupWithoutMenu(), 0u);
    Install();
    EXPECT_EQ(Registration(), nothing);
}

TEST_F(Menu, ThatWasSwitchedOffLaterStaysOffAfterAnUpdate) {
    Install();
    RunRegsvr32(L"/u /n /i:user ", installed);
    Install();
    EXPECT_EQ(Registration(), nothing);
}

TEST_F(Menu, ThatWasSwitchedOnLaterStaysOnAfterAnUpdate) {
    ASSERT_EQ(RunSetupWithoutMenu(), 0u);
    RunRegsvr32(L"/n /i:user ", installed);
    Install();
    EXPECT_EQ(Registration(), RegistrationOf(installed));
}

TEST_F(Menu, IsTakenAwayByAnUpdateWithTheSwitch) {
    Install();
    ASSERT_EQ(RunSetupWithoutMenu(), 0u);
    EXPECT_EQ(Registration(), nothing);
}

TEST_F(Menu, MovesWithAnUpdateIntoAnotherFolder) {
    Install();
    ASSERT_EQ(RunSetup(tools), 0u);
    EXPECT_EQ(Registration(), RegistrationOf(tools));
    // The removal of the older copy leaves it.
    EXPECT_EQ(RunRemoval(installed), 0u);
    EXPECT_EQ(Registration(), RegistrationOf(tools));
}

TEST_F(Menu, OfAnotherCopyStaysIfTheSetupIsToLeaveTheMenuOut) {
    ASSERT_EQ(RunSetup(tools), 0u);
    registry.DeleteKey(UninstallKey);
    ASSERT_EQ(RunSetupWithoutMenu(), 0u);
    EXPECT_EQ(Registration(), RegistrationOf(tools));
}

TEST_F(Menu, StaysAsItIsIfAnUpdateChangesNothing) {
    Install();
    const LockedFile locked(installed / L"README.txt");
    EXPECT_EQ(RunSetupWithoutMenu(), 2u);
    EXPECT_EQ(Registration(), RegistrationOf(installed));
}

TEST_F(Menu, IsGoneAfterTheRemoval) {
    Install();
    EXPECT_EQ(RunRemoval(installed), 0u);
    EXPECT_EQ(Registration(), nothing);
}

// Made by the check box of the program's options.
TEST_F(Menu, ForAllUsersIsNotChangedByAnUpdateAndGoneAfterTheRemoval) {
    ASSERT_EQ(RunSetupWithoutMenu(), 0u);
    RunRegsvr32(L"", installed);
    Install();
    EXPECT_EQ(Registration(), nothing);
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, ClassKey));
    ASSERT_EQ(RunSetupWithoutMenu(), 0u);
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, ClassKey));
    EXPECT_EQ(RunRemoval(installed), 0u);
    for (const std::wstring& key : {ClassKey, FolderMenuKey, DriveMenuKey})
        EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, key)) << testing::PrintToString(key);
}

TEST_F(Menu, IsOnAtFirstOnThePageAndAddedOnlyByInstall) {
    Process window(Quoted(setup));
    const HWND box = OpenPage(window);
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(IsChecked(box));
    EXPECT_NE(window.WaitForControl(AnyControl, L"needs no administrator rights."), nullptr);
    EXPECT_EQ(Registration(), nothing);
    Complete(window);
    EXPECT_EQ(Registration(), RegistrationOf(installed));
}

TEST_F(Menu, IsNotAddedIfTheBoxIsClearedAndThePageKeepsThatOnTheWayBack) {
    Process window(Quoted(setup));
    HWND box = OpenPage(window);
    ASSERT_NE(box, nullptr);
    SendMessageW(box, BM_CLICK, 0, 0);
    EXPECT_FALSE(IsChecked(box));
    EXPECT_TRUE(window.Press(AnyControl, L"Back"));
    box = OpenPage(window);
    ASSERT_NE(box, nullptr);
    EXPECT_FALSE(IsChecked(box));
    Complete(window);
    EXPECT_EQ(Registration(), nothing);
}

TEST_F(Menu, ThatIsOffIsOffOnThePageOfAnUpdateAndCanBeAddedThere) {
    ASSERT_EQ(RunSetupWithoutMenu(), 0u);
    Process window(Quoted(setup));
    const HWND box = OpenPage(window);
    ASSERT_NE(box, nullptr);
    EXPECT_FALSE(IsChecked(box));
    SendMessageW(box, BM_CLICK, 0, 0);
    Complete(window);
    EXPECT_EQ(Registration(), RegistrationOf(installed));
}

// A key that lasts cannot be made below one that ends with the session.
TEST_F(Menu, ThatCannotBeAddedIsReportedAndLeavesTheInstallationComplete) {
    const std::wstring parent = L"Software\\Classes\\Drive";
    registry.DeleteKey(parent);
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, parent.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(key);
    EXPECT_EQ(RunSetup(), 0u);
    EXPECT_EQ(NamesIn(installed), InstalledFiles);
    EXPECT_EQ(Registration(), nothing);
    {
        Process window(Quoted(setup));
        const HWND box = OpenPage(window);
        ASSERT_NE(box, nullptr);
        SendMessageW(box, BM_CLICK, 0, 0);
        EXPECT_TRUE(window.Press(IDOK, L"Install"));
        EXPECT_NE(window.WaitForControl(AnyControl,
                                        L"Tamblewick is installed, but could not be added to the menus"),
                  nullptr);
        EXPECT_TRUE(window.Press(AnyControl, L"OK"));
        EXPECT_TRUE(window.Press(IDOK, L"Close"));
        EXPECT_EQ(window.Wait(), 0u);
    }
    registry.DeleteKey(parent);
}

}  // namespace
