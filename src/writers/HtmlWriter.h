// Writes a list as a self-contained HTML page: a title table, and the folders and files as tables whose left
// margin shows their depth. Names are written unescaped.
#pragma once

#include <string>

#include "writers/Cells.h"
#include "writers/Writer.h"

class HtmlWriter : public Writer {
public:
    // Writes the head of the page and opens its body, which WriteFooter closes. The preset must outlive the
    // writer. Throws as Writer.
    HtmlWriter(const Preset& jobPreset, ListTarget target);

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
    void WriteHead();
    void WriteSeparator();
    void OpenFolderTable();
    void OpenFileTable();
    void CloseTable();
    void WriteMargin();
    void WriteRow(const std::vector<ColumnWriter>& columns, const PathState& state,
                  const Scanner::Record& record);

    const uint64_t indentStep;  // in pixels
    uint64_t depth = 0;

    // The heading rows of the tables; empty if the preset shows no headers.
    std::wstring folderHeaderRow;
    std::wstring fileHeaderRow;
};
