#include "support/TempFolder.h"

#include <atomic>
#include <stdexcept>
#include <string>

#include <winioctl.h>

namespace TestSupport {
namespace {

std::wstring LongForm(const std::wstring& path) {
    return LR"(\\?\)" + path;
}

// The failing call with its error: a test that cannot make its files must not go on.
void Check(BOOL succeeded, const char* call) {
    if (!succeeded)
        throw std::runtime_error(std::string(call) + " failed with " + std::to_string(GetLastError()));
}

// An open file that is closed in time.
class OpenFile {
public:
    OpenFile(const std::wstring& path, DWORD access, DWORD disposition)
        : handle_(CreateFileW(LongForm(path).c_str(), access,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, disposition,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
    ~OpenFile() {
        if (IsOpen())
            CloseHandle(handle_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
};

void MakeFolders(const std::wstring& path) {
    if (GetFileAttributesW(LongForm(path).c_str()) != INVALID_FILE_ATTRIBUTES)
        return;
    MakeFolders(path.substr(0, path.rfind(L'\\')));
    Check(CreateDirectoryW(LongForm(path).c_str(), nullptr), "CreateDirectoryW");
}

void RemoveTree(const std::wstring& path) {
    WIN32_FIND_DATAW data;
    const HANDLE find = FindFirstFileW(LongForm(path + L"\\*").c_str(), &data);
    if (find == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::wstring name = data.cFileName;
        if (name == L"." || name == L"..")
            continue;
        const std::wstring entry = path + L"\\" + name;
        SetFileAttributesW(LongForm(entry).c_str(), FILE_ATTRIBUTE_NORMAL);
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            RemoveTree(entry);
        else
            DeleteFileW(LongForm(entry).c_str());
    } while (FindNextFileW(find, &data));
    FindClose(find);
    RemoveDirectoryW(LongForm(path).c_str());
}

void SetAttributes(const std::wstring& path, DWORD attributes) {
    Check(SetFileAttributesW(LongForm(path).c_str(), attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL),
          "SetFileAttributesW");
}

LARGE_INTEGER ToTicks(FILETIME time) {
    LARGE_INTEGER ticks;
    ticks.LowPart = time.dwLowDateTime;
    ticks.HighPart = static_cast<LONG>(time.dwHighDateTime);
    return ticks;
}

// Makes the file empty, ready to be filled.
void MakeFile(const std::wstring& path) {
    MakeFolders(path.substr(0, path.rfind(L'\\')));
    SetFileAttributesW(LongForm(path).c_str(), FILE_ATTRIBUTE_NORMAL);
    const OpenFile file(path, GENERIC_WRITE, CREATE_ALWAYS);
    Check(file.IsOpen(), "CreateFileW");
}

}  // namespace

TempFolder::TempFolder() {
    static std::atomic<int> count = 0;
    wchar_t temp[MAX_PATH + 1];
    Check(GetTempPathW(MAX_PATH + 1, temp) != 0, "GetTempPathW");
    wchar_t folder[MAX_PATH + 1];
    Check(GetLongPathNameW(temp, folder, MAX_PATH + 1) != 0, "GetLongPathNameW");
    path_ = std::wstring(folder) + L"Test " + std::to_wstring(GetCurrentProcessId()) + L"-" +
            std::to_wstring(++count);
    RemoveTree(path_);
    MakeFolders(path_);
}

TempFolder::~TempFolder() {
    RemoveTree(path_);
}

void TempFolder::AddFolder(const std::wstring& relative, DWORD attributes) const {
    MakeFolders(Path(relative));
    const DWORD settable = attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_DIRECTORY);
    if (settable != 0)
        SetAttributes(Path(relative), settable);
}

void TempFolder::AddFile(const std::wstring& relative, uint64_t size, DWORD attributes) const {
    MakeFile(Path(relative));
    {
        const OpenFile file(Path(relative), GENERIC_WRITE, OPEN_EXISTING);
        DWORD bytes;
        if (size > 0x100000)
            DeviceIoControl(file.Get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &bytes, nullptr);
        LARGE_INTEGER end;
        end.QuadPart = static_cast<LONGLONG>(size);
        Check(SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN), "SetFilePointerEx");
        Check(SetEndOfFile(file.Get()), "SetEndOfFile");
    }
    SetAttributes(Path(relative), attributes);
}

void TempFolder::AddFile(const std::wstring& relative, const std::string& contents, DWORD attributes) const {
    MakeFile(Path(relative));
    {
        const OpenFile file(Path(relative), GENERIC_WRITE, OPEN_EXISTING);
        DWORD written;
        Check(WriteFile(file.Get(), contents.data(), static_cast<DWORD>(contents.size()), &written, nullptr),
              "WriteFile");
    }
    SetAttributes(Path(relative), attributes);
}

void TempFolder::SetTimes(const std::wstring& relative, FILETIME created, FILETIME accessed,
                          FILETIME written) const {
    const OpenFile file(Path(relative), FILE_WRITE_ATTRIBUTES, OPEN_EXISTING);
    Check(file.IsOpen(), "CreateFileW");
    // SetFileTime clears the attributes under Wine 10.
    FILE_BASIC_INFO info = {};
    info.CreationTime = ToTicks(created);
    info.LastAccessTime = ToTicks(accessed);
    info.LastWriteTime = ToTicks(written);
    info.FileAttributes = GetFileAttributesW(LongForm(Path(relative)).c_str());
    Check(SetFileInformationByHandle(file.Get(), FileBasicInfo, &info, sizeof(info)),
          "SetFileInformationByHandle");
}

std::optional<std::string> TempFolder::Read(const std::wstring& relative) const {
    return ReadBytes(Path(relative));
}

bool TempFolder::Exists(const std::wstring& relative) const {
    return GetFileAttributesW(LongForm(Path(relative)).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::optional<std::string> ReadBytes(const std::wstring& path) {
    const OpenFile file(path, GENERIC_READ, OPEN_EXISTING);
    LARGE_INTEGER size;
    if (!file.IsOpen() || !GetFileSizeEx(file.Get(), &size))
        return std::nullopt;
    std::string bytes(static_cast<size_t>(size.QuadPart), '\0');
    DWORD read = 0;
    Check(ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr), "ReadFile");
    bytes.resize(read);
    return bytes;
}

}  // namespace TestSupport
