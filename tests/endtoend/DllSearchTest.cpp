// The programs in a folder that contains foreign DLLs with the names of system DLLs, as a folder of downloads
// may. None of them may be loaded.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "endtoend/Program.h"
#include "resources/resource.h"

#include <commctrl.h>
#include <tlhelp32.h>

using EndToEnd::ControlOf;
using EndToEnd::FilesIn;
using EndToEnd::ListsFolder;
using EndToEnd::Process;
using EndToEnd::StoredPreset;

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::wstring>;

const std::wstring Programs[] = {L"tamblewick.exe", L"tamblewickc.exe", L"careless.exe"};

// The DLLs that the programs import, and some that those load by name at run time. Without ole32, which
// Wine's own DLLs load regardless of the limit.
const Names Planted = {L"advapi32.dll", L"bcrypt.dll",  L"comctl32.dll",  L"comdlg32.dll", L"gdi32.dll",
                       L"shell32.dll",  L"user32.dll",  L"cryptbase.dll", L"dwmapi.dll",   L"propsys.dll",
                       L"uxtheme.dll",  L"version.dll", L"winspool.drv"};

class DllSearch : public testing::Test {
protected:
    DllSearch() {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        for (const std::wstring& program : Programs) {
            Copy(program, program);
            // Wine loads its own DLLs first by default.
            for (const std::wstring& name : Planted)
                SetOverride(program, name, L"native,builtin");
        }
        for (const std::wstring& name : Planted)
            Copy(L"planted.dll", name);
    }

    ~DllSearch() override {
        for (const std::wstring& program : Programs)
            RegDeleteTreeW(HKEY_CURRENT_USER, (AppDefaults + program).c_str());
        std::error_code inUse;
        fs::remove_all(folder_, inUse);
    }

    void SetOverride(const std::wstring& program, const std::wstring& dll, const std::wstring& value) const {
        const std::wstring key = AppDefaults + program + L"\\DllOverrides";
        RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), WithoutDll(dll).c_str(), REG_SZ, value.c_str(),
                        static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    }

    std::wstring PathOf(const std::wstring& name) const { return (folder_ / name).wstring(); }

    Names Loaded() const {
        const std::wstring end = L".loaded";
        Names names;
        for (const std::wstring& name : FilesIn(folder_.wstring()))
            if (name.ends_with(end))
                names.insert(name.substr(0, name.size() - end.size()));
        return names;
    }

    const StoredPreset preset_;

private:
    const std::wstring AppDefaults = L"Software\\Wine\\AppDefaults\\";

    // The extension of a driver is a part of the name for Wine.
    static std::wstring WithoutDll(const std::wstring& name) {
        return name.ends_with(L".dll") ? name.substr(0, name.size() - 4) : name;
    }

    void Copy(const std::wstring& from, const std::wstring& to) const {
        EXPECT_TRUE(CopyFileW(EndToEnd::PathBeside(from).c_str(), PathOf(to).c_str(), FALSE))
            << GetLastError();
    }

    const fs::path folder_ = L"C:\\tamblewick planted";
};

// The full path of a module of a running process; empty if it has none of this name.
std::wstring ModulePath(const Process& program, const std::wstring& name) {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, program.Id());
    MODULEENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    std::wstring path;
    for (BOOL more = Module32FirstW(snapshot, &entry); more && path.empty();
         more = Module32NextW(snapshot, &entry))
        if (lstrcmpiW(entry.szModule, name.c_str()) == 0)
            path = entry.szExePath;
    CloseHandle(snapshot);
    return path;
}

HTREEITEM NextItem(HWND tree, WPARAM which, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
}

struct ControlSearch {
    int control;
    HWND found;
};

BOOL CALLBACK VisitControl(HWND window, LPARAM parameter) {
    ControlSearch& search = *reinterpret_cast<ControlSearch*>(parameter);
    if (GetDlgCtrlID(window) == search.control && IsWindowVisible(window))
        search.found = window;
    return search.found == nullptr;
}

