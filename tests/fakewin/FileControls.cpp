// The tests' side of the file system, and its state.
#include <cwchar>
#include <stdexcept>

#include "FilesState.h"
#include "Internal.h"

namespace FakeWin {
namespace Internal {
namespace {

FilesState EmptyState() {
    FilesState state;
    state.tree = std::make_unique<FileSystem>();
    state.tree->Make(ParsePath(L"C:\\Temp", false), true);
    state.tempPath = L"C:\\Temp\\";
    state.modulePath = L"C:\\Program Files\\Tamblewick\\tamblewick.exe";
    return state;
}

}  // namespace

std::mutex& FilesMutex() {
    static std::mutex mutex;
    return mutex;
}

FilesState& Files() {
    static FilesState state = EmptyState();
    return state;
}

ParsedPath TestPath(const std::wstring& path) {
    const bool share = path.starts_with(LR"(\\)");
    return ParsePath(share ? LR"(\\?\UNC)" + path.substr(1) : LR"(\\?\)" + path, false);
}

std::string OpenFilesText() {
    const std::lock_guard lock(FilesMutex());
    std::string text;
    for (const std::wstring& subject : OpenFindSubjects())
        text += "find " + Narrow(subject) + "\n";
    for (const std::wstring& subject : Files().openFiles)
        text += "file " + Narrow(subject) + "\n";
    return text;
}

void ResetFiles() {
    const std::lock_guard lock(FilesMutex());
    ForgetFinds();
    Files() = EmptyState();
}

}  // namespace Internal

using namespace Internal;

namespace {

// The entry of a path that a test takes for granted.
std::shared_ptr<Entry> Existing(const std::wstring& path) {
    DWORD error;
    std::shared_ptr<Entry> entry = Files().tree->Find(TestPath(path), error);
    if (!entry)
        throw std::invalid_argument("no such entry: " + Narrow(path));
    return entry;
}

std::wstring Key(const std::wstring& path) {
    return Fold(TestPath(path).Subject());
}

}  // namespace

void AddFolder(const std::wstring& path, DWORD attributes) {
    const std::lock_guard lock(FilesMutex());
    Files().tree->Make(TestPath(path), true).attributes = attributes | FILE_ATTRIBUTE_DIRECTORY;
}

void AddFile(const std::wstring& path, uint64_t size, DWORD attributes) {
    const std::lock_guard lock(FilesMutex());
    Entry& entry = Files().tree->Make(TestPath(path), false);
    entry.size = size;
    entry.contents = nullptr;
    entry.attributes = attributes;
}

void AddFile(const std::wstring& path, const std::string& contents, DWORD attributes) {
    AddFile(path, contents.size(), attributes);
    const std::lock_guard lock(FilesMutex());
    Existing(path)->contents = std::make_unique<std::string>(contents);
}

void SetTimes(const std::wstring& path, FILETIME created, FILETIME accessed, FILETIME written) {
    const std::lock_guard lock(FilesMutex());
    Entry& entry = *Existing(path);
    entry.created = created;
    entry.accessed = accessed;
    entry.written = written;
}

void SetAttributes(const std::wstring& path, DWORD attributes) {
    const std::lock_guard lock(FilesMutex());
    Existing(path)->attributes = attributes;
}

void RemoveEntry(const std::wstring& path) {
    const std::lock_guard lock(FilesMutex());
    if (!Files().tree->Remove(TestPath(path)))
        throw std::invalid_argument("no such entry: " + Narrow(path));
}

bool EntryExists(const std::wstring& path) {
    const std::lock_guard lock(FilesMutex());
    DWORD error;
    return Files().tree->Find(TestPath(path), error) != nullptr;
}

std::optional<std::string> Contents(const std::wstring& path) {
    const std::lock_guard lock(FilesMutex());
    DWORD error;
    const std::shared_ptr<Entry> entry = Files().tree->Find(TestPath(path), error);
    if (!entry || entry->folder)
        return std::nullopt;
    return entry->contents ? *entry->contents : std::string(entry->size, '\0');
}

std::vector<std::wstring> WrittenFiles() {
    const std::lock_guard lock(FilesMutex());
    return Files().writtenFiles;
}

int WritesTo(const std::wstring& path) {
    const std::lock_guard lock(FilesMutex());
    const auto found = Files().writes.find(Key(path));
    return found == Files().writes.end() ? 0 : found->second;
}

void FailWritesAfter(const std::wstring& path, uint64_t bytes) {
    const std::lock_guard lock(FilesMutex());
    Files().writeLimits[Key(path)] = bytes;
}

void FailFindNext(const std::wstring& folder, int count, DWORD error) {
    const std::lock_guard lock(FilesMutex());
    Files().breakOffs[Key(folder)] = {count, error};
}

int OpenFinds() {
    const std::lock_guard lock(FilesMutex());
    return static_cast<int>(OpenFindSubjects().size());
}

int OpenFiles() {
    const std::lock_guard lock(FilesMutex());
    return static_cast<int>(Files().openFiles.size());
}

void SetTempPath(const std::wstring& path) {
    const std::lock_guard lock(FilesMutex());
    Files().tempPath = path;
}

void SetTempPathResult(DWORD result) {
    const std::lock_guard lock(FilesMutex());
    Files().tempPathResult = result;
}

void SetModulePath(const std::wstring& path) {
    const std::lock_guard lock(FilesMutex());
    Files().modulePath = path;
}

void SetLongPath(const std::wstring& path, const std::wstring& longPath) {
    const std::lock_guard lock(FilesMutex());
    Files().longPaths[Fold(path)] = longPath;
}

}  // namespace FakeWin

using namespace FakeWin;
using namespace FakeWin::Internal;

// The paths that the system itself knows.

namespace {

// Copies a path with its terminator: the length without it, or the size that is needed if buffer is too
// small.
DWORD GivePath(const std::wstring& path, LPWSTR buffer, DWORD size) {
    const DWORD length = static_cast<DWORD>(path.size());
    if (length >= size)
        return length + 1;
    std::wmemcpy(buffer, path.c_str(), path.size() + 1);
    return length;
}

}  // namespace

DWORD GetTempPathW(DWORD size, LPWSTR buffer) {
    if (const DWORD fault = Enter(Call::GetTempPathW))
        return SetLastError(fault), 0;
    const std::lock_guard lock(FilesMutex());
    if (Files().tempPathResult)
        return *Files().tempPathResult;
    return GivePath(Files().tempPath, buffer, size);
}

DWORD GetModuleFileNameW(HMODULE, LPWSTR buffer, DWORD size) {
    if (const DWORD fault = Enter(Call::GetModuleFileNameW))
        return SetLastError(fault), 0;
    const std::lock_guard lock(FilesMutex());
    const std::wstring& path = Files().modulePath;
    if (path.size() < size)
        return GivePath(path, buffer, size);
    GivePath(path.substr(0, size - 1), buffer, size);
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}

DWORD GetLongPathNameW(LPCWSTR path, LPWSTR buffer, DWORD size) {
    if (const DWORD fault = Enter(Call::GetLongPathNameW))
        return SetLastError(fault), 0;
    const std::lock_guard lock(FilesMutex());
    const auto found = Files().longPaths.find(Fold(path));
    return GivePath(found == Files().longPaths.end() ? path : found->second, buffer, size);
}
