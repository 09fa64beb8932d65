#include "contextmenu/Selection.h"

#include <memory>

#include <objidl.h>
#include <ole2.h>
#include <shellapi.h>

namespace {

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::wstring PathAt(HDROP drop, UINT index) {
    std::wstring path(DragQueryFileW(drop, index, nullptr, 0), L'\0');
    // The terminating NUL takes the place that every string has for it.
    DragQueryFileW(drop, index, path.data(), static_cast<UINT>(path.size() + 1));
    return path;
}

struct MediumReleaser {
    void operator()(STGMEDIUM* medium) const { ReleaseStgMedium(medium); }
};

}  // namespace

std::vector<std::wstring> SelectedFolders(IDataObject* data) {
    std::vector<std::wstring> folders;
    FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium = {};
    if (data == nullptr || FAILED(data->GetData(&format, &medium)))
        return folders;
    const std::unique_ptr<STGMEDIUM, MediumReleaser> owner(&medium);
    const HDROP drop = static_cast<HDROP>(medium.hGlobal);
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path = PathAt(drop, i);
        if (IsFolder(path))
            folders.push_back(std::move(path));
    }
    return folders;
}
