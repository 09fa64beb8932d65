// The floor under any program that lists folders: a bare walk with FindFirstFileExW, depth first, that writes
// one line for each entry with one WriteFile, without sorting, records or options.
//
//   floor FOLDER FILE
#include <cstdio>
#include <string>
#include <vector>

#include "winlib/Windows.h"

namespace {

void Utf8(const wchar_t* text, std::string& line) {
    const size_t old = line.size();
    const int units = lstrlenW(text);
    line.resize(old + static_cast<size_t>(units) * 3);
    const int bytes =
        WideCharToMultiByte(CP_UTF8, 0, text, units, line.data() + old, units * 3, nullptr, nullptr);
    line.resize(old + static_cast<size_t>(bytes));
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3) {
        std::fputs("usage: floor FOLDER FILE\n", stderr);
        return 1;
    }
    const HANDLE file = CreateFileW(arguments[2], GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return 1;
    std::vector<std::wstring> pending = {std::wstring(L"\\\\?\\") + arguments[1]};
    std::string line;
    while (!pending.empty()) {
        const std::wstring folder = std::move(pending.back());
        pending.pop_back();
        WIN32_FIND_DATAW entry;
        const HANDLE find = FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &entry,
                                             FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
        if (find == INVALID_HANDLE_VALUE)
            continue;
        do {
            const std::wstring_view name = entry.cFileName;
            if (name == L"." || name == L"..")
                continue;
            if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                pending.push_back(folder + L"\\" + entry.cFileName);
            line.clear();
            Utf8(entry.cFileName, line);
            line += "\r\n";
            DWORD written;
            WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
        } while (FindNextFileW(find, &entry));
        FindClose(find);
    }
    CloseHandle(file);
    return 0;
}
