#include "scanner/StringPool.h"

#include <cwchar>

namespace Scanner {

const wchar_t* StringPool::Duplicate(const wchar_t* text) {
    const size_t count = std::wcslen(text) + 1;
    return std::wmemcpy(Allocate(count), text, count);
}

}  // namespace Scanner
