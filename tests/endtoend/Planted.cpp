// A DLL that tests put beside a program under the names of system DLLs. Creates the file NAME.loaded beside
// itself when a process loads it.

#include <string>

#include "winlib/Windows.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(instance, path, MAX_PATH);
        CloseHandle(CreateFileW((std::wstring(path) + L".loaded").c_str(), GENERIC_WRITE, 0, nullptr,
                                CREATE_ALWAYS, 0, nullptr));
    }
    return TRUE;
}
