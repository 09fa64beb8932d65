// Replaces a function of the system, or of the C runtime, for one loaded module: calls from the module reach
// the replacement, those of the rest of the process do not.
#pragma once

#include "winlib/Windows.h"

class ImportHook {
public:
    // The replacement must have the signature of the function called name. Throws if the module does not
    // import that function.
    template <typename Function>
    ImportHook(HMODULE module, const char* name, Function* replacement)
        : ImportHook(module, name, reinterpret_cast<void*>(replacement)) {}
    ImportHook(HMODULE module, const char* name, void* replacement);
    // Puts the function back, unless the module has been unloaded.
    ~ImportHook();
    ImportHook(const ImportHook&) = delete;
    ImportHook& operator=(const ImportHook&) = delete;

private:
    void** const place_;
    void* const original_;
};
