#include "BuiltFile.h"

#include <filesystem>
#include <stdexcept>

namespace {

std::wstring PathOf(const wchar_t* name) {
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    return (std::filesystem::path(self).parent_path() / name).wstring();
}

}  // namespace

BuiltFile::BuiltFile(const wchar_t* name)
    : path_(PathOf(name)), module_(LoadLibraryExW(path_.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {
    if (module_ == nullptr)
        throw std::runtime_error("cannot load a built file");
}

BuiltFile::~BuiltFile() {
    FreeLibrary(module_);
}

std::span<const std::byte> BuiltFile::Resource(ResourceType type, int id) const {
    const HRSRC resource =
        FindResourceW(module_, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(static_cast<int>(type)));
    if (resource == nullptr)
        return {};
    return {static_cast<const std::byte*>(LockResource(LoadResource(module_, resource))),
            SizeofResource(module_, resource)};
}
