#include "FileSystem.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "Internal.h"

namespace FakeWin::Internal {
namespace {

bool IsDrive(std::wstring_view text) {
    return text.size() >= 2 && text[1] == L':' && ((text[0] | 0x20) >= L'a' && (text[0] | 0x20) <= L'z');
}

bool IsNameUnit(wchar_t unit, bool wildcards) {
    if (unit == L'*' || unit == L'?')
        return wildcards;
    return unit >= 32 && std::wstring_view(L"<>\"|:/").find(unit) == std::wstring_view::npos;
}

std::vector<std::wstring> Split(std::wstring_view text) {
    std::vector<std::wstring> parts;
    size_t begin = 0;
    while (begin <= text.size()) {
        const size_t end = std::min(text.find(L'\\', begin), text.size());
        parts.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

// The rules for paths without the prefix: no empty parts, "." and ".." mean what they say, and blanks and
// dots at the end of a part are dropped.
std::vector<std::wstring> Normalise(const std::vector<std::wstring>& given) {
    std::vector<std::wstring> parts;
    for (std::wstring part : given) {
        if (part == L"..") {
            if (!parts.empty())
                parts.pop_back();
            continue;
        }
        part.erase(part.find_last_not_of(L". ") + 1);
        if (!part.empty())
            parts.push_back(part);
    }
    return parts;
}

void TakeShare(std::wstring_view rest, PathParts& path) {
    std::vector<std::wstring> parts = Split(rest);
    if (parts.size() < 2 || parts[0].empty() || parts[1].empty()) {
        path.error = ERROR_BAD_PATHNAME;
        return;
    }
    path.root = L"\\\\" + parts[0] + L"\\" + parts[1];
    parts.erase(parts.begin(), parts.begin() + 2);
    path.parts = std::move(parts);
}

void TakeDrive(std::wstring_view text, PathParts& path) {
    path.root = std::wstring{Upper(text[0]), L':'};
    text.remove_prefix(2);
    if (!text.empty() && text[0] == L'\\')
        text.remove_prefix(1);
    path.parts = Split(text);
}

void CheckParts(PathParts& path, bool allowWildcards) {
    if (!path.parts.empty() && path.parts.back().empty())
        path.parts.pop_back();
    for (size_t i = 0; i < path.parts.size(); ++i) {
        const bool wildcards = allowWildcards && i + 1 == path.parts.size();
        const auto valid = [&](wchar_t unit) { return IsNameUnit(unit, wildcards); };
        if (path.parts[i].empty() || !std::ranges::all_of(path.parts[i], valid))
            path.error = ERROR_INVALID_NAME;
    }
}

PathParts ParseVerbatim(std::wstring_view text, bool allowWildcards) {
    PathParts path;
    path.verbatim = true;
    if (IsDrive(text)) {
        path.atVolume = text.size() == 2;
        if (text.size() > 2 && text[2] != L'\\') {
            path.error = ERROR_PATH_NOT_FOUND;
            return path;
        }
        TakeDrive(text, path);
    } else if (Fold(text.substr(0, 4)) == L"UNC\\") {
        TakeShare(text.substr(4), path);
    } else {
        path.error = text.empty() || text[0] == L'\\' ? ERROR_INVALID_NAME : ERROR_PATH_NOT_FOUND;
        return path;
    }
    if (path.error == 0)
        CheckParts(path, allowWildcards);
    return path;
}

PathParts ParsePlain(std::wstring text, bool allowWildcards) {
    PathParts path;
    std::ranges::replace(text, L'/', L'\\');
    if (text.empty() || text.size() >= MAX_PATH) {
        path.error = ERROR_PATH_NOT_FOUND;
        return path;
    }
    if (text.starts_with(L"\\\\")) {
        TakeShare(std::wstring_view(text).substr(2), path);
    } else if (IsDrive(text)) {
        TakeDrive(text, path);
    } else {
        path.root = L"C:";
        path.parts = Split(text);
    }
    if (path.error != 0)
        return path;
    path.parts = Normalise(path.parts);
    CheckParts(path, allowWildcards);
    return path;
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

PathParts ParsePath(std::wstring_view path, bool allowWildcards) {
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
    std::vector<std::shared_ptr<Entry>> level = {std::move(root_)};
    while (!level.empty()) {
        std::vector<std::shared_ptr<Entry>> next;
        for (const std::shared_ptr<Entry>& entry : level) {
            if (entry.use_count() == 1 && entry->folder)
                std::ranges::move(entry->folder->children, std::back_inserter(next));
        }
        level = std::move(next);
    }
}

std::shared_ptr<Entry> FileSystem::Find(const PathParts& path, DWORD& error) const {
    error = path.error;
    if (error != 0)
        return nullptr;
    std::shared_ptr<Entry> entry = Child(*root_, path.root);
    if (!entry)
        error = ERROR_PATH_NOT_FOUND;
    for (size_t i = 0; entry && i < path.parts.size(); ++i) {
        const bool last = i + 1 == path.parts.size();
        const bool passable = entry->folder != nullptr;
        entry = passable ? Child(*entry, path.parts[i]) : nullptr;
        if (!entry)
            error = last && passable ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
    }
    return entry;
}

Entry& FileSystem::Make(const PathParts& path, bool folder) {
    if (path.error != 0)
        throw std::invalid_argument("no path");
    std::shared_ptr<Entry> entry = Child(*root_, path.root);
    if (!entry)
        entry = AddChild(*root_, path.root, true).shared_from_this();
    for (size_t i = 0; i < path.parts.size(); ++i) {
        const bool isFolder = folder || i + 1 < path.parts.size();
        std::shared_ptr<Entry> child = Child(*entry, path.parts[i]);
        if (!child)
            child = AddChild(*entry, path.parts[i], isFolder).shared_from_this();
        if (isFolder != (child->folder != nullptr))
            throw std::invalid_argument("a file where a folder should be, or the reverse");
        entry = std::move(child);
    }
    return *entry;
}

bool FileSystem::Remove(const PathParts& path) {
    DWORD error;
    const std::shared_ptr<Entry> entry = Find(path, error);
    if (!entry || path.parts.empty())
        return false;
    PathParts parentPath = path;
    parentPath.parts.pop_back();
    FolderPart& parent = *Find(parentPath, error)->folder;
    parent.byName.erase(entry.get());
    std::erase(parent.children, entry);
    return true;
}

}  // namespace FakeWin::Internal
