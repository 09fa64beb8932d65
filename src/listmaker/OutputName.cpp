#include "listmaker/OutputName.h"

#include <algorithm>

#include "scanner/Path.h"
#include "settings/Preset.h"
#include "winlib/Windows.h"

namespace {

std::wstring WithBackslashes(std::wstring text) {
    std::replace(text.begin(), text.end(), L'/', L'\\');
    return text;
}

bool IsAsciiLetter(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

// Returns the last part of a path, or the letter of a drive, since a file name cannot contain a colon.
std::wstring Subject(const std::wstring& text) {
    if ((text.size() == 2 || text.size() == 3) && text[1] == L':' && IsAsciiLetter(text[0]))
        return text.substr(0, 1);
    const size_t backslash = text.rfind(L'\\');
    return backslash == std::wstring::npos ? std::wstring() : text.substr(backslash + 1);
}

std::wstring TemporaryFolder() {
    wchar_t buffer[276];
    const DWORD size = sizeof(buffer) / sizeof(buffer[0]);
    const DWORD length = GetTempPathW(size, buffer);
    return length != 0 && length < size ? std::wstring(buffer, length) : std::wstring();
}

std::wstring Folder(const Preset& preset, const std::wstring& text) {
    switch (preset.Get(Saving::SaveLocation)) {
        case SaveLocation::Temporary:
            return TemporaryFolder();
        case SaveLocation::SamePath:
            return text;
        case SaveLocation::Custom:
            return WithBackslashes(preset.Get(Saving::CustomFolderPath));
    }
    return std::wstring();
}

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

std::wstring OutputName(const Preset& preset, const std::wstring& path) {
    const std::wstring text = WithBackslashes(path);
    const std::wstring base = L"List of " + Subject(text);
    const bool html = preset.Get(Format::ListStyle) == ListStyle::Html;
    const std::wstring extension = html ? L".html" : L".txt";
    const std::wstring folder = Folder(preset, text);
    const bool overwrite = preset.Get(Saving::OverwriteExisting);

    std::wstring name = Scanner::JoinPath(folder, base + extension);
    for (uint64_t counter = 2; Exists(name) && !overwrite; ++counter)
        name = Scanner::JoinPath(folder, base + L" (" + std::to_wstring(counter) + L")" + extension);
    return name;
}
