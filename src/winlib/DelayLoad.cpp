// Loads a function of a DLL at the first call of it. The delay-import libraries (cmake/DelayLoad.cmake) fix
// the name and the parameters of the operation here.

#include "winlib/Windows.h"

#include <delayimp.h>

extern "C" const IMAGE_DOS_HEADER __ImageBase;

namespace {

template <class Type>
const Type* At(ULONGLONG offset) {
    return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(&__ImageBase) + offset);
}

}  // namespace

// Stores the address of the function in `slot`, which later calls read, and returns it. If the DLL or the
// function is missing, ends the process with the exit code that the loader uses for a missing import.
extern "C" FARPROC WINAPI __delayLoadHelper2(PCImgDelayDescr library, FARPROC* slot) {
    constexpr UINT EntryPointNotFound = 0xC0000139;
    const auto index = slot - At<FARPROC>(library->rvaIAT);
    const IMAGE_THUNK_DATA& import = At<IMAGE_THUNK_DATA>(library->rvaINT)[index];
    const HMODULE module = LoadLibraryA(At<char>(library->rvaDLLName));
    const FARPROC function = GetProcAddress(module, At<IMAGE_IMPORT_BY_NAME>(import.u1.AddressOfData)->Name);
    if (function == nullptr)
        TerminateProcess(GetCurrentProcess(), EntryPointNotFound);
    *slot = function;
    return function;
}
