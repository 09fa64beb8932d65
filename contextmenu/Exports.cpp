// The five functions by which COM and regsvr32 reach the module, and its entry point.

#include "contextmenu/ClassFactory.h"
#include "contextmenu/ExceptionState.h"
#include "contextmenu/Module.h"
#include "contextmenu/Registration.h"
#include "shell/ContextMenuClass.h"
#include "winlib/RegistryKey.h"

#include <objbase.h>

// Of the C++ runtime's library, which declares it in no header.
namespace __gnu_cxx {
void __freeres();
}

namespace {

// The classes of the user alone, for an installation without administrator rights.
HRESULT WithUserClasses(HRESULT (*operation)(HKEY)) {
    RegistryKey classes;
    const LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, nullptr, 0,
                                           KEY_ALL_ACCESS, nullptr, classes.Receive(), nullptr);
    if (status != ERROR_SUCCESS)
        return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    return operation(classes.Get());
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    return Guarded([&] {
        CLSID own;
        if (FAILED(CLSIDFromString(ContextMenuClassId, &own)) || !IsEqualCLSID(classId, own))
            return CLASS_E_CLASSNOTAVAILABLE;
        IUnknown* const factory = new ClassFactory;
        const HRESULT result = factory->QueryInterface(iid, object);
        factory->Release();
        return result;
    });
}

STDAPI DllCanUnloadNow() {
    return Module::IsInUse() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
    return Guarded([] { return Registration::Register(HKEY_CLASSES_ROOT); });
}

STDAPI DllUnregisterServer() {
    return Guarded([] { return Registration::Unregister(HKEY_CLASSES_ROOT); });
}

// regsvr32 /n /i:user registers for the current user alone, with /u it undoes that. Any other text is for
// all.
STDAPI DllInstall(BOOL install, LPCWSTR text) {
    return Guarded([&] {
        const auto operation = install ? Registration::Register : Registration::Unregister;
        const bool userOnly = text != nullptr && lstrcmpiW(text, L"user") == 0;
        return userOnly ? WithUserClasses(operation) : operation(HKEY_CLASSES_ROOT);
    });
}

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* processEnds) {
    switch (reason) {
        case DLL_PROCESS_ATTACH:
            Module::SetInstance(instance);
            DisableThreadLibraryCalls(instance);
            return ExceptionState::AllocateSlot();
        case DLL_PROCESS_DETACH:
            // At the end of the process the system frees everything.
            if (processEnds == nullptr) {
                ExceptionState::FreeSlot();
                // Frees the reserve that the C++ runtime allocated at loading, for exceptions without memory.
                __gnu_cxx::__freeres();
            }
            return TRUE;
        default:
            return TRUE;
    }
}
