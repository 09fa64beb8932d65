// What the tests of lists are made of: a scan tree built by hand, a preset, and the bytes that come of them.
#pragma once

#include <deque>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "scanner/Records.h"
#include "settings/Preset.h"
#include "writers/Columns.h"
#include "writers/Writer.h"

// A tree as a finished scan leaves it: counts and sizes are summed up to the root with each entry that is
// added. The result of AddFolder is good until the next folder is added beside it.
class ScanTree {
public:
    explicit ScanTree(const std::wstring& rootPath = L"C:\\Data");

    Scanner::Node& AddFolder(Scanner::Node& parent, const std::wstring& name);
    Scanner::File& AddFile(Scanner::Node& parent, const std::wstring& fullName, uint64_t size = 0);

    // Brings the tree into the shape of a flat list: all folders and all files, in the order in which they
    // were added, directly below the root.
    void Flatten();

    Scanner::Node root;

private:
    const wchar_t* Keep(std::wstring_view text);

    std::deque<std::wstring> texts_;
    std::deque<Scanner::Folder> folders_;
    std::deque<Scanner::File> files_;
};

// A preset with short ways to the values that a list depends on. At first as a fresh preset, without the
// byte-order mark and without columns.
class ListPreset : public Preset {
public:
    ListPreset();

    ListPreset& Style(ListStyle style);
    ListPreset& Utf8(bool enabled = true);
    ListPreset& Statistics(bool shown = true);
    ListPreset& Flat(bool flat = true);
    ListPreset& Indent(uint32_t size);
    ListPreset& Sizes(SizeStyle style);
    ListPreset& Headers(bool shown = true);

    // Shows these columns at the first positions and none after them.
    ListPreset& Folders(std::initializer_list<FolderColumn> columns);
    ListPreset& Files(std::initializer_list<FileColumn> columns);
};

// The lines with an end of line after each, as written to the disk.
std::string Lines(std::initializer_list<std::string_view> lines);

// The whole list file of a tree, with an asterisk in the place of the moment after "Created: ".
std::string ListOf(const Preset& preset, const ScanTree& tree);

// A writer whose steps do nothing, for cells on their own.
class CellWriter : public Writer {
public:
    CellWriter(const Preset& jobPreset, const std::wstring& path)
        : Writer(jobPreset, MakeCells(jobPreset), path.c_str()) {}

    void WriteHeader(const PathState&, const Scanner::Folder&) override {}
    void WriteFooter(const PathState&, const Scanner::Folder&) override {}
    void BeginFolders(uint64_t) override {}
    void WriteFolder(const PathState&, const Scanner::Folder&) override {}
    void EndFolders(uint64_t) override {}
    void BeginFiles() override {}
    void WriteFile(const PathState&, const Scanner::File&) override {}
    void EndFiles() override {}
    void Indent() override {}
    void Unindent() override {}
};

// The bytes of a file into which only this was written.
std::string Written(const Preset& preset, const std::function<void(Writer&)>& write);

// The moment as the test itself asks the system for it: date, blank, time.
std::string ShownTime(const SYSTEMTIME& time);
