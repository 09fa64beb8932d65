// Icons that are loaded from resources, and the windows that have them.
#include "Internal.h"
#include "WindowWorld.h"

namespace FakeWin {

using namespace Internal;

std::optional<Icon> IconOf(HWND handle, WPARAM kind) {
    std::optional<Icon> icon;
    WithWindow(handle, [&](const Window& window) {
        const auto given = window.icons.find(kind);
        if (given == window.icons.end())
            return;
        const auto loaded = Windows().icons.find(given->second);
        if (loaded != Windows().icons.end())
            icon = loaded->second;
    });
    return icon;
}

namespace Internal {

std::string OpenIconsText() {
    const std::lock_guard lock(WindowsMutex());
    std::string text;
    for (const auto& [handle, icon] : Windows().icons)
        text += "icon " + std::to_string(icon.id) + '\n';
    return text;
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;
using namespace FakeWin::Internal;

HANDLE LoadImageW(HINSTANCE, LPCWSTR name, UINT, int width, int height, UINT) {
    const int id = static_cast<int>(reinterpret_cast<ULONG_PTR>(name));
    if (const DWORD fault = Watched(Call::LoadImageW, std::to_wstring(id)))
        return SetLastError(fault), nullptr;
    const std::lock_guard lock(WindowsMutex());
    const HICON icon = reinterpret_cast<HICON>(NextHandle());
    Windows().icons[icon] = {id, width, height};
    return icon;
}

BOOL DestroyIcon(HICON icon) {
    const std::lock_guard lock(WindowsMutex());
    return Windows().icons.erase(icon) != 0;
}

int GetSystemMetrics(int index) {
    return index == SM_CXSMICON || index == SM_CYSMICON ? 16 : 32;
}