// Selects the pages of the first preset in turn until one has a visible control with this id. Returns null if
// none has.
HWND OpenPageWith(HWND main, int control) {
    const HWND tree = ControlOf(main, IDC_MAIN_TREE);
    ControlSearch search = {control, nullptr};
    HTREEITEM item = NextItem(tree, TVGN_CHILD, NextItem(tree, TVGN_ROOT, nullptr));
    for (; item && !search.found; item = NextItem(tree, TVGN_NEXT, item)) {
        SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
        EnumChildWindows(main, VisitControl, reinterpret_cast<LPARAM>(&search));
    }
    return search.found;
}

// Shows that the other tests can fail.
TEST_F(DllSearch, AProgramWithoutTheLimitLoadsPlantedDlls) {
    std::wstring names;
    for (const std::wstring& name : Planted)
        names += L" " + name;
    EXPECT_EQ(Process(PathOf(L"careless.exe"), names).Wait(), 0u);
    EXPECT_EQ(Loaded(), Planted);
}

TEST_F(DllSearch, TheCompanionLoadsNoPlantedDll) {
    EXPECT_EQ(Process(PathOf(L"tamblewickc.exe"), L"presets list").Wait(), 0u);
    EXPECT_EQ(Process(PathOf(L"tamblewickc.exe"), L"presets rename " + preset_.Key + L" Renamed").Wait(), 0u);
    EXPECT_EQ(Process(PathOf(L"tamblewickc.exe"), L"presets new 0").Wait(), 0u);
    EXPECT_EQ(
        Process(PathOf(L"tamblewickc.exe"), L"list --template 0 C:\\windows\\inf -f sha256sum -q -o C:\\sums")
            .Wait(),
        0u);
    EXPECT_TRUE(fs::remove(L"C:\\sums"));
    EXPECT_EQ(Loaded(), Names{});
}

TEST_F(DllSearch, ABatchListLoadsNoPlantedDll) {
    EXPECT_EQ(Process(PathOf(L"tamblewick.exe"), preset_.Key + L" C:\\windows\\inf").Wait(), 0u);
    EXPECT_EQ(FilesIn(ListsFolder()), std::vector<std::wstring>{L"List of inf.txt"});
    EXPECT_EQ(Loaded(), Names{});
}

// With the same exit code as a missing import at the start.
TEST_F(DllSearch, AMissingDllEndsTheProgram) {
    SetOverride(L"tamblewick.exe", L"comctl32.dll", L"");
    EXPECT_EQ(Process(PathOf(L"tamblewick.exe"), preset_.Key + L" C:\\windows\\inf").Wait(), 0xC0000139);
    EXPECT_EQ(FilesIn(ListsFolder()), std::vector<std::wstring>{});
}

// The file dialog loads the most DLLs.
TEST_F(DllSearch, TheMainWindowAndItsDialogsLoadNoPlantedDll) {
    Process program(PathOf(L"tamblewick.exe"), L"");
    const HWND main = program.WaitForWindow(L"Tamblewick 4.0.1");
    ASSERT_NE(main, nullptr);
    EXPECT_NE(ModulePath(program, L"comctl32.dll").find(L"common-controls_6595b64144ccf1df_6.0"),
              std::wstring::npos);
    EXPECT_EQ(ModulePath(program, L"comdlg32.dll"), L"");
    const HWND nothing = OpenPageWith(main, IDC_OPENING_NOTHING);
    ASSERT_NE(nothing, nullptr);
    const HWND page = GetParent(nothing);
    SendMessageW(ControlOf(page, IDC_OPENING_CUSTOM), BM_CLICK, 0, 0);
    PostMessageW(ControlOf(page, IDC_OPENING_BROWSE), BM_CLICK, 0, 0);
    const HWND files = program.WaitForWindow(L"Select program");
    ASSERT_NE(files, nullptr);
    EXPECT_NE(ModulePath(program, L"winspool.drv"), L"");
    PostMessageW(files, WM_COMMAND, IDCANCEL, 0);
    while (IsWindow(files) && program.IsRunning())
        Sleep(1);
    PostMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.Wait(), 0u);
    EXPECT_EQ(Loaded(), Names{});
}

}  // namespace
