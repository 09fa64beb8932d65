#include "packages/Installation.h"

#include <array>
#include <fstream>

#include <shlobj.h>

namespace Packaging {

namespace {

fs::path SpecialFolder(int id) {
    std::array<wchar_t, MAX_PATH> path = {};
    SHGetFolderPathW(nullptr, id, nullptr, 0, path.data());
    return path.data();
}

struct ControlSearch {
    DWORD process;
    int control;
    const std::wstring* text;
    bool enabled;
    HWND found;
};

BOOL CALLBACK VisitWindow(HWND window, LPARAM parameter) {
    ControlSearch& search = *reinterpret_cast<ControlSearch*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process)
        return TRUE;
    const bool matches = (search.control == AnyControl || GetDlgCtrlID(window) == search.control) &&
                         IsWindowVisible(window) && (!search.enabled || IsWindowEnabled(window)) &&
                         TextOf(window).find(*search.text) != std::wstring::npos;
    if (matches)
        search.found = window;
    else
        EnumChildWindows(window, VisitWindow, parameter);
    return search.found == nullptr;
}

}  // namespace

Process::Process(const std::wstring& commandLine, const fs::path& folder)
    : TestSupport::Process(commandLine, {.folder = folder}) {}

HWND Process::WaitForControl(int control, const std::wstring& text) const {
    return WaitForControl(control, text, false);
}

bool Process::Press(int button, const std::wstring& text) const {
    const HWND found = WaitForControl(button, text, true);
    return found && PostMessageW(found, BM_CLICK, 0, 0);
}

HWND Process::WaitForControl(int control, const std::wstring& text, bool enabled) const {
    ControlSearch search = {Id(), control, &text, enabled, nullptr};
    const ULONGLONG end = GetTickCount64() + 60'000;
    do {
        EnumWindows(VisitWindow, reinterpret_cast<LPARAM>(&search));
    } while (!search.found && GetTickCount64() < end && !EndsWithin(1));
    return search.found;
}

std::wstring Quoted(const fs::path& path) {
    return L"\"" + path.wstring() + L"\"";
}

Names NamesIn(const fs::path& folder) {
    Names names;
    for (const auto& [name, bytes] : ContentsOf(folder))
        names.insert(name);
    return names;
}

Contents ContentsOf(const fs::path& folder) {
    Contents contents;
    if (fs::exists(folder))
        for (const auto& entry : fs::directory_iterator(folder))
            contents[entry.path().filename().wstring()] =
                entry.is_directory() ? "" : Summary(Bytes(entry.path()));
    return contents;
}

std::string Summary(const std::string& bytes) {
    if (bytes.size() < 40)
        return bytes;
    return std::to_string(bytes.size()) + " bytes, hash " + std::to_string(std::hash<std::string>()(bytes));
}

std::string Bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteFile(const fs::path& path, const std::string& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    EXPECT_TRUE(file.flush()) << path;
}

std::wstring TextOf(HWND control) {
    std::array<wchar_t, 1024> text = {};
    SendMessageW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

bool KeyExists(HKEY root, const std::wstring& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return false;
    RegCloseKey(opened);
    return true;
}

LockedFile::LockedFile(const fs::path& path)
    : file_(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(file_, INVALID_HANDLE_VALUE) << path;
}

LockedFile::~LockedFile() {
    CloseHandle(file_);
}

Installation::Installation()
    : setup(fs::path(PACKAGES_FOLDER) / "tamblewick-4.0.1-setup.exe"),
      installed(SpecialFolder(CSIDL_LOCAL_APPDATA) / L"Programs" / L"Tamblewick"),
      shortcut(SpecialFolder(CSIDL_PROGRAMS) / L"Tamblewick.lnk"),
      tools(L"C:\\tamblewick tools") {
    Clear();
}

Installation::~Installation() {
    Clear();
}

void Installation::Clear() const {
    fs::remove_all(installed);
    fs::remove_all(tools);
    fs::remove(shortcut);
    for (const std::wstring& key : {ClassKey, FolderMenuKey, DriveMenuKey, UninstallKey})
        registry.DeleteKey(key);
    registry.DeleteKey(RunOnceKey);
}

DWORD Installation::RunSetup() const {
    return RunProcess(Quoted(setup) + L" /S");
}

// The folder is the last argument and has no quotes.
DWORD Installation::RunSetup(const fs::path& folder) const {
    return RunProcess(Quoted(setup) + L" /S /D=" + folder.wstring());
}

DWORD Installation::RunSetupWithoutMenu() const {
    return RunProcess(Quoted(setup) + L" /S /NOMENU");
}

DWORD Installation::RunRemoval(const fs::path& folder) const {
    return RunProcess(RemovalCommand(folder) + L" /S _?=" + folder.wstring());
}

std::wstring Installation::RemovalCommand(const fs::path& folder) const {
    const fs::path copy = fs::temp_directory_path() / "tamblewick removal.exe";
    EXPECT_TRUE(CopyFileW((folder / L"uninstall.exe").c_str(), copy.c_str(), FALSE)) << GetLastError();
    return Quoted(copy);
}

std::wstring Installation::AtNextSignIn(const fs::path& folder) const {
    std::array<wchar_t, 1024> command = {};
    DWORD size = sizeof(command);
    RegGetValueW(HKEY_CURRENT_USER, RunOnceKey.c_str(), (folder / L"uninstall.exe").c_str(), RRF_RT_REG_SZ,
                 nullptr, command.data(), &size);
    return command.data();
}

bool Installation::ProgramRuns(const fs::path& folder) const {
    const fs::path lists = fs::temp_directory_path() / "tamblewick lists";
    fs::remove_all(lists);
    fs::create_directories(lists);
    const std::wstring key = L"Software\\Tamblewick\\abc";
    registry.SetString(key + L"\\Saving", L"SaveLocation", L"Custom");
    registry.SetString(key + L"\\Saving", L"CustomFolderPath", lists.wstring());
    registry.SetString(key + L"\\Opening", L"OpenMethod", L"Nothing");
    const DWORD code = RunProcess(Quoted(folder / L"tamblewick.exe") + L" abc " + Quoted(folder));
    const bool made = NamesIn(lists) == Names{L"List of " + folder.filename().wstring() + L".txt"};
    fs::remove_all(lists);
    registry.DeleteKey(L"Software\\Tamblewick");
    return code == 0 && made;
}

}  // namespace Packaging
