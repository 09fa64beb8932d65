// Text in the user's locale, and the system's messages. The comparison of texts is in Collation.cpp.
#include <cstdarg>
#include <cwchar>
#include <mutex>
#include <set>

#include "Internal.h"

namespace FakeWin {
namespace {

struct SystemText {
    DWORD error;
    const wchar_t* text;
};

constexpr SystemText SystemTexts[] = {
    {0, L"The operation completed successfully.\r\n"},
    {1, L"Incorrect function.\r\n"},
    {2, L"The system cannot find the file specified.\r\n"},
    {3, L"The system cannot find the path specified.\r\n"},
    {5, L"Access is denied.\r\n"},
    {6, L"The handle is invalid.\r\n"},
    {8, L"Not enough memory resources are available to process this command.\r\n"},
    {87, L"The parameter is incorrect.\r\n"},
    {1400, L"Invalid window handle.\r\n"},
    {1814, L"The specified resource name cannot be found in the image file.\r\n"},
};

std::mutex mutex;
std::set<HLOCAL> openTexts;

const wchar_t* FindText(DWORD error) {
    for (const SystemText& row : SystemTexts)
        if (row.error == error)
            return row.text;
    return nullptr;
}

// Gives a text with its terminator and counts the latter; with no room asked for, only counts.
int Give(const std::wstring& text, LPWSTR buffer, int size) {
    const int needed = static_cast<int>(text.size()) + 1;
    if (size == 0)
        return needed;
    if (size < needed) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::wmemcpy(buffer, text.c_str(), text.size() + 1);
    return needed;
}

std::wstring Format(const wchar_t* format, int first, int second, int third) {
    wchar_t buffer[40];
    const int length = std::swprintf(buffer, std::size(buffer), format, first, second, third);
    return std::wstring(buffer, static_cast<size_t>(length));
}

template <typename Unit, typename Change>
int CompareFolded(const Unit* first, const Unit* second, Change change) {
    for (;; ++first, ++second) {
        const int difference = change(*first) - change(*second);
        if (difference != 0 || *first == 0)
            return difference;
    }
}

}  // namespace

namespace Internal {

std::string OpenTextsText() {
    const std::lock_guard lock(mutex);
    std::string text;
    for (size_t i = 0; i < openTexts.size(); ++i)
        text += "system text\n";
    return text;
}

void ResetText() {
    const std::lock_guard lock(mutex);
    for (const HLOCAL memory : openTexts)
        delete[] static_cast<wchar_t*>(memory);
    openTexts.clear();
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;

LPWSTR CharLowerW(LPWSTR text) {
    Internal::Enter(Call::CharLowerW);
    const auto value = reinterpret_cast<ULONG_PTR>(text);
    if (value >> 16 == 0)
        return reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(Internal::Lower(static_cast<wchar_t>(value))));
    for (wchar_t* unit = text; *unit != 0; ++unit)
        *unit = Internal::Lower(*unit);
    return text;
}

int CompareStringOrdinal(LPCWSTR first, int firstLength, LPCWSTR second, int secondLength, BOOL ignoreCase) {
    const std::wstring_view one(first,
                                firstLength < 0 ? std::wcslen(first) : static_cast<size_t>(firstLength));
    const std::wstring_view other(second,
                                  secondLength < 0 ? std::wcslen(second) : static_cast<size_t>(secondLength));
    const int order = ignoreCase ? Internal::Fold(one).compare(Internal::Fold(other)) : one.compare(other);
    return order < 0 ? CSTR_LESS_THAN : order > 0 ? CSTR_GREATER_THAN : CSTR_EQUAL;
}

int GetLocaleInfoW(LCID, DWORD, LPWSTR buffer, int size) {
    constexpr std::wstring_view Separator = L";";
    if (size < 2)
        return SetLastError(ERROR_INSUFFICIENT_BUFFER), 0;
    std::wmemcpy(buffer, Separator.data(), 2);
    return 2;
}

int GetDateFormatW(LCID, DWORD flags, const SYSTEMTIME* date, LPCWSTR format, LPWSTR buffer, int size) {
    DWORD error = Internal::Enter(Call::GetDateFormatW);
    if (error == 0 && (flags != DATE_SHORTDATE || format != nullptr))
        error = ERROR_INVALID_FLAGS;
    if (error != 0)
        return SetLastError(error), 0;
    return Give(Format(L"%04d-%02d-%02d", date->wYear, date->wMonth, date->wDay), buffer, size);
}

int GetTimeFormatW(LCID, DWORD flags, const SYSTEMTIME* time, LPCWSTR format, LPWSTR buffer, int size) {
    DWORD error = Internal::Enter(Call::GetTimeFormatW);
    if (error == 0 && (flags != 0 || format != nullptr))
        error = ERROR_INVALID_FLAGS;
    if (error != 0)
        return SetLastError(error), 0;
    return Give(Format(L"%02d:%02d:%02d", time->wHour, time->wMinute, time->wSecond), buffer, size);
}

int _stricmp(const char* first, const char* second) {
    return CompareFolded(
        first, second,
        [](char unit) {
            const auto byte = static_cast<unsigned char>(unit);
            return byte >= 'A' && byte <= 'Z' ? byte + 32 : byte;
        });
}

int _wcsicmp(const wchar_t* first, const wchar_t* second) {
    return CompareFolded(
        first, second, [](wchar_t unit) { return unit >= 'A' && unit <= 'Z' ? unit + 32 : unit; });
}

DWORD FormatMessageW(DWORD flags, LPCVOID, DWORD messageId, DWORD, LPWSTR buffer, DWORD, va_list*) {
    constexpr DWORD Supported =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    DWORD error = Internal::Enter(Call::FormatMessageW);
    if (error == 0 && flags != Supported)
        error = ERROR_INVALID_PARAMETER;
    const wchar_t* text = FindText(messageId);
    if (error == 0 && text == nullptr)
        error = ERROR_MR_MID_NOT_FOUND;
    if (error != 0)
        return SetLastError(error), 0;
    const size_t length = std::wcslen(text);
    auto* const memory = new wchar_t[length + 1];
    std::wmemcpy(memory, text, length + 1);
    *reinterpret_cast<LPWSTR*>(buffer) = memory;
    const std::lock_guard lock(mutex);
    openTexts.insert(memory);
    return static_cast<DWORD>(length);
}

HLOCAL LocalFree(HLOCAL memory) {
    Internal::Enter(Call::LocalFree);
    const std::lock_guard lock(mutex);
    if (openTexts.erase(memory) != 0)
        delete[] static_cast<wchar_t*>(memory);
    else if (memory != nullptr)
        return SetLastError(ERROR_INVALID_HANDLE), memory;
    return nullptr;
}
