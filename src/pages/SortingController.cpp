#include "pages/SortingController.h"

#include "resources/resource.h"

using Row = Preset::SortingRow;

namespace {

constexpr Binding Bindings[] = {
    CheckBox<Row::SortDigitsAsNumbers>(IDC_SORTING_NATURAL),
};

// By the values of the sort keys.
constexpr std::array<const wchar_t*, FolderSortKeyCount> FolderLabels = {
    L"Path and Name (fully qualified path)",
    L"Name",
    L"Size",
    L"Time Created",
    L"Last Time Accessed",
    L"Last Time Written",
    L"Number of Folders",
    L"Number of Files",
    L"Number of Folders and Files",
};
constexpr std::array<const wchar_t*, FileSortKeyCount> FileLabels = {
    L"Path (excluding filename)",
    L"Filename (without extension)",
    L"Extension",
    L"Size",
    L"Time Created",
    L"Last Time Accessed",
    L"Last Time Written",
};

}  // namespace

const OrderController::Controls SortingController::PageControls = {
    IDC_SORTING_GROUP,
    IDC_SORTING_CAPTION,
    IDC_SORTING_TREE,
    IDC_SORTING_UP,
    IDC_SORTING_DOWN,
    IDC_SORTING_NATURAL,
    {IDI_ASCENDING, IDI_DESCENDING, IDI_MIXED_ORDER},
};

SortingController::SortingController(MetaTypes::Settings* target)
    : OrderController(target, Preset::Sorting, Bindings, PageControls) {}

std::vector<OrderTree::Child> SortingController::ReadFolders(const MetaTypes::Settings& section) const {
    return ReadChildren<FolderSortKey, SortOrder>(section, Row::FolderSortKeys, Row::FolderSortOrder,
                                                  FolderLabels);
}

std::vector<OrderTree::Child> SortingController::ReadFiles(const MetaTypes::Settings& section) const {
    return ReadChildren<FileSortKey, SortOrder>(section, Row::FileSortKeys, Row::FileSortOrder, FileLabels);
}

void SortingController::Store(MetaTypes::Settings& section, std::span<const OrderTree::Child> folders,
                              std::span<const OrderTree::Child> files) const {
    StoreChildren<FolderSortKey, SortOrder>(folders, section, Row::FolderSortKeys, Row::FolderSortOrder);
    StoreChildren<FileSortKey, SortOrder>(files, section, Row::FileSortKeys, Row::FileSortOrder);
}
