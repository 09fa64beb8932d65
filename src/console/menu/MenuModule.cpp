#include "console/menu/MenuModule.h"

#include <memory>
#include <type_traits>

#include "console/Errors.h"
#include "winlib/Windows.h"

namespace Console {

namespace {

using DllInstallFunction = HRESULT(WINAPI*)(BOOL install, LPCWSTR commandLine);

struct FreeModule {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};

using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule>;

}  // namespace

void InstallModuleForUser(const std::wstring& path, bool install) {
    const Module module(LoadLibraryExW(path.c_str(), nullptr, 0));
    if (module == nullptr)
        throw Error(ExitCode::NotWritten,
                    L"the module '" + path + L"' cannot be loaded; install Tamblewick again");
    const FARPROC address = GetProcAddress(module.get(), "DllInstall");
    const auto function = reinterpret_cast<DllInstallFunction>(reinterpret_cast<void*>(address));
    if (function == nullptr || FAILED(function(install, L"user")))
        throw Error(ExitCode::NotWritten,
                    L"the module '" + path + L"' could not change the menus; the registry refused");
}

}  // namespace Console
