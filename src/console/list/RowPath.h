// The paths of rows. Rows of one folder follow one another, so a path is made from the one before.
#pragma once

#include <string>
#include <string_view>

#include "scanner/Records.h"

namespace Console {

class RowPath {
public:
    // Absolute paths begin with that of the scanned folder; others are relative to it. The separator is put
    // between the names.
    RowPath(bool absolute, wchar_t separator) : absolute_(absolute), separator_(separator) {}

    // Returns the path of a record other than the root; valid until the next call. Allocates only if the path
    // is longer than those before. Throws std::bad_alloc.
    std::wstring_view Of(const Scanner::Record& record);

private:
    void SetFolder(const Scanner::Folder& folder);

    const bool absolute_;
    const wchar_t separator_;

    // The last path. Up to nameStart_ it is the path of folder_ with a separator.
    std::wstring path_;
    size_t nameStart_ = 0;
    const Scanner::Folder* folder_ = nullptr;
};

}  // namespace Console
