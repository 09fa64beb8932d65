// The standard streams, the console, and its events.
#include <io.h>

#include <cerrno>
#include <mutex>
#include <string_view>

#include "Internal.h"

namespace FakeWin {
namespace {

using namespace Internal;

struct Stream {
    const wchar_t* subject;
    bool open = true;
    int width = 0;  // of a console
    std::string contents = {};
};

constexpr int InputDescriptor = 0;
constexpr int OutputDescriptor = 1;

struct ConsoleState {
    Stream output = {L"standard output"};
    Stream error = {L"standard error"};
    Stream input = {L"standard input"};
    size_t inputRead = 0;
    UINT codePage = 850;
    PHANDLER_ROUTINE handler = nullptr;
};

std::mutex mutex;
ConsoleState state;

Stream* StreamOf(HANDLE handle) {
    if (handle == &state.output)
        return &state.output;
    return handle == &state.error ? &state.error : nullptr;
}

DWORD Append(Stream* stream, std::string_view data) {
    if (stream == nullptr || !stream->open)
        return ERROR_INVALID_HANDLE;
    return Watched(Call::WriteFile, stream->subject, static_cast<DWORD>(data.size()), [&] {
        const std::lock_guard lock(mutex);
        stream->contents += data;
        return DWORD{0};
    });
}

ssize_t WriteBinary(void*, const char* data, size_t size) {
    return Append(&state.output, {data, size}) == 0 ? static_cast<ssize_t>(size) : 0;
}

ssize_t WriteText(void*, const char* data, size_t size) {
    std::string text;
    for (const char byte : std::string_view(data, size)) {
        if (byte == '\n')
            text += '\r';
        text += byte;
    }
    return Append(&state.output, text) == 0 ? static_cast<ssize_t>(size) : 0;
}

ssize_t ReadInput(void*, char* data, size_t size) {
    const DWORD error = Watched(Call::ReadFile, state.input.subject);
    if (error != 0)
        return -1;
    const std::lock_guard lock(mutex);
    const size_t count = state.input.contents.copy(data, size, state.inputRead);
    state.inputRead += count;
    return static_cast<ssize_t>(count);
}

int Close(void*) {
    const DWORD error = Watched(Call::CloseFile, state.output.subject);
    state.output.open = false;
    return error == 0 ? 0 : EOF;
}

}  // namespace

void SetStandardInput(const std::string& contents) {
    const std::lock_guard lock(mutex);
    state.input.contents = contents;
    state.inputRead = 0;
}

std::string StandardOutput() {
    const std::lock_guard lock(mutex);
    return state.output.contents;
}

std::string StandardError() {
    const std::lock_guard lock(mutex);
    return state.error.contents;
}

void CloseStandardOutput() {
    state.output.open = false;
}

void SetOutputConsole(int width) {
    state.output.width = width;
}

void SetErrorConsole(int width) {
    state.error.width = width;
}

bool SendConsoleEvent(DWORD event) {
    return state.handler != nullptr && state.handler(event);
}

namespace Internal {

void ResetConsole() {
    const std::lock_guard lock(mutex);
    state = {};
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;

HANDLE GetStdHandle(DWORD stream) {
    if (stream == STD_INPUT_HANDLE)
        return &state.input;
    Stream& wanted = stream == STD_ERROR_HANDLE ? state.error : state.output;
    return wanted.open ? &wanted : nullptr;
}

BOOL GetConsoleMode(HANDLE handle, LPDWORD mode) {
    const Stream* const stream = StreamOf(handle);
    *mode = 0;
    return stream != nullptr && stream->width > 0;
}

BOOL GetConsoleScreenBufferInfo(HANDLE handle, CONSOLE_SCREEN_BUFFER_INFO* info) {
    const Stream* const stream = StreamOf(handle);
    if (stream == nullptr || stream->width == 0)
        return FALSE;
    info->dwSize = {static_cast<SHORT>(stream->width), 25};
    return TRUE;
}

UINT GetConsoleOutputCP() {
    return state.codePage;
}

BOOL SetConsoleOutputCP(UINT codePage) {
    state.codePage = codePage;
    return TRUE;
}

BOOL SetConsoleCtrlHandler(PHANDLER_ROUTINE handler, BOOL) {
    state.handler = handler;
    return TRUE;
}

BOOL WriteFile(HANDLE handle, LPCVOID data, DWORD size, LPDWORD written, LPVOID) {
    const DWORD error = Append(StreamOf(handle), {static_cast<const char*>(data), size});
    *written = error == 0 ? size : 0;
    return Internal::Succeeded(error);
}

int _open_osfhandle(intptr_t handle, int) {
    if (reinterpret_cast<HANDLE>(handle) == &state.input)
        return InputDescriptor;
    return reinterpret_cast<HANDLE>(handle) == &state.output ? OutputDescriptor : -1;
}

FILE* _fdopen(int descriptor, const char* mode) {
    cookie_io_functions_t functions = {};
    if (descriptor == InputDescriptor) {
        functions.read = ReadInput;
        return fopencookie(&state, "r", functions);
    }
    functions.write = mode == std::string_view("w") ? WriteText : WriteBinary;
    functions.close = Close;
    return fopencookie(&state, "w", functions);
}
