#include "settings/Templates.h"

#include <string>
#include <vector>

#include "settings/DefaultColumns.h"
#include "settings/Preset.h"

using MetaTypes::Settings;

const std::array<const wchar_t*, TemplateCount> TemplateNames = {
    L"All files (Simple, Text)", L"All files (Simple, HTML)", L"All files (Details, HTML)",
    L"Audio-files (HTML)",       L"Video-files (HTML)",       L"Repository (Exclude .git, .svn and .hg)",
};

namespace {

// In which values the templates differ.
struct Template {
    ListStyle listStyle;
    bool showStatistics;
    uint32_t indentSize;
    bool showHeaders;
    int32_t presetSearchPattern;
    bool sortDigitsAsNumbers;
    std::span<const FolderColumnPair> folderColumns;
    std::span<const FileColumnPair> fileColumns;
    std::span<const FolderSortPair> folderSort;
    std::span<const FileSortPair> fileSort;
    std::span<const wchar_t* const> excludedFolders;  // besides the one that all exclude
};

constexpr FolderColumnPair DetailedFolderColumns[] = {
    {FolderColumn::Number, true},
    {FolderColumn::PathAndName, true},
    {FolderColumn::Size, true},
    {FolderColumn::Attributes, true},
};
constexpr FileColumnPair DetailedFileColumns[] = {
    {FileColumn::Number, true},
    {FileColumn::PathAndFilename, true},
    {FileColumn::Size, true},
    {FileColumn::Attributes, true},
};
constexpr FolderColumnPair MediaFolderColumns[] = {{FolderColumn::Name, true}};
constexpr FileColumnPair MediaFileColumns[] = {{FileColumn::FilenameWithoutExtension, true}};
constexpr FolderSortPair MediaFolderSort[] = {
    {FolderSortKey::Path, SortOrder::Ascending},
    {FolderSortKey::Name, SortOrder::Ascending},
};
constexpr FileSortPair MediaFileSort[] = {
    {FileSortKey::Path, SortOrder::Ascending},
    {FileSortKey::Name, SortOrder::Ascending},
};
constexpr FolderColumnPair RepositoryFolderColumns[] = {
    {FolderColumn::Name, true},
    {FolderColumn::Size, true},
};
constexpr FileColumnPair RepositoryFileColumns[] = {
    {FileColumn::Filename, true},
    {FileColumn::Size, true},
};
constexpr const wchar_t* RepositoryFolders[] = {L"*\\.git", L"*\\.svn", L"*\\.hg"};

// clang-format off
constexpr std::array<Template, TemplateCount> Templates = {{
    {ListStyle::Text, false, 1, false, 0, false,
     DefaultFolderColumns, DefaultFileColumns, DefaultFolderSort, DefaultFileSort, {}},
    {ListStyle::Html, false, 2, false, 0, false,
     DefaultFolderColumns, DefaultFileColumns, DefaultFolderSort, DefaultFileSort, {}},
    {ListStyle::Html, true, 2, true, 0, false,
     DetailedFolderColumns, DetailedFileColumns, DefaultFolderSort, DefaultFileSort, {}},
    {ListStyle::Html, true, 2, false, 1, true,
     MediaFolderColumns, MediaFileColumns, MediaFolderSort, MediaFileSort, {}},
    {ListStyle::Html, true, 2, false, 2, true,
     MediaFolderColumns, MediaFileColumns, MediaFolderSort, MediaFileSort, {}},
    {ListStyle::Html, true, 2, false, 0, false,
     RepositoryFolderColumns, RepositoryFileColumns, DefaultFolderSort, DefaultFileSort, RepositoryFolders},
}};
// clang-format on

// Builds a pair of arrays from its short list and stores it in the two rows of the section.
template <size_t N, typename Value, typename Flag>
void SetArrays(Settings section, uint32_t valueRow, uint32_t flagRow,
               std::span<const std::pair<Value, Flag>> pairs) {
    std::array<Value, N> values;
    std::array<Flag, N> flags;
    FillSortKeys(pairs, values, flags);
    for (size_t i = 0; i < N; ++i) {
        section.Get<Value>(valueRow, i) = values[i];
        section.Get<Flag>(flagRow, i) = flags[i];
    }
}

}  // namespace

void ApplyTemplate(Preset& preset, uint32_t number) {
    const Template& source = Templates[number];
    preset.Get<std::wstring>(Preset::Name) = TemplateNames[number];

    Settings format = preset.Section(Preset::Format);
    format.Get<ListStyle>(Preset::FormatRow::ListStyle) = source.listStyle;
    format.Get<bool>(Preset::FormatRow::EnableUtf8) = true;

    Settings display = preset.Section(Preset::Display);
    display.Get<bool>(Preset::DisplayRow::SearchSubfolders) = true;
    display.Get<bool>(Preset::DisplayRow::SearchHidden) = false;
    display.Get<bool>(Preset::DisplayRow::ShowStatistics) = source.showStatistics;
    display.Get<bool>(Preset::DisplayRow::ShowFlatStyle) = false;
    display.Get<uint32_t>(Preset::DisplayRow::IndentSize) = source.indentSize;
    display.Get<SizeStyle>(Preset::DisplayRow::SizeStyle) = SizeStyle::Dynamic;

    using ColumnsRow = Preset::ColumnsRow;
    Settings columns = preset.Section(Preset::Columns);
    columns.Get<bool>(ColumnsRow::ShowHeaders) = source.showHeaders;
    SetArrays<FolderColumnCount>(columns, ColumnsRow::FolderColumns, ColumnsRow::FolderEnabled,
                                 source.folderColumns);
    SetArrays<FileColumnCount>(columns, ColumnsRow::FileColumns, ColumnsRow::FileEnabled, source.fileColumns);

    Settings filter = preset.Section(Preset::Filter);
    filter.Get<int32_t>(Preset::FilterRow::PresetSearchPattern) = source.presetSearchPattern;
    filter.Get<std::wstring>(Preset::FilterRow::CustomSearchPattern) = L"*";
    auto& excluded = filter.Get<std::vector<std::wstring>>(Preset::FilterRow::ExcludedFolders);
    excluded = {DefaultExcludedFolder};
    excluded.insert(excluded.end(), source.excludedFolders.begin(), source.excludedFolders.end());

    Settings saving = preset.Section(Preset::Saving);
    saving.Get<SaveLocation>(Preset::SavingRow::SaveLocation) = SaveLocation::Temporary;
    saving.Get<std::wstring>(Preset::SavingRow::CustomFolderPath).clear();
    saving.Get<bool>(Preset::SavingRow::OverwriteExisting) = false;

    Settings opening = preset.Section(Preset::Opening);
    opening.Get<OpenMethod>(Preset::OpeningRow::OpenMethod) = OpenMethod::Default;
    opening.Get<std::wstring>(Preset::OpeningRow::CustomProgramPath).clear();

    using SortingRow = Preset::SortingRow;
    Settings sorting = preset.Section(Preset::Sorting);
    sorting.Get<bool>(SortingRow::SortDigitsAsNumbers) = source.sortDigitsAsNumbers;
    SetArrays<FolderSortKeyCount>(sorting, SortingRow::FolderSortKeys, SortingRow::FolderSortOrder,
                                  source.folderSort);
    SetArrays<FileSortKeyCount>(sorting, SortingRow::FileSortKeys, SortingRow::FileSortOrder,
                                source.fileSort);
}
