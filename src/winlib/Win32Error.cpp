#include "winlib/Win32Error.h"

#include <memory>
#include <new>

#include "winlib/Windows.h"

namespace WinLib {
namespace {

struct LocalMemory {
    void operator()(wchar_t* buffer) const { LocalFree(buffer); }
};

// Returns the system's message for the code, with its line end.
std::wstring SystemText(DWORD code) {
    constexpr DWORD Flags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(Flags, nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                                        reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    const std::unique_ptr<wchar_t, LocalMemory> owner(text);
    return length ? std::wstring(text, length) : L"An unidentified Windows error has occurred.";
}

}  // namespace

Win32Error::Win32Error() : Exception(L"An unidentified error has occurred."), Code(GetLastError()) {
    try {
        Message = SystemText(Code);
    } catch (const std::bad_alloc&) {
        // Keep the first message: running out of memory here must not hide the original error.
    }
    SetLastError(0);
}

}  // namespace WinLib
