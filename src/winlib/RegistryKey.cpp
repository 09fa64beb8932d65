#include "winlib/RegistryKey.h"

#include <utility>

namespace {

// Returns the units of a REG_SZ or REG_MULTI_SZ value followed by two zeros, so that a value stored without
// terminator is terminated.
bool QueryText(HKEY key, const std::wstring& name, DWORD expectedType, std::vector<wchar_t>& units) {
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
        type != expectedType)
        return false;
    units.assign(size / sizeof(wchar_t) + 2, L'\0');
    return RegQueryValueExW(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(units.data()),
                            &size) == ERROR_SUCCESS;
}

}  // namespace

RegistryKey::~RegistryKey() {
    if (key_)
        RegCloseKey(key_);
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}

RegistryKey& RegistryKey::operator=(RegistryKey&& other) noexcept {
    std::swap(key_, other.key_);
    return *this;
}

HKEY* RegistryKey::Receive() {
    *this = RegistryKey();
    return &key_;
}

bool RegistryKey::ReadString(const std::wstring& name, std::wstring& out) const {
    std::vector<wchar_t> units;
    if (!QueryText(key_, name, REG_SZ, units))
        return false;
    out = units.data();
    return true;
}

bool RegistryKey::ReadStringList(const std::wstring& name, std::vector<std::wstring>& out) const {
    std::vector<wchar_t> units;
    if (!QueryText(key_, name, REG_MULTI_SZ, units))
        return false;
    // The last unit is always a zero. A string ends there, without an empty one after it, only if the value
    // has an odd number of bytes.
    const wchar_t* const end = units.data() + units.size();
    for (const wchar_t* position = units.data(); position != end && *position;
         position += out.back().length() + 1)
        out.emplace_back(position);
    return true;
}

bool RegistryKey::WriteStringList(const std::wstring& name, const std::vector<std::wstring>& list) const {
    std::wstring units;
    for (const std::wstring& text : list) {
        units += text;
        units += L'\0';
    }
    units += L'\0';
    return RegSetValueExW(key_, name.c_str(), 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>(units.data()),
                          static_cast<DWORD>(units.size() * sizeof(wchar_t))) == ERROR_SUCCESS;
}

bool RegistryKey::WriteDword(const std::wstring& name, uint32_t value) const {
    return RegSetValueExW(key_, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                          sizeof(value)) == ERROR_SUCCESS;
}

std::vector<std::wstring> RegistryKey::EnumerateSubkeys() const {
    std::vector<std::wstring> names;
    DWORD count = 0;
    DWORD longest = 0;
    if (RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &count, &longest, nullptr, nullptr, nullptr,
                         nullptr, nullptr, nullptr) != ERROR_SUCCESS)
        return names;
    names.reserve(count);
    std::vector<wchar_t> buffer(longest + 1);
    for (DWORD index = 0; index < count; ++index) {
        DWORD length = static_cast<DWORD>(buffer.size());
        if (RegEnumKeyExW(key_, index, buffer.data(), &length, nullptr, nullptr, nullptr, nullptr) ==
            ERROR_SUCCESS)
            names.emplace_back(buffer.data(), length);
    }
    return names;
}

bool RegistryKey::DeleteTree(const std::wstring& subkey) const {
    if (subkey.empty())
        return false;
    {
        RegistryKey key;
        if (RegOpenKeyExW(key_, subkey.c_str(), 0, KEY_ALL_ACCESS, key.Receive()) == ERROR_SUCCESS)
            for (const std::wstring& name : key.EnumerateSubkeys())
                key.DeleteTree(name);
    }
    return RegDeleteKeyW(key_, subkey.c_str()) == ERROR_SUCCESS;
}
