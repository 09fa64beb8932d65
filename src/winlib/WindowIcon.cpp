#include "winlib/WindowIcon.h"

namespace WinLib {

namespace {

UniqueHandle<HICON> LoadIconOfSize(HINSTANCE instance, int id, int widthMetric, int heightMetric) {
    return UniqueHandle<HICON>(
        static_cast<HICON>(LoadImageW(instance, MAKEINTRESOURCEW(id), IMAGE_ICON,
                                      GetSystemMetrics(widthMetric), GetSystemMetrics(heightMetric), 0)));
}

}  // namespace

UniqueHandle<HICON> LoadSmallIcon(HINSTANCE instance, int id) {
    return LoadIconOfSize(instance, id, SM_CXSMICON, SM_CYSMICON);
}

void WindowIcon::Set(HWND window, HINSTANCE instance, int id) {
    big_ = LoadIconOfSize(instance, id, SM_CXICON, SM_CYICON);
    small_ = LoadSmallIcon(instance, id);
    SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(big_.get()));
    SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small_.get()));
}

}  // namespace WinLib
