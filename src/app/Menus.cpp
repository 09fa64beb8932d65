#include "app/Menus.h"

#include "app/Commands.h"
#include "resources/resource.h"
#include "settings/Templates.h"

namespace {

constexpr wchar_t TemplateEntry[] = L"New from Template";

UINT StateOf(const CommandRow& command, bool presetSelected) {
    return presetSelected || !command.needsPreset ? MF_ENABLED : MF_GRAYED | MF_DISABLED;
}

void AppendContextCommand(HMENU menu, WORD menuId, bool presetSelected) {
    const CommandRow& command = *FindMenuCommand(menuId);
    AppendMenuW(menu, MF_STRING | StateOf(command, presetSelected), command.contextId, command.contextText);
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

WinLib::UniqueHandle<HMENU> MakeTreeMenu(bool presetSelected) {
    WinLib::UniqueHandle<HMENU> menu(CreatePopupMenu());
    AppendContextCommand(menu.get(), IDM_NEW, presetSelected);
    // The menu takes over its submenu.
    AppendMenuW(menu.get(), MF_STRING | MF_POPUP,
                reinterpret_cast<UINT_PTR>(MakeTemplateMenu(ContextTemplateBit).release()), TemplateEntry);
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendContextCommand(menu.get(), IDM_DUPLICATE, presetSelected);
    AppendContextCommand(menu.get(), IDM_RENAME, presetSelected);
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendContextCommand(menu.get(), IDM_REMOVE, presetSelected);
    return menu;
}

void EnablePresetCommands(HMENU menuBar, bool presetSelected) {
    for (const CommandRow& command : Commands)
        if (command.needsPreset)
            EnableMenuItem(menuBar, command.menuId, MF_BYCOMMAND | StateOf(command, presetSelected));
}
