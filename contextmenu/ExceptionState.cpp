#include "contextmenu/ExceptionState.h"

#include <cxxabi.h>

#include "winlib/Windows.h"

namespace {

constinit DWORD slot = TLS_OUT_OF_INDEXES;

}  // namespace

bool ExceptionState::AllocateSlot() {
    slot = TlsAlloc();
    return slot != TLS_OUT_OF_INDEXES;
}

void ExceptionState::FreeSlot() {
    TlsFree(slot);
}

ExceptionState::ExceptionState()
    : previous_(TlsGetValue(slot)), isSet_(TlsSetValue(slot, &record_) != FALSE) {}

ExceptionState::~ExceptionState() {
    TlsSetValue(slot, previous_);
}

// The runtime calls these two to find the record. Because they are defined here, the linker does not take
// those of the runtime's library.
namespace __cxxabiv1 {

extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
    return static_cast<__cxa_eh_globals*>(TlsGetValue(slot));
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return __cxa_get_globals();
}

}  // namespace __cxxabiv1
