// Owns an open registry key, and reads and writes its values by type. Failures are reported by the result,
// never thrown.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "winlib/Windows.h"

class RegistryKey {
public:
    // Takes ownership of an open key; null if it could not be opened.
    explicit RegistryKey(HKEY key = nullptr) : key_(key) {}
    ~RegistryKey();
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&& other) noexcept;

    // Returns the open key, or null. This object keeps ownership.
    HKEY Get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

    // Closes the key and returns the address for a new one, to be passed to RegOpenKeyExW or RegCreateKeyExW.
    HKEY* Receive();

    // Reads a REG_SZ value up to its first zero. Fails for another type; out is then unchanged.
    bool ReadString(const std::wstring& name, std::wstring& out) const;

    // Reads a REG_MULTI_SZ value up to its first empty string and appends its strings to out.
    bool ReadStringList(const std::wstring& name, std::vector<std::wstring>& out) const;

    // Write a value with its terminators. Return whether it was stored.
    bool WriteStringList(const std::wstring& name, const std::vector<std::wstring>& list) const;
    bool WriteDword(const std::wstring& name, uint32_t value) const;

    // Returns the names of the direct subkeys in the registry's order; none on failure.
    std::vector<std::wstring> EnumerateSubkeys() const;

    // Deletes a subkey with everything below it. An empty name deletes nothing. Returns whether the subkey
    // itself was deleted.
    bool DeleteTree(const std::wstring& subkey) const;

private:
    HKEY key_;
};
