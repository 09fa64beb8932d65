#include "endtoend/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace EndToEnd {

namespace {

const std::wstring RootKey = L"Software\\Tamblewick";

std::string Utf8(const std::wstring& text) {
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text.c_str(),
                                                         static_cast<int>(text.size()), bytes.data(),
                                                         static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

// A moment as the program's stamp, by the user's regional settings.
std::string Stamp(const SYSTEMTIME& time) {
    std::array<wchar_t, 128> date;
    std::array<wchar_t, 128> clock;
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, date.data(), date.size());
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, clock.data(), clock.size());
    return Utf8(std::wstring(date.data()) + L" " + clock.data());
}

// Whether a stamp is one of the last minute.
bool IsRecent(const std::string& stamp) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    FILETIME ticks;
    SystemTimeToFileTime(&now, &ticks);
    ULARGE_INTEGER moment = {{ticks.dwLowDateTime, ticks.dwHighDateTime}};
    for (int second = 0; second <= 60; ++second, moment.QuadPart -= 10'000'000) {
        const FILETIME past = {moment.LowPart, moment.HighPart};
        SYSTEMTIME time;
        FileTimeToSystemTime(&past, &time);
        if (Stamp(time) == stamp)
            return true;
    }
    return false;
}

}  // namespace

StoredPreset::StoredPreset() {
    RegDeleteTreeW(HKEY_CURRENT_USER, RootKey.c_str());
    std::filesystem::remove_all(ListsFolder());
    std::filesystem::create_directories(ListsFolder());
    Set(L"", L"Name", L"End to end");
    Set(L"Saving", L"SaveLocation", L"Custom");
    Set(L"Saving", L"CustomFolderPath", ListsFolder());
    Set(L"Saving", L"OverwriteExisting", 1u);
    Set(L"Opening", L"OpenMethod", L"Nothing");
}

StoredPreset::~StoredPreset() {
    RegDeleteTreeW(HKEY_CURRENT_USER, RootKey.c_str());
}

void StoredPreset::Write(const std::wstring& section, const std::wstring& name, DWORD type, const void* data,
                         size_t size) {
    const std::wstring path = RootKey + L"\\" + Key + (section.empty() ? L"" : L"\\") + section;
    ASSERT_EQ(
        RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), name.c_str(), type, data, static_cast<DWORD>(size)),
        ERROR_SUCCESS);
}

StoredPreset& StoredPreset::Set(const std::wstring& section, const std::wstring& name, uint32_t value) {
    Write(section, name, REG_DWORD, &value, sizeof(value));
    return *this;
}

