// A built file beside the test program, loaded for its resources alone.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "winlib/Windows.h"

// Resource types by their numbers; the system's names for them are pointers to narrow characters here.
enum class ResourceType { Icon = 3, Menu = 4, Dialog = 5, IconGroup = 14, Version = 16, Manifest = 24 };

class BuiltFile {
public:
    // Throws std::runtime_error if there is no such file.
    explicit BuiltFile(const wchar_t* name);
    BuiltFile(const BuiltFile&) = delete;
    BuiltFile& operator=(const BuiltFile&) = delete;
    ~BuiltFile();

    HMODULE Module() const { return module_; }
    const std::wstring& Path() const { return path_; }

    // The bytes of a resource, which live as long as this object; none if there is no such resource.
    std::span<const std::byte> Resource(ResourceType type, int id) const;

private:
    std::wstring path_;
    HMODULE module_;
};
