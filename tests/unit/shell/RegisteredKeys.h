// The three keys by which a context-menu handler is registered, for a handler that only tests know. They
// are in HKEY_CLASSES_ROOT itself, since not every system shows there what the current user's classes hold.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/TestRegistry.h"
#include "winlib/Windows.h"

class RegisteredKeys {
public:
    static constexpr const wchar_t* Name = L"TamblewickTest";
    static constexpr const wchar_t* ClassId = L"{0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9}";

    RegisteredKeys() { Clear(); }
    ~RegisteredKeys() { Clear(); }
    RegisteredKeys(const RegisteredKeys&) = delete;
    RegisteredKeys& operator=(const RegisteredKeys&) = delete;

    const std::wstring Directory = std::wstring(L"Directory\\shellex\\ContextMenuHandlers\\") + Name;
    const std::wstring Drive = std::wstring(L"Drive\\shellex\\ContextMenuHandlers\\") + Name;
    const std::wstring Class = std::wstring(L"CLSID\\") + ClassId;
    const std::wstring Server = Class + L"\\InProcServer32";

    // Registers a handler whose module has this path.
    void Register(const std::wstring& modulePath) const {
        Set(Directory, ClassId);
        Set(Drive, ClassId);
        Set(Server, modulePath);
    }

    // Sets a key's default value.
    void Set(const std::wstring& key, const std::wstring& text, DWORD type = REG_SZ) const {
        const std::string data = TestSupport::TextData(text + L'\0');
        HKEY handle = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle,
                                  nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(RegSetValueExW(handle, L"", 0, type, reinterpret_cast<const BYTE*>(data.data()),
                                 static_cast<DWORD>(data.size())),
                  ERROR_SUCCESS);
        RegCloseKey(handle);
    }

    // The key must have no subkeys.
    void Delete(const std::wstring& key) const { RegDeleteKeyW(HKEY_CLASSES_ROOT, key.c_str()); }

private:
    void Clear() const {
        for (const std::wstring& key : {Directory, Drive, Server, Class})
            Delete(key);
    }
};
