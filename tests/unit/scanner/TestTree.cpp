#include "unit/scanner/TestTree.h"

#include <algorithm>
#include <stdexcept>

#include "scanner/SplitName.h"
#include "support/Text.h"

using namespace Scanner;

namespace {

void AddFlat(const Node& node, FlatLists& lists) {
    for (const Node& child : node.folders)
        lists.folders.push_back(child.folder);
    lists.files.insert(lists.files.end(), node.files.begin(), node.files.end());
    for (const Node& child : node.folders)
        AddFlat(child, lists);
}

void AddLines(const Node& node, std::vector<std::wstring>& lines) {
    for (const File* file : node.files)
        lines.push_back(PathOf(*file));
    for (const Node& child : node.folders) {
        lines.push_back(PathOf(*child.folder) + L"\\");
        AddLines(child, lines);
    }
}

const Record* Search(const Node& node, const std::wstring& path) {
    for (const File* file : node.files)
        if (PathOf(*file) == path)
            return file;
    for (const Node& child : node.folders) {
        if (PathOf(*child.folder) == path)
            return child.folder;
        if (const Record* found = Search(child, path))
            return found;
    }
    return nullptr;
}

}  // namespace

TestTree::TestTree(const std::vector<TestEntry>& entries) {
    result_.root.folder = NewRecord(nullptr, AFolder(L"C:\\Root"));
    Fill(result_.root, entries);
}

FlatLists TestTree::Flat() const {
    FlatLists lists;
    AddFlat(result_.root, lists);
    return lists;
}

Record* TestTree::NewRecord(Folder* parent, const TestEntry& entry) {
    Record* const record = result_.records.Allocate();
    *record = {};
    record->parent = parent;
    record->fullName = result_.strings.Duplicate(entry.name.c_str());
    record->depth = parent == nullptr ? -1 : parent->depth + 1;
    if (entry.isFolder) {
        record->name = record->fullName;
        record->extension = EmptyText;
        record->size = 4096;
    } else {
        SplitName(*record, result_.strings);
        record->size = entry.size;
    }
    return record;
}

void TestTree::Fill(Node& node, const std::vector<TestEntry>& entries) {
    for (const TestEntry& entry : entries) {
        Record* const record = NewRecord(node.folder, entry);
        if (entry.isFolder)
            Fill(node.folders.emplace_back(record), entry.entries);
        else
            node.files.push_back(record);
    }
}

std::wstring PathOf(const Record& record) {
    std::wstring path = record.fullName;
    for (const Folder* folder = record.parent; folder->parent != nullptr; folder = folder->parent)
        path = std::wstring(folder->name) + L"\\" + path;
    return path;
}

std::vector<std::wstring> Lines(const Node& node) {
    std::vector<std::wstring> lines;
    AddLines(node, lines);
    return lines;
}

std::vector<std::wstring> SortedLines(const Node& node) {
    std::vector<std::wstring> lines = Lines(node);
    std::sort(lines.begin(), lines.end());
    return lines;
}

const Record& Find(const Node& root, const std::wstring& path) {
    const Record* const record = Search(root, path);
    if (record == nullptr)
        throw std::runtime_error("not in the tree: " + TestSupport::Utf8(path));
    return *record;
}

std::vector<std::wstring> FileNames(const Node& node) {
    std::vector<std::wstring> names;
    for (const File* file : node.files)
        names.emplace_back(file->fullName);
    return names;
}

std::vector<std::wstring> FolderNames(const Node& node) {
    std::vector<std::wstring> names;
    for (const Node& child : node.folders)
        names.emplace_back(child.folder->name);
    return names;
}
