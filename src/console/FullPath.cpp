#include "console/FullPath.h"

#include "console/Errors.h"
#include "winlib/Windows.h"

namespace Console {

namespace {

constexpr wchar_t Prefix[] = LR"(\\?\)";
constexpr wchar_t NetworkPrefix[] = LR"(\\?\UNC\)";
constexpr wchar_t DevicePrefix[] = LR"(\\.\)";

std::wstring WithoutPrefix(const std::wstring& path) {
    if (path.starts_with(NetworkPrefix))
        return LR"(\\)" + path.substr(std::size(NetworkPrefix) - 1);
    if (path.starts_with(Prefix))
        return path.substr(std::size(Prefix) - 1);
    return path;
}

}  // namespace

std::wstring FullPath(const std::wstring& text) {
    std::wstring path(0x8000, L'\0');
    const DWORD length =
        GetFullPathNameW(text.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr);
    if (length == 0 || length >= path.size())
        throw Error(ExitCode::WrongUsage, L"'" + text + L"' is not a path");
    path.resize(length);
    return WithoutPrefix(path);
}

std::wstring LongPath(const std::wstring& fullPath) {
    if (fullPath.starts_with(DevicePrefix))
        return fullPath;
    if (fullPath.starts_with(LR"(\\)"))
        return NetworkPrefix + fullPath.substr(2);
    return Prefix + fullPath;
}

}  // namespace Console
