// The enumerations of a preset's fields. The registry stores their names (EnumTables.h); tables of writers
// and pages are indexed by their values.
#pragma once

#include <cstdint>

enum class ListStyle : uint32_t { Text = 0, Html = 1 };

enum class SizeStyle : uint32_t {
    Dynamic = 0,
    Dynamic0 = 1,
    Bytes = 2,
    KibiBytes = 3,
    MebiBytes = 4,
    GibiBytes = 5,
    TebiBytes = 6,
};

enum class SaveLocation : uint32_t { Temporary = 0, SamePath = 1, Custom = 2 };

enum class OpenMethod : uint32_t { Default = 0, Nothing = 1, Custom = 2 };

enum class FolderColumn : uint32_t {
    Number = 0,
    Path = 1,
    Name = 2,
    PathAndName = 3,
    Size = 4,
    Attributes = 5,
    TimeCreated = 6,
    LastTimeAccessed = 7,
    LastTimeWritten = 8,
    NumberOfFolders = 9,
    NumberOfFiles = 10,
    NumberOfFoldersAndFiles = 11,
};

enum class FileColumn : uint32_t {
    Number = 0,
    Path = 1,
    Filename = 2,
    PathAndFilename = 3,
    FilenameWithoutExtension = 4,
    Extension = 5,
    Size = 6,
    Attributes = 7,
    TimeCreated = 8,
    LastTimeAccessed = 9,
    LastTimeWritten = 10,
};

enum class FolderSortKey : uint32_t {
    Path = 0,
    Name = 1,
    Size = 2,
    TimeCreated = 3,
    LastTimeAccessed = 4,
    LastTimeWritten = 5,
    NumberOfFolders = 6,
    NumberOfFiles = 7,
    NumberOfFoldersAndFiles = 8,
};

enum class FileSortKey : uint32_t {
    Path = 0,
    Name = 1,
    Extension = 2,
    Size = 3,
    TimeCreated = 4,
    LastTimeAccessed = 5,
    LastTimeWritten = 6,
};

enum class SortOrder : uint32_t { Ascending = 0, Descending = 1 };

inline constexpr uint32_t FolderColumnCount = 12;
inline constexpr uint32_t FileColumnCount = 11;
inline constexpr uint32_t FolderSortKeyCount = 9;
inline constexpr uint32_t FileSortKeyCount = 7;
