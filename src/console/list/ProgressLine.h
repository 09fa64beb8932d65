// The progress of a list on the standard error: one line that is rewritten.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Console {

class ProgressLine {
public:
    // Shows nothing unless enabled.
    explicit ProgressLine(bool enabled) : enabled_(enabled) {}
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    // Clears the line.
    ~ProgressLine() { Clear(); }

    // Replaces the line by the counts and the folder, of which the end is left out if the console is too
    // narrow.
    void Show(uint64_t entries, uint64_t folders, std::wstring_view folder);

    // The same for the bytes of files that have been read.
    void ShowBytes(uint64_t bytes, uint64_t ofBytes, std::wstring_view file);

    // Makes room for other output.
    void Clear();

private:
    void ShowLine(const std::wstring& text);

    const bool enabled_;
    size_t shown_ = 0;  // characters on the line
};

}  // namespace Console
