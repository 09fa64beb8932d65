#include "support/ui/Picture.h"

#include <algorithm>
#include <cstdlib>

#include "winlib/Handles.h"

namespace Ui {

namespace {

// A bitmap in memory to draw on.
class Canvas {
public:
    Canvas(int width, int height) : width_(width), height_(height) {
        BITMAPINFO format = {};
        format.bmiHeader.biSize = sizeof(format.bmiHeader);
        format.bmiHeader.biWidth = width;
        format.bmiHeader.biHeight = -height;  // from the top
        format.bmiHeader.biPlanes = 1;
        format.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
        bits_ = static_cast<const uint32_t*>(bits);
        before_ = SelectObject(Dc, bitmap_);
    }
    Canvas(int width, int height, COLORREF ground) : Canvas(width, height) {
        const HBRUSH brush = CreateSolidBrush(ground);
        const RECT all = {0, 0, width, height};
        FillRect(Dc, &all, brush);
        DeleteObject(brush);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        SelectObject(Dc, before_);
        DeleteObject(bitmap_);
        DeleteDC(Dc);
    }

    Picture Read() const {
        GdiFlush();
        Picture picture = {width_, height_, {}};
        for (int i = 0; i < width_ * height_; ++i) {
            const uint32_t pixel = bits_[i];
            picture.pixels.push_back(RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF));
        }
        return picture;
    }

    const HDC Dc = CreateCompatibleDC(nullptr);

private:
    const int width_;
    const int height_;
    HBITMAP bitmap_ = nullptr;
    const uint32_t* bits_ = nullptr;  // 0x00RRGGBB
    HGDIOBJ before_ = nullptr;
};

}  // namespace

long long Picture::Count(COLORREF colour) const {
    return std::ranges::count(pixels, colour);
}

bool Picture::Resembles(const Picture& other) const {
    constexpr int Rounding = 4;
    const auto alike = [](COLORREF a, COLORREF b) {
        return std::abs(GetRValue(a) - GetRValue(b)) <= Rounding &&
               std::abs(GetGValue(a) - GetGValue(b)) <= Rounding &&
               std::abs(GetBValue(a) - GetBValue(b)) <= Rounding;
    };
    return width == other.width && height == other.height && std::ranges::equal(pixels, other.pixels, alike);
}

Picture OfIcon(HICON icon, int size, COLORREF ground) {
    const Canvas canvas(size, size, ground);
    DrawIconEx(canvas.Dc, 0, 0, icon, size, size, 0, nullptr, DI_NORMAL);
    return canvas.Read();
}

Picture OfImage(HIMAGELIST images, int index, COLORREF ground) {
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(images, &width, &height);
    const Canvas canvas(width, height, ground);
    ImageList_Draw(images, index, canvas.Dc, 0, 0, ILD_NORMAL);
    return canvas.Read();
}

Picture OfSmallIcon(WORD id, COLORREF ground) {
    const int size = GetSystemMetrics(SM_CXSMICON);
    const WinLib::UniqueHandle<HICON> icon(static_cast<HICON>(LoadImageW(
        GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
    return OfIcon(icon.get(), size, ground);
}

Picture OfClient(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    const Canvas canvas(client.right, client.bottom);
    const HDC dc = GetDC(window);
    BitBlt(canvas.Dc, 0, 0, client.right, client.bottom, dc, 0, 0, SRCCOPY);
    ReleaseDC(window, dc);
    return canvas.Read();
}

}  // namespace Ui
