// The static that looks like a link.

#include "winlib/controls/HyperLinkCtrl.h"

#include <gtest/gtest.h>

#include <string>

#include "support/ui/HostWindow.h"
#include "support/ui/Input.h"
#include "support/ui/ReplacedImport.h"

namespace {

class HyperLinkCtrlTest : public testing::Test {
protected:
    HyperLinkCtrlTest() {
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
        WinLib::Attach(link, window);
    }

    ~HyperLinkCtrlTest() override { ReleaseCapture(); }

    void MoveTo(int x, int y) const { SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(x, y)); }

    // Opens the menu of the link; the keys are what its loop then finds.
    void RightClick(std::initializer_list<WORD> keys) const {
        for (const WORD key : keys)
            PostMessageW(window, WM_KEYDOWN, key, 0);
        SendMessageW(window, WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    }

    std::wstring Clipboard() const {
        std::wstring text;
        EXPECT_TRUE(OpenClipboard(host.Handle));
        if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
            text = static_cast<const wchar_t*>(GlobalLock(data));
            GlobalUnlock(data);
        }
        CloseClipboard();
        return text;
    }

    void FillClipboard(const std::wstring& text, UINT format = CF_UNICODETEXT) const {
        const size_t size = (text.size() + 1) * sizeof(wchar_t);
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
        memcpy(GlobalLock(memory), text.c_str(), size);
        GlobalUnlock(memory);
        ASSERT_TRUE(OpenClipboard(host.Handle));
        EmptyClipboard();
        SetClipboardData(format, memory);
        CloseClipboard();
    }

    HostWindow host;
    HFONT font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    HWND window = host.Add(L"Static", L"someone@\x00E4.example", SS_CENTER, {20, 20, 220, 40});
    WinLib::HyperLinkCtrl link;
};

TEST_F(HyperLinkCtrlTest, AttachingLetsTheStaticHearTheMouse) {
    EXPECT_NE(GetWindowLongPtrW(window, GWL_STYLE) & SS_NOTIFY, 0);
}

TEST_F(HyperLinkCtrlTest, UnderlinedFontIsTheWindowsOwnOtherwise) {
    EXPECT_EQ(link.NormalFont, font);
    LOGFONTW normal = {};
    LOGFONTW underlined = {};
    GetObjectW(font, sizeof(normal), &normal);
    GetObjectW(link.UnderlinedFont.get(), sizeof(underlined), &underlined);
    EXPECT_EQ(underlined.lfUnderline, 1);
    EXPECT_EQ(underlined.lfHeight, normal.lfHeight);
    EXPECT_EQ(underlined.lfWeight, normal.lfWeight);
    EXPECT_EQ(std::wstring(underlined.lfFaceName), normal.lfFaceName);
}

TEST_F(HyperLinkCtrlTest, HoversWhileTheMouseIsOverIt) {
    MoveTo(10, 10);
    EXPECT_TRUE(link.Hovering);
    EXPECT_EQ(GetCapture(), window);
    MoveTo(199, 19);
    EXPECT_TRUE(link.Hovering);
    EXPECT_EQ(GetCapture(), window);
}

TEST_F(HyperLinkCtrlTest, LeavingOnAnySideEndsTheHovering) {
    for (const POINT outside : {POINT{-1, 10}, POINT{200, 10}, POINT{10, -1}, POINT{10, 20}}) {
        SCOPED_TRACE(testing::Message() << outside.x << ", " << outside.y);
        MoveTo(10, 10);
        ASSERT_TRUE(link.Hovering);
        MoveTo(outside.x, outside.y);
        EXPECT_FALSE(link.Hovering);
        EXPECT_EQ(GetCapture(), nullptr);
    }
}

TEST_F(HyperLinkCtrlTest, HoveringIsDrawnAnew) {
    ValidateRect(window, nullptr);
    MoveTo(10, 10);
    EXPECT_TRUE(GetUpdateRect(window, nullptr, FALSE));
    SendMessageW(window, WM_PAINT, 0, 0);
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE)) << "painting validates the window";
    MoveTo(-1, 10);
    EXPECT_TRUE(GetUpdateRect(window, nullptr, FALSE));
}

TEST_F(HyperLinkCtrlTest, PaintIsHandledWithZero) {
    LRESULT result = 0;
    EXPECT_TRUE(link.OnMessage(WM_PAINT, 0, 0, result));
    EXPECT_EQ(result, 0);
}

TEST_F(HyperLinkCtrlTest, ShowsTheHand) {
    EXPECT_EQ(link.HandCursor, LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND)));
    EXPECT_EQ(SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                           MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)),
              TRUE);
    EXPECT_EQ(GetCursor(), link.HandCursor);
}

UINT menuFlags = 0;
HWND menuOwner = nullptr;

BOOL WINAPI RecordMenu(HMENU, UINT flags, int, int, int, HWND owner, const RECT*) {
    menuFlags = flags;
    menuOwner = owner;
    return FALSE;
}

TEST_F(HyperLinkCtrlTest, MenuAnswersItsCallerAlone) {
    const Ui::ReplacedImport recorded("TrackPopupMenu", RecordMenu);
    SendMessageW(link.Handle, WM_RBUTTONUP, 0, MAKELPARAM(2, 2));
    EXPECT_EQ(menuFlags, static_cast<UINT>(TPM_RETURNCMD | TPM_NONOTIFY));
    EXPECT_EQ(menuOwner, link.Handle);
}

TEST_F(HyperLinkCtrlTest, CopyPutsTheTextIntoTheClipboard) {
    FillClipboard(L"before");
    RightClick({VK_DOWN, VK_RETURN});
    EXPECT_EQ(Clipboard(), L"someone@\x00E4.example");
    EXPECT_FALSE(link.Hovering);
}

TEST_F(HyperLinkCtrlTest, CopyReplacesWhatOtherProgramsWouldPasteInstead) {
    const UINT ownFormat = RegisterClipboardFormatW(L"Tamblewick test");
    FillClipboard(L"before", ownFormat);
    RightClick({VK_DOWN, VK_RETURN});
    EXPECT_FALSE(IsClipboardFormatAvailable(ownFormat));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
}

TEST_F(HyperLinkCtrlTest, CancelledMenuCopiesNothingAndEndsTheHovering) {
    FillClipboard(L"before");
    MoveTo(10, 10);
    RightClick({VK_DOWN, VK_ESCAPE});
    EXPECT_EQ(Clipboard(), L"before");
    EXPECT_FALSE(link.Hovering);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(HyperLinkCtrlTest, LeftClickIsLeftToTheStatic) {
    LRESULT result = 0;
    EXPECT_FALSE(link.OnMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5), result));
}

}  // namespace
