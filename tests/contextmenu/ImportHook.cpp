#include "contextmenu/ImportHook.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace {

template <typename Type>
Type* At(HMODULE module, ULONGLONG address) {
    return reinterpret_cast<Type*>(reinterpret_cast<char*>(module) + address);
}

// Where the module keeps the address of the imported function.
void** FindImport(HMODULE module, const char* name) {
    const auto& headers = *At<IMAGE_NT_HEADERS>(module, At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto library = At<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress); library->Name != 0;
         ++library) {
        const auto names = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        const auto addresses = At<IMAGE_THUNK_DATA>(module, library->FirstThunk);
        for (size_t i = 0; names[i].u1.AddressOfData != 0; ++i) {
            if (IMAGE_SNAP_BY_ORDINAL(names[i].u1.Ordinal))
                continue;
            const auto import = At<IMAGE_IMPORT_BY_NAME>(module, names[i].u1.AddressOfData);
            if (std::strcmp(import->Name, name) == 0)
                return reinterpret_cast<void**>(&addresses[i].u1.Function);
        }
    }
    throw std::runtime_error(std::string("The module does not import ") + name);
}

void Put(void** place, void* address) {
    DWORD protection = 0;
    VirtualProtect(place, sizeof(*place), PAGE_READWRITE, &protection);
    *place = address;
    VirtualProtect(place, sizeof(*place), protection, &protection);
}

}  // namespace

ImportHook::ImportHook(HMODULE module, const char* name, void* replacement)
    : place_(FindImport(module, name)), original_(*place_) {
    Put(place_, replacement);
}

ImportHook::~ImportHook() {
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(place_),
                            &module))
        return;
    Put(place_, original_);
    FreeLibrary(module);
}
