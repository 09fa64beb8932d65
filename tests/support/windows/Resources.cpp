#include "support/windows/Resources.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include "winlib/Windows.h"

#include <winternl.h>

namespace {

// What differs with the number of workers that run in a moment; and Wine keeps device contexts, about thirty
// objects for each thread with windows.
constexpr int HandleSlack = 40;
constexpr int ObjectSlack = 100;

// Wine has no count of a process's handles, but lists all handles of the system.
struct HandleEntry {
    ULONG process;
    BYTE type;
    BYTE flags;
    USHORT value;
    void* object;
    ULONG access;
};
struct HandleTable {
    ULONG count;
    HandleEntry entries[1];
};
constexpr auto SystemHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(16);

int HandlesInTable() {
    std::vector<std::byte> buffer(1 << 16);
    ULONG needed = 0;
    while (NtQuerySystemInformation(SystemHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()),
                                    &needed) < 0)
        buffer.resize(buffer.size() * 2);
    const auto& table = *reinterpret_cast<const HandleTable*>(buffer.data());
    int count = 0;
    for (const HandleEntry* entry = table.entries; entry != table.entries + table.count; ++entry)
        count += entry->process == GetCurrentProcessId();
    return count;
}

int CountHandles() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count != 0 ? static_cast<int>(count) : HandlesInTable();
}

// Nor a count of GDI objects; but the table of all of them is where it always was.
struct GdiEntry {
    void* object;
    USHORT process;
    USHORT count;
    USHORT unique;
    BYTE type;
    BYTE flags;
    void* user;
};
constexpr size_t GdiTableInPeb = 0xF8;
constexpr int GdiTableSize = 1 << 16;

int GdiObjectsInTable() {
    const auto* peb = reinterpret_cast<const std::byte*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const auto* table = *reinterpret_cast<const GdiEntry* const*>(peb + GdiTableInPeb);
    int count = 0;
    for (int i = 0; i < GdiTableSize; ++i)
        count += table[i].type != 0;
    return count;
}

int CountGdiObjects() {
    const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return count != 0 ? static_cast<int>(count) : GdiObjectsInTable();
}

}  // namespace

Resources Resources::Now() {
    return {CountHandles(), static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)),
            CountGdiObjects()};
}

bool Resources::IsWithin(const Resources& before) const {
    return handles <= before.handles + HandleSlack && userObjects <= before.userObjects + ObjectSlack &&
           gdiObjects <= before.gdiObjects + ObjectSlack;
}

std::ostream& operator<<(std::ostream& out, const Resources& resources) {
    return out << resources.handles << " handles, " << resources.userObjects << " user objects, "
               << resources.gdiObjects << " GDI objects";
}