StoredPreset& StoredPreset::Set(const std::wstring& section, const std::wstring& name,
                                const std::wstring& text) {
    Write(section, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    return *this;
}

StoredPreset& StoredPreset::Set(const std::wstring& section, const std::wstring& name,
                                const std::vector<std::wstring>& list) {
    std::wstring data;
    for (const std::wstring& text : list)
        data += text + L'\0';
    data += L'\0';
    Write(section, name, REG_MULTI_SZ, data.data(), data.size() * sizeof(wchar_t));
    return *this;
}

void StoredPreset::Columns(const std::wstring& kind, size_t count, const std::vector<std::wstring>& columns) {
    for (size_t i = 0; i < count; ++i) {
        if (i < columns.size())
            Set(L"Columns\\" + kind + L"Columns", std::to_wstring(i), columns[i]);
        Set(L"Columns\\" + kind + L"Enabled", std::to_wstring(i), i < columns.size() ? 1u : 0u);
    }
}

StoredPreset& StoredPreset::FolderColumns(const std::vector<std::wstring>& columns) {
    Columns(L"Folder", 12, columns);
    return *this;
}

StoredPreset& StoredPreset::FileColumns(const std::vector<std::wstring>& columns) {
    Columns(L"File", 11, columns);
    return *this;
}

void StoredPreset::Sort(const std::wstring& kind,
                        const std::vector<std::pair<std::wstring, std::wstring>>& keys) {
    for (size_t i = 0; i < keys.size(); ++i) {
        Set(L"Sorting\\" + kind + L"SortKeys", std::to_wstring(i), keys[i].first);
        Set(L"Sorting\\" + kind + L"SortOrder", std::to_wstring(i), keys[i].second);
    }
}

StoredPreset& StoredPreset::FolderSort(const std::vector<std::pair<std::wstring, std::wstring>>& keys) {
    Sort(L"Folder", keys);
    return *this;
}

StoredPreset& StoredPreset::FileSort(const std::vector<std::pair<std::wstring, std::wstring>>& keys) {
    Sort(L"File", keys);
    return *this;
}

std::wstring ListsFolder() {
    return L"C:\\tamblewick-lists";
}

std::wstring PathBeside(const std::wstring& name) {
    std::array<wchar_t, MAX_PATH> path;
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return std::filesystem::path(path.data()).parent_path().wstring() + L"\\" + name;
}

Process::Process(const std::wstring& arguments) : Process(PathBeside(L"tamblewick.exe"), arguments) {}

Process::Process(const std::wstring& program, const std::wstring& arguments)
    : TestSupport::Process(L"\"" + program + L"\" " + arguments) {}

namespace {

struct WindowSearch {
    DWORD process;
    const std::wstring* title;  // null for any
    HWND found;
};

BOOL CALLBACK VisitWindow(HWND window, LPARAM parameter) {
    WindowSearch& search = *reinterpret_cast<WindowSearch*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process || !IsWindowVisible(window))
        return TRUE;
    std::array<wchar_t, 256> title = {};
    GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
    if (search.title && *search.title != title.data())
        return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

HWND Process::WaitForWindow(const std::wstring& title) const {
    WindowSearch search = {Id(), &title, nullptr};
    do {
        EnumWindows(VisitWindow, reinterpret_cast<LPARAM>(&search));
    } while (!search.found && !EndsWithin(1));
    return search.found;
}

bool Process::HasWindow() const {
    WindowSearch search = {Id(), nullptr, nullptr};
    EnumWindows(VisitWindow, reinterpret_cast<LPARAM>(&search));
    return search.found != nullptr;
}

HWND ControlOf(HWND dialog, int id) {
    HWND control = GetWindow(dialog, GW_CHILD);
    while (control != nullptr && GetDlgCtrlID(control) != id)
        control = GetWindow(control, GW_HWNDNEXT);
    return control;
}

DWORD RunProgram(const std::wstring& arguments) {
    return Process(arguments).Wait();
}

std::string ReadFile(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << "no file " << std::filesystem::path(path).string();
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::vector<std::wstring> FilesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().wstring());
    std::sort(names.begin(), names.end());
    return names;
}

std::string WithoutStamp(std::string list) {
    const std::string label = "Created: ";
    const size_t begin = list.find(label) + label.size();
    const size_t end = list.find_first_of("\r<", begin);
    if (begin < label.size() || end == std::string::npos) {
        ADD_FAILURE() << "the list has no stamp";
        return list;
    }
    EXPECT_TRUE(IsRecent(list.substr(begin, end - begin))) << list.substr(begin, end - begin);
    return list.replace(begin, end - begin, "{stamp}");
}

std::string ExpectedList(const std::string& name) {
    return ReadFile(std::filesystem::path(LISTS_FOLDER "/" + name).wstring());
}

std::string FirstDifference(const std::string& expected, const std::string& actual) {
    std::istringstream left(expected);
    std::istringstream right(actual);
    std::string wanted;
    std::string got;
    for (int line = 1;; ++line) {
        const bool more = static_cast<bool>(std::getline(left, wanted));
        const bool moreActual = static_cast<bool>(std::getline(right, got));
        if (!more && !moreActual)
            return "the lists differ in their line ends only";
        if (!more || !moreActual || wanted != got)
            return "line " + std::to_string(line) + "\nexpected: " + (more ? wanted : "(end)") +
                   "\nactual:   " + (moreActual ? got : "(end)");
    }
}

}  // namespace EndToEnd
