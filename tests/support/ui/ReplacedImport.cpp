#include "support/ui/ReplacedImport.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace Ui {

namespace {

template <typename T>
const T* At(const std::byte* module, DWORD offset) {
    return reinterpret_cast<const T*>(module + offset);
}

// The place in the import table of this program that holds the address of a function; null if there is none.
void** FindSlot(const char* name) {
    auto* const module = reinterpret_cast<std::byte*>(GetModuleHandleW(nullptr));
    const auto* const headers =
        At<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, table.VirtualAddress); library->Name != 0;
         ++library) {
        const auto* names = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto** slots = reinterpret_cast<void**>(module + library->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++slots) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                continue;
            const auto* import =
                At<IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(names->u1.AddressOfData));
            if (std::strcmp(reinterpret_cast<const char*>(import->Name), name) == 0)
                return slots;
        }
    }
    return nullptr;
}

void Write(void** slot, void* function) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection);
    *slot = function;
    VirtualProtect(slot, sizeof(*slot), protection, &protection);
}

}  // namespace

ReplacedImport::ReplacedImport(const char* name, void* replacement)
    : slot_(FindSlot(name)), original_(slot_ != nullptr ? *slot_ : nullptr) {
    if (slot_ == nullptr)
        throw std::runtime_error(std::string("not imported: ") + name);
    Write(slot_, replacement);
}

ReplacedImport::~ReplacedImport() {
    Write(slot_, original_);
}

}  // namespace Ui
