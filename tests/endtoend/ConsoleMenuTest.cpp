// The companion's commands "menu ..." with the built module and the registry.
#include <gtest/gtest.h>

#include <array>

#include "endtoend/Companion.h"
#include "endtoend/Program.h"
#include "shell/ContextMenuClass.h"
#include "support/TestRegistry.h"
#include "support/Text.h"

using EndToEnd::RunCompanion;

namespace {

// Removes what the test, or one before it that was ended, has registered.
void RemoveRegistrations() {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
        for (const std::wstring& key :
             {std::wstring(L"Directory\\shellex\\ContextMenuHandlers\\") + ContextMenuName,
              std::wstring(L"Drive\\shellex\\ContextMenuHandlers\\") + ContextMenuName,
              std::wstring(L"CLSID\\") + ContextMenuClassId})
            RegDeleteTreeW(root, (L"Software\\Classes\\" + key).c_str());
}

std::wstring RegisteredModule(HKEY root) {
    std::array<wchar_t, 1024> path = {};
    DWORD size = sizeof(path);
    const std::wstring key =
        std::wstring(L"Software\\Classes\\CLSID\\") + ContextMenuClassId + L"\\InProcServer32";
    RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path.data(), &size);
    return path.data();
}

struct ConsoleMenu : testing::Test {
    ConsoleMenu() { RemoveRegistrations(); }
    ~ConsoleMenu() override { RemoveRegistrations(); }

    static std::string Status() { return RunCompanion(L"menu status").out; }
};

TEST_F(ConsoleMenu, IsSwitchedOnAndOffForTheUser) {
    EXPECT_EQ(Status(), "off\n");
    const EndToEnd::Printed on = RunCompanion(L"menu on");
    EXPECT_EQ(on.code, 0u);
    EXPECT_EQ(on.out + on.error, "");
    EXPECT_EQ(Status(), "on, for me\n");
    EXPECT_EQ(RegisteredModule(HKEY_CURRENT_USER), EndToEnd::PathBeside(L"tamblewick.dll"));
    EXPECT_EQ(RegisteredModule(HKEY_LOCAL_MACHINE), L"");
    EXPECT_EQ(RunCompanion(L"menu off").code, 0u);
    EXPECT_EQ(Status(), "off\n");
    EXPECT_EQ(RegisteredModule(HKEY_CURRENT_USER), L"");
}

TEST_F(ConsoleMenu, IsSwitchedOnAndOffForAllUsers) {
    EXPECT_EQ(RunCompanion(L"menu on --all-users").code, 0u);
    EXPECT_EQ(Status(), "on, for all users\n");
    const EndToEnd::Printed off = RunCompanion(L"menu off");
    EXPECT_EQ(off.code, 0u);
    EXPECT_EQ(off.error, "tamblewickc: the menu is still on, for all users\n");
    EXPECT_EQ(RunCompanion(L"menu off --all-users").code, 0u);
    EXPECT_EQ(Status(), "off\n");
}

}  // namespace
