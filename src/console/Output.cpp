#include "console/Output.h"

#include <fcntl.h>

#include <algorithm>
#include <string>

#include "console/Errors.h"
#include "winlib/Windows.h"

#include <io.h>

namespace Console {

namespace {

bool WriteAll(DWORD stream, std::string_view text) {
    const HANDLE handle = GetStdHandle(stream);
    while (!text.empty()) {
        DWORD written = 0;
        const DWORD size = static_cast<DWORD>(std::min<size_t>(text.size(), 0x8000));
        if (!WriteFile(handle, text.data(), size, &written, nullptr) || written == 0)
            return false;
        text.remove_prefix(written);
    }
    return true;
}

bool IsConsole(DWORD stream) {
    DWORD mode;
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

}  // namespace

Utf8Console::Utf8Console() : codePage_(GetConsoleOutputCP()) {
    SetConsoleOutputCP(CP_UTF8);
}

Utf8Console::~Utf8Console() {
    SetConsoleOutputCP(codePage_);
}

void Print(std::string_view text) {
    if (!WriteAll(STD_OUTPUT_HANDLE, text))
        throw Error(ExitCode::NotWritten, L"the standard output could not be written");
}

void PrintError(std::string_view text) {
    WriteAll(STD_ERROR_HANDLE, text);
}

void Warn(std::string_view message) {
    PrintError("tamblewickc: " + std::string(message) + "\n");
}

std::FILE* OpenStandardOutput(bool text) {
    const HANDLE handle = GetStdHandle(STD_OUTPUT_HANDLE);
    if (handle == nullptr || handle == INVALID_HANDLE_VALUE)
        return nullptr;
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(handle), text ? _O_TEXT : _O_BINARY);
    return descriptor == -1 ? nullptr : _fdopen(descriptor, text ? "w" : "wb");
}

bool OutputIsConsole() {
    return IsConsole(STD_OUTPUT_HANDLE);
}

bool ErrorIsConsole() {
    return IsConsole(STD_ERROR_HANDLE);
}

size_t ErrorConsoleWidth() {
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info) || info.dwSize.X <= 0)
        return 80;
    return static_cast<size_t>(info.dwSize.X);
}

}  // namespace Console
