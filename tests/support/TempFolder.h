// A folder of a test's own with a tree in it: really on the disk under Wine, in the stand-in's file system on
// Linux. It is empty at first and deleted with all its contents by the destructor.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "winlib/Windows.h"

namespace TestSupport {

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // The full path, without a trailing backslash.
    const std::wstring& Path() const { return path_; }

    // The full path of something in it. relative uses backslashes and does not begin with one.
    std::wstring Path(const std::wstring& relative) const { return path_ + L"\\" + relative; }

    // Make an entry and the missing folders above it. attributes are of FILE_ATTRIBUTE_; a file system may
    // add some of its own, and keeps no others than READONLY, HIDDEN, SYSTEM and ARCHIVE reliably. A size
    // costs no room on the disk.
    void AddFolder(const std::wstring& relative, DWORD attributes = 0) const;
    void AddFile(const std::wstring& relative, uint64_t size = 0,
                 DWORD attributes = FILE_ATTRIBUTE_ARCHIVE) const;
    void AddFile(const std::wstring& relative, const std::string& contents,
                 DWORD attributes = FILE_ATTRIBUTE_ARCHIVE) const;

    // The three times of an entry. Adding an entry changes the times of its folder, so folders come last.
    void SetTimes(const std::wstring& relative, FILETIME created, FILETIME accessed, FILETIME written) const;

    // The bytes of a file, or nothing if there is none.
    std::optional<std::string> Read(const std::wstring& relative) const;

    bool Exists(const std::wstring& relative) const;

private:
    std::wstring path_;
};

// The bytes of any file, or nothing if there is none.
std::optional<std::string> ReadBytes(const std::wstring& path);

}  // namespace TestSupport
