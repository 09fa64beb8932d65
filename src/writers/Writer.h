// The base of the text and HTML writers. Cells are written by the functions of Columns.h and SizeFormat.h. A
// writer is used for one list on the worker's thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "writers/Cells.h"
#include "writers/ListFile.h"
#include "writers/ListVisitor.h"

class Preset;

class Writer : public ListVisitor {
public:
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
    // Opens the file, if the target is one, and writes the byte-order mark if the preset says so. The preset
    // must outlive the writer. The cells are parameters, so that a preset whose columns cannot be selected
    // opens no file.
    Writer(const Preset& jobPreset, Cells cells, ListTarget target);

    const Preset* const preset;

private:
    std::string encoded;  // the memory of EncodeText
};
