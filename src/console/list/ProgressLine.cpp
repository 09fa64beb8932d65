#include "console/list/ProgressLine.h"

#include <algorithm>

#include "console/Output.h"
#include "console/Utf8.h"

namespace Console {

namespace {

bool IsTrail(wchar_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

// Returns at most `width` units of the text, without half a surrogate pair at the end.
std::wstring Cut(std::wstring text, size_t width) {
    if (text.size() > width) {
        if (width > 0 && IsTrail(text[width]))
            --width;
        text.resize(width);
    }
    return text;
}

// A name may hold any characters: those that move the cursor are replaced.
std::wstring Printable(std::wstring_view text) {
    std::wstring printable(text);
    std::replace_if(
        printable.begin(), printable.end(), [](wchar_t unit) { return unit < L' '; }, L'?');
    return printable;
}

}  // namespace

void ProgressLine::Show(uint64_t entries, uint64_t folders, std::wstring_view folder) {
    if (enabled_)
        ShowLine(std::to_wstring(entries) + L" entries, " + std::to_wstring(folders) + L" folders: " +
                 Printable(folder));
}

void ProgressLine::ShowBytes(uint64_t bytes, uint64_t ofBytes, std::wstring_view file) {
    if (enabled_)
        ShowLine(std::to_wstring(bytes) + L" of " + std::to_wstring(ofBytes) + L" bytes: " + Printable(file));
}

void ProgressLine::ShowLine(const std::wstring& text) {
    // A character in the last column would move the cursor to the next line.
    const std::wstring line = Cut(text, ErrorConsoleWidth() - 1);
    const size_t padding = shown_ > line.size() ? shown_ - line.size() : 0;
    PrintError("\r" + ToUtf8(line) + std::string(padding, ' '));
    shown_ = line.size();
}

void ProgressLine::Clear() {
    if (shown_ == 0)
        return;
    PrintError("\r" + std::string(shown_, ' ') + "\r");
    shown_ = 0;
}

}  // namespace Console
