// The ways out of the window, and what they store.

#include "app/MessageLoop.h"
#include "support/ui/DismissModal.h"
#include "support/ui/MainWindowTest.h"

namespace {

class CloseTest : public MainWindowTest {
protected:
    TestSupport::RegistryValue Dword(LONG value) const {
        return TestSupport::DwordValue(static_cast<uint32_t>(value));
    }

    void ExpectStoredRect(const RECT& rect) const {
        EXPECT_EQ(registry.Get(MainSettings::RootKey, L"WindowPosX"), Dword(rect.left));
        EXPECT_EQ(registry.Get(MainSettings::RootKey, L"WindowPosY"), Dword(rect.top));
        EXPECT_EQ(registry.Get(MainSettings::RootKey, L"WindowWidth"), Dword(rect.right - rect.left));
        EXPECT_EQ(registry.Get(MainSettings::RootKey, L"WindowHeight"), Dword(rect.bottom - rect.top));
    }
};

TEST_F(CloseTest, SavesRectangleAndEndsTheLoop) {
    Open();
    SetWindowPos(window, nullptr, 77, 66, 640, 444, SWP_NOZORDER);
    RECT rect = {};
    GetWindowRect(window, &rect);
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(RunMessageLoop(Process()), 0) << "by the quit message of the window";
    ExpectStoredRect(rect);
    EXPECT_EQ(registry.ValueNames(MainSettings::RootKey),
              (std::vector<std::wstring>{L"ConfirmExit", L"FirstRun", L"WindowHeight", L"WindowPosX",
                                         L"WindowPosY", L"WindowWidth"}));
    EXPECT_EQ(registry.Get(MainSettings::RootKey, L"FirstRun"), Dword(0));
    EXPECT_EQ(registry.Get(MainSettings::RootKey, L"ConfirmExit"), Dword(0));
}

TEST_F(CloseTest, FirstRunEndsWithTheFirstSave) {
    registry.SetDword(MainSettings::RootKey, L"FirstRun", 1);
    Open();
    EXPECT_EQ(registry.Get(MainSettings::RootKey, L"FirstRun"), Dword(1));
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(registry.Get(MainSettings::RootKey, L"FirstRun"), Dword(0));
}

TEST_F(CloseTest, ByTheButton) {
    Open();
    SendMessageW(Control(IDC_MAIN_CLOSE), BM_CLICK, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_TRUE(registry.KeyExists(MainSettings::RootKey));
}

TEST_F(CloseTest, ByTheMenu) {
    Open();
    SendMessageW(window, WM_COMMAND, IDM_EXIT, 0);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(CloseTest, ByTheSystemMenu) {
    Open();
    SendMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(CloseTest, ConfirmedNo) {
    registry.SetDword(MainSettings::RootKey, L"ConfirmExit", 1);
    registry.SetDword(MainSettings::RootKey, L"WindowPosX", 33);
    Open();
    SetWindowPos(window, nullptr, 99, 88, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    const Ui::DismissModal answer(IDNO);
    SendMessageW(window, WM_CLOSE, 0, 0);
    ASSERT_EQ(answer.Seen().size(), 1u);
    EXPECT_EQ(answer.Seen()[0].caption, L"Tamblewick");
    EXPECT_EQ(answer.Seen()[0].text, L"Are you sure you want to quit?");
    EXPECT_EQ(answer.Seen()[0].owner, window);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(registry.Get(MainSettings::RootKey, L"WindowPosX"), Dword(33)) << "nothing is saved";
}

TEST_F(CloseTest, ConfirmedYes) {
    registry.SetDword(MainSettings::RootKey, L"ConfirmExit", 1);
    Open();
    const Ui::DismissModal answer(IDYES);
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(answer.Seen().size(), 1u);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(registry.Get(MainSettings::RootKey, L"ConfirmExit"), Dword(1));
}

TEST_F(CloseTest, ConfirmedTwiceAtOnceStoresTheRectangle) {
    registry.SetDword(MainSettings::RootKey, L"ConfirmExit", 1);
    Open();
    SetWindowPos(window, nullptr, 77, 66, 640, 444, SWP_NOZORDER);
    RECT rect = {};
    GetWindowRect(window, &rect);
    int boxes = 0;
    const Ui::DismissModal answer([&](HWND box) {
        if (++boxes == 1)
            SendMessageW(window, WM_CLOSE, 0, 0);
        else
            SendMessageW(box, WM_COMMAND, IDYES, 0);
    });
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(boxes, 2);
    EXPECT_FALSE(IsWindow(window));
    ExpectStoredRect(rect);
}

TEST_F(CloseTest, WithoutConfirmationNoBoxShows) {
    registry.SetDword(MainSettings::RootKey, L"ConfirmExit", 0);
    Open();
    const Ui::DismissModal answer(IDNO);
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(answer.Seen().empty());
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(CloseTest, AMinimizedWindowStoresItsRectangleAsItIs) {
    Open();
    ShowWindow(window, SW_MINIMIZE);
    RECT rect = {};
    GetWindowRect(window, &rect);
    SendMessageW(window, WM_CLOSE, 0, 0);
    ExpectStoredRect(rect);
}

TEST_F(CloseTest, KeepsEveryPreset) {
    Store({L"A", L"B"});
    Open();
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 2}, {L"B", 1}}));
}

// As an exception on its way to AppMain does, whose message box then serves the messages of the window.
TEST_F(CloseTest, TheWindowOutlivesItsController) {
    Store({L"A"});
    Open();
    controller.reset();
    EXPECT_TRUE(Pages().empty());
    SetWindowPos(window, nullptr, 0, 0, 700, 500, SWP_NOZORDER);
    for (const UINT message : {WM_COMMAND, WM_SYSCOLORCHANGE, WM_CLOSE, WM_APP})
        SendMessageW(window, message, IDM_NEW, 0);
    SendMessageW(tree.Window(), WM_RBUTTONDOWN, 0, 0);
    SendMessageW(Control(IDC_MAIN_SPLITTER), WM_LBUTTONDOWN, MK_LBUTTON, 0);
    RunLoop();
    EXPECT_TRUE(IsWindow(window));
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 1}}));
}

TEST_F(CloseTest, EndsALabelEdit) {
    Store({L"A"});
    Open();
    SendMessageW(window, WM_COMMAND, IDM_RENAME, 0);
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 1}}));
}

}  // namespace
