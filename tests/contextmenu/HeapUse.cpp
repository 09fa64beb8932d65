#include "contextmenu/HeapUse.h"

#include <vector>

#include "winlib/Windows.h"

size_t HeapUse() {
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
    GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    size_t bytes = 0;
    for (const HANDLE heap : heaps) {
        HeapLock(heap);
        PROCESS_HEAP_ENTRY entry = {};
        while (HeapWalk(heap, &entry))
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
                bytes += entry.cbData + entry.cbOverhead;
        HeapUnlock(heap);
    }
    return bytes;
}

size_t FreeThreadLocalSlots() {
    std::vector<DWORD> slots;
    for (DWORD slot = TlsAlloc(); slot != TLS_OUT_OF_INDEXES; slot = TlsAlloc())
        slots.push_back(slot);
    for (const DWORD slot : slots)
        TlsFree(slot);
    return slots.size();
}
