// The short lists from which a new preset and the plain templates build their columns and sort keys, and the
// folder that all of them exclude.
#pragma once

#include <utility>

#include "settings/Enumerations.h"

using FolderColumnPair = std::pair<FolderColumn, bool>;
using FileColumnPair = std::pair<FileColumn, bool>;
using FolderSortPair = std::pair<FolderSortKey, SortOrder>;
using FileSortPair = std::pair<FileSortKey, SortOrder>;

inline constexpr FolderColumnPair DefaultFolderColumns[] = {{FolderColumn::PathAndName, true}};
inline constexpr FileColumnPair DefaultFileColumns[] = {{FileColumn::PathAndFilename, true}};
inline constexpr FolderSortPair DefaultFolderSort[] = {
    {FolderSortKey::Path, SortOrder::Ascending},
    {FolderSortKey::Name, SortOrder::Ascending},
    {FolderSortKey::Size, SortOrder::Descending},
};
inline constexpr FileSortPair DefaultFileSort[] = {
    {FileSortKey::Path, SortOrder::Ascending},
    {FileSortKey::Name, SortOrder::Ascending},
    {FileSortKey::Extension, SortOrder::Ascending},
    {FileSortKey::Size, SortOrder::Descending},
};

// The question mark stands for any drive letter.
inline constexpr const wchar_t* DefaultExcludedFolder = L"?:\\System Volume Information";
