#include "writers/HtmlWriter.h"

#include "resources/version.h"
#include "settings/Preset.h"
#include "writers/Columns.h"
#include "writers/DateTime.h"
#include "writers/StyleSheet.h"

namespace {

std::wstring HeadingRow(const std::vector<const wchar_t*>& titles) {
    std::wstring row = L"\t<tr>\n\t\t";
    for (const wchar_t* title : titles) {
        row += L"<th>";
        row += title;
        row += L"</th>";
    }
    row += L"\n\t</tr>\n";
    return row;
}

}  // namespace

HtmlWriter::HtmlWriter(const Preset& jobPreset, ListTarget target)
    : Writer(jobPreset, MakeCells(jobPreset), target), indentStep(preset->Get(Display::IndentSize) << 4) {
    WriteHead();
    if (preset->Get(Columns::ShowHeaders)) {
        folderHeaderRow = HeadingRow(FolderTitles(*preset));
        fileHeaderRow = HeadingRow(FileTitles(*preset));
    }
}

void HtmlWriter::WriteHeader(const PathState&, const Scanner::Folder& root) {
    WriteLine(L"<table>");
    WriteLine(L"\t<tr><td><span class=\"header\">" PROGRAM_TITLE L"</span></td></tr>");
    WriteText(L"\t<tr><td><span class=\"summary\">Summary of path: ");
    WriteText(root.name);
    WriteLine(L"</span></td></tr>");
    WriteText(L"\t<tr><td><span class=\"summary\">Created: ");
    WriteText(FormatLocalTime());
    WriteLine(L"</span></td></tr>");
    WriteLine(L"</table>");
    if (preset->Get(Display::ShowStatistics)) {
        WriteLine(L"<table>");
        WriteText(L"\t<tr><td>Total size:</td><td>");
        sizeWriter(*this, root.size);
        WriteLine(L"</td></tr>");
        WriteText(L"\t<tr><td>Total number of folders:</td><td>");
        stream << root.totalFolders;
        WriteLine(L"</td></tr>");
        WriteText(L"\t<tr><td>Total number of files:</td><td>");
        stream << root.totalFiles;
        WriteLine(L"</td></tr>");
        WriteLine(L"</table>");
    }
    // In the flat style each of the two lists has its own.
    if (!preset->Get(Display::ShowFlatStyle))
        WriteSeparator();
}

void HtmlWriter::WriteFooter(const PathState&, const Scanner::Folder&) {
    WriteSeparator();
    WriteLine(L"</body>");
    WriteLine(L"</html>");
}

void HtmlWriter::BeginFolders(uint64_t) {
    if (folderColumns.empty() || !preset->Get(Display::ShowFlatStyle))
        return;
    WriteSeparator();
    OpenFolderTable();
}

void HtmlWriter::WriteFolder(const PathState& state, const Scanner::Folder& folder) {
    if (folderColumns.empty())
        return;
    if (preset->Get(Display::ShowFlatStyle)) {
        WriteRow(folderColumns, state, folder);
        return;
    }
    OpenFolderTable();
    WriteRow(folderColumns, state, folder);
    CloseTable();
}

void HtmlWriter::EndFolders(uint64_t) {
    if (preset->Get(Display::ShowFlatStyle))
        CloseTable();
}

void HtmlWriter::BeginFiles() {
    if (fileColumns.empty())
        return;
    if (preset->Get(Display::ShowFlatStyle))
        WriteSeparator();
    OpenFileTable();
}

void HtmlWriter::WriteFile(const PathState& state, const Scanner::File& file) {
    if (!fileColumns.empty())
        WriteRow(fileColumns, state, file);
}

void HtmlWriter::EndFiles() {
    if (!fileColumns.empty())
        CloseTable();
}

void HtmlWriter::Indent() {
    ++depth;
}

void HtmlWriter::Unindent() {
    if (depth != 0)
        --depth;
}

void HtmlWriter::WriteHead() {
    WriteLine(L"<!DOCTYPE html>");
    WriteLine(L"<html>");
    WriteLine(L"<head>");
    if (preset->Get(Format::EnableUtf8)) {
        WriteLine(L"\t<meta charset=\"utf-8\">");
        WriteLine(L"\t<meta name=\"viewport\" content=\"width=device-width, initial-scale=1.0\">");
    }
    WriteLine(L"\t<title>" PROGRAM_TITLE L"</title>");
    WriteLine(StyleSheet);
    WriteLine(L"</head>");
    WriteLine(L"<body>");
}

void HtmlWriter::WriteSeparator() {
    WriteLine(L"<br />");
    WriteLine(L"<hr />");
    WriteLine(L"<br />");
}

void HtmlWriter::OpenFolderTable() {
    WriteText(L"<table class=\"folders\" style=\"margin-left:");
    WriteMargin();
    WriteText(folderHeaderRow);
}

void HtmlWriter::OpenFileTable() {
    WriteText(L"<table class=\"files\" style=\"margin-left:");
    WriteMargin();
    WriteText(fileHeaderRow);
}

void HtmlWriter::CloseTable() {
    WriteLine(L"</table>");
}

void HtmlWriter::WriteMargin() {
    stream << depth * indentStep;
    WriteLine(L"px\">");
}

void HtmlWriter::WriteRow(const std::vector<ColumnWriter>& columns, const PathState& state,
                          const Scanner::Record& record) {
    WriteLine(L"\t<tr>");
    WriteText(L"\t\t");
    for (const ColumnWriter column : columns) {
        WriteText(L"<td>");
        column(*this, state, record);
        WriteText(L"</td>");
    }
    EndLine();
    WriteLine(L"\t</tr>");
}
