#include "support/native/Snapshot.h"

#include <algorithm>
#include <vector>

#include "fakewin/FakeWin.h"
#include "support/Text.h"

namespace TestSupport {
namespace {

void AddFolder(const std::wstring& folder, Snapshot& snapshot) {
    snapshot[folder + L"\\"];
    WIN32_FIND_DATAW data = {};
    const HANDLE find = FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &data,
                                         FindExSearchNameMatch, nullptr, 0);
    if (find == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::wstring name = data.cFileName;
        const std::wstring path = folder + L"\\" + name;
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            snapshot[path] = FakeWin::Contents(path).value_or("");
        else if (name != L"." && name != L"..")
            AddFolder(path, snapshot);
    } while (FindNextFileW(find, &data));
    FindClose(find);
}

void AddValues(HKEY key, const std::wstring& path, Snapshot& snapshot) {
    std::vector<wchar_t> name(16384);
    std::vector<BYTE> data(65536);
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(name.size());
        auto size = static_cast<DWORD>(data.size());
        DWORD type = 0;
        if (RegEnumValueW(key, index, name.data(), &length, nullptr, &type, data.data(), &size) != 0)
            return;
        snapshot[path + L"\\" + std::wstring(name.data(), length)] =
            std::to_string(type) + " " + std::string(data.begin(), data.begin() + size);
    }
}

void AddKey(HKEY parent, const std::wstring& name, const std::wstring& path, Snapshot& snapshot) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key) != 0)
        return;
    snapshot[path + L"\\"];
    AddValues(key, path, snapshot);
    wchar_t subkey[256];
    for (DWORD index = 0;; ++index) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, index, subkey, &length, nullptr, nullptr, nullptr, nullptr) != 0)
            break;
        AddKey(key, subkey, path + L"\\" + subkey, snapshot);
    }
    RegCloseKey(key);
}

// Bytes outside of ASCII, and there are many zeros, as dots.
std::string Shown(std::string bytes) {
    std::ranges::replace_if(
        bytes, [](char c) { return (c < ' ' || c > '~') && c != '\n'; }, '.');
    return bytes;
}

}  // namespace

Snapshot FilesNow() {
    const FakeWin::Unwatched unwatched;
    Snapshot snapshot;
    AddFolder(L"C:", snapshot);
    return snapshot;
}

Snapshot RegistryNow() {
    const FakeWin::Unwatched unwatched;
    Snapshot snapshot;
    AddKey(HKEY_CURRENT_USER, L"Software\\Tamblewick", L"HKCU\\Software\\Tamblewick", snapshot);
    return snapshot;
}

void TakeBack(Snapshot& snapshot, const std::wstring& path, const Snapshot& from) {
    const auto lies = [&](const auto& entry) {
        return entry.first == path || entry.first.starts_with(path + L"\\");
    };
    std::erase_if(snapshot, lies);
    std::ranges::copy_if(from, std::inserter(snapshot, snapshot.end()), lies);
}

std::string Differences(const Snapshot& actual, const Snapshot& expected) {
    std::string text;
    for (const auto& [path, bytes] : actual) {
        const auto found = expected.find(path);
        if (found == expected.end())
            text += "too much: " + Utf8(path) + " = " + Shown(bytes) + "\n";
        else if (found->second != bytes)
            text += "different: " + Utf8(path) + " = " + Shown(bytes) + "\ninstead of " +
                    Shown(found->second) + "\n";
    }
    for (const auto& [path, bytes] : expected)
        if (!actual.contains(path))
            text += "missing: " + Utf8(path) + " = " + Shown(bytes) + "\n";
    return text;
}

}  // namespace TestSupport
