#include "support/Platform.h"

#include <cstdlib>

#include "winlib/Windows.h"

namespace TestSupport {

void PrepareWorld() {}

std::string LeftOpen() {
    return {};
}

int WineVersion() {
    // Only Wine's ntdll has it.
    const FARPROC function = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version");
    if (function == nullptr)
        return 0;
    return std::atoi(reinterpret_cast<const char* (*)()>(reinterpret_cast<void*>(function))());
}

std::shared_ptr<void> BeginUnwatched() {
    return nullptr;
}

}  // namespace TestSupport
