// The writer of one list: what each step of the walk over a scan tree puts into the file. The walk itself
// stands in WalkTree.h, the cells in Columns.h, and the formats derive from this class. A writer lives for
// one list on the worker's thread, and its destruction closes the file.
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

    // Before and after the walk; root is the record of the scanned path.
    virtual void WriteHeader(const PathState& state, const Scanner::Folder& root) = 0;
    virtual void WriteFooter(const PathState& state, const Scanner::Folder& root) = 0;

    // count is the number of folders that lie directly in the folder in hand.
    virtual void BeginFolders(uint64_t count) = 0;
    virtual void WriteFolder(const PathState& state, const Scanner::Folder& folder) = 0;
    virtual void EndFolders(uint64_t count) = 0;

    virtual void BeginFiles() = 0;
    virtual void WriteFile(const PathState& state, const Scanner::File& file) = 0;
    virtual void EndFiles() = 0;

    // After a folder was written, and when a folder is left, the root included.
    virtual void Indent() = 0;
    virtual void Unindent() = 0;

    // The way of all text into the stream, as UTF-8. Numbers are inserted directly.
    void WriteText(std::wstring_view text);

    // A line feed and a flush.
    void EndLine();

    // WriteText and EndLine.
    void WriteLine(std::wstring_view text);

    const SizeWriter sizeWriter;
    const std::vector<ColumnWriter> folderColumns;
    const std::vector<ColumnWriter> fileColumns;
    ListFile stream;

protected:
    // Settles the columns, opens the file and writes the byte-order mark if the preset asks for it. Throws
    // std::exception, before the file is touched, on a column or style outside its enumeration.
    Writer(const Preset& preset, const wchar_t* outputPath);

private:
    std::string encoded;  // memory for EncodeText
};
