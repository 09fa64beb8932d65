#include "endtoend/Companion.h"

#include <array>

#include "endtoend/Program.h"

namespace EndToEnd {

OutputFile::OutputFile() {
    std::array<wchar_t, MAX_PATH> folder;
    std::array<wchar_t, MAX_PATH> path;
    GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    GetTempFileNameW(folder.data(), L"out", 0, path.data());
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    handle_ = CreateFileW(path.data(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_DELETE, &inherited,
                          CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

OutputFile::~OutputFile() {
    CloseHandle(handle_);
}

std::string OutputFile::ReadAll() {
    SetFilePointer(handle_, 0, nullptr, FILE_BEGIN);
    std::string text;
    std::array<char, 4096> block;
    DWORD size = 0;
    while (::ReadFile(handle_, block.data(), block.size(), &size, nullptr) && size != 0)
        text.append(block.data(), size);
    return text;
}

std::wstring CompanionCommand(const std::wstring& arguments) {
    return L"\"" + PathBeside(L"tamblewickc.exe") + L"\" " + arguments;
}

Printed RunCompanion(const std::wstring& arguments, const std::filesystem::path& folder) {
    OutputFile out;
    OutputFile error;
    Printed printed;
    printed.code = TestSupport::RunProcess(
        CompanionCommand(arguments), {.folder = folder, .output = out.Handle(), .error = error.Handle()});
    printed.out = out.ReadAll();
    printed.error = error.ReadAll();
    return printed;
}

}  // namespace EndToEnd
