#include "winlib/Handlers.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using namespace WinLib::Handlers;

namespace {

// Records which operation was called with which arguments, and returns what the test sets.
class Probe : public Handler<WM_DESTROY>,
              public Handler<WM_SIZE>,
              public Handler<WM_PAINT>,
              public Handler<WM_CLOSE>,
              public Handler<WM_SYSCOLORCHANGE>,
              public Handler<WM_SETCURSOR>,
              public Handler<WM_GETMINMAXINFO>,
              public Handler<WM_NOTIFY>,
              public Handler<WM_DISPLAYCHANGE>,
              public Handler<WM_GETDLGCODE>,
              public Handler<WM_KEYDOWN>,
              public Handler<WM_INITDIALOG>,
              public Handler<WM_COMMAND>,
              public Handler<WM_HSCROLL>,
              public Handler<WM_MOUSEMOVE>,
              public Handler<WM_LBUTTONDOWN>,
              public Handler<WM_LBUTTONUP>,
              public Handler<WM_LBUTTONDBLCLK>,
              public Handler<WM_RBUTTONDOWN>,
              public Handler<WM_RBUTTONUP>,
              public Handler<WM_SIZING> {
public:
    // The values that the operations with an output give, and what each operation returns.
    bool Answer = true;
    bool Flag = false;
    LRESULT Result = 0;
    std::string Seen;

    bool HandleDestroy() override { return Note("destroy"); }
    bool HandleSize(WORD type, WORD width, WORD height) override { return Note("size", type, width, height); }
    bool HandlePaint() override { return Note("paint"); }
    bool HandleClose() override { return Note("close"); }
    bool HandleSysColorChange() override { return Note("syscolorchange"); }
    bool HandleSetCursor(HWND window, WORD hitTest, WORD mouseMessage, bool& cursorSet) override {
        cursorSet = Flag;
        return Note("setcursor", Number(window), hitTest, mouseMessage);
    }
    bool HandleGetMinMaxInfo(MINMAXINFO& info) override { return Note("minmax", Number(&info)); }
    bool HandleNotify(NMHDR& header, LRESULT& result) override {
        result = Result;
        return Note("notify", Number(&header));
    }
    bool HandleDisplayChange() override { return Note("displaychange"); }
    bool HandleGetDlgCode(LRESULT& result) override {
        result = Result;
        return Note("getdlgcode");
    }
    bool HandleKeyDown(WPARAM virtualKey) override { return Note("keydown", virtualKey); }
    bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) override {
        Note(focusSet ? "init, focus set" : "init", Number(focus), parameter);
        focusSet = Flag;
        return Answer;
    }
    bool OnMenuCommand(WORD id) override { return Note("menu", id); }
    bool OnAccelerator(WORD id) override { return Note("accelerator", id); }
    bool OnControlCommand(WORD id, HWND control, WORD code) override {
        return Note("control", id, Number(control), code);
    }
    bool HandleHScroll(WORD code, WORD position, HWND control) override {
        return Note("hscroll", code, position, Number(control));
    }
    bool HandleMouseMove(int x, int y, WPARAM keys) override { return Note("mousemove", x, y, keys); }
    bool HandleLButtonDown(int x, int y, WPARAM keys) override { return Note("left down", x, y, keys); }
    bool HandleLButtonUp(int x, int y, WPARAM keys) override { return Note("left up", x, y, keys); }
    bool HandleLButtonDoubleClick(int x, int y, WPARAM keys) override {
        return Note("left double", x, y, keys);
    }
    bool HandleRButtonDown(int x, int y, WPARAM keys) override { return Note("right down", x, y, keys); }
    bool HandleRButtonUp(int x, int y, WPARAM keys) override { return Note("right up", x, y, keys); }
    bool HandleSizing(WPARAM edge, RECT& rect) override { return Note("sizing", edge, Number(&rect)); }

    // What a controller's switch does with a message.
    template <int N>
    static bool Unpack(Probe& probe, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        return probe.Handler<N>::Dispatch(wParam, lParam, result);
    }

private:
    static uintptr_t Number(const void* pointer) { return reinterpret_cast<uintptr_t>(pointer); }

    template <typename... Values>
    bool Note(const char* operation, Values... values) {
        std::ostringstream text;
        text << operation;
        ((text << " " << values), ...);
        Seen += text.str();
        return Answer;
    }
};

using Unpacker = bool (*)(Probe&, WPARAM, LPARAM, LRESULT&);

struct Row {
    int message;
    Unpacker unpack;
    WPARAM wParam;
    LPARAM lParam;
    const char* expected;
};

// A row for the message with the number N.
template <int N>
constexpr Row Of(WPARAM wParam, LPARAM lParam, const char* expected) {
    return {N, Probe::Unpack<N>, wParam, lParam, expected};
}

// The low word of packed parameters comes first.
constexpr LPARAM Pack(int low, int high) {
    return static_cast<LPARAM>(static_cast<uint32_t>(low & 0xFFFF) | static_cast<uint32_t>(high) << 16);
}

constexpr WPARAM Words(int low, int high) {
    return static_cast<WPARAM>(Pack(low, high));
}

