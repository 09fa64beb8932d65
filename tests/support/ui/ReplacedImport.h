// A function of the system that a test replaces, to see the arguments that the program hands over or to make
// the call fail. What the system itself calls is not affected.
#pragma once

#include "winlib/Windows.h"

namespace Ui {

class ReplacedImport {
public:
    // The functions that the test program imports by this name lead to the replacement, which must have the
    // same type, as long as the object lives. Throws std::runtime_error if nothing of that name is imported.
    template <typename Function>
    ReplacedImport(const char* name, Function* replacement)
        : ReplacedImport(name, reinterpret_cast<void*>(replacement)) {}

    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;
    ~ReplacedImport();

private:
    ReplacedImport(const char* name, void* replacement);

    void** slot_;
    void* original_;
};

}  // namespace Ui
