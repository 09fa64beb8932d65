#include "app/Commands.h"

#include <algorithm>
#include <vector>

#include "resources/resource.h"

namespace {

void NewPreset(const CommandTarget& target) {
    target.command.NewPreset();
}

void Exit(const CommandTarget& target) {
    SendMessageW(target.window, WM_CLOSE, 0, 0);
}

void DuplicatePreset(const CommandTarget& target) {
    target.command.DuplicatePreset(target.item);
}

void BeginRename(const CommandTarget& target) {
    target.labels.BeginRename(target.item);
}

void RemovePreset(const CommandTarget& target) {
    target.command.RemovePreset(target.item);
}

void ShowOptions(const CommandTarget& target) {
    target.command.ShowOptions();
}

void ShowAbout(const CommandTarget& target) {
    target.command.ShowAbout();
}

template <typename Predicate>
const CommandRow* Find(Predicate predicate) {
    const auto found = std::find_if(Commands.begin(), Commands.end(), predicate);
    return found != Commands.end() ? &*found : nullptr;
}

}  // namespace

constinit const std::array<CommandRow, 7> Commands = {{
    {IDM_NEW, VK_F5, 1, L"New\tF5", false, NewPreset},
    {IDM_EXIT, 0, 0, nullptr, false, Exit},
    {IDM_DUPLICATE, VK_F6, 2, L"Duplicate\tF6", true, DuplicatePreset},
    {IDM_RENAME, VK_F2, 4, L"Rename\tF2", true, BeginRename},
    {IDM_REMOVE, VK_DELETE, 8, L"Remove\tDEL", true, RemovePreset},
    {IDM_OPTIONS, VK_F7, 0, nullptr, false, ShowOptions},
    {IDM_ABOUT, VK_F1, 0, nullptr, false, ShowAbout},
}};

const CommandRow* FindMenuCommand(WORD menuId) {
    return Find([&](const CommandRow& command) { return command.menuId == menuId; });
}

const CommandRow* FindKeyCommand(WORD key) {
    return Find([&](const CommandRow& command) { return command.key != 0 && command.key == key; });
}

const CommandRow* FindContextCommand(UINT bits) {
    return Find([&](const CommandRow& command) { return (command.contextId & bits) != 0; });
}

WinLib::UniqueHandle<HACCEL> MakeAccelerators() {
    std::vector<ACCEL> keys;
    for (const CommandRow& command : Commands)
        if (command.key != 0)
            keys.push_back({FVIRTKEY, command.key, command.key});
    return WinLib::UniqueHandle<HACCEL>(CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}
