// The base of the list formats: one operation for each step of the walk over a scan tree (WalkTree.h). Cells
// are written by the functions of Columns.h. A writer is used for one list on the worker's thread; its
// destructor closes the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "scanner/Records.h"
#include "writers/Columns.h"
#include "writers/ListFile.h"
#include "writers/SizeFormat.h"

class Preset;
struct PathState;

class Writer {
public:
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    virtual ~Writer() = default;

    // Called before and after the walk; root is the record of the scanned path.
    virtual void WriteHeader(const PathState& state, const Scanner::Folder& root) = 0;
    virtual void WriteFooter(const PathState& state, const Scanner::Folder& root) = 0;

    // count is the number of folders directly in the current folder.
    virtual void BeginFolders(uint64_t count) = 0;
    virtual void WriteFolder(const PathState& state, const Scanner::Folder& folder) = 0;
    virtual void EndFolders(uint64_t count) = 0;

    virtual void BeginFiles() = 0;
    virtual void WriteFile(const PathState& state, const Scanner::File& file) = 0;
    virtual void EndFiles() = 0;

    // Called after a folder's row was written, and when a folder (the root included) is left.
    virtual void Indent() = 0;
    virtual void Unindent() = 0;

    // Writes text to the stream as UTF-8; all text goes through here. Numbers are inserted directly.
    void WriteText(std::wstring_view text);

    // Writes a line feed and flushes.
    void EndLine();

    // WriteText and EndLine.
    void WriteLine(std::wstring_view text);

    const SizeWriter sizeWriter;
    const std::vector<ColumnWriter> folderColumns;
    const std::vector<ColumnWriter> fileColumns;
    ListFile stream;

protected:
    // Selects the columns, opens the file and writes the byte-order mark if the preset says so. The preset
    // must outlive the writer. Throws std::exception, before it opens the file, on a column or style outside
    // its enumeration.
    Writer(const Preset& jobPreset, const wchar_t* outputPath);

    const Preset* const preset;

private:
    std::string encoded;  // the memory of EncodeText
};
