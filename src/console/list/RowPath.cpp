#include "console/list/RowPath.h"

#include <algorithm>

namespace Console {

using Scanner::Folder;

// The walk's own path is that of the scanned folder for every row of a flat list.
std::wstring_view RowPath::Of(const Scanner::Record& record) {
    if (record.parent != folder_)
        SetFolder(*record.parent);
    path_.resize(nameStart_);
    return path_.append(record.fullName);
}

// Filled from its end, since a record knows only its parent.
void RowPath::SetFolder(const Folder& folder) {
    const auto isPart = [this](const Folder* part) {
        return part != nullptr && (part->parent != nullptr || absolute_);
    };
    nameStart_ = 0;
    for (const Folder* part = &folder; isPart(part); part = part->parent)
        nameStart_ += std::wstring_view(part->fullName).size() + 1;
    path_.resize(nameStart_);
    auto end = path_.end();
    for (const Folder* part = &folder; isPart(part); part = part->parent) {
        const std::wstring_view name = part->fullName;
        *--end = separator_;
        end = std::copy_backward(name.begin(), name.end(), end);
    }
    folder_ = &folder;
}

}  // namespace Console
