#include "fuzz/list/ExpectedRows.h"

#include <algorithm>
#include <cstdio>
#include <regex>

#include "support/Text.h"

namespace Fuzz {

using TestSupport::Utf8;

namespace {

// Of all entries in the stand-in.
constexpr char Times[] = "2020-01-02 03:04:05";

std::string WholeSize(uint64_t size, size_t unit) {
    constexpr const char* Units[] = {" Bytes", " KiB", " MiB", " GiB", " TiB"};
    return std::to_string(size >> (10 * unit)) + Units[unit];
}

std::string DecimalSize(uint64_t size, size_t unit) {
    constexpr const char* Units[] = {"", " KiB", " MiB", " GiB", " TiB"};
    const float lower = static_cast<float>(size >> (10 * (unit - 1)));
    char number[64];
    std::snprintf(number, sizeof number, "%.1f", static_cast<double>(lower * 0.0009765625f));
    return std::string(number) + Units[unit];
}

std::string SizeText(uint64_t size, SizeStyle style) {
    size_t unit = 0;
    while (unit < 5 && size >> (10 * (unit + 1)) != 0)
        ++unit;
    switch (style) {
        case SizeStyle::Dynamic:
            return unit == 5 ? "" : unit == 0 ? WholeSize(size, 0) : DecimalSize(size, unit);
        case SizeStyle::Dynamic0:
            return unit == 5 ? "" : WholeSize(size, unit);
        case SizeStyle::Bytes:
            return WholeSize(size, 0);
        default:
            return DecimalSize(size, static_cast<size_t>(style) - static_cast<size_t>(SizeStyle::Bytes));
    }
}

std::string AttributeText(DWORD attributes) {
    std::string text = "----";
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        text[0] = 'r';
    if ((attributes & FILE_ATTRIBUTE_ARCHIVE) != 0)
        text[1] = 'a';
    if ((attributes & FILE_ATTRIBUTE_HIDDEN) != 0)
        text[2] = 'h';
    if ((attributes & FILE_ATTRIBUTE_SYSTEM) != 0)
        text[3] = 's';
    return text;
}

// The position of the last dot that separates a name from its extension, or npos. A leading dot does not, and
// neither does one directly after a dot that does.
size_t PartingDot(const std::wstring& name) {
    size_t dot = std::wstring::npos;
    for (size_t i = 1; i < name.size(); ++i)
        if (name[i] == L'.')
            dot = i++;
    return dot;
}

std::string FolderCell(const ExpectedRecord& record, FolderColumn column, SizeStyle style) {
    switch (column) {
        case FolderColumn::Number:
            return "#.";
        case FolderColumn::Path:
            return Utf8(record.parentPath);
        case FolderColumn::Name:
            return Utf8(record.entry->name);
        case FolderColumn::PathAndName:
            return Utf8(record.parentPath + L"\\" + record.entry->name);
        case FolderColumn::Size:
            return SizeText(record.size, style);
        case FolderColumn::Attributes:
            return AttributeText(record.entry->attributes);
        case FolderColumn::NumberOfFolders:
            return std::to_string(record.folderCount);
        case FolderColumn::NumberOfFiles:
            return std::to_string(record.fileCount);
        case FolderColumn::NumberOfFoldersAndFiles:
            return std::to_string(record.folderCount + record.fileCount);
        default:
            return Times;
    }
}

std::string FileCell(const ExpectedRecord& record, FileColumn column, SizeStyle style) {
    const std::wstring& name = record.entry->name;
    const size_t dot = PartingDot(name);
    switch (column) {
        case FileColumn::Number:
            return "#.";
        case FileColumn::Path:
            return Utf8(record.parentPath);
        case FileColumn::Filename:
            return Utf8(name);
        case FileColumn::PathAndFilename:
            return Utf8(record.parentPath + L"\\" + name);
        case FileColumn::FilenameWithoutExtension:
            return Utf8(name.substr(0, dot));
        case FileColumn::Extension:
            return dot == std::wstring::npos ? "" : Utf8(name.substr(dot + 1));
        case FileColumn::Size:
            return SizeText(record.size, style);
        case FileColumn::Attributes:
            return AttributeText(record.entry->attributes);
        default:
            return Times;
    }
}

template <typename Column, size_t Count>
std::vector<Column> Shown(const Preset& preset,
                          MetaTypes::Field<Columns::Record, std::array<Column, Count>> columns,
                          MetaTypes::Field<Columns::Record, std::array<bool, Count>> enabled) {
    std::vector<Column> shown;
    for (size_t i = 0; i < Count; ++i)
        if (preset.Get(enabled, i))
            shown.push_back(preset.Get(columns, i));
    return shown;
}

std::vector<FolderColumn> FolderColumns(const Preset& preset) {
    return Shown(preset, Columns::FolderColumns, Columns::FolderEnabled);
}

std::vector<FileColumn> FileColumns(const Preset& preset) {
    return Shown(preset, Columns::FileColumns, Columns::FileEnabled);
}

// A name may look like a number of a row, and is then taken for one on both sides.
std::string WithoutNumbers(const std::string& row, bool html) {
    static const std::regex InHtml("<td>[0-9]+\\.</td>");
    static const std::regex InText("(^|\t)[0-9]+\\.(?=\t|$)");
    return html ? std::regex_replace(row, InHtml, "<td>#.</td>") : std::regex_replace(row, InText, "$1#.");
}

std::string Row(const std::vector<std::string>& cells, size_t tabs, bool html) {
    std::string row(html ? 2 : tabs, '\t');
    for (size_t i = 0; i < cells.size(); ++i)
        row += html ? "<td>" + cells[i] + "</td>" : (i != 0 ? "\t" : "") + cells[i];
    return WithoutNumbers(row, html);
}

}  // namespace

std::vector<std::string> ExpectedRows(const ExpectedScan& scan, const Preset& preset) {
    const auto style = preset.Get(Display::SizeStyle);
    const size_t indent = preset.Get(Display::ShowFlatStyle) ? 0 : preset.Get(Display::IndentSize);
    const bool html = preset.Get(Format::ListStyle) == ListStyle::Html;

    std::vector<std::string> rows;
    for (const ExpectedRecord& record : scan.records) {
        std::vector<std::string> cells;
        if (record.entry->isFolder)
            for (const FolderColumn column : FolderColumns(preset))
                cells.push_back(FolderCell(record, column, style));
        else
            for (const FileColumn column : FileColumns(preset))
                cells.push_back(FileCell(record, column, style));
        const std::string row = cells.empty() ? "" : Row(cells, record.depth * indent, html);
        if (!row.empty())
            rows.push_back(row);
    }
    std::ranges::sort(rows);
    return rows;
}

size_t ExpectedRowCount(const ExpectedScan& scan, const Preset& preset) {
    return (FolderColumns(preset).empty() ? 0 : scan.totalFolders) +
           (FileColumns(preset).empty() ? 0 : scan.totalFiles);
}

std::vector<std::string> RowsOf(const std::vector<std::string>& lines, bool html) {
    std::vector<std::string> rows;
    for (const std::string& line : lines)
        if (html ? line.starts_with("\t\t<td>") : !line.empty() && !line.starts_with('|'))
            rows.push_back(WithoutNumbers(line, html));
    std::ranges::sort(rows);
    return rows;
}

}  // namespace Fuzz
