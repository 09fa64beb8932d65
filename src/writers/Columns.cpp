#include "writers/Columns.h"

#include <array>
#include <cstdint>
#include <exception>
#include <iterator>

#include "settings/Preset.h"
#include "writers/DateTime.h"
#include "writers/PathState.h"
#include "writers/SizeFormat.h"
#include "writers/Writer.h"

namespace {

using MetaTypes::Field;

using Scanner::Record;

void FolderNumber(Writer& writer, const PathState& state, const Record&) {
    writer.stream << state.folderNumber;
    writer.WriteText(L".");
}

void FileNumber(Writer& writer, const PathState& state, const Record&) {
    writer.stream << state.fileNumber;
    writer.WriteText(L".");
}

void GroupedPath(Writer& writer, const PathState& state, const Record&) {
    writer.WriteText(state.path);
}

// In a flat list the path is built from the record's parents.
void FlatPath(Writer& writer, const PathState&, const Record& record) {
    std::vector<const Record*> chain;
    chain.reserve(16);
    for (const Record* folder = record.parent; folder != nullptr; folder = folder->parent)
        chain.push_back(folder);
    for (auto folder = chain.rbegin(); folder != chain.rend(); ++folder) {
        if (folder != chain.rbegin())
            writer.WriteText(L"\\");
        writer.WriteText((*folder)->name);
    }
}

// The fullName of a folder is its name.
void GroupedPathAndName(Writer& writer, const PathState& state, const Record& record) {
    GroupedPath(writer, state, record);
    writer.WriteText(L"\\");
    writer.WriteText(record.fullName);
}

void FlatPathAndName(Writer& writer, const PathState& state, const Record& record) {
    if (record.parent != nullptr) {
        FlatPath(writer, state, record);
        writer.WriteText(L"\\");
    }
    writer.WriteText(record.fullName);
}

void Name(Writer& writer, const PathState&, const Record& record) {
    writer.WriteText(record.name);
}

void FullName(Writer& writer, const PathState&, const Record& record) {
    writer.WriteText(record.fullName);
}

void Extension(Writer& writer, const PathState&, const Record& record) {
    writer.WriteText(record.extension);
}

void Size(Writer& writer, const PathState&, const Record& record) {
    writer.sizeWriter(writer, record.size);
}

void Attributes(Writer& writer, const PathState&, const Record& record) {
    struct Letter {
        wchar_t letter;
        uint32_t bit;
    };
    static constexpr std::array<Letter, 4> Letters = {{
        {L'r', FILE_ATTRIBUTE_READONLY},
        {L'a', FILE_ATTRIBUTE_ARCHIVE},
        {L'h', FILE_ATTRIBUTE_HIDDEN},
        {L's', FILE_ATTRIBUTE_SYSTEM},
    }};
    std::array<wchar_t, Letters.size()> cell;
    for (size_t i = 0; i < Letters.size(); ++i)
        cell[i] = (record.attributes & Letters[i].bit) != 0 ? Letters[i].letter : L'-';
    writer.WriteText({cell.data(), cell.size()});
}

void TimeCreated(Writer& writer, const PathState&, const Record& record) {
    writer.WriteText(FormatFileTime(record.timeCreated));
}

void LastTimeAccessed(Writer& writer, const PathState&, const Record& record) {
    writer.WriteText(FormatFileTime(record.lastTimeAccessed));
}

void LastTimeWritten(Writer& writer, const PathState&, const Record& record) {
    writer.WriteText(FormatFileTime(record.lastTimeWritten));
}

void NumberOfFolders(Writer& writer, const PathState&, const Record& record) {
    writer.stream << record.folderCount;
}

void NumberOfFiles(Writer& writer, const PathState&, const Record& record) {
    writer.stream << record.fileCount;
}

void NumberOfFoldersAndFiles(Writer& writer, const PathState&, const Record& record) {
    writer.stream << record.folderCount + record.fileCount;
}

// A column; the index in its table is the value of the enumeration.
struct Column {
    const wchar_t* title;
    ColumnWriter grouped;
    ColumnWriter flat;

