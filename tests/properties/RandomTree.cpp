#include "properties/RandomTree.h"

#include "scanner/SplitName.h"

using namespace Scanner;

namespace {

// Different to any collation, with natural sorting or without.
constexpr const wchar_t* FolderNames[] = {L"a", L"a2", L"a10", L"B", L"b b", L"\u00E4x", L"Zoo", L"10", L"9"};

constexpr const wchar_t* FileNames[] = {L"a.txt", L"A.TXT", L"a",    L"a2.txt", L"a10.txt", L"b.doc",
                                        L"B.txt", L"01",    L"1.x",  L".git",   L"x..y",    L"\u00E9.txt",
                                        L"e.txt", L"a-b",   L"ab.c", L"end."};

}  // namespace

RandomTree::RandomTree(Random& random, int records) : random_(random), left_(records) {
    result_.root.folder = NewRecord(nullptr, L"C:\\Root");
    AddFolders(result_.root, 5);
    AddFiles(result_.root);
}

Record* RandomTree::NewRecord(Record* parent, const std::wstring& name) {
    Record* const record = result_.records.Allocate();
    *record = {};
    record->parent = parent;
    record->depth = parent == nullptr ? -1 : parent->depth + 1;
    record->fullName = result_.strings.Duplicate(name.c_str());
    record->name = record->fullName;
    record->extension = EmptyText;
    SetValues(*record);
    --left_;
    return record;
}

void RandomTree::SetValues(Record& record) {
    constexpr uint64_t Sizes[] = {0, 1, 2, 1024, uint64_t{1} << 40, ~uint64_t{0}};
    const auto time = [this] { return FILETIME{random_.Below(2) * 0xFFFFFFFF, random_.Below(2)}; };
    record.size = random_.Choose(Sizes);
    record.timeCreated = time();
    record.lastTimeAccessed = time();
    record.lastTimeWritten = time();
    // As if the totals were known already; what completes a tree must not rely on these values.
    record.folderCount = random_.Below(3);
    record.fileCount = random_.Below(3);
}

// The list of a node gets its final size before anything points into it.
void RandomTree::AddFolders(Node& node, int levels) {
    std::vector<const wchar_t*> names(std::begin(FolderNames), std::end(FolderNames));
    random_.Shuffle(names);
    names.resize(levels == 0 ? 0 : random_.Below(5));
    for (const wchar_t* name : names) {
        if (left_ <= 0)
            break;
        node.folders.emplace_back(NewRecord(node.folder, name));
        folders_.push_back(node.folders.back().folder);
    }
    for (Node& child : node.folders) {
        AddFolders(child, levels - 1);
        AddFiles(child);
    }
}

void RandomTree::AddFiles(Node& node) {
    for (uint32_t count = random_.Below(6); count > 0 && left_ > 0; --count) {
        Record* const file = NewRecord(node.folder, random_.Choose(FileNames));
        SplitName(*file, result_.strings);
        node.files.push_back(file);
        files_.push_back(file);
    }
}
