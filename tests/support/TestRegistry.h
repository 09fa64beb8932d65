// The registry of the current user as a test fills and reads it, the same on both sides. All keys are
// relative to HKEY_CURRENT_USER. Sizes of texts differ between the sides; compare values as RegistryValue and
// sizes as units of sizeof(wchar_t).
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "winlib/Windows.h"

namespace TestSupport {

// One stored value: its type and each byte of its data.
struct RegistryValue {
    DWORD type;
    std::string data;

    bool operator==(const RegistryValue&) const = default;
};

// The values as they must be stored, exact in type and size. Text comes with the one terminator that belongs
// to it, a list with that of each string and one more.
RegistryValue DwordValue(uint32_t value);
RegistryValue StringValue(std::wstring_view text);
RegistryValue StringListValue(const std::vector<std::wstring>& list);

// Bytes of text without any terminator but those in the text itself, for damaged values.
std::string TextData(std::wstring_view text);

// For failure messages.
void PrintTo(const RegistryValue& value, std::ostream* out);

class TestRegistry {
public:
    // Both delete Software\Tamblewick with all below it.
    TestRegistry();
    ~TestRegistry();
    TestRegistry(const TestRegistry&) = delete;
    TestRegistry& operator=(const TestRegistry&) = delete;

    // Store a value, making the key if it is missing. The empty name is the key's default value.
    void SetDword(const std::wstring& key, const std::wstring& name, uint32_t value) const;
    void SetString(const std::wstring& key, const std::wstring& name, std::wstring_view text) const;
    void SetStringList(const std::wstring& key, const std::wstring& name,
                       const std::vector<std::wstring>& list) const;
    void SetRaw(const std::wstring& key, const std::wstring& name, DWORD type, const std::string& data) const;

    void CreateKey(const std::wstring& key) const;

    // The key with everything below it; it need not exist.
    void DeleteKey(const std::wstring& key) const;

    std::optional<RegistryValue> Get(const std::wstring& key, const std::wstring& name) const;
    bool KeyExists(const std::wstring& key) const;

    // In the registry's order; of the values sorted, since the registry keeps none. Empty without such a key.
    std::vector<std::wstring> Subkeys(const std::wstring& key) const;
    std::vector<std::wstring> ValueNames(const std::wstring& key) const;
};

}  // namespace TestSupport
