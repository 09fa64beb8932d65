// The holder of one open registry key, and typed reads and writes of what stands in it. A failure is told by
// the result and never thrown.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "winlib/Windows.h"

class RegistryKey {
public:
    // Takes ownership of an open key; null stands for a key that could not be opened.
    explicit RegistryKey(HKEY key = nullptr) : key_(key) {}
    ~RegistryKey();
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&& other) noexcept;

    // The open key, or null. Still owned by this object.
    HKEY Get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

    // For RegOpenKeyExW and RegCreateKeyExW: closes what is held and gives the place for the new key.
    HKEY* Receive();

    // Reads a REG_SZ value up to its first zero. On failure, another type included, out is unchanged.
    bool ReadString(const std::wstring& name, std::wstring& out) const;

    // Reads a REG_MULTI_SZ value up to its first empty string and appends to out.
    bool ReadStringList(const std::wstring& name, std::vector<std::wstring>& out) const;

    // Write one value with its terminators; true if it was stored.
    bool WriteStringList(const std::wstring& name, const std::vector<std::wstring>& list) const;
    bool WriteDword(const std::wstring& name, uint32_t value) const;

    // The names of the direct subkeys in the registry's order; empty on failure.
    std::vector<std::wstring> EnumerateSubkeys() const;

    // Deletes a subkey with everything below it. An empty name deletes nothing. True if the subkey itself
    // could be deleted.
    bool DeleteTree(const std::wstring& subkey) const;

private:
    HKEY key_;
};
