#include "winlib/WindowText.h"

#include <vector>

namespace WinLib {

std::wstring GetWindowText(HWND window) {
    // The length is an estimate: another thread may set the text between the two calls.
    std::vector<wchar_t> buffer(static_cast<size_t>(GetWindowTextLengthW(window)) + 16);
    const int length = GetWindowTextW(window, buffer.data(), static_cast<int>(buffer.size()));
    return std::wstring(buffer.data(), static_cast<size_t>(length));
}

}  // namespace WinLib
