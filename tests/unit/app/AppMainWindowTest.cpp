// The whole of window mode, with what may happen while the main window is up.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

#include "app/AppMain.h"
#include "support/TestRegistry.h"
#include "support/ui/DismissModal.h"
#include "winlib/Application.h"
#include "winlib/Exception.h"
#include "winlib/WindowText.h"

namespace {

// What happens as soon as the message loop runs.
void (*happening)() = nullptr;

LRESULT CALLBACK HappeningProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_APP)
        happening();
    return DefWindowProcW(window, message, wParam, lParam);
}

// Answers the message box that is to come. Made when the main window is there already, which is a dialog too.
std::unique_ptr<Ui::DismissModal> user;

BOOL CALLBACK AppendDialog(HWND window, LPARAM list) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    if (std::wstring(name) == L"#32770")
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

// The top-level dialogs of this thread.
std::vector<HWND> Dialogs() {
    std::vector<HWND> dialogs;
    EnumThreadWindows(GetCurrentThreadId(), AppendDialog, reinterpret_cast<LPARAM>(&dialogs));
    return dialogs;
}

// Width and height of the icon that a window has of this kind; nothing if it has none.
std::vector<int> IconSize(HWND window, WPARAM kind) {
    ICONINFO icon = {};
    BITMAP colours = {};
    if (!GetIconInfo(reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, kind, 0)), &icon))
        return {};
    GetObjectW(icon.hbmColor, sizeof(colours), &colours);
    DeleteObject(icon.hbmColor);
    DeleteObject(icon.hbmMask);
    return {colours.bmWidth, colours.bmHeight};
}

std::vector<int> bigIcon;
std::vector<int> smallIcon;

void CloseMainWindow() {
    const std::vector<HWND> dialogs = Dialogs();
    ASSERT_EQ(dialogs.size(), 1u);
    const HWND mainWindow = dialogs[0];
    // The main window comes after the pages that it makes while it is being created.
    EXPECT_EQ(WinLib::Application::Current()->Dialogs.back(), mainWindow);
    bigIcon = IconSize(mainWindow, ICON_BIG);
    smallIcon = IconSize(mainWindow, ICON_SMALL);
    PostMessageW(mainWindow, WM_CLOSE, 0, 0);
}

void ThrowOwnException() {
    user = std::make_unique<Ui::DismissModal>(IDOK);
    throw WinLib::Exception(L"Something has failed.");
}

void ThrowOtherException() {
    user = std::make_unique<Ui::DismissModal>(IDOK);
    throw std::runtime_error("not for the user");
}

struct AppMainWindow : testing::Test {
    AppMainWindow() {
        WinLib::Application::Install(
            std::make_unique<WinLib::Application>(GetModuleHandleW(nullptr), L"", SW_SHOWNORMAL));
    }

    ~AppMainWindow() override {
        user.reset();
        DestroyWindow(window);
    }

    int RunWith(void (*what)()) const {
        happening = what;
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(HappeningProcedure));
        PostMessageW(window, WM_APP, 0, 0);
        return AppMain();
    }

    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                        GetModuleHandleW(nullptr), nullptr);
    const TestSupport::TestRegistry registry;
};

TEST_F(AppMainWindow, EndsWithZeroWhenItIsClosed) {
    registry.SetDword(L"Software\\Tamblewick", L"ConfirmExit", 0);
    EXPECT_EQ(RunWith(CloseMainWindow), 0);
    EXPECT_EQ(bigIcon, (std::vector<int>{GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)}));
    EXPECT_EQ(smallIcon, (std::vector<int>{GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)}));
    EXPECT_NE(bigIcon, smallIcon);
    EXPECT_TRUE(Dialogs().empty());
    EXPECT_TRUE(registry.Get(L"Software\\Tamblewick", L"WindowWidth").has_value());
}

TEST_F(AppMainWindow, ReportsAnExceptionOfItsOwnInItsWords) {
    EXPECT_EQ(RunWith(ThrowOwnException), -1);
    ASSERT_NE(user, nullptr);
    ASSERT_EQ(user->Seen().size(), 1u);
    EXPECT_EQ(user->Seen()[0].caption, L"Error");
    EXPECT_EQ(user->Seen()[0].text, L"Something has failed.");
    EXPECT_EQ(user->Seen()[0].owner, nullptr);
    EXPECT_TRUE(Dialogs().empty());
    EXPECT_FALSE(registry.Get(L"Software\\Tamblewick", L"WindowWidth").has_value()) << "nothing is saved";
}

TEST_F(AppMainWindow, ReportsAnyOtherExceptionInOneSentence) {
    EXPECT_EQ(RunWith(ThrowOtherException), -1);
    ASSERT_NE(user, nullptr);
    ASSERT_EQ(user->Seen().size(), 1u);
    EXPECT_EQ(user->Seen()[0].caption, L"Error");
    EXPECT_EQ(user->Seen()[0].text, L"An unidentified error has occured.");
    EXPECT_TRUE(Dialogs().empty());
}

}  // namespace
