#include "writers/TextWriter.h"

#include "resources/version.h"
#include "settings/Preset.h"
#include "writers/Columns.h"
#include "writers/DateTime.h"

namespace {

std::wstring Heading(const std::vector<const wchar_t*>& titles) {
    std::wstring heading;
    if (!titles.empty())
        heading += L"|";
    for (const wchar_t* title : titles) {
        heading += L" ";
        heading += title;
        heading += L"\t|";
    }
    heading += L"\n\n";
    return heading;
}

}  // namespace

TextWriter::TextWriter(const Preset& jobPreset, ListTarget target)
    : Writer(jobPreset, MakeCells(jobPreset), target),
      indentUnit(preset->Get(Display::IndentSize), L'\t'),
      columnSeparator(L"\t") {
    if (preset->Get(Columns::ShowHeaders)) {
        folderHeader = Heading(FolderTitles(*preset));
        fileHeader = Heading(FileTitles(*preset));
    }
}

void TextWriter::WriteHeader(const PathState&, const Scanner::Folder& root) {
    WriteLine(L"" PROGRAM_TITLE);
    EndLine();
    WriteText(L"Summary of path: ");
    WriteLine(root.name);
    WriteText(L"Created: ");
    WriteLine(FormatLocalTime());
    EndLine();
    if (!preset->Get(Display::ShowStatistics))
        return;
    WriteText(L"Total size: ");
    sizeWriter(*this, root.size);
    EndLine();
    WriteText(L"Total number of folders: ");
    stream << root.totalFolders;
    EndLine();
    WriteText(L"Total number of files: ");
    stream << root.totalFiles;
    EndLine();
    EndLine();
    EndLine();
}

void TextWriter::WriteFooter(const PathState&, const Scanner::Folder&) {}

void TextWriter::BeginFolders(uint64_t) {
    if (preset->Get(Display::ShowFlatStyle))
        WriteText(folderHeader);
}

void TextWriter::WriteFolder(const PathState& state, const Scanner::Folder& folder) {
    WriteRow(folderColumns, state, folder);
}

void TextWriter::EndFolders(uint64_t) {
    if (preset->Get(Display::ShowFlatStyle))
        EndLine();
}

void TextWriter::BeginFiles() {
    if (!preset->Get(Display::ShowFlatStyle))
        return;
    EndLine();
    EndLine();
    WriteText(fileHeader);
}

void TextWriter::WriteFile(const PathState& state, const Scanner::File& file) {
    WriteRow(fileColumns, state, file);
}

void TextWriter::EndFiles() {}

void TextWriter::Indent() {
    currentIndent += indentUnit;
    ++depth;
}

void TextWriter::Unindent() {
    if (depth == 0)
        return;
    currentIndent.resize(currentIndent.size() - indentUnit.size());
    --depth;
}

void TextWriter::WriteRow(const std::vector<ColumnWriter>& columns, const PathState& state,
                          const Scanner::Record& record) {
    if (columns.empty())
        return;
    WriteText(currentIndent);
    for (size_t i = 0; i < columns.size(); ++i) {
        if (i != 0)
            WriteText(columnSeparator);
        columns[i](*this, state, record);
    }
    EndLine();
}