const Row Rows[] = {
    Of<2>(1, 1, "destroy"),
    Of<5>(2, Pack(640, 480), "size 2 640 480"),
    Of<5>(0, Pack(65535, 40000), "size 0 65535 40000"),
    Of<15>(0, 0, "paint"),
    Of<16>(0, 0, "close"),
    Of<21>(0, 0, "syscolorchange"),
    Of<32>(77, Pack(1, 512), "setcursor 77 1 512"),
    Of<36>(0, 800, "minmax 800"),
    Of<78>(5, 808, "notify 808"),
    Of<126>(32, 0, "displaychange"),
    Of<135>(0, 0, "getdlgcode"),
    Of<256>(32, 1, "keydown 32"),
    Of<272>(80, 81, "init 80 81"),
    Of<273>(Words(40006, 0), 0, "menu 40006"),
    Of<273>(Words(40006, 1), 0, "accelerator 40006"),
    Of<273>(Words(40006, 2), 0, "control 40006 0 2"),
    Of<273>(Words(1002, 0), 82, "control 1002 82 0"),
    Of<273>(Words(1002, 1), 82, "control 1002 82 1"),
    Of<273>(Words(65535, 0x300), 82, "control 65535 82 768"),
    Of<276>(Words(5, 7), 83, "hscroll 5 7 83"),
    Of<512>(1, Pack(10, 20), "mousemove 10 20 1"),
    Of<512>(0, Pack(-1, -32768), "mousemove -1 -32768 0"),
    Of<513>(8, Pack(-3, 4), "left down -3 4 8"),
    Of<514>(0, Pack(3, -4), "left up 3 -4 0"),
    Of<515>(4, Pack(5, 6), "left double 5 6 4"),
    Of<516>(2, Pack(-5, -6), "right down -5 -6 2"),
    Of<517>(0, Pack(32767, 7), "right up 32767 7 0"),
    Of<532>(8, 816, "sizing 8 816"),
};

TEST(Handlers, HandTheParametersOfEachMessageToItsOperation) {
    for (const Row& row : Rows) {
        Probe probe;
        LRESULT result = 0;
        row.unpack(probe, row.wParam, row.lParam, result);
        EXPECT_EQ(probe.Seen, row.expected) << "message " << row.message;
    }
}

TEST(Handlers, ReturnWhatTheOperationReturns) {
    for (const Row& row : Rows) {
        if (row.message == WM_INITDIALOG)
            continue;
        Probe probe;
        LRESULT result = 0;
        EXPECT_TRUE(row.unpack(probe, row.wParam, row.lParam, result)) << row.expected;
        probe.Answer = false;
        EXPECT_FALSE(row.unpack(probe, row.wParam, row.lParam, result)) << row.expected;
    }
}

TEST(Handlers, GiveZeroUnlessTheMessageHasAResultOfItsOwn) {
    for (const Row& row : Rows) {
        Probe probe;
        probe.Flag = true;
        probe.Result = 4711;
        LRESULT result = 0;
        row.unpack(probe, row.wParam, row.lParam, result);
        switch (row.message) {
            case WM_SETCURSOR:
            case WM_SIZING:
                EXPECT_EQ(result, TRUE) << row.expected;
                break;
            case WM_NOTIFY:
            case WM_GETDLGCODE:
                EXPECT_EQ(result, 4711) << row.expected;
                break;
            default:
                EXPECT_EQ(result, 0) << row.expected;
        }
    }
}

TEST(Handlers, SetCursorGivesTheFlagAsResult) {
    Probe probe;
    LRESULT result = 99;
    EXPECT_TRUE(Probe::Unpack<WM_SETCURSOR>(probe, 77, 0, result));
    EXPECT_EQ(result, FALSE);
}

// Whatever the operation returns: only the flag counts, which is clear when the operation begins.
TEST(Handlers, InitDialogIsHandledUnlessTheFocusWasSet) {
    for (const bool answer : {false, true}) {
        Probe probe;
        probe.Answer = answer;
        LRESULT result = 0;
        EXPECT_TRUE(Probe::Unpack<WM_INITDIALOG>(probe, 0, 0, result));
        probe.Flag = true;
        EXPECT_FALSE(Probe::Unpack<WM_INITDIALOG>(probe, 0, 0, result));
        EXPECT_EQ(probe.Seen, "init 0 0init 0 0");
    }
}

// A handler of notifications is named by the code of the notification.
class NotificationProbe : public Handler<-8>,
                          public Handler<-101>,
                          public Handler<-175>,
                          public Handler<-176>,
                          public Handler<-451> {
public:
    bool HandleKillFocus(NMHDR&, LRESULT& result) override { return Give(NM_KILLFOCUS, result); }
    bool HandleItemChanged(NMHDR&, LRESULT& result) override { return Give(LVN_ITEMCHANGED, result); }
    bool HandleBeginLabelEdit(NMHDR&, LRESULT& result) override { return Give(LVN_BEGINLABELEDITW, result); }
    bool HandleEndLabelEdit(NMHDR&, LRESULT& result) override { return Give(LVN_ENDLABELEDITW, result); }
    bool HandleSelectionChanged(NMHDR&, LRESULT& result) override { return Give(TVN_SELCHANGEDW, result); }

private:
    static bool Give(UINT code, LRESULT& result) {
        result = static_cast<int>(code);
        return true;
    }
};

TEST(Handlers, NotificationsAreNamedByTheirCodes) {
    NotificationProbe probe;
    NMHDR header = {};
    LRESULT result = 0;
    EXPECT_TRUE(static_cast<Handler<-8>&>(probe).HandleKillFocus(header, result));
    EXPECT_EQ(result, -8);
    EXPECT_TRUE(static_cast<Handler<-101>&>(probe).HandleItemChanged(header, result));
    EXPECT_EQ(result, -101);
    EXPECT_TRUE(static_cast<Handler<-175>&>(probe).HandleBeginLabelEdit(header, result));
    EXPECT_EQ(result, -175);
    EXPECT_TRUE(static_cast<Handler<-176>&>(probe).HandleEndLabelEdit(header, result));
    EXPECT_EQ(result, -176);
    EXPECT_TRUE(static_cast<Handler<-451>&>(probe).HandleSelectionChanged(header, result));
    EXPECT_EQ(result, -451);
}

}  // namespace
