// _wfsopen: files of the C runtime that end in the stand-in's file system.
#include <share.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "FilesState.h"
#include "Internal.h"

namespace FakeWin {
namespace {

using namespace Internal;

// One open file: the cookie of the C library's stream.
struct OpenFile {
    std::shared_ptr<Entry> entry;
    std::wstring subject;
    bool text;        // 0A becomes 0D 0A
    size_t read = 0;  // bytes
};

int ErrnoOf(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return ENOENT;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
            return EACCES;
        default:
            return EINVAL;
    }
}

std::string OnDisk(const OpenFile& file, const char* data, size_t size) {
    std::string bytes;
    for (const char byte : std::string_view(data, size)) {
        if (file.text && byte == '\n')
            bytes += '\r';
        bytes += byte;
    }
    return bytes;
}

DWORD Append(const OpenFile& file, const std::string& bytes) {
    const std::lock_guard lock(FilesMutex());
    const std::wstring key = Fold(file.subject);
    ++Files().writes[key];
    std::string& contents = *file.entry->contents;
    const auto limit = Files().writeLimits.find(key);
    const uint64_t end =
        limit == Files().writeLimits.end() ? std::numeric_limits<uint64_t>::max() : limit->second;
    const size_t room =
        static_cast<size_t>(std::min<uint64_t>(end - std::min<uint64_t>(end, contents.size()), bytes.size()));
    contents.append(bytes, 0, room);
    file.entry->size = contents.size();
    return room == bytes.size() ? 0 : ERROR_DISK_FULL;
}

ssize_t Write(void* cookie, const char* data, size_t size) {
    const OpenFile& file = *static_cast<OpenFile*>(cookie);
    const DWORD error = Watched(Call::WriteFile, file.subject, static_cast<DWORD>(size),
                                [&] { return Append(file, OnDisk(file, data, size)); });
    if (error == 0)
        return static_cast<ssize_t>(size);
    errno = error == ERROR_DISK_FULL ? ENOSPC : EIO;
    return 0;
}

ssize_t Read(void* cookie, char* data, size_t size) {
    OpenFile& file = *static_cast<OpenFile*>(cookie);
    if (Watched(Call::ReadFile, file.subject) != 0) {
        errno = EIO;
        return -1;
    }
    const std::lock_guard lock(FilesMutex());
    const size_t count = file.entry->contents ? file.entry->contents->copy(data, size, file.read) : 0;
    file.read += count;
    return static_cast<ssize_t>(count);
}

int Close(void* cookie) {
    const std::unique_ptr<OpenFile> file(static_cast<OpenFile*>(cookie));
    const DWORD error = Watched(Call::CloseFile, file->subject);
    const std::lock_guard lock(FilesMutex());
    std::vector<std::wstring>& open = Files().openFiles;
    const auto found = std::ranges::find(open, file->subject);
    if (found != open.end())
        open.erase(found);
    if (error != 0)
        errno = EIO;
    return error == 0 ? 0 : EOF;
}

// As CREATE_ALWAYS does it: an existing file must be neither read-only nor, with plain attributes asked for,
// hidden or of the system.
DWORD Truncate(const ParsedPath& path, OpenFile& file) {
    constexpr DWORD Protected = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const std::lock_guard lock(FilesMutex());
    DWORD error;
    file.entry = Files().tree->Find(path, error);
    if (error == ERROR_FILE_NOT_FOUND)
        file.entry = Files().tree->Make(path, false).shared_from_this();
    else if (error != 0)
        return error;
    if (file.entry->folder || (file.entry->attributes & Protected) != 0)
        return ERROR_ACCESS_DENIED;
    file.entry->contents = std::make_unique<std::string>();
    file.entry->size = 0;
    Files().writes[Fold(file.subject)] = 0;
    Files().openFiles.push_back(file.subject);
    Files().writtenFiles.push_back(file.subject);
    return 0;
}

DWORD OpenExisting(const ParsedPath& path, OpenFile& file) {
    const std::lock_guard lock(FilesMutex());
    DWORD error;
    file.entry = Files().tree->Find(path, error);
    if (!file.entry)
        return error;
    if (file.entry->folder)
        return ERROR_ACCESS_DENIED;
    Files().openFiles.push_back(file.subject);
    return 0;
}

}  // namespace
}  // namespace FakeWin

using namespace FakeWin;

FILE* _wfsopen(const wchar_t* path, const wchar_t* mode, int share) {
    const std::wstring_view asked = mode;
    const bool reading = asked == L"rb";
    if ((!reading && asked != L"w" && asked != L"wb" && asked != L"wt") || share < _SH_DENYRW ||
        share > _SH_DENYNO) {
        errno = EINVAL;
        return nullptr;
    }
    auto file = std::make_unique<OpenFile>();
    const ParsedPath parsed = ParsePath(path, false);
    file->subject = parsed.Subject();
    file->text = asked != L"wb";
    const DWORD error = Watched(Call::OpenFile, file->subject, static_cast<DWORD>(share), [&] {
        return reading ? OpenExisting(parsed, *file) : Truncate(parsed, *file);
    });
    if (error != 0) {
        errno = ErrnoOf(error);
        return nullptr;
    }
    cookie_io_functions_t functions = {};
    functions.read = Read;
    functions.write = Write;
    functions.close = Close;
    return fopencookie(file.release(), reading ? "r" : "w", functions);
}
