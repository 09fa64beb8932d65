#include "pages/ColumnsController.h"

#include "resources/resource.h"

namespace {

constexpr Binding Bindings[] = {
    CheckBox<Columns::ShowHeaders>(IDC_COLUMNS_HEADERS),
};

// The index is the value of the column.
constexpr std::array<const wchar_t*, FolderColumnCount> FolderLabels = {
    L"Number",
    L"Path",
    L"Name",
    L"Path and Name (fully qualified path)",
    L"Size",
    L"Attributes (read-only, archive, hidden, system)",
    L"Time Created",
    L"Last Time Accessed",
    L"Last Time Written",
    L"Number of Folders",
    L"Number of Files",
    L"Number of Folders and Files",
};
constexpr std::array<const wchar_t*, FileColumnCount> FileLabels = {
    L"Number",
    L"Path",
    L"Filename",
    L"Path and Filename (fully qualified path)",
    L"Filename without Extension",
    L"Extension",
    L"Size",
    L"Attributes (read-only, archive, hidden, system)",
    L"Time Created",
    L"Last Time Accessed",
    L"Last Time Written",
};

}  // namespace

const OrderController::Controls ColumnsController::PageControls = {
    IDC_COLUMNS_GROUP,
    IDC_COLUMNS_CAPTION,
    IDC_COLUMNS_TREE,
    IDC_COLUMNS_UP,
    IDC_COLUMNS_DOWN,
    IDC_COLUMNS_HEADERS,
    {IDI_UNCHECKED, IDI_CHECKED, IDI_MIXED},
};

ColumnsController::ColumnsController(MetaTypes::Settings* target)
    : OrderController(target, Bindings, PageControls) {}

std::vector<OrderTree::Child> ColumnsController::ReadFolders(const Preset& preset) const {
    return ReadChildren(preset, Columns::FolderColumns, Columns::FolderEnabled, FolderLabels);
}

std::vector<OrderTree::Child> ColumnsController::ReadFiles(const Preset& preset) const {
    return ReadChildren(preset, Columns::FileColumns, Columns::FileEnabled, FileLabels);
}

void ColumnsController::Store(Preset& preset, std::span<const OrderTree::Child> folders,
                              std::span<const OrderTree::Child> files) const {
    StoreChildren(folders, preset, Columns::FolderColumns, Columns::FolderEnabled);
    StoreChildren(files, preset, Columns::FileColumns, Columns::FileEnabled);
}
