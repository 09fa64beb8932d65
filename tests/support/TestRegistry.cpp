#include "support/TestRegistry.h"

#include <algorithm>
#include <cstring>
#include <iomanip>
#include <stdexcept>

#include "support/Platform.h"
#include "support/Text.h"

namespace TestSupport {
namespace {

constexpr wchar_t ProductKey[] = L"Software\\Tamblewick";

// A key of the test's own, open for as long as the object lives, or null.
class Key {
public:
    Key(const std::wstring& path, bool create) : unwatched_(BeginUnwatched()) {
        if (create)
            RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                            nullptr);
        else if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_ALL_ACCESS, &key_) != 0)
            key_ = nullptr;
        if (create && key_ == nullptr)
            throw std::runtime_error("cannot make the key " + Utf8(path));
    }
    ~Key() {
        if (key_ != nullptr && key_ != HKEY_CURRENT_USER)
            RegCloseKey(key_);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    HKEY Get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

private:
    std::shared_ptr<void> unwatched_;
    HKEY key_ = nullptr;
};

std::string TextWith(std::wstring_view text, size_t terminators) {
    return TextData(text) + std::string(terminators * sizeof(wchar_t), '\0');
}

}  // namespace

RegistryValue DwordValue(uint32_t value) {
    std::string data(sizeof value, '\0');
    std::memcpy(data.data(), &value, sizeof value);
    return {REG_DWORD, data};
}

RegistryValue StringValue(std::wstring_view text) {
    return {REG_SZ, TextWith(text, 1)};
}

RegistryValue StringListValue(const std::vector<std::wstring>& list) {
    std::string data;
    for (const std::wstring& text : list)
        data += TextWith(text, 1);
    return {REG_MULTI_SZ, data + TextWith(L"", 1)};
}

std::string TextData(std::wstring_view text) {
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

void PrintTo(const RegistryValue& value, std::ostream* out) {
    *out << "type " << value.type << ", " << value.data.size() << " bytes:" << std::hex << std::setfill('0');
    for (const char byte : value.data)
        *out << ' ' << std::setw(2) << static_cast<int>(static_cast<unsigned char>(byte));
    *out << std::dec;
    if (value.type == REG_SZ || value.type == REG_MULTI_SZ) {
        std::wstring text(value.data.size() / sizeof(wchar_t), L'\0');
        std::memcpy(text.data(), value.data.data(), text.size() * sizeof(wchar_t));
        std::ranges::replace(text, L'\0', L'|');
        *out << " \"" << Utf8(text) << '"';
    }
}

TestRegistry::TestRegistry() {
    DeleteKey(ProductKey);
}

TestRegistry::~TestRegistry() {
    DeleteKey(ProductKey);
}

void TestRegistry::SetDword(const std::wstring& key, const std::wstring& name, uint32_t value) const {
    SetRaw(key, name, REG_DWORD, DwordValue(value).data);
}

void TestRegistry::SetString(const std::wstring& key, const std::wstring& name,
                             std::wstring_view text) const {
    SetRaw(key, name, REG_SZ, StringValue(text).data);
}

void TestRegistry::SetStringList(const std::wstring& key, const std::wstring& name,
                                 const std::vector<std::wstring>& list) const {
    SetRaw(key, name, REG_MULTI_SZ, StringListValue(list).data);
}

void TestRegistry::SetRaw(const std::wstring& key, const std::wstring& name, DWORD type,
                          const std::string& data) const {
    // The system looks past the data of a text and stores a terminator that it finds there too.
    const std::string guarded = data + std::string(2 * sizeof(wchar_t), '#');
    const Key open(key, true);
    if (RegSetValueExW(open.Get(), name.c_str(), 0, type, reinterpret_cast<const BYTE*>(guarded.data()),
                       static_cast<DWORD>(data.size())) != 0)
        throw std::runtime_error("cannot store the value " + Utf8(name));
}

void TestRegistry::CreateKey(const std::wstring& key) const {
    const Key open(key, true);
}

void TestRegistry::DeleteKey(const std::wstring& key) const {
    for (const std::wstring& subkey : Subkeys(key))
        DeleteKey(key + L"\\" + subkey);
    const std::shared_ptr<void> unwatched = BeginUnwatched();
    RegDeleteKeyW(HKEY_CURRENT_USER, key.c_str());
}

std::optional<RegistryValue> TestRegistry::Get(const std::wstring& key, const std::wstring& name) const {
    const Key open(key, false);
    DWORD type = 0;
    DWORD size = 0;
    if (!open || RegQueryValueExW(open.Get(), name.c_str(), nullptr, &type, nullptr, &size) != 0)
        return std::nullopt;
    std::string data(size, '\0');
    if (RegQueryValueExW(open.Get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(data.data()),
                         &size) != 0)
        return std::nullopt;
    return RegistryValue{type, data};
}

bool TestRegistry::KeyExists(const std::wstring& key) const {
    return static_cast<bool>(Key(key, false));
}

std::vector<std::wstring> TestRegistry::Subkeys(const std::wstring& key) const {
    const Key open(key, false);
    std::vector<std::wstring> names;
    wchar_t name[256];
    for (DWORD index = 0; open; ++index) {
        DWORD length = 256;
        if (RegEnumKeyExW(open.Get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) != 0)
            break;
        names.emplace_back(name, length);
    }
    return names;
}

std::vector<std::wstring> TestRegistry::ValueNames(const std::wstring& key) const {
    const Key open(key, false);
    std::vector<std::wstring> names;
    wchar_t name[1024];
    for (DWORD index = 0; open; ++index) {
        DWORD length = 1024;
        if (RegEnumValueW(open.Get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) != 0)
            break;
        names.emplace_back(name, length);
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace TestSupport
