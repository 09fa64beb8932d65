// Files that CreateFileW opens for reading. They may be deleted and written meanwhile, as with all kinds of
// sharing.
#include <algorithm>
#include <cstring>
#include <map>
#include <memory>

#include "FilesState.h"
#include "Internal.h"

namespace FakeWin {
namespace {

using namespace Internal;

struct ReadableFile {
    std::shared_ptr<Entry> entry;
    std::wstring subject;
    uint64_t read = 0;  // bytes
};

struct State {
    std::map<HANDLE, ReadableFile> files;
    uintptr_t last = 0x50000;
};

// Under FilesMutex.
State& ReadFiles() {
    static State state;
    return state;
}

// Copies the next bytes of a file, of which the contents may be only a size.
DWORD Copy(ReadableFile& file, char* buffer, DWORD size) {
    const Entry& entry = *file.entry;
    const auto count =
        static_cast<DWORD>(std::min<uint64_t>(size, entry.size - std::min(entry.size, file.read)));
    if (entry.contents)
        entry.contents->copy(buffer, count, static_cast<size_t>(file.read));
    else
        std::memset(buffer, 0, count);
    file.read += count;
    return count;
}

}  // namespace

namespace Internal {

bool CloseReadFile(HANDLE handle) {
    const std::lock_guard lock(FilesMutex());
    return ReadFiles().files.erase(handle) != 0;
}

std::string OpenReadFilesText() {
    const std::lock_guard lock(FilesMutex());
    std::string text;
    for (const auto& [handle, file] : ReadFiles().files)
        text += "file " + Narrow(file.subject) + "\n";
    return text;
}

void ResetReadFiles() {
    const std::lock_guard lock(FilesMutex());
    ReadFiles() = State();
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;
using namespace FakeWin::Internal;

HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES, DWORD creation,
                   DWORD flags, HANDLE) {
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const SystemMemory system;
    const ParsedPath parsed = ParsePath(path, false);
    HANDLE handle = INVALID_HANDLE_VALUE;
    Succeeded(Watched(Call::CreateFileW, parsed.Subject(), flags, [&]() -> DWORD {
        if (access != GENERIC_READ || share != ShareAll || creation != OPEN_EXISTING)
            return ERROR_INVALID_PARAMETER;
        const std::lock_guard lock(FilesMutex());
        DWORD error;
        const std::shared_ptr<Entry> entry = Files().tree->Find(parsed, error);
        if (!entry)
            return error;
        if (entry->folder)
            return ERROR_ACCESS_DENIED;
        handle = reinterpret_cast<HANDLE>(++ReadFiles().last);
        ReadFiles().files[handle] = {entry, parsed.Subject()};
        return 0;
    }));
    return handle;
}

BOOL ReadFile(HANDLE handle, LPVOID buffer, DWORD size, LPDWORD read, LPVOID) {
    const SystemMemory system;
    *read = 0;
    std::wstring subject;
    {
        const std::lock_guard lock(FilesMutex());
        const auto found = ReadFiles().files.find(handle);
        if (found == ReadFiles().files.end())
            return Succeeded(ERROR_INVALID_HANDLE);
        subject = found->second.subject;
    }
    return Succeeded(Watched(Call::ReadFile, subject, size, [&]() -> DWORD {
        const std::lock_guard lock(FilesMutex());
        *read = Copy(ReadFiles().files.at(handle), static_cast<char*>(buffer), size);
        return 0;
    }));
}