    constexpr Column(const wchar_t* text, ColumnWriter both) : Column(text, both, both) {}
    constexpr Column(const wchar_t* text, ColumnWriter inGroups, ColumnWriter inFlatStyle)
        : title(text), grouped(inGroups), flat(inFlatStyle) {}
};

constexpr std::array<Column, FolderColumnCount> FolderTable = {{
    {L"#", FolderNumber},
    {L"Path", GroupedPath, FlatPath},
    {L"Name", Name},
    {L"Path and Name", GroupedPathAndName, FlatPathAndName},
    {L"Size", Size},
    {L"Attributes", Attributes},
    {L"Created", TimeCreated},
    {L"Accessed", LastTimeAccessed},
    {L"Written", LastTimeWritten},
    {L"# Folders", NumberOfFolders},
    {L"# Files", NumberOfFiles},
    {L"# Total", NumberOfFoldersAndFiles},
}};

constexpr std::array<Column, FileColumnCount> FileTable = {{
    {L"#", FileNumber},
    {L"Path", GroupedPath, FlatPath},
    {L"Filename", FullName},
    {L"Path and Filename", GroupedPathAndName, FlatPathAndName},
    {L"Filename w/o Ext.", Name},
    {L"Extension", Extension},
    {L"Size", Size},
    {L"Attributes", Attributes},
    {L"Created", TimeCreated},
    {L"Accessed", LastTimeAccessed},
    {L"Written", LastTimeWritten},
}};

// Returns the columns that the preset shows, in display order. The enabled flag belongs to the position; the
// value at that position selects the column.
template <typename Enumeration, size_t Count>
std::vector<const Column*> SelectShown(const Preset& preset,
                                       Field<Columns::Record, std::array<Enumeration, Count>> columns,
                                       Field<Columns::Record, std::array<bool, Count>> enabled,
                                       const std::array<Column, Count>& table) {
    std::vector<const Column*> shown;
    for (size_t i = 0; i < Count; ++i) {
        if (!preset.Get(enabled, i))
            continue;
        const auto value = static_cast<uint32_t>(preset.Get(columns, i));
        if (value >= Count)
            throw std::exception();
        shown.push_back(&table[value]);
    }
    return shown;
}

std::vector<const Column*> ShownFolderColumns(const Preset& preset) {
    return SelectShown(preset, Columns::FolderColumns, Columns::FolderEnabled, FolderTable);
}

std::vector<const Column*> ShownFileColumns(const Preset& preset) {
    return SelectShown(preset, Columns::FileColumns, Columns::FileEnabled, FileTable);
}

std::vector<ColumnWriter> MakeWriters(const Preset& preset, const std::vector<const Column*>& columns) {
    const bool flat = preset.Get(Display::ShowFlatStyle);
    std::vector<ColumnWriter> writers;
    for (const Column* column : columns)
        writers.push_back(flat ? column->flat : column->grouped);
    return writers;
}

std::vector<const wchar_t*> MakeTitles(const std::vector<const Column*>& columns) {
    std::vector<const wchar_t*> titles;
    for (const Column* column : columns)
        titles.push_back(column->title);
    return titles;
}

}  // namespace

std::vector<ColumnWriter> MakeFolderColumns(const Preset& preset) {
    return MakeWriters(preset, ShownFolderColumns(preset));
}

std::vector<ColumnWriter> MakeFileColumns(const Preset& preset) {
    return MakeWriters(preset, ShownFileColumns(preset));
}

Cells MakeCells(const Preset& preset) {
    return {
        .sizeWriter = MakeSizeWriter(preset.Get(Display::SizeStyle)),
        .folderColumns = MakeFolderColumns(preset),
        .fileColumns = MakeFileColumns(preset),
    };
}

std::vector<const wchar_t*> FolderTitles(const Preset& preset) {
    return MakeTitles(ShownFolderColumns(preset));
}

std::vector<const wchar_t*> FileTitles(const Preset& preset) {
    return MakeTitles(ShownFileColumns(preset));
}
