#include "console/Input.h"

#include <fcntl.h>
#include <share.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>

#include "console/Errors.h"
#include "console/FullPath.h"
#include "console/Interrupt.h"
#include "winlib/Windows.h"

#include <io.h>

namespace Console {

namespace {

constexpr wchar_t StandardInput[] = L"-";

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

using Stream = std::unique_ptr<std::FILE, CloseStream>;

Stream OpenStandardInput() {
    const HANDLE handle = GetStdHandle(STD_INPUT_HANDLE);
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_BINARY);
    return Stream(descriptor == -1 ? nullptr : _fdopen(descriptor, "rb"));
}

Stream Open(const std::wstring& name) {
    if (name == StandardInput)
        return OpenStandardInput();
    return Stream(_wfsopen(LongPath(FullPath(name)).c_str(), L"rb", _SH_DENYNO));
}

}  // namespace

std::wstring InputName(const std::wstring& name) {
    return name == StandardInput ? L"the standard input" : L"the file '" + name + L"'";
}

std::string ReadInput(const std::wstring& name, size_t most) {
    const Stream stream = Open(name);
    if (!stream)
        throw Error(ExitCode::Failed,
                    InputName(name) + L" cannot be opened; check that it exists and may be read");
    std::string bytes;
    std::array<char, 1 << 16> block;
    size_t size;
    while (bytes.size() <= most && (size = std::fread(block.data(), 1, block.size(), stream.get())) > 0)
        bytes.append(block.data(), size);
    // Ctrl+C ends a read from a console.
    ThrowIfInterrupted();
    if (std::ferror(stream.get()) != 0)
        throw Error(ExitCode::Failed, InputName(name) + L" could not be read");
    if (bytes.size() > most)
        throw Error(ExitCode::Failed, InputName(name) + L" is too large; it can have at most " +
                                          std::to_wstring(most) + L" bytes");
    return bytes;
}

}  // namespace Console
