// The calls that look at files and folders.
#include <algorithm>
#include <cstring>
#include <cwchar>
#include <map>
#include <mutex>
#include <unordered_map>

#include "FileSystem.h"
#include "FilesState.h"
#include "Internal.h"

namespace FakeWin {
namespace {

using namespace Internal;

// An enumeration under way.
struct Find {
    std::shared_ptr<Entry> folder;
    std::wstring subject;
    std::wstring mask;
    bool dots;        // "." and ".." are among the entries
    size_t next = 0;  // into dots and children
    int delivered = 0;
    const BreakOff* breakOff = nullptr;
};

std::unordered_map<HANDLE, std::unique_ptr<Find>>& Finds() {
    static std::unordered_map<HANDLE, std::unique_ptr<Find>> finds;
    return finds;
}

void Describe(const Entry& entry, const wchar_t* name, size_t length, WIN32_FIND_DATAW& data) {
    data.dwFileAttributes = entry.attributes;
    data.ftCreationTime = entry.created;
    data.ftLastAccessTime = entry.accessed;
    data.ftLastWriteTime = entry.written;
    data.nFileSizeHigh = static_cast<DWORD>(entry.size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(entry.size);
    data.dwReserved0 = 0;
    data.dwReserved1 = 0;
    const size_t kept = std::min<size_t>(length, MAX_PATH - 1);
    std::wmemcpy(data.cFileName, name, kept);
    data.cFileName[kept] = 0;
    data.cAlternateFileName[0] = 0;
}

// The next entry of an enumeration, or the error with which it ends.
DWORD Step(Find& find, WIN32_FIND_DATAW& data) {
    if (find.breakOff != nullptr && find.delivered >= find.breakOff->count)
        return find.breakOff->error;
    const auto& children = find.folder->folder->children;
    const size_t dots = find.dots ? 2 : 0;
    while (find.next < dots + children.size()) {
        const size_t index = find.next++;
        if (index < dots) {
            if (!MatchesMask(index == 0 ? L"." : L"..", find.mask))
                continue;
            Describe(*find.folder, index == 0 ? L"." : L"..", index + 1, data);
        } else {
            const Entry& entry = *children[index - dots];
            if (!MatchesMask(entry.name, find.mask))
                continue;
            Describe(entry, entry.name.data(), entry.name.size(), data);
        }
        ++find.delivered;
        return 0;
    }
    return ERROR_NO_MORE_FILES;
}

// Opens the enumeration of a query and takes its first entry.
DWORD Begin(const ParsedPath& path, const ParsedPath& folder, WIN32_FIND_DATAW& data, HANDLE& handle) {
    if (path.error != 0)
        return path.error;
    if (path.IsRoot())
        return ERROR_FILE_NOT_FOUND;
    auto find = std::make_unique<Find>();
    find->mask = path.Name();
    find->dots = !folder.IsRoot();
    find->subject = folder.Subject();

    const std::lock_guard lock(FilesMutex());
    DWORD error;
    find->folder = Files().tree->Find(folder, error);
    if (!find->folder)
        return error == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : error;
    if (!find->folder->folder)
        return ERROR_DIRECTORY;
    const auto breakOff = Files().breakOffs.find(Fold(find->subject));
    if (breakOff != Files().breakOffs.end())
        find->breakOff = &breakOff->second;
    error = Step(*find, data);
    if (error == ERROR_NO_MORE_FILES && find->breakOff == nullptr)
        error = ERROR_FILE_NOT_FOUND;
    if (error != 0)
        return error;
    handle = find.get();
    Finds()[handle] = std::move(find);
    return 0;
}

// Runs use on the entry of a path that one of the attribute calls asks for.
template <typename Use>
DWORD WithEntry(Call call, LPCWSTR given, Use use) {
    const ParsedPath path = ParsePath(given, false);
    return Watched(call, path.Subject(), 0, [&]() -> DWORD {
        if (path.error == 0 && path.atVolume)
            return ERROR_INVALID_PARAMETER;
        const std::lock_guard lock(FilesMutex());
        DWORD error;
        const std::shared_ptr<Entry> entry = Files().tree->Find(path, error);
        if (entry)
            use(*entry);
        return error;
    });
}

}  // namespace

namespace Internal {

void ForgetFinds() {
    Finds().clear();
}

std::vector<std::wstring> OpenFindSubjects() {
    std::vector<std::wstring> subjects;
    for (const auto& [handle, find] : Finds())
        subjects.push_back(find->subject);
    return subjects;
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;
using namespace FakeWin::Internal;

DWORD GetFileAttributesW(LPCWSTR path) {
    DWORD attributes = INVALID_FILE_ATTRIBUTES;
    Succeeded(WithEntry(Call::GetFileAttributesW, path,
                        [&](const Entry& entry) { attributes = entry.attributes; }));
    return attributes;
}

BOOL GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS, LPVOID data) {
    const SystemMemory system;
    return Succeeded(WithEntry(Call::GetFileAttributesExW, path, [&](const Entry& entry) {
        *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data) = {entry.attributes,
                                                          entry.created,
                                                          entry.accessed,
                                                          entry.written,
                                                          static_cast<DWORD>(entry.size >> 32),
                                                          static_cast<DWORD>(entry.size)};
    }));
}

HANDLE FindFirstFileExW(LPCWSTR query, FINDEX_INFO_LEVELS level, LPVOID data, FINDEX_SEARCH_OPS operation,
                        LPVOID filter, DWORD flags) {
    const SystemMemory system;
    const ParsedPath path = ParsePath(query, true);
    const ParsedPath folder = path.error == 0 && !path.IsRoot() ? path.Folder() : path;
    HANDLE handle = INVALID_HANDLE_VALUE;
    NoteFind({query, level, flags});
    Succeeded(Watched(Call::FindFirstFileExW, folder.Subject(), flags, [&]() -> DWORD {
        if (level >= FindExInfoMaxInfoLevel || operation != FindExSearchNameMatch || filter != nullptr)
            return ERROR_INVALID_PARAMETER;
        return Begin(path, folder, *static_cast<WIN32_FIND_DATAW*>(data), handle);
    }));
    return handle;
}

BOOL FindNextFileW(HANDLE handle, LPWIN32_FIND_DATAW data) {
    const SystemMemory system;
    const std::lock_guard lock(FilesMutex());
    const auto found = Finds().find(handle);
    if (found == Finds().end())
        return Succeeded(ERROR_INVALID_HANDLE);
    Find& find = *found->second;
    const DWORD fault = Enter(Call::FindNextFileW, find.subject);
    return Succeeded(fault != 0 ? fault : Step(find, *data));
}

BOOL FindClose(HANDLE handle) {
    const SystemMemory system;
    std::unique_ptr<Find> find;
    {
        const std::lock_guard lock(FilesMutex());
        const auto found = Finds().find(handle);
        if (found != Finds().end()) {
            find = std::move(found->second);
            Finds().erase(found);
        }
    }
    return Succeeded(Watched(Call::FindClose, find ? find->subject : L"", 0,
                             [&]() -> DWORD { return find ? 0 : ERROR_INVALID_HANDLE; }));
}

DWORD GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR*) {
    const SystemMemory system;
    const DWORD fault = Enter(Call::GetFullPathNameW);
    if (fault != 0 || *path == 0) {
        SetLastError(fault != 0 ? fault : ERROR_INVALID_NAME);
        return 0;
    }
    std::wstring text = path;
    const bool verbatim = text.starts_with(LR"(\\?\)");
    const bool trailing = !verbatim && (text.ends_with(L'\\') || text.ends_with(L'/'));
    if (!verbatim) {
        const ParsedPath parsed = ParsePath(text, true);
        text = parsed.Subject();
        if (trailing && !text.ends_with(L'\\'))
            text += L'\\';
    }
    const DWORD length = static_cast<DWORD>(text.size());
    if (length >= size)
        return length + 1;
    std::wmemcpy(buffer, text.c_str(), length + 1);
    return length;
}

BOOL DeleteFileW(LPCWSTR path) {
    const SystemMemory system;
    const ParsedPath parsed = ParsePath(path, false);
    return Succeeded(Watched(Call::DeleteFileW, parsed.Subject(), 0, [&]() -> DWORD {
        const std::lock_guard lock(FilesMutex());
        DWORD error;
        const std::shared_ptr<Entry> entry = Files().tree->Find(parsed, error);
        if (!entry)
            return error;
        const bool isOpen = std::ranges::count(Files().openFiles, parsed.Subject()) != 0;
        if (isOpen)
            return ERROR_SHARING_VIOLATION;
        if (entry->folder || (entry->attributes & FILE_ATTRIBUTE_READONLY) != 0)
            return ERROR_ACCESS_DENIED;
        Files().tree->Remove(parsed);
        return 0;
    }));
}

BOOL MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags) {
    const SystemMemory system;
    const ParsedPath source = ParsePath(from, false);
    const ParsedPath target = ParsePath(to, false);
    return Succeeded(Watched(Call::MoveFileExW, source.Subject(), flags, [&]() -> DWORD {
        const std::lock_guard lock(FilesMutex());
        DWORD error;
        const std::shared_ptr<Entry> file = Files().tree->Find(source, error);
        if (!file)
            return error;
        if (std::ranges::count(Files().openFiles, source.Subject()) != 0)
            return ERROR_SHARING_VIOLATION;
        const std::shared_ptr<Entry> replaced = Files().tree->Find(target, error);
        if (!replaced && error != ERROR_FILE_NOT_FOUND)
            return error;
        if (replaced && (replaced->folder || (replaced->attributes & FILE_ATTRIBUTE_READONLY) != 0))
            return ERROR_ACCESS_DENIED;
        Entry& moved = Files().tree->Make(target, false);
        moved.contents = std::move(file->contents);
        moved.size = file->size;
        moved.attributes = file->attributes;
        Files().tree->Remove(source);
        return 0;
    }));
}
