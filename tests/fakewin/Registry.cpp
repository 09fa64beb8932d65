// The registry calls.
#include <algorithm>
#include <cstring>
#include <cwchar>
#include <map>
#include <memory>
#include <mutex>

#include "Internal.h"

namespace FakeWin {
namespace {

using Internal::Fold;
using Internal::FoldedLess;
using Internal::Watched;

struct Value {
    std::wstring name;
    DWORD type;
    std::string data;
};

struct Key {
    std::wstring name;
    Key* parent = nullptr;
    std::map<std::wstring, std::shared_ptr<Key>, FoldedLess> subkeys;
    std::vector<Value> values;
    bool deleted = false;
};

// What a handle refers to.
struct OpenKey {
    std::shared_ptr<Key> key;
    REGSAM access;
    std::wstring subject;
};

struct State {
    std::shared_ptr<Key> root = std::make_shared<Key>();
    std::shared_ptr<Key> machine = std::make_shared<Key>();
    std::map<HKEY, std::unique_ptr<OpenKey>> open;
};

std::mutex mutex;

State& Registry() {
    static State state;
    return state;
}

std::shared_ptr<Key> AddSubkey(Key& key, const std::wstring& name) {
    std::shared_ptr<Key>& subkey = key.subkeys[name];
    if (!subkey) {
        subkey = std::make_shared<Key>();
        subkey->name = name;
        subkey->parent = &key;
    }
    return subkey;
}

std::vector<std::wstring> Split(const std::wstring& path) {
    std::vector<std::wstring> names;
    size_t begin = 0;
    while (begin < path.size()) {
        const size_t end = std::min(path.find(L'\\', begin), path.size());
        if (end > begin)
            names.push_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

std::shared_ptr<Key> FindBelow(std::shared_ptr<Key> key, const std::wstring& path) {
    for (const std::wstring& name : Split(path)) {
        const auto found = key->subkeys.find(name);
        if (found == key->subkeys.end())
            return nullptr;
        key = found->second;
    }
    return key;
}

std::shared_ptr<Key> MakeBelow(std::shared_ptr<Key> key, const std::wstring& path) {
    for (const std::wstring& name : Split(path))
        key = AddSubkey(*key, name);
    return key;
}

bool IsPredefined(HKEY key) {
    return key == HKEY_CURRENT_USER || key == HKEY_CLASSES_ROOT || key == HKEY_LOCAL_MACHINE;
}

// A copy of what the handle refers to; without a key for an invalid handle.
OpenKey Resolve(HKEY key) {
    if (key == HKEY_CURRENT_USER)
        return {Registry().root, KEY_ALL_ACCESS, L"HKCU"};
    if (key == HKEY_CLASSES_ROOT)
        return {MakeBelow(Registry().root, L"Software\\Classes"), KEY_ALL_ACCESS, L"HKCR"};
    if (key == HKEY_LOCAL_MACHINE)
        return {Registry().machine, KEY_ALL_ACCESS, L"HKLM"};
    const auto found = Registry().open.find(key);
    return found == Registry().open.end() ? OpenKey{} : *found->second;
}

// The subject of a key or value below a handle.
std::wstring Subject(HKEY key, LPCWSTR name = nullptr) {
    const std::lock_guard lock(mutex);
    std::wstring subject = Resolve(key).subject;
    for (const std::wstring& part : Split(name != nullptr ? name : L""))
        subject += L"\\" + part;
    return subject;
}

// A value's name may hold backslashes, and the default value has none.
std::wstring ValueSubject(HKEY key, LPCWSTR name) {
    const std::lock_guard lock(mutex);
    return Resolve(key).subject + L"\\" + (name != nullptr ? name : L"");
}

// Runs body on the key of a handle that must have been opened with these rights.
template <typename Body>
DWORD WithKey(HKEY handle, REGSAM rights, Body body) {
    const std::lock_guard lock(mutex);
    const OpenKey open = Resolve(handle);
    if (!open.key)
        return ERROR_INVALID_HANDLE;
    if (open.key->deleted)
        return ERROR_KEY_DELETED;
    if ((open.access & rights) != rights)
        return ERROR_ACCESS_DENIED;
    return body(*open.key, open);
}

HKEY Give(std::shared_ptr<Key> key, REGSAM access, std::wstring subject) {
    auto open = std::make_unique<OpenKey>(OpenKey{std::move(key), access, std::move(subject)});
    const HKEY handle = reinterpret_cast<HKEY>(open.get());
    Registry().open[handle] = std::move(open);
    return handle;
}

std::wstring SubjectBelow(const OpenKey& open, LPCWSTR subkey) {
    std::wstring subject = open.subject;
    for (const std::wstring& part : Split(subkey != nullptr ? subkey : L""))
        subject += L"\\" + part;
    return subject;
}

std::vector<Value>::iterator FindValue(Key& key, LPCWSTR name) {
    const std::wstring folded = Fold(name != nullptr ? name : L"");
    return std::ranges::find_if(key.values, [&](const Value& value) { return Fold(value.name) == folded; });
}

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// Whether data of a text end in a terminator.
bool IsTerminated(const std::string& data) {
    wchar_t last = 1;
    if (data.size() >= sizeof last)
        std::memcpy(&last, data.data() + data.size() - sizeof last, sizeof last);
    return last == 0;
}

// Returns a value's data as the system does: without a buffer only the size, and after a text that has no
// terminator one more if there is room.
DWORD GiveData(const Value& value, LPDWORD type, LPBYTE data, LPDWORD size) {
    const DWORD length = static_cast<DWORD>(value.data.size());
    if (data != nullptr && size == nullptr)
        return ERROR_INVALID_PARAMETER;
    if (type != nullptr)
        *type = value.type;
    if (size == nullptr)
        return 0;
    const DWORD room = *size;
    *size = length;
    if (data == nullptr)
        return 0;
    if (room < length)
        return ERROR_MORE_DATA;
    std::memcpy(data, value.data.data(), length);
    if (IsText(value.type) && !IsTerminated(value.data) && room >= length + sizeof(wchar_t))
        std::memset(data + length, 0, sizeof(wchar_t));
    return 0;
}

// Gives a name into a buffer of *length characters, the terminator included.
DWORD GiveName(const std::wstring& name, LPWSTR buffer, LPDWORD length) {
    if (name.size() >= *length)
        return ERROR_MORE_DATA;
    std::wmemcpy(buffer, name.c_str(), name.size() + 1);
    *length = static_cast<DWORD>(name.size());
    return 0;
}

template <typename Number>
void Set(LPDWORD place, Number value) {
    if (place != nullptr)
        *place = static_cast<DWORD>(value);
}

LSTATUS Status(DWORD error) {
    return static_cast<LSTATUS>(error);
}

}  // namespace

int OpenKeys() {
    const std::lock_guard lock(mutex);
    return static_cast<int>(Registry().open.size());
}

namespace Internal {

std::string OpenKeysText() {
    const std::lock_guard lock(mutex);
    std::string text;
    for (const auto& [handle, open] : Registry().open)
        text += "key " + Narrow(open->subject) + "\n";
    return text;
}

void ResetRegistry() {
    const std::lock_guard lock(mutex);
    Registry() = State();
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;

LSTATUS RegOpenKeyExW(HKEY handle, LPCWSTR subkey, DWORD, REGSAM access, PHKEY result) {
    return Status(Watched(
        Call::RegOpenKeyExW, Subject(handle, subkey), access,
        [&] {
            return WithKey(
                handle, 0,
                [&](Key&, const OpenKey& open) -> DWORD {
                    if (IsPredefined(handle) && (subkey == nullptr || *subkey == 0)) {
                        *result = handle;
                        return 0;
                    }
                    std::shared_ptr<Key> key = FindBelow(open.key, subkey != nullptr ? subkey : L"");
                    if (!key)
                        return ERROR_FILE_NOT_FOUND;
                    *result = Give(std::move(key), access, SubjectBelow(open, subkey));
                    return 0;
                });
        }));
}

LSTATUS RegCreateKeyExW(HKEY handle, LPCWSTR subkey, DWORD, LPWSTR, DWORD, REGSAM access,
                        const LPSECURITY_ATTRIBUTES, PHKEY result, LPDWORD disposition) {
    return Status(Watched(
        Call::RegCreateKeyExW, Subject(handle, subkey), access,
        [&] {
            return WithKey(
                handle, 0,
                [&](Key&, const OpenKey& open) -> DWORD {
                    if (subkey == nullptr)
                        return ERROR_INVALID_PARAMETER;
                    const bool existed = FindBelow(open.key, subkey) != nullptr;
                    *result = Give(MakeBelow(open.key, subkey), access, SubjectBelow(open, subkey));
                    Set(disposition, existed ? REG_OPENED_EXISTING_KEY : REG_CREATED_NEW_KEY);
                    return 0;
                });
        }));
}

LSTATUS RegCloseKey(HKEY handle) {
    return Status(Watched(
        Call::RegCloseKey, Subject(handle), 0,
        [&]() -> DWORD {
            const std::lock_guard lock(mutex);
            return IsPredefined(handle) || Registry().open.erase(handle) != 0 ? 0 : ERROR_INVALID_HANDLE;
        }));
}

LSTATUS RegQueryValueExW(HKEY handle, LPCWSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
    return Status(Watched(
        Call::RegQueryValueExW, ValueSubject(handle, name), 0,
        [&] {
            return WithKey(
                handle, KEY_QUERY_VALUE,
                [&](Key& key, const OpenKey&) -> DWORD {
                    const auto value = FindValue(key, name);
                    return value == key.values.end() ? ERROR_FILE_NOT_FOUND
                                                     : GiveData(*value, type, data, size);
                });
        }));
}

LSTATUS RegSetValueExW(HKEY handle, LPCWSTR name, DWORD, DWORD type, const BYTE* data, DWORD size) {
    return Status(Watched(
        Call::RegSetValueExW, ValueSubject(handle, name), type,
        [&] {
            return WithKey(
                handle, KEY_SET_VALUE,
                [&](Key& key, const OpenKey&) -> DWORD {
                    auto value = FindValue(key, name);
                    if (value == key.values.end())
                        value = key.values.insert(value, {name != nullptr ? name : L"", type, {}});
                    value->type = type;
                    value->data.assign(reinterpret_cast<const char*>(data), size);
                    return 0;
                });
        }));
}

LSTATUS RegDeleteValueW(HKEY handle, LPCWSTR name) {
    return Status(Watched(
        Call::RegDeleteValueW, ValueSubject(handle, name), 0,
        [&] {
            return WithKey(
                handle, KEY_SET_VALUE,
                [&](Key& key, const OpenKey&) -> DWORD {
                    const auto value = FindValue(key, name);
                    if (value == key.values.end())
                        return ERROR_FILE_NOT_FOUND;
                    key.values.erase(value);
                    return 0;
                });
        }));
}

LSTATUS RegEnumValueW(HKEY handle, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD, LPDWORD type,
                      LPBYTE data, LPDWORD size) {
    return Status(Watched(
        Call::RegEnumValueW, Subject(handle), index,
        [&] {
            return WithKey(
                handle, KEY_QUERY_VALUE,
                [&](Key& key, const OpenKey&) -> DWORD {
                    if (index >= key.values.size())
                        return ERROR_NO_MORE_ITEMS;
                    const DWORD error = GiveName(key.values[index].name, name, nameLength);
                    return error != 0 ? error : GiveData(key.values[index], type, data, size);
                });
        }));
}

LSTATUS RegEnumKeyExW(HKEY handle, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD, LPWSTR, LPDWORD,
                      LPFILETIME) {
    return Status(Watched(
        Call::RegEnumKeyExW, Subject(handle), index,
        [&] {
            return WithKey(
                handle, KEY_ENUMERATE_SUB_KEYS,
                [&](Key& key, const OpenKey&) -> DWORD {
                    if (index >= key.subkeys.size())
                        return ERROR_NO_MORE_ITEMS;
                    return GiveName(std::next(key.subkeys.begin(), index)->second->name, name, nameLength);
                });
        }));
}

LSTATUS RegQueryInfoKeyW(HKEY handle, LPWSTR, LPDWORD, LPDWORD, LPDWORD subkeys, LPDWORD longestSubkey,
                         LPDWORD longestClass, LPDWORD values, LPDWORD longestValueName, LPDWORD longestValue,
                         LPDWORD securityDescriptor, LPFILETIME lastWrite) {
    return Status(Watched(
        Call::RegQueryInfoKeyW, Subject(handle), 0,
        [&] {
            return WithKey(
                handle, KEY_QUERY_VALUE,
                [&](Key& key, const OpenKey&) -> DWORD {
                    size_t subkeyName = 0;
                    size_t valueName = 0;
                    size_t data = 0;
                    for (const auto& [name, subkey] : key.subkeys)
                        subkeyName = std::max(subkeyName, name.size());
                    for (const Value& value : key.values) {
                        valueName = std::max(valueName, value.name.size());
                        data = std::max(data, value.data.size());
                    }
                    Set(subkeys, key.subkeys.size());
                    Set(longestSubkey, subkeyName);
                    Set(longestClass, 0);
                    Set(values, key.values.size());
                    Set(longestValueName, valueName);
                    Set(longestValue, data);
                    Set(securityDescriptor, 0);
                    if (lastWrite != nullptr)
                        *lastWrite = {};
                    return 0;
                });
        }));
}

LSTATUS RegDeleteKeyW(HKEY handle, LPCWSTR subkey) {
    return Status(Watched(
        Call::RegDeleteKeyW, Subject(handle, subkey), 0,
        [&] {
            return WithKey(
                handle, 0,
                [&](Key&, const OpenKey& open) -> DWORD {
                    if (subkey == nullptr)
                        return ERROR_INVALID_PARAMETER;
                    const std::shared_ptr<Key> key = FindBelow(open.key, subkey);
                    if (!key)
                        return ERROR_FILE_NOT_FOUND;
                    if (!key->subkeys.empty() || key->parent == nullptr)
                        return ERROR_ACCESS_DENIED;
                    key->deleted = true;
                    key->parent->subkeys.erase(key->name);
                    return 0;
                });
        }));
}
