#include "contextmenu/ContextMenu.h"

#include <list>
#include <optional>

#include "contextmenu/CommandText.h"
#include "contextmenu/ProgramStart.h"
#include "contextmenu/Selection.h"
#include "contextmenu/StartQueue.h"
#include "winlib/Handles.h"

namespace {

// In the text of a menu entry an ampersand underlines the next character, unless it is doubled, and a tab
// begins a second column.
std::wstring MenuText(const std::wstring& text) {
    std::wstring shown;
    for (const wchar_t c : text) {
        shown += c == L'\t' ? L' ' : c;
        if (c == L'&')
            shown += c;
    }
    return shown;
}

WinLib::UniqueHandle<HMENU> MakeSubmenu(const PresetMenu& entries, UINT firstId) {
    WinLib::UniqueHandle<HMENU> menu(CreatePopupMenu());
    UINT id = firstId;
    for (const PresetMenu::Entry& entry : entries.Entries()) {
        if (entry.OpensWindow() && id != firstId)
            AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
        AppendMenuW(menu.get(), MF_STRING, id++, MenuText(entry.text).c_str());
    }
    return menu;
}

bool Run(const PresetMenu::Entry& entry, const std::vector<std::wstring>& folders) {
    // The window opens beside lists that are being made.
    if (entry.OpensWindow())
        return ProgramStart().Run() != nullptr;
    std::list<ProgramStart> starts;
    for (const std::wstring& folder : folders)
        starts.emplace_back(entry.key, folder);
    return StartQueue::Append(std::move(starts));
}

std::wstring Widen(const char* text) {
    std::wstring wide(static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), static_cast<int>(wide.size()));
    return wide.c_str();
}

// The verb that a caller names, or nothing if the entry is named by its offset.
std::optional<std::wstring> VerbOf(const CMINVOKECOMMANDINFO& info) {
    const bool extended =
        info.cbSize >= sizeof(CMINVOKECOMMANDINFOEX) && (info.fMask & CMIC_MASK_UNICODE) != 0;
    if (extended) {
        const auto& wide = reinterpret_cast<const CMINVOKECOMMANDINFOEX&>(info);
        if (!IS_INTRESOURCE(wide.lpVerbW))
            return wide.lpVerbW;
    }
    if (IS_INTRESOURCE(info.lpVerb))
        return std::nullopt;
    return Widen(info.lpVerb);
}

}  // namespace

HRESULT ContextMenu::Initialize(LPCITEMIDLIST, IDataObject* data, HKEY) {
    return Guarded([&] {
        folders_ = SelectedFolders(data);
        menu_ = {};
        return folders_.empty() ? E_INVALIDARG : S_OK;
    });
}

HRESULT ContextMenu::QueryContextMenu(HMENU menu, UINT index, UINT firstId, UINT lastId, UINT flags) {
    return Guarded([&] {
        menu_ = {};
        if ((flags & CMF_DEFAULTONLY) != 0 || folders_.empty() || lastId < firstId)
            return MAKE_HRESULT(SEVERITY_SUCCESS, 0, 0);
        PresetMenu entries = PresetMenu::Load();
        entries.Limit(lastId - firstId + 1);
        if (entries.Entries().empty())
            return MAKE_HRESULT(SEVERITY_SUCCESS, 0, 0);
        WinLib::UniqueHandle<HMENU> submenu = MakeSubmenu(entries, firstId);
        std::wstring text = L"Tamblewick";
        MENUITEMINFOW item = {};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_STRING | MIIM_SUBMENU;
        item.hSubMenu = submenu.get();
        item.dwTypeData = text.data();
        if (!InsertMenuItemW(menu, index, TRUE, &item))
            return HRESULT_FROM_WIN32(GetLastError());
        // The menu owns it from now on.
        static_cast<void>(submenu.release());
        menu_ = std::move(entries);
        return MAKE_HRESULT(SEVERITY_SUCCESS, 0, static_cast<USHORT>(menu_.Entries().size()));
    });
}

HRESULT ContextMenu::InvokeCommand(CMINVOKECOMMANDINFO* info) {
    return Guarded([&] {
        if (info == nullptr)
            return E_POINTER;
        if (folders_.empty())
            return E_FAIL;
        std::optional<size_t> index;
        if (const std::optional<std::wstring> verb = VerbOf(*info)) {
            // A caller that knows the verb need not have asked for the menu.
            if (menu_.Entries().empty())
                menu_ = PresetMenu::Load();
            index = menu_.Find(*verb);
        } else {
            index = reinterpret_cast<UINT_PTR>(info->lpVerb);
        }
        if (!index || *index >= menu_.Entries().size())
            return E_INVALIDARG;
        return Run(menu_.Entries()[*index], folders_) ? S_OK : E_FAIL;
    });
}

HRESULT ContextMenu::GetCommandString(UINT_PTR offset, UINT type, UINT*, CHAR* text, UINT size) {
    return Guarded([&] {
        const bool known = offset < menu_.Entries().size();
        if (type == GCS_VALIDATEA || type == GCS_VALIDATEW)
            return known ? S_OK : S_FALSE;
        if (!known || text == nullptr || size == 0)
            return E_INVALIDARG;
        const PresetMenu::Entry& entry = menu_.Entries()[offset];
        const std::wstring answer = (type & ~GCS_UNICODE) == GCS_VERBA ? entry.Verb() : entry.Help();
        switch (type) {
            case GCS_VERBW:
            case GCS_HELPTEXTW:
                return CopyText(answer, reinterpret_cast<wchar_t*>(text), size);
            case GCS_VERBA:
            case GCS_HELPTEXTA:
                return CopyText(answer, text, size);
            default:
                return E_NOTIMPL;
        }
    });
}
