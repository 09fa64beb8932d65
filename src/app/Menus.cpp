#include "app/Menus.h"

#include "resources/resource.h"
#include "settings/Templates.h"

namespace {

constexpr wchar_t TemplateEntry[] = L"New from Template";

UINT EnabledIf(bool enabled) {
    return enabled ? MF_ENABLED : MF_GRAYED | MF_DISABLED;
}

}  // namespace

WinLib::UniqueHandle<HMENU> MakeTemplateMenu(UINT firstId) {
    WinLib::UniqueHandle<HMENU> menu(CreatePopupMenu());
    UINT id = firstId;
    for (const wchar_t* name : TemplateNames)
        AppendMenuW(menu.get(), MF_STRING, id++, name);
    return menu;
}

WinLib::UniqueHandle<HMENU> MakeMenuBar(HINSTANCE instance, HMENU templateMenu) {
    WinLib::UniqueHandle<HMENU> menu(LoadMenuW(instance, MAKEINTRESOURCEW(IDR_MENU)));
    std::wstring text = TemplateEntry;
    MENUITEMINFOW entry = {};
    entry.cbSize = sizeof(entry);
    entry.fMask = MIIM_STRING | MIIM_SUBMENU | MIIM_FTYPE;
    entry.fType = MFT_STRING;
    entry.hSubMenu = templateMenu;
    entry.dwTypeData = text.data();
    InsertMenuItemW(GetSubMenu(menu.get(), 0), 1, TRUE, &entry);
    return menu;
}

WinLib::UniqueHandle<HMENU> MakeContextMenu(bool presetSelected) {
    const UINT itemState = EnabledIf(presetSelected);
    WinLib::UniqueHandle<HMENU> menu(CreatePopupMenu());
    AppendMenuW(menu.get(), MF_STRING, ContextCommand::New, L"New\tF5");
    // The menu takes over its submenu.
    AppendMenuW(menu.get(), MF_STRING | MF_POPUP,
                reinterpret_cast<UINT_PTR>(MakeTemplateMenu(ContextCommand::Template).release()),
                TemplateEntry);
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.get(), MF_STRING | itemState, ContextCommand::Duplicate, L"Duplicate\tF6");
    AppendMenuW(menu.get(), MF_STRING | itemState, ContextCommand::Rename, L"Rename\tF2");
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.get(), MF_STRING | itemState, ContextCommand::Remove, L"Remove\tDEL");
    return menu;
}
