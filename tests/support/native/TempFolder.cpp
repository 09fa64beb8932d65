#include "support/TempFolder.h"

#include <atomic>

#include "fakewin/FakeWin.h"

namespace TestSupport {

TempFolder::TempFolder() {
    static std::atomic<int> count = 0;
    path_ = (LR"(C:\Temp\Test )") + std::to_wstring(++count);
    FakeWin::AddFolder(path_);
}

TempFolder::~TempFolder() {
    if (FakeWin::EntryExists(path_))
        FakeWin::RemoveEntry(path_);
}

void TempFolder::AddFolder(const std::wstring& relative, DWORD attributes) const {
    FakeWin::AddFolder(Path(relative), attributes);
}

void TempFolder::AddFile(const std::wstring& relative, uint64_t size, DWORD attributes) const {
    FakeWin::AddFile(Path(relative), size, attributes);
}

void TempFolder::AddFile(const std::wstring& relative, const std::string& contents, DWORD attributes) const {
    FakeWin::AddFile(Path(relative), contents, attributes);
}

void TempFolder::SetTimes(const std::wstring& relative, FILETIME created, FILETIME accessed,
                          FILETIME written) const {
    FakeWin::SetTimes(Path(relative), created, accessed, written);
}

std::optional<std::string> TempFolder::Read(const std::wstring& relative) const {
    return ReadBytes(Path(relative));
}

bool TempFolder::Exists(const std::wstring& relative) const {
    return FakeWin::EntryExists(Path(relative));
}

std::optional<std::string> ReadBytes(const std::wstring& path) {
    return FakeWin::Contents(path);
}

}  // namespace TestSupport
