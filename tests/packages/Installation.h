// The setup that packaging/package.sh has made, run and removed as a user or a script does, and what is on
// the disk and in the registry before and after.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>

#include "support/TestRegistry.h"
#include "support/windows/Process.h"

namespace Packaging {

namespace fs = std::filesystem;
using TestSupport::RunProcess;
using Names = std::set<std::wstring>;
using Contents = std::map<std::wstring, std::string>;

// For controls of any id.
constexpr int AnyControl = -1;

class Process : public TestSupport::Process {
public:
    explicit Process(const std::wstring& commandLine, const fs::path& folder = {});

    // Waits until the process shows a control with this id and this text in its own, and returns it. Returns
    // null if the process ends first.
    HWND WaitForControl(int control, const std::wstring& text) const;

    // Waits until there is such a button that can be pressed, and presses it. Returns false if the process
    // ends first.
    bool Press(int button, const std::wstring& text) const;

private:
    HWND WaitForControl(int control, const std::wstring& text, bool enabled) const;
};

std::wstring Quoted(const fs::path& path);

// Names of the files and folders in a folder. None if there is no such folder.
Names NamesIn(const fs::path& folder);

// The files in a folder with the summaries of their bytes; folders in it with none.
Contents ContentsOf(const fs::path& folder);

// Short contents as they are, others as size and hash, so that a failure can show them.
std::string Summary(const std::string& bytes);

std::string Bytes(const fs::path& path);
void WriteFile(const fs::path& path, const std::string& bytes);

std::wstring TextOf(HWND control);

bool KeyExists(HKEY root, const std::wstring& key);

// A file that is open and can be read by others, but not be written, renamed or deleted.
class LockedFile {
public:
    explicit LockedFile(const fs::path& path);
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile();

private:
    HANDLE file_;
};

// Nothing is installed at the start of a test, and nothing at its end.
class Installation : public testing::Test {
protected:
    Installation();
    ~Installation() override;

    // Runs the setup without a window into the folder that it chooses itself, or into this one.
    DWORD RunSetup() const;
    DWORD RunSetup(const fs::path& folder) const;

    DWORD RunSetupWithoutMenu() const;

    void Install() const { ASSERT_EQ(RunSetup(), 0u); }

    // Runs the removal as uninstall.exe does: from a copy in another folder. Unlike uninstall.exe it returns
    // at the end and with the result.
    DWORD RunRemoval(const fs::path& folder) const;

    // The command line of such a copy, which is made anew.
    std::wstring RemovalCommand(const fs::path& folder) const;

    // What Windows runs at the next sign-in to complete the removal from a folder. Empty if there is nothing.
    std::wstring AtNextSignIn(const fs::path& folder) const;

    // A list by the program of this folder, to see that it runs.
    bool ProgramRuns(const fs::path& folder) const;

    // The registration of the module for this user, and the keys in which it is.
    const std::wstring ClassKey = L"Software\\Classes\\CLSID\\{5E2C81D4-3B7F-4A16-9C0E-7F41D2A96B3C}";
    const std::wstring FolderMenuKey =
        L"Software\\Classes\\Directory\\shellex\\ContextMenuHandlers\\Tamblewick";
    const std::wstring DriveMenuKey = L"Software\\Classes\\Drive\\shellex\\ContextMenuHandlers\\Tamblewick";

    const std::wstring UninstallKey = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Tamblewick";
    const std::wstring RunOnceKey = L"Software\\Microsoft\\Windows\\CurrentVersion\\RunOnce";
    const Names InstalledFiles = {L"README.txt",     L"THIRD-PARTY.txt", L"tamblewick.dll",
                                  L"tamblewick.exe", L"tamblewickc.exe", L"uninstall.exe"};

    const fs::path setup;
    const fs::path installed;  // where the setup installs by itself
    const fs::path shortcut;
    const fs::path tools;  // a folder of the test's own that is not there at first
    const TestSupport::TestRegistry registry;

private:
    void Clear() const;
};

}  // namespace Packaging
