// Writes a list as plain text: a header, then one line for each folder and file with its cells separated by
// tabs. In the grouped style rows are indented by tabs; column headings exist in the flat style only.
#pragma once

#include <string>

#include "writers/Cells.h"
#include "writers/Writer.h"

class TextWriter : public Writer {
public:
    // The preset must outlive the writer. Throws as Writer.
    TextWriter(const Preset& jobPreset, ListTarget target);

    void WriteHeader(const PathState& state, const Scanner::Folder& root) override;
    void WriteFooter(const PathState& state, const Scanner::Folder& root) override;
    void BeginFolders(uint64_t count) override;
    void WriteFolder(const PathState& state, const Scanner::Folder& folder) override;
    void EndFolders(uint64_t count) override;
    void BeginFiles() override;
    void WriteFile(const PathState& state, const Scanner::File& file) override;
    void EndFiles() override;
    void Indent() override;
    void Unindent() override;

private:
    void WriteRow(const std::vector<ColumnWriter>& columns, const PathState& state,
                  const Scanner::Record& record);

    const std::wstring indentUnit;
    const std::wstring columnSeparator;
    std::wstring currentIndent;
    uint64_t depth = 0;  // how many indentUnits are in currentIndent

    // The heading lines of a flat list; empty if the preset shows no headers.
    std::wstring folderHeader;
    std::wstring fileHeader;
};
