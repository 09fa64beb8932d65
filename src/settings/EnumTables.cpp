#include "settings/EnumTables.h"

#include "settings/Enumerations.h"

using MetaTypes::EnumRow;

namespace {

template <typename Enumeration>
constexpr EnumRow Row(const char* name, Enumeration value) {
    return {name, static_cast<uint32_t>(value)};
}

constexpr EnumRow EndOfNames{nullptr, 0};

}  // namespace

constinit const EnumRow ListStyleNames[] = {
    Row("Text", ListStyle::Text),
    Row("Html", ListStyle::Html),
    EndOfNames,
};

constinit const EnumRow SizeStyleNames[] = {
    Row("Dynamic", SizeStyle::Dynamic),     Row("Dynamic0", SizeStyle::Dynamic0),
    Row("Bytes", SizeStyle::Bytes),         Row("KibiBytes", SizeStyle::KibiBytes),
    Row("MebiBytes", SizeStyle::MebiBytes), Row("GibiBytes", SizeStyle::GibiBytes),
    Row("TebiBytes", SizeStyle::TebiBytes), EndOfNames,
};

constinit const EnumRow SaveLocationNames[] = {
    Row("Temporary", SaveLocation::Temporary),
    Row("SamePath", SaveLocation::SamePath),
    Row("Custom", SaveLocation::Custom),
    EndOfNames,
};

constinit const EnumRow OpenMethodNames[] = {
    Row("Default", OpenMethod::Default),
    Row("Nothing", OpenMethod::Nothing),
    Row("Custom", OpenMethod::Custom),
    EndOfNames,
};

// In both column tables the name comes before the path, although the path has the lower number.
constinit const EnumRow FolderColumnNames[] = {
    Row("Number", FolderColumn::Number),
    Row("Name", FolderColumn::Name),
    Row("Path", FolderColumn::Path),
    Row("PathAndName", FolderColumn::PathAndName),
    Row("Size", FolderColumn::Size),
    Row("Attributes", FolderColumn::Attributes),
    Row("TimeCreated", FolderColumn::TimeCreated),
    Row("LastTimeAccessed", FolderColumn::LastTimeAccessed),
    Row("LastTimeWritten", FolderColumn::LastTimeWritten),
    Row("NumberOfFolders", FolderColumn::NumberOfFolders),
    Row("NumberOfFiles", FolderColumn::NumberOfFiles),
    Row("NumberOfFoldersAndFiles", FolderColumn::NumberOfFoldersAndFiles),
    EndOfNames,
};

constinit const EnumRow FileColumnNames[] = {
    Row("Number", FileColumn::Number),
    Row("Filename", FileColumn::Filename),
    Row("Path", FileColumn::Path),
    Row("PathAndFilename", FileColumn::PathAndFilename),
    Row("FilenameWithoutExtension", FileColumn::FilenameWithoutExtension),
    Row("Extension", FileColumn::Extension),
    Row("Size", FileColumn::Size),
    Row("Attributes", FileColumn::Attributes),
    Row("TimeCreated", FileColumn::TimeCreated),
    Row("LastTimeAccessed", FileColumn::LastTimeAccessed),
    Row("LastTimeWritten", FileColumn::LastTimeWritten),
    EndOfNames,
};

constinit const EnumRow FolderSortKeyNames[] = {
    Row("Path", FolderSortKey::Path),
    Row("Name", FolderSortKey::Name),
    Row("Size", FolderSortKey::Size),
    Row("TimeCreated", FolderSortKey::TimeCreated),
    Row("LastTimeAccessed", FolderSortKey::LastTimeAccessed),
    Row("LastTimeWritten", FolderSortKey::LastTimeWritten),
    Row("NumberOfFolders", FolderSortKey::NumberOfFolders),
    Row("NumberOfFiles", FolderSortKey::NumberOfFiles),
    Row("NumberOfFoldersAndFiles", FolderSortKey::NumberOfFoldersAndFiles),
    EndOfNames,
};

constinit const EnumRow FileSortKeyNames[] = {
    Row("Path", FileSortKey::Path),
    Row("Name", FileSortKey::Name),
    Row("Extension", FileSortKey::Extension),
    Row("Size", FileSortKey::Size),
    Row("TimeCreated", FileSortKey::TimeCreated),
    Row("LastTimeAccessed", FileSortKey::LastTimeAccessed),
    Row("LastTimeWritten", FileSortKey::LastTimeWritten),
    EndOfNames,
};

constinit const EnumRow SortOrderNames[] = {
    Row("Ascending", SortOrder::Ascending),
    Row("Descending", SortOrder::Descending),
    EndOfNames,
};
