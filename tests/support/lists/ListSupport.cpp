#include "support/lists/ListSupport.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"
#include "support/Text.h"
#include "writers/WriteList.h"

ScanTree::ScanTree(const std::wstring& rootPath) {
    Scanner::Folder record = {};
    record.name = Keep(rootPath);
    record.extension = Scanner::EmptyText;
    record.fullName = record.name;
    record.depth = -1;
    root.folder = &folders_.emplace_back(record);
}

Scanner::Node& ScanTree::AddFolder(Scanner::Node& parent, const std::wstring& name) {
    Scanner::Folder record = {};
    record.parent = parent.folder;
    record.name = Keep(name);
    record.extension = Scanner::EmptyText;
    record.fullName = record.name;
    record.attributes = FILE_ATTRIBUTE_DIRECTORY;
    record.depth = parent.folder->depth + 1;
    ++parent.folder->folderCount;
    for (Scanner::Folder* folder = parent.folder; folder != nullptr; folder = folder->parent)
        ++folder->totalFolders;
    return parent.folders.emplace_back(&folders_.emplace_back(record));
}

Scanner::File& ScanTree::AddFile(Scanner::Node& parent, const std::wstring& fullName, uint64_t size) {
    const size_t dot = fullName.rfind(L'.');
    Scanner::File record = {};
    record.parent = parent.folder;
    record.fullName = Keep(fullName);
    record.name = dot == std::wstring::npos ? record.fullName : Keep(fullName.substr(0, dot));
    record.extension = dot == std::wstring::npos ? Scanner::EmptyText : Keep(fullName.substr(dot + 1));
    record.depth = parent.folder->depth + 1;
    record.size = size;
    ++parent.folder->fileCount;
    for (Scanner::Folder* folder = parent.folder; folder != nullptr; folder = folder->parent) {
        ++folder->totalFiles;
        folder->size += size;
    }
    files_.push_back(record);
    parent.files.push_back(&files_.back());
    return files_.back();
}

void ScanTree::Flatten() {
    root.folders.clear();
    root.files.clear();
    for (Scanner::Folder& folder : folders_)
        if (folder.parent != nullptr)
            root.folders.emplace_back(&folder);
    for (Scanner::File& file : files_)
        root.files.push_back(&file);
}

const wchar_t* ScanTree::Keep(std::wstring_view text) {
    return texts_.emplace_back(text).c_str();
}

ListPreset::ListPreset() : Preset(L"testkey1") {
    Utf8(false).Folders({}).Files({});
}

ListPreset& ListPreset::Style(ListStyle style) {
    Get(Format::ListStyle) = style;
    return *this;
}

ListPreset& ListPreset::Utf8(bool enabled) {
    Get(Format::EnableUtf8) = enabled;
    return *this;
}

ListPreset& ListPreset::Statistics(bool shown) {
    Get(Display::ShowStatistics) = shown;
    return *this;
}

ListPreset& ListPreset::Flat(bool flat) {
    Get(Display::ShowFlatStyle) = flat;
    return *this;
}

ListPreset& ListPreset::Indent(uint32_t size) {
    Get(Display::IndentSize) = size;
    return *this;
}

ListPreset& ListPreset::Sizes(SizeStyle style) {
    Get(Display::SizeStyle) = style;
    return *this;
}

ListPreset& ListPreset::Headers(bool shown) {
    Get(Columns::ShowHeaders) = shown;
    return *this;
}

ListPreset& ListPreset::Folders(std::initializer_list<FolderColumn> columns) {
    for (size_t i = 0; i < FolderColumnCount; ++i) {
        Get(Columns::FolderEnabled, i) = i < columns.size();
        if (i < columns.size())
            Get(Columns::FolderColumns, i) = columns.begin()[i];
    }
    return *this;
}

ListPreset& ListPreset::Files(std::initializer_list<FileColumn> columns) {
    for (size_t i = 0; i < FileColumnCount; ++i) {
        Get(Columns::FileEnabled, i) = i < columns.size();
        if (i < columns.size())
            Get(Columns::FileColumns, i) = columns.begin()[i];
    }
    return *this;
}

std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines)
        text.append(line).append("\r\n");
    return text;
}

std::string ListOf(const Preset& preset, const ScanTree& tree) {
    const TestSupport::TempFolder folder;
    WriteList(preset, tree.root, folder.Path(L"list").c_str());
    const std::string list = folder.Read(L"list").value_or("no file");

    const std::string_view before = "Created: ";
    const size_t place = list.find(before);
    const size_t end = list.find_first_of("\r<", place);
    if (place == std::string::npos || end == std::string::npos || end <= place + before.size()) {
        ADD_FAILURE() << "no moment in the list:\n" << list;
        return list;
    }
    return list.substr(0, place + before.size()) + "*" + list.substr(end);
}

std::string Written(const Preset& preset, const std::function<void(Writer&)>& write) {
    const TestSupport::TempFolder folder;
    {
        CellWriter writer(preset, folder.Path(L"cells"));
        write(writer);
    }
    return folder.Read(L"cells").value_or("no file");
}

std::string ShownTime(const SYSTEMTIME& time) {
    wchar_t date[80] = {};
    wchar_t clock[80] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, date, 80);
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, clock, 80);
    return TestSupport::Utf8(date) + " " + TestSupport::Utf8(clock);
}
