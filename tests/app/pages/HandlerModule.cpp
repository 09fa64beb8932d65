// A stand-in for the context-menu handler, for regsvr32 to load: it only writes and removes the keys by which
// a handler is registered.

#include <initializer_list>
#include <string>

#include "winlib/Windows.h"

namespace {

const std::wstring Class = L"{5E2C81D4-3B7F-4A16-9C0E-7F41D2A96B3C}";
const std::wstring FolderKey = L"Directory\\shellex\\ContextMenuHandlers\\Tamblewick";
const std::wstring DriveKey = L"Drive\\shellex\\ContextMenuHandlers\\Tamblewick";
const std::wstring ClassKey = L"CLSID\\" + Class;
const std::wstring ServerKey = ClassKey + L"\\InProcServer32";

std::wstring OwnPath() {
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&OwnPath), &self);
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(self, path, MAX_PATH);
    return path;
}

bool Set(const std::wstring& key, const std::wstring& value) {
    return RegSetValueW(HKEY_CLASSES_ROOT, key.c_str(), REG_SZ, value.c_str(), 0) == ERROR_SUCCESS;
}

}  // namespace

extern "C" __declspec(dllexport) HRESULT WINAPI DllRegisterServer() {
    return Set(FolderKey, Class) && Set(DriveKey, Class) && Set(ServerKey, OwnPath()) ? S_OK : E_FAIL;
}

extern "C" __declspec(dllexport) HRESULT WINAPI DllUnregisterServer() {
    for (const std::wstring& key : {FolderKey, DriveKey, ServerKey, ClassKey})
        RegDeleteKeyW(HKEY_CLASSES_ROOT, key.c_str());
    return S_OK;
}
