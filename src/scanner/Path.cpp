#include "scanner/Path.h"

namespace Scanner {

namespace {

bool StartsAsNetworkPath(std::wstring_view text) {
    return text.size() > 2 && text[0] == L'\\' && text[1] == L'\\' && text[2] != L'\\';
}

}  // namespace

std::wstring NormalizePath(std::wstring_view text) {
    if (text.size() < 2)
        return std::wstring(text);

    while (text.size() > 1 && text.front() == L'\\')
        text.remove_prefix(1);
    while (text.size() > 1 && text.back() == L'\\')
        text.remove_suffix(1);

    std::wstring path;
    path.reserve(text.size());
    for (const wchar_t character : text)
        if (character != L'\\' || path.empty() || path.back() != L'\\')
            path += character;
    return path;
}

std::wstring JoinPath(std::wstring_view first, std::wstring_view second) {
    std::wstring path = NormalizePath(first);
    const std::wstring tail = NormalizePath(second);
    if (path.empty())
        return StartsAsNetworkPath(second) ? L"\\\\" + tail : tail;

    if (StartsAsNetworkPath(first))
        path.insert(0, L"\\\\");
    if (!tail.empty())
        path.append(1, L'\\').append(tail);
    return path;
}

std::wstring VerbatimPath(std::wstring_view path, bool networkPaths) {
    if (networkPaths && StartsAsNetworkPath(path))
        return std::wstring(LR"(\\?\UNC\)").append(path.substr(2));
    return std::wstring(LR"(\\?\)").append(path);
}

}  // namespace Scanner
