#include "pages/SortingController.h"

#include "resources/resource.h"

namespace {

constexpr Binding Bindings[] = {
    CheckBox<Sorting::SortDigitsAsNumbers>(IDC_SORTING_NATURAL),
};

// The index is the value of the sort key.
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
    : OrderController(target, Bindings, PageControls) {}

std::vector<OrderTree::Child> SortingController::ReadFolders(const Preset& preset) const {
    return ReadChildren(preset, Sorting::FolderSortKeys, Sorting::FolderSortOrder, FolderLabels);
}

std::vector<OrderTree::Child> SortingController::ReadFiles(const Preset& preset) const {
    return ReadChildren(preset, Sorting::FileSortKeys, Sorting::FileSortOrder, FileLabels);
}

void SortingController::Store(Preset& preset, std::span<const OrderTree::Child> folders,
                              std::span<const OrderTree::Child> files) const {
    StoreChildren(folders, preset, Sorting::FolderSortKeys, Sorting::FolderSortOrder);
    StoreChildren(files, preset, Sorting::FileSortKeys, Sorting::FileSortOrder);
}
