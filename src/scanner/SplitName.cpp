#include "scanner/SplitName.h"

#include <cstddef>
#include <cwchar>

namespace Scanner {

void SplitName(File& file, StringPool& strings) {
    const wchar_t* const whole = file.fullName;
    file.name = whole;
    file.extension = EmptyText;
    if (*whole == L'\0')
        return;

    size_t index = 0;
    size_t stemEnd = 0;  // directly after the dot
    do {
        ++index;
        if (whole[index] == L'.') {
            ++index;
            stemEnd = index;
        }
    } while (whole[index] != L'\0');
    if (stemEnd == 0)
        return;

    wchar_t* const stem = strings.Allocate(stemEnd);
    std::wmemcpy(stem, whole, stemEnd - 1);
    stem[stemEnd - 1] = L'\0';
    file.name = stem;
    file.extension = whole + stemEnd;
}

}  // namespace Scanner
