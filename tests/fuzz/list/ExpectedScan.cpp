#include "fuzz/list/ExpectedScan.h"

#include <algorithm>

#include "fuzz/Reference.h"
#include "settings/SearchFilters.h"

namespace Fuzz {

namespace {

class Walk {
public:
    Walk(const Preset& preset, Scanner::AccessDeniedAnswer answer) : answer_(answer) {
        recursive_ = preset.Get(Display::SearchSubfolders);
        skipsHidden_ = !preset.Get(Display::SearchHidden);
        const auto row = static_cast<size_t>(preset.Get(Filter::PresetSearchPattern));
        std::wstring pattern = SearchFilters[row].pattern;
        if (pattern.empty())
            pattern = preset.Get(Filter::CustomSearchPattern);
        patterns_ = SearchPatterns(pattern);
        exclusions_ = ExcludedPatterns(preset.Get(Filter::ExcludedFolders));
    }

    // Adds what lies below the folder. Its own numbers are in record, whose address does not last.
    void Enter(const Entry& folder, const std::wstring& path, size_t depth, ExpectedRecord& record) {
        const bool isDrive = path.ends_with(L':');
        if (!Open(folder, isDrive))
            return;

        std::vector<const Entry*> found;
        for (const Entry* entry : Enumerated(folder, isDrive)) {
            const std::wstring entryPath = path + L"\\" + entry->name;
            if (skipsHidden_ && (entry->attributes & FILE_ATTRIBUTE_HIDDEN) != 0)
                continue;
            if (entry->isFolder ? !CoversAny(exclusions_, entryPath) : CoversAny(patterns_, entry->name))
                found.push_back(entry);
        }

        const auto isFolder = [](const Entry* entry) { return entry->isFolder; };
        record.folderCount = static_cast<uint64_t>(std::ranges::count_if(found, isFolder));
        record.fileCount = found.size() - record.folderCount;
        scan.totalFolders += record.folderCount;
        scan.totalFiles += record.fileCount;
        for (const Entry* entry : found) {
            if (!scan.succeeds)
                return;
            ExpectedRecord below = {entry, path, depth, 0, 0, 0};
            if (!entry->isFolder)
                below.size = entry->size;
            else if (recursive_)
                Enter(*entry, path + L"\\" + entry->name, depth + 1, below);
            record.size += below.size;
            scan.records.push_back(below);
        }
    }

    ExpectedScan scan;

private:
    // False if there is nothing to enumerate: the folder is refused, or the scan has failed.
    bool Open(const Entry& folder, bool isDrive) {
        size_t attempt = 0;
        DWORD error = Attempt(folder, isDrive, attempt++);
        if (error == ERROR_NOT_SUPPORTED && !downgraded_) {
            downgraded_ = true;
            error = Attempt(folder, isDrive, attempt++);
        }
        const bool refused = error == ERROR_ACCESS_DENIED;
        if (error != 0 && !(refused && answer_ != Scanner::AccessDeniedAnswer::Cancel))
            scan.succeeds = false;
        return error == 0;
    }

    // The root of an empty drive yields nothing at all.
    static DWORD Attempt(const Entry& folder, bool isDrive, size_t number) {
        if (number < folder.openErrors.size())
            return folder.openErrors[number];
        if (folder.breakOff && folder.breakOff->count == 0)
            return folder.breakOff->error;
        return isDrive && folder.entries.empty() ? ERROR_FILE_NOT_FOUND : 0;
    }

    std::vector<const Entry*> Enumerated(const Entry& folder, bool isDrive) {
        const size_t dots = isDrive ? 0 : 2;
        size_t count = folder.entries.size();
        if (folder.breakOff && static_cast<size_t>(folder.breakOff->count) <= dots + count) {
            count = static_cast<size_t>(std::max(folder.breakOff->count - static_cast<int>(dots), 0));
            if (folder.breakOff->error != ERROR_NO_MORE_FILES)
                scan.succeeds = false;
        }
        std::vector<const Entry*> entries;
        for (size_t i = 0; i < count; ++i)
            entries.push_back(&folder.entries[i]);
        return entries;
    }

    const Scanner::AccessDeniedAnswer answer_;
    bool recursive_;
    bool skipsHidden_;
    std::vector<std::wstring> patterns_;
    std::vector<std::wstring> exclusions_;
    bool downgraded_ = false;  // the cheap way of enumerating was refused once
};

}  // namespace

ExpectedScan Expect(const FakeTree& tree, const Preset& preset, Scanner::AccessDeniedAnswer answer) {
    Walk walk(preset, answer);
    ExpectedRecord root = {};
    if (tree.exists)
        walk.Enter(tree.root, tree.path, 0, root);
    else
        walk.scan.succeeds = false;
    walk.scan.totalSize = root.size;
    return walk.scan;
}

}  // namespace Fuzz
