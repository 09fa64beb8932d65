// A program that does not limit the search for DLLs: loads each DLL of its command line by name.

#include "winlib/Windows.h"

int wmain(int count, wchar_t** names) {
    for (int i = 1; i < count; ++i)
        LoadLibraryW(names[i]);
    return 0;
}
