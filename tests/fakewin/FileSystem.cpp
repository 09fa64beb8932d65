#include "FileSystem.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "Internal.h"

namespace FakeWin::Internal {
namespace {

constexpr size_t LongestPath = 32767;

bool IsDrive(std::wstring_view text) {
    return text.size() >= 2 && text[1] == L':' && ((text[0] | 0x20) >= L'a' && (text[0] | 0x20) <= L'z');
}

// Whether a unit may not occur in a name, the backslash and the wildcards aside.
bool IsForbidden(wchar_t unit) {
    if (unit > L'|')
        return false;
    return unit < 32 || unit == L'<' || unit == L'>' || unit == L'"' || unit == L'|' || unit == L':' ||
           unit == L'/';
}

// The end of the name that begins at this place.
size_t EndOfName(std::wstring_view text, size_t begin) {
    return std::min(text.find(L'\\', begin), text.size());
}

// The rules for paths without the prefix: no empty names, "." and ".." mean what they say, and blanks and
// dots at the end of a name are dropped.
std::wstring Normalise(std::wstring_view below) {
    std::wstring result;
    for (size_t begin = 0; begin < below.size(); begin = EndOfName(below, begin) + 1) {
        const std::wstring_view name = below.substr(begin, EndOfName(below, begin) - begin);
        const std::wstring_view kept = name.substr(0, name.find_last_not_of(L". ") + 1);
        if (name == L"..")
            result.erase(std::min(result.rfind(L'\\'), result.size()));
        else if (!kept.empty())
            (result += L'\\') += kept;
    }
    return result;
}

ParsedPath Refused(std::wstring_view path, DWORD error) {
    ParsedPath refused;
    refused.error = error;
    refused.text = path;
    return refused;
}

// Whether each name below the root may occur in a path: none is empty, and only the last may hold wildcards.
bool AreNames(std::wstring_view below, bool allowWildcards) {
    const size_t last = below.rfind(L'\\');
    bool atStart = false;
    for (size_t i = 0; i < below.size(); ++i) {
        const wchar_t unit = below[i];
        const bool separator = unit == L'\\';
        const bool wildcard = unit == L'*' || unit == L'?';
        if ((separator && atStart) || (wildcard && !(allowWildcards && i > last)) || IsForbidden(unit))
            return false;
        atStart = separator;
    }
    return !atStart;
}

// below is empty or begins with a backslash.
ParsedPath Compose(std::wstring root, std::wstring_view below, bool allowWildcards) {
    if (below.ends_with(L'\\'))
        below.remove_suffix(1);
    if (!AreNames(below, allowWildcards))
        return Refused(root.append(below), ERROR_INVALID_NAME);
    ParsedPath path;
    path.rootLength = root.size();
    path.text = root.append(below);
    return path;
}

// The length of "\\server\share" at the beginning of a text, or 0.
size_t ShareLength(std::wstring_view text) {
    const size_t server = EndOfName(text, 2);
    const size_t share = server < text.size() ? EndOfName(text, server + 1) : server;
    return server > 2 && share > server + 1 ? share : 0;
}

std::wstring DriveRoot(std::wstring_view text) {
    return {Upper(text[0]), L':'};
}

ParsedPath ParseVerbatim(std::wstring_view text, bool allowWildcards) {
    if (IsDrive(text)) {
        if (text.size() > 2 && text[2] != L'\\')
            return Refused(text, ERROR_PATH_NOT_FOUND);
        ParsedPath path = Compose(DriveRoot(text), text.substr(2), allowWildcards);
        path.atVolume = text.size() == 2;
        return path;
    }
    if (Fold(text.substr(0, 4)) == L"UNC\\") {
        const std::wstring share = L"\\\\" + std::wstring(text.substr(4));
        const size_t length = ShareLength(share);
        if (length == 0)
            return Refused(text, ERROR_BAD_PATHNAME);
        return Compose(share.substr(0, length), std::wstring_view(share).substr(length), allowWildcards);
    }
    return Refused(text, text.empty() || text[0] == L'\\' ? ERROR_INVALID_NAME : ERROR_PATH_NOT_FOUND);
}

ParsedPath ParsePlain(std::wstring text, bool allowWildcards) {
    std::ranges::replace(text, L'/', L'\\');
    if (text.empty() || text.size() >= MAX_PATH)
        return Refused(text, ERROR_PATH_NOT_FOUND);
    if (text.starts_with(L"\\\\")) {
        const size_t length = ShareLength(text);
        if (length == 0)
            return Refused(text, ERROR_BAD_PATHNAME);
        return Compose(text.substr(0, length), Normalise(std::wstring_view(text).substr(length)),
                       allowWildcards);
    }
    if (IsDrive(text))
        return Compose(DriveRoot(text), Normalise(std::wstring_view(text).substr(2)), allowWildcards);
    return Compose(L"C:", Normalise(text), allowWildcards);
}

std::shared_ptr<Entry> Child(const Entry& folder, std::wstring_view name) {
    const auto found = folder.folder->byName.find(name);
    return found == folder.folder->byName.end() ? nullptr : (*found)->shared_from_this();
}

Entry& AddChild(Entry& folder, const std::wstring& name, bool isFolder) {
    static const FILETIME time = MakeFileTime(2020, 1, 2, 3, 4, 5);
    const auto entry = std::make_shared<Entry>();
    entry->name = name;
    entry->attributes = isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    entry->created = entry->accessed = entry->written = time;
    if (isFolder)
        entry->folder = std::make_unique<FolderPart>();
    folder.folder->children.push_back(entry);
    folder.folder->byName.insert(entry.get());
    return *entry;
}

}  // namespace

size_t NameHash::operator()(std::wstring_view name) const {
    size_t hash = 14695981039346656037u;
    for (const wchar_t unit : name)
        hash = (hash ^ static_cast<size_t>(Upper(unit))) * 1099511628211u;
    return hash;
}

size_t NameHash::operator()(const Entry* entry) const {
    return (*this)(entry->name);
}

bool NameEqual::operator()(const Entry* first, const Entry* second) const {
    return first == second;
}

bool NameEqual::operator()(std::wstring_view name, const Entry* entry) const {
    return std::ranges::equal(name, entry->name, {}, Upper, Upper);
}

ParsedPath ParsedPath::Folder() const {
    ParsedPath folder;
    folder.text = text.substr(0, text.rfind(L'\\'));
    folder.rootLength = rootLength;
    return folder;
}

ParsedPath ParsePath(std::wstring_view path, bool allowWildcards) {
    if (path.size() > LongestPath)
        return Refused(path, ERROR_FILENAME_EXCED_RANGE);
    if (path.starts_with(LR"(\\?\)"))
        return ParseVerbatim(path.substr(4), allowWildcards);
    return ParsePlain(std::wstring(path), allowWildcards);
}

bool MatchesMask(std::wstring_view name, std::wstring_view mask) {
    if (mask == L"*" || mask == L"*.*")
        return true;
    if (mask.empty())
        return name.empty();
    if (mask[0] == L'*')
        return MatchesMask(name, mask.substr(1)) || (!name.empty() && MatchesMask(name.substr(1), mask));
    if (name.empty() || (mask[0] != L'?' && Upper(mask[0]) != Upper(name[0])))
        return false;
    return MatchesMask(name.substr(1), mask.substr(1));
}

FileSystem::FileSystem() : root_(std::make_shared<Entry>()) {
    root_->folder = std::make_unique<FolderPart>();
}

// Level by level, since a tree may be deeper than the stack of a recursion.
FileSystem::~FileSystem() {
    last_ = nullptr;
    std::vector<std::shared_ptr<Entry>> level = {std::move(root_)};
    while (!level.empty()) {
        std::vector<std::shared_ptr<Entry>> next;
        for (const std::shared_ptr<Entry>& entry : level)
            if (entry.use_count() == 1 && entry->folder)
                std::ranges::move(entry->folder->children, std::back_inserter(next));
        level = std::move(next);
    }
}

std::shared_ptr<Entry> FileSystem::Find(const ParsedPath& path, DWORD& error) const {
    error = path.error;
    if (error != 0)
        return nullptr;
    const std::wstring_view text = path.text;
    const bool below = last_ && text.starts_with(lastPath_) &&
                       (text.size() == lastPath_.size() || text[lastPath_.size()] == L'\\');
    std::shared_ptr<Entry> entry = below ? last_ : Child(*root_, text.substr(0, path.rootLength));
    if (!entry)
        error = ERROR_PATH_NOT_FOUND;
    for (size_t end = below ? lastPath_.size() : path.rootLength; entry && end < text.size();) {
        const size_t begin = end + 1;
        end = EndOfName(text, begin);
        const bool passable = entry->folder != nullptr;
        entry = passable ? Child(*entry, text.substr(begin, end - begin)) : nullptr;
        if (!entry)
            error = end == text.size() && passable ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
    }
    if (entry && entry->folder) {
        lastPath_ = text;
        last_ = entry;
    }
    return entry;
}

Entry& FileSystem::Make(const ParsedPath& path, bool folder) {
    if (path.error != 0)
        throw std::invalid_argument("no path");
    DWORD error;
    std::shared_ptr<Entry> entry = Find(path, error);
    if (!entry) {
        // The way to a new entry: up to the nearest folder that exists, and back down.
        std::vector<std::wstring_view> missing;
        ParsedPath above = path;
        while (!entry && !above.IsRoot()) {
            missing.push_back(std::wstring_view(path.text).substr(0, above.text.size()));
            above = above.Folder();
            entry = Find(above, error);
        }
        if (!entry)
            entry = AddChild(*root_, above.text, true).shared_from_this();
        while (!missing.empty()) {
            if (!entry->folder)
                throw std::invalid_argument("a file where a folder should be");
            const std::wstring name(missing.back().substr(missing.back().rfind(L'\\') + 1));
            missing.pop_back();
            entry = AddChild(*entry, name, folder || !missing.empty()).shared_from_this();
        }
    }
    if (folder != (entry->folder != nullptr))
        throw std::invalid_argument("a file where a folder should be, or the reverse");
    return *entry;
}

bool FileSystem::Remove(const ParsedPath& path) {
    DWORD error;
    const std::shared_ptr<Entry> entry = Find(path, error);
    if (!entry || path.IsRoot())
        return false;
    last_ = nullptr;
    FolderPart& parent = *Find(path.Folder(), error)->folder;
    parent.byName.erase(entry.get());
    std::erase(parent.children, entry);
    return true;
}

}  // namespace FakeWin::Internal
