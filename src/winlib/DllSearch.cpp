#include "winlib/DllSearch.h"

#include "winlib/Windows.h"

namespace WinLib {

void LimitDllSearch() {
    const FARPROC address = GetProcAddress(GetModuleHandleW(L"kernel32"), "SetDefaultDllDirectories");
    if (address != nullptr)
        reinterpret_cast<BOOL(WINAPI*)(DWORD)>(reinterpret_cast<void*>(address))(
            LOAD_LIBRARY_SEARCH_SYSTEM32);
}

}  // namespace WinLib
