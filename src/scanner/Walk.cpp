#include "scanner/Walk.h"

#include <array>
#include <cstddef>
#include <cwchar>
#include <utility>

#include "scanner/Listener.h"
#include "scanner/SplitName.h"

namespace Scanner {

namespace {

constexpr DWORD ProgressInterval = 50;  // milliseconds

// In the order of the bits of AttributeMask.
constexpr std::array<DWORD, 8> MaskedAttributes = {
    FILE_ATTRIBUTE_READONLY,  FILE_ATTRIBUTE_ARCHIVE,   FILE_ATTRIBUTE_COMPRESSED,
    FILE_ATTRIBUTE_ENCRYPTED, FILE_ATTRIBUTE_HIDDEN,    FILE_ATTRIBUTE_REPARSE_POINT,
    FILE_ATTRIBUTE_SYSTEM,    FILE_ATTRIBUTE_TEMPORARY,
};

DWORD AttributesOf(uint8_t attributeMask) {
    DWORD attributes = 0;
    for (size_t bit = 0; bit < MaskedAttributes.size(); ++bit)
        if (attributeMask >> bit & 1)
            attributes |= MaskedAttributes[bit];
    return attributes;
}

// The errors that end a scan; %s is replaced by the path.
constexpr wchar_t PathNotFound[] =
    L"The folder '%s' does not exist or cannot be accessed by the application.\n"
    L"The listing proccess will be cancelled.";
constexpr wchar_t InvalidPath[] =
    L"The path '%s' is invalid and cannot be searched.\n"
    L"The listing proccess will be cancelled.";
constexpr wchar_t UnknownError[] =
    L"An unknown error has occurred when trying to search the path '%s'.\n"
    L"The listing proccess will be cancelled.";

const wchar_t* MessageFor(DWORD error) {
    switch (error) {
        case ERROR_PATH_NOT_FOUND:
            return PathNotFound;
        case ERROR_INVALID_NAME:
            return InvalidPath;
        default:
            return UnknownError;
    }
}

bool IsDotEntry(const wchar_t* name) {
    return std::wcscmp(name, L".") == 0 || std::wcscmp(name, L"..") == 0;
}

}  // namespace

Walk::Walk(Result& result, const Options& options, FlatLists* flatLists)
    : result_(result),
      options_(options),
      listener_(*options.listener),
      flatLists_(flatLists),
      excludedFolders_(CompileExcludedFolders(options.excludedFolders)),
      searchPatterns_(CompileSearchPatterns(options.searchPattern)),
      skippedAttributes_(AttributesOf(options.attributeMask)),
      search_(options.networkPaths) {}

bool Walk::Run(const std::wstring& path) {
    lastTick_ = GetTickCount();
    stack_.push_back({&result_.root, path, result_.root.folder->depth});
    while (keepGoing_ && !stack_.empty()) {
        const WorkItem item = std::move(stack_.back());
        stack_.pop_back();
        ReadFolder(item);
    }
    return keepGoing_;
}

void Walk::ReadFolder(const WorkItem& item) {
    WIN32_FIND_DATAW entry;
    const FindHandle handle = search_.Open(item.path, entry);
    if (!handle) {
        const DWORD error = GetLastError();
        if (error != ERROR_ACCESS_DENIED) {
            Fail(MessageFor(error), item.path);
            return;
        }
        OnRefused(item);
    }

    if (ReportProgressAndCheckCancel(item.path)) {
        keepGoing_ = false;
        return;
    }

    newFolders_.clear();
    newFiles_.clear();
    if (handle) {
        do {
            TakeEntry(item, entry);
        } while (FindNextFileW(handle.Get(), &entry));
        if (GetLastError() != ERROR_NO_MORE_FILES)
            Fail(UnknownError, item.path);
    }
    StoreEntries(*item.node);
    if (keepGoing_ && options_.recursive)
        PushFolders(item);
}

void Walk::Fail(const wchar_t* message, const std::wstring& path) {
    std::wstring text = message;
    text.replace(text.find(L"%s"), 2, path);
    listener_.OnError(text);
    keepGoing_ = false;
}

void Walk::OnRefused(const WorkItem& item) {
    item.node->folder->flags |= Record::AccessDenied;
    if (quiet_)
        return;
    switch (listener_.OnAccessDenied(item.path)) {
        case AccessDeniedAnswer::Continue:
            break;
        case AccessDeniedAnswer::ContinueQuietly:
            quiet_ = true;
            break;
        case AccessDeniedAnswer::Cancel:
            keepGoing_ = false;
            break;
    }
}

// Both at most once in an interval, since each may send a message to another thread.
bool Walk::ReportProgressAndCheckCancel(const std::wstring& path) {
    const DWORD now = GetTickCount();
    if (now - lastTick_ <= ProgressInterval)
        return false;
    lastTick_ = now;
    listener_.OnProgress(L"Scanning folders...", path);
    return listener_.IsCancelled();
}

void Walk::TakeEntry(const WorkItem& item, const WIN32_FIND_DATAW& entry) {
    if (IsDotEntry(entry.cFileName) || (entry.dwFileAttributes & skippedAttributes_) != 0)
        return;
    if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        TakeFolder(item, entry);
    else
        TakeFile(item, entry);
}

void Walk::TakeFolder(const WorkItem& item, const WIN32_FIND_DATAW& entry) {
    fullPath_.assign(item.path).append(1, L'\\').append(entry.cFileName);
    if (MatchWildcard(excludedFolders_, fullPath_.c_str()))
        return;

    Folder* const folder = NewRecord(item, entry);
    folder->name = folder->fullName;
    folder->extension = EmptyText;
    folder->totalFolders = 0;
    folder->totalFiles = 0;
    newFolders_.push_back(folder);
    ++result_.foundFolders;
    if (flatLists_ != nullptr && options_.collectFolders)
        flatLists_->folders.push_back(folder);
}

void Walk::TakeFile(const WorkItem& item, const WIN32_FIND_DATAW& entry) {
    if (!MatchWildcard(searchPatterns_, entry.cFileName))
        return;

    File* const file = NewRecord(item, entry);
    SplitName(*file, result_.strings);
    newFiles_.push_back(file);
    ++result_.foundFiles;
    if (flatLists_ != nullptr && options_.collectFiles)
        flatLists_->files.push_back(file);
}

// Returns a record with the fields that folders and files have in common.
Record* Walk::NewRecord(const WorkItem& item, const WIN32_FIND_DATAW& entry) {
    Record* const record = result_.records.Allocate();
    record->parent = item.node->folder;
    record->fullName = result_.strings.Duplicate(entry.cFileName);
    record->flags = 0;
    record->attributes = entry.dwFileAttributes;
    record->depth = item.depth + 1;
    record->folderCount = 0;
    record->fileCount = 0;
    record->size = uint64_t{entry.nFileSizeHigh} << 32 | entry.nFileSizeLow;
    record->timeCreated = entry.ftCreationTime;
    record->lastTimeAccessed = entry.ftLastAccessTime;
    record->lastTimeWritten = entry.ftLastWriteTime;
    return record;
}

// Each list is allocated in its final size: there are two for each folder, and they stay until the end.
void Walk::StoreEntries(Node& node) const {
    node.folders.reserve(newFolders_.size());
    for (Folder* const folder : newFolders_)
        node.folders.emplace_back(folder);
    node.files = std::vector<File*>(newFiles_.begin(), newFiles_.end());
}

// In reverse order, so that the first folder is popped first.
void Walk::PushFolders(const WorkItem& item) {
    const std::wstring prefix = item.path + L'\\';
    for (auto child = item.node->folders.rbegin(); child != item.node->folders.rend(); ++child)
        stack_.push_back({&*child, prefix + child->folder->name, item.depth + 1});
}

}  // namespace Scanner
