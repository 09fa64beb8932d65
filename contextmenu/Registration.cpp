#include "contextmenu/Registration.h"

#include <string>

#include "contextmenu/Module.h"
#include "shell/ContextMenuClass.h"

#include <shlobj.h>

namespace Registration {

namespace {

struct Value {
    std::wstring key;
    const wchar_t* name;  // null for the default value
    std::wstring text;
};

LSTATUS Write(HKEY classes, const Value& value) {
    return RegSetKeyValueW(classes, value.key.c_str(), value.name, REG_SZ, value.text.c_str(),
                           static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t)));
}

std::wstring ClassKey() {
    return std::wstring(L"CLSID\\") + ContextMenuClassId;
}

std::wstring HandlerKey(const wchar_t* kind) {
    return std::wstring(kind) + L"\\shellex\\ContextMenuHandlers\\" + ContextMenuName;
}

std::wstring FolderHandlerKey() {
    return HandlerKey(L"Directory");
}

std::wstring DriveHandlerKey() {
    return HandlerKey(L"Drive");
}

void NotifyShell() {
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST | SHCNF_FLUSHNOWAIT, nullptr, nullptr);
}

}  // namespace

HRESULT Register(HKEY classes) {
    const Value values[] = {
        {ClassKey() + L"\\InProcServer32", nullptr, Module::Path()},
        {ClassKey() + L"\\InProcServer32", L"ThreadingModel", L"Apartment"},
        {FolderHandlerKey(), nullptr, ContextMenuClassId},
        {DriveHandlerKey(), nullptr, ContextMenuClassId},
    };
    for (const Value& value : values) {
        const LSTATUS status = Write(classes, value);
        if (status != ERROR_SUCCESS) {
            Unregister(classes);
            return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
        }
    }
    NotifyShell();
    return S_OK;
}

HRESULT Unregister(HKEY classes) {
    HRESULT result = S_OK;
    for (const std::wstring& key : {FolderHandlerKey(), DriveHandlerKey(), ClassKey()}) {
        const LSTATUS status = RegDeleteTreeW(classes, key.c_str());
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND && SUCCEEDED(result))
            result = HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    }
    NotifyShell();
    return result;
}

}  // namespace Registration
