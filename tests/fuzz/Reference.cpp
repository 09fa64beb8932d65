#include "fuzz/Reference.h"

#include <cstdint>

#include "winlib/Windows.h"

namespace Fuzz {

namespace {

wchar_t Lower(wchar_t unit) {
    const auto argument = reinterpret_cast<LPWSTR>(static_cast<uintptr_t>(unit));
    return static_cast<wchar_t>(reinterpret_cast<uintptr_t>(CharLowerW(argument)));
}

bool HoldsAny(std::wstring_view text, std::wstring_view units) {
    return text.find_first_of(units) != std::wstring_view::npos;
}

bool IsLead(wchar_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsTrail(wchar_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

bool IsNetworkPath(std::wstring_view text) {
    return text.size() > 2 && text.starts_with(L"\\\\") && text[2] != L'\\';
}

}  // namespace

std::wstring Lowered(std::wstring_view text) {
    std::wstring lowered(text);
    for (wchar_t& unit : lowered)
        unit = Lower(unit);
    return lowered;
}

// covers[i] is whether the pattern up to here covers the first i characters.
bool Covers(std::wstring_view pattern, std::wstring_view text) {
    std::vector<bool> covers(text.size() + 1, false);
    covers[0] = true;
    for (const wchar_t symbol : pattern) {
        std::vector<bool> next(covers.size(), false);
        next[0] = symbol == L'*' && covers[0];
        for (size_t i = 1; i < covers.size(); ++i)
            if (symbol == L'*')
                next[i] = covers[i] || next[i - 1];
            else
                next[i] = covers[i - 1] && (symbol == L'?' || symbol == Lower(text[i - 1]));
        covers = next;
    }
    return covers.back();
}

bool CoversAny(const std::vector<std::wstring>& patterns, std::wstring_view text) {
    for (const std::wstring& pattern : patterns)
        if (Covers(pattern, text))
            return true;
    return false;
}

std::vector<std::wstring> Pieces(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring> pieces;
    std::wstring piece;
    for (size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i] != separator) {
            piece += text[i];
        } else if (!piece.empty()) {
            pieces.push_back(piece);
            piece.clear();
        }
    }
    return pieces;
}

std::vector<std::wstring> SearchPatterns(std::wstring_view filter) {
    std::vector<std::wstring> patterns;
    for (const std::wstring& token : Pieces(filter, L':'))
        patterns.push_back(HoldsAny(token, L"|<>\"/\\") ? token : Lowered(token));
    return patterns.empty() ? std::vector<std::wstring>{L"*"} : patterns;
}

std::vector<std::wstring> ExcludedPatterns(const std::vector<std::wstring>& entries) {
    std::vector<std::wstring> patterns;
    for (const std::wstring& entry : entries)
        if (!HoldsAny(entry, L"|<>\"/"))
            patterns.push_back(Joined(Lowered(entry), L""));
    return patterns;
}

std::wstring Normalised(std::wstring_view text) {
    if (text.empty())
        return {};
    std::wstring path;
    for (const std::wstring& piece : Pieces(text, L'\\'))
        path += (path.empty() ? L"" : L"\\") + piece;
    return path.empty() ? L"\\" : path;
}

std::wstring Joined(std::wstring_view first, std::wstring_view second) {
    const std::wstring head = Normalised(first);
    const std::wstring tail = Normalised(second);
    if (head.empty())
        return (IsNetworkPath(second) ? L"\\\\" : L"") + tail;
    return (IsNetworkPath(first) ? L"\\\\" : L"") + head + (tail.empty() ? L"" : L"\\" + tail);
}

bool IsUtf16(std::wstring_view text) {
    for (size_t i = 0; i < text.size(); ++i)
        if (IsLead(text[i]) && i + 1 < text.size() && IsTrail(text[i + 1]))
            ++i;
        else if (IsLead(text[i]) || IsTrail(text[i]))
            return false;
    return true;
}

}  // namespace Fuzz
