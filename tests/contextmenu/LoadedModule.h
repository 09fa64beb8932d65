// The handler module, loaded and freed as COM does it, but at once and as often as a test wants.
#pragma once

#include <string>
#include <vector>

#include "contextmenu/Com.h"
#include "winlib/Windows.h"

#include <shlobj.h>

// The class identifier of the handler, in registry form.
extern const wchar_t HandlerClassId[];

// The full path of the built module.
std::wstring ModulePath();

class LoadedModule {
public:
    // Throws if the module cannot be loaded.
    explicit LoadedModule(const std::wstring& path = ModulePath());
    ~LoadedModule() { FreeLibrary(handle_); }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    HMODULE Handle() const { return handle_; }

    // Makes a handler for these folders. On failure it is null, and result is that of the failed call.
    Com<IContextMenu> NewHandler(const std::vector<std::wstring>& selection) const;
    Com<IContextMenu> NewHandler(const std::vector<std::wstring>& selection, HRESULT& result) const;

    // Call DllCanUnloadNow and DllInstall.
    HRESULT CanUnload() const;
    HRESULT Install(BOOL install, const wchar_t* text) const;

private:
    const HMODULE handle_;
};

// Asks the handler for its entries in a menu of its own and returns the result.
HRESULT QueryMenu(IContextMenu& handler);

// Chooses the entry at this offset.
HRESULT Invoke(IContextMenu& handler, UINT_PTR offset);
