#include "settings/Templates.h"

#include <string>
#include <vector>

#include "settings/OrderedArrays.h"
#include "settings/Preset.h"

const std::array<const wchar_t*, TemplateCount> TemplateNames = {
    L"All files (Simple, Text)", L"All files (Simple, HTML)", L"All files (Details, HTML)",
    L"Audio-files (HTML)",       L"Video-files (HTML)",       L"Repository (Exclude .git, .svn and .hg)",
};

namespace {

// The values in which the templates differ.
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
    std::span<const wchar_t* const> excludedFolders;  // in addition to DefaultExcludedFolder
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

// Fills a pair of arrays from its short list and stores it in two fields of the preset.
template <typename Section, typename Value, typename Flag, size_t N>
void SetArrays(Preset& preset, MetaTypes::Field<Section, std::array<Value, N>> valueField,
               MetaTypes::Field<Section, std::array<Flag, N>> flagField,
               std::type_identity_t<std::span<const std::pair<Value, Flag>>> pairs) {
    std::array<Value, N> values;
    std::array<Flag, N> flags;
    FillSortKeys(pairs, values, flags);
    for (size_t i = 0; i < N; ++i) {
        preset.Get(valueField, i) = values[i];
        preset.Get(flagField, i) = flags[i];
    }
}

}  // namespace

void ApplyTemplate(Preset& preset, uint32_t number) {
    const Template& source = Templates[number];
    preset.Get(Preset::Name) = TemplateNames[number];

    preset.Get(Format::ListStyle) = source.listStyle;
    preset.Get(Format::EnableUtf8) = true;

    preset.Get(Display::SearchSubfolders) = true;
    preset.Get(Display::SearchHidden) = false;
    preset.Get(Display::ShowStatistics) = source.showStatistics;
    preset.Get(Display::ShowFlatStyle) = false;
    preset.Get(Display::IndentSize) = source.indentSize;
    preset.Get(Display::SizeStyle) = SizeStyle::Dynamic;

    preset.Get(Columns::ShowHeaders) = source.showHeaders;
    SetArrays(preset, Columns::FolderColumns, Columns::FolderEnabled, source.folderColumns);
    SetArrays(preset, Columns::FileColumns, Columns::FileEnabled, source.fileColumns);

    preset.Get(Filter::PresetSearchPattern) = source.presetSearchPattern;
    preset.Get(Filter::CustomSearchPattern) = L"*";
    std::vector<std::wstring>& excluded = preset.Get(Filter::ExcludedFolders);
    excluded = {DefaultExcludedFolder};
    excluded.insert(excluded.end(), source.excludedFolders.begin(), source.excludedFolders.end());

    preset.Get(Saving::SaveLocation) = SaveLocation::Temporary;
    preset.Get(Saving::CustomFolderPath).clear();
    preset.Get(Saving::OverwriteExisting) = false;

    preset.Get(Opening::OpenMethod) = OpenMethod::Default;
    preset.Get(Opening::CustomProgramPath).clear();

    preset.Get(Sorting::SortDigitsAsNumbers) = source.sortDigitsAsNumbers;
    SetArrays(preset, Sorting::FolderSortKeys, Sorting::FolderSortOrder, source.folderSort);
    SetArrays(preset, Sorting::FileSortKeys, Sorting::FileSortOrder, source.fileSort);
}
