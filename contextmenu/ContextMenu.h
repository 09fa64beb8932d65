// The handler itself: for the folders that a menu is opened on it adds a submenu with the presets, and starts
// the program with what was chosen. One object serves one menu, on the shell's thread.
#pragma once

#include <string>
#include <vector>

#include "contextmenu/ComObject.h"
#include "contextmenu/PresetMenu.h"

#include <shellapi.h>
#include <shlobj.h>

class ContextMenu : public ComObject<IShellExtInit, IContextMenu> {
public:
    // Takes the selected folders. Fails if there is none among what was selected.
    HRESULT STDMETHODCALLTYPE Initialize(LPCITEMIDLIST folder, IDataObject* data, HKEY progId) override;

    // Adds the submenu at index, with ids from firstId to at most lastId. The result's code is the number of
    // ids used, which is 0 when only the default entry is wanted.
    HRESULT STDMETHODCALLTYPE QueryContextMenu(HMENU menu, UINT index, UINT firstId, UINT lastId,
                                               UINT flags) override;

    // Carries out an entry, chosen by its offset from firstId or by its verb. Does not wait for the program.
    HRESULT STDMETHODCALLTYPE InvokeCommand(CMINVOKECOMMANDINFO* info) override;

    HRESULT STDMETHODCALLTYPE GetCommandString(UINT_PTR offset, UINT type, UINT* reserved, CHAR* text,
                                               UINT size) override;

private:
    ~ContextMenu() override = default;

    std::vector<std::wstring> folders_;
    PresetMenu menu_;
};
