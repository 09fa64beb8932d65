// Takes the place of a program that opens lists: writes its command line into the file "recorded" in the
// folder of lists and ends. The file appears complete, under its final name, in one step.
#include <cstdio>
#include <string>

#include "winlib/Windows.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    const std::wstring line = GetCommandLineW();
    const std::wstring unfinished = L"C:\\tamblewick-lists\\recording";
    FILE* file = _wfopen(unfinished.c_str(), L"wb");
    if (!file)
        return 1;
    for (const wchar_t c : line)
        std::fputc(c < 0x80 ? static_cast<char>(c) : '?', file);
    std::fclose(file);
    return MoveFileW(unfinished.c_str(), L"C:\\tamblewick-lists\\recorded") ? 0 : 1;
}
