// The Options dialog, opened modally and operated from within its own loop.

#include "pages/OptionsController.h"

#include <gtest/gtest.h>

#include <functional>

#include "resources/resource.h"
#include "support/TestRegistry.h"
#include "support/ui/DismissModal.h"
#include "support/ui/HostWindow.h"
#include "support/ui/Input.h"
#include "support/ui/ReplacedImport.h"
#include "winlib/ParentCoordinates.h"

using TestSupport::DwordValue;
using TestSupport::TestRegistry;

namespace {

// The three keys by which the context menu is registered, in the view of all users, and the handler's module,
// which is missing unless a test puts it in its place.
class Registration {
public:
    explicit Registration(const ShellExtension& shell) : modulePath_(shell.ModulePath) { Remove(); }
    ~Registration() {
        Remove();
        DeleteFileW(modulePath_.c_str());
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

    void Write() const {
        Set(FolderKey, ClassId);
        Set(DriveKey, ClassId);
        Set(ClassKey + L"\\InProcServer32", modulePath_);
    }

    void InstallModule() const {
        const std::wstring folder = modulePath_.substr(0, modulePath_.rfind(L'\\') + 1);
        ASSERT_TRUE(CopyFileW((folder + L"handler_module.dll").c_str(), modulePath_.c_str(), FALSE));
    }

    void Remove() const {
        for (const std::wstring& key : {FolderKey, DriveKey, ClassKey + L"\\InProcServer32", ClassKey})
            RegDeleteKeyW(HKEY_CLASSES_ROOT, key.c_str());
    }

private:
    static void Set(const std::wstring& key, const std::wstring& value) {
        HKEY opened = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &opened,
                                  nullptr),
                  ERROR_SUCCESS);
        RegSetValueExW(opened, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
        RegCloseKey(opened);
    }

    const std::wstring FolderKey = L"Directory\\shellex\\ContextMenuHandlers\\Tamblewick";
    const std::wstring DriveKey = L"Drive\\shellex\\ContextMenuHandlers\\Tamblewick";
    const std::wstring ClassId = L"{5E2C81D4-3B7F-4A16-9C0E-7F41D2A96B3C}";
    const std::wstring ClassKey = L"CLSID\\" + ClassId;
    const std::wstring modulePath_;
};

class OptionsTest : public testing::Test {
protected:
    // Opens the dialog, has the action done in its loop, and returns its result. The action must close it.
    INT_PTR Run(const std::function<void(HWND dialog)>& action) {
        OptionsController controller(&settings);
        const Ui::DismissModal dismiss(action);
        return WinLib::RunModal(controller, IDD_OPTIONS, host.Handle, host.Application.Instance);
    }

    static bool IsChecked(HWND dialog, int id) {
        return SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0) == BST_CHECKED;
    }

    static void Click(HWND dialog, int id) { Ui::Click(GetDlgItem(dialog, id)); }
    static void Close(HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); }

    // Clicks the context-menu box and returns the texts of the message boxes.
    static std::vector<Ui::SeenDialog> SwitchContextMenu(HWND dialog) {
        const Ui::DismissModal messages(IDOK);
        Click(dialog, IDC_OPTIONS_CONTEXT_MENU);
        return messages.Seen();
    }

    TestRegistry registry;
    HostWindow host;
    MainSettings settings;
    Registration registration{settings.Shell};
};

TEST_F(OptionsTest, BoxesShowSettingAndRegistration) {
    for (const bool on : {false, true}) {
        settings.Get(MainSettings::ConfirmExit) = on;
        if (on)
            registration.Write();
        Run([on](HWND dialog) {
            EXPECT_EQ(IsChecked(dialog, IDC_OPTIONS_CONFIRM_EXIT), on);
            EXPECT_EQ(IsChecked(dialog, IDC_OPTIONS_CONTEXT_MENU), on);
            Close(dialog);
        });
    }
}

TEST_F(OptionsTest, ConfirmExitIsStoredAtEachClickAndKeptByEsc) {
    EXPECT_EQ(Run([this](HWND dialog) {
                  Click(dialog, IDC_OPTIONS_CONFIRM_EXIT);
                  EXPECT_EQ(registry.Get(MainSettings::RootKey, L"ConfirmExit"), DwordValue(1));
                  Click(dialog, IDC_OPTIONS_CONFIRM_EXIT);
                  EXPECT_EQ(registry.Get(MainSettings::RootKey, L"ConfirmExit"), DwordValue(0));
                  Click(dialog, IDC_OPTIONS_CONFIRM_EXIT);
                  PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
              }),
              0);
    EXPECT_EQ(registry.Get(MainSettings::RootKey, L"ConfirmExit"), DwordValue(1));
    EXPECT_TRUE(settings.Get(MainSettings::ConfirmExit));
    EXPECT_TRUE(registry.Get(MainSettings::RootKey, L"WindowWidth").has_value()) << "all values are saved";
}

TEST_F(OptionsTest, EveryWayOfClosingHasItsResult) {
    EXPECT_EQ(Run([](HWND dialog) { Click(dialog, IDC_OPTIONS_CLOSE); }), 1);
    EXPECT_EQ(Run([](HWND dialog) { Close(dialog); }), 1);
    EXPECT_EQ(Run([](HWND) { PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1); }), 0);
    EXPECT_EQ(Run([](HWND dialog) {
                  SetFocus(GetDlgItem(dialog, IDC_OPTIONS_CONFIRM_EXIT));
                  PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1);
              }),
              1);
}

TEST_F(OptionsTest, BoxRegistersAndRemovesTheModule) {
    registration.InstallModule();
    Run([this](HWND dialog) {
        EXPECT_TRUE(SwitchContextMenu(dialog).empty());
        EXPECT_TRUE(IsChecked(dialog, IDC_OPTIONS_CONTEXT_MENU));
        EXPECT_TRUE(settings.Shell.IsRegistered());
        EXPECT_TRUE(SwitchContextMenu(dialog).empty());
        EXPECT_FALSE(IsChecked(dialog, IDC_OPTIONS_CONTEXT_MENU));
        EXPECT_FALSE(settings.Shell.IsRegistered());
        Close(dialog);
    });
}

TEST_F(OptionsTest, FailedRegistrationIsReportedAndTheBoxGoesBack) {
    Run([](HWND dialog) {
        const auto messages = SwitchContextMenu(dialog);
        ASSERT_EQ(messages.size(), 1U);
        EXPECT_EQ(messages[0].caption, L"Tamblewick");
        EXPECT_EQ(messages[0].text,
                  L"Tamblewick was unable to register the context menu.\nPlease run the application with "
                  L"administrator privileges and try again.");
        EXPECT_EQ(messages[0].owner, dialog);
        EXPECT_FALSE(IsChecked(dialog, IDC_OPTIONS_CONTEXT_MENU));
        Close(dialog);
    });
    EXPECT_FALSE(settings.Shell.IsRegistered());
}

TEST_F(OptionsTest, FailedRemovalIsReportedAndTheBoxGoesBack) {
    registration.Write();
    Run([](HWND dialog) {
        const auto messages = SwitchContextMenu(dialog);
        ASSERT_EQ(messages.size(), 1U);
        EXPECT_EQ(messages[0].caption, L"Tamblewick");
        EXPECT_EQ(messages[0].text,
                  L"Tamblewick was unable to unregister the context menu.\nPlease run the application with "
                  L"administrator privileges and try again.");
        EXPECT_TRUE(IsChecked(dialog, IDC_OPTIONS_CONTEXT_MENU));
        Close(dialog);
    });
    EXPECT_TRUE(settings.Shell.IsRegistered());
}

UINT boxFlags = 0;
bool isCheckedDuringBox = false;

int WINAPI RecordBox(HWND owner, const wchar_t*, const wchar_t*, UINT flags) {
    boxFlags = flags;
    isCheckedDuringBox =
        SendDlgItemMessageW(owner, IDC_OPTIONS_CONTEXT_MENU, BM_GETCHECK, 0, 0) == BST_CHECKED;
    return IDOK;
}

TEST_F(OptionsTest, FailureIsAnExclamationWithOneButton) {
    Run([](HWND dialog) {
        const Ui::ReplacedImport recorded("MessageBoxW", RecordBox);
        Click(dialog, IDC_OPTIONS_CONTEXT_MENU);
        EXPECT_FALSE(IsChecked(dialog, IDC_OPTIONS_CONTEXT_MENU));
        Close(dialog);
    });
    EXPECT_TRUE(isCheckedDuringBox) << "the box goes back when the message has been read";
    EXPECT_EQ(boxFlags, static_cast<UINT>(MB_OK | MB_ICONEXCLAMATION));
}

TEST_F(OptionsTest, ClickThatFindsTheWantedStateSaysNothing) {
    Run([this](HWND dialog) {
        registration.Write();
        EXPECT_TRUE(SwitchContextMenu(dialog).empty());
        EXPECT_TRUE(IsChecked(dialog, IDC_OPTIONS_CONTEXT_MENU));
        registration.Remove();
        EXPECT_TRUE(SwitchContextMenu(dialog).empty());
        EXPECT_FALSE(IsChecked(dialog, IDC_OPTIONS_CONTEXT_MENU));
        Close(dialog);
    });
}

TEST_F(OptionsTest, TabGoesFromTheTopPastTheHiddenSwitch) {
    Run([](HWND dialog) {
        std::vector<int> walked;
        HWND control = GetFocus();
        for (int i = 0; i < 3; ++i) {
            walked.push_back(GetDlgCtrlID(control));
            control = GetNextDlgTabItem(dialog, control, FALSE);
        }
        EXPECT_EQ(walked,
                  (std::vector<int>{IDC_OPTIONS_CONTEXT_MENU, IDC_OPTIONS_CONFIRM_EXIT, IDC_OPTIONS_CLOSE}));
        EXPECT_EQ(GetDlgCtrlID(control), IDC_OPTIONS_CONTEXT_MENU);
        Close(dialog);
    });
}

TEST_F(OptionsTest, LayoutPutsTheContextMenuFirst) {
    Run([](HWND dialog) {
        const auto place = [dialog](int id) { return WinLib::RectInParent(GetDlgItem(dialog, id)); };
        RECT client = {};
        GetClientRect(dialog, &client);
        const RECT menu = place(IDC_OPTIONS_CONTEXT_MENU);
        const RECT confirm = place(IDC_OPTIONS_CONFIRM_EXIT);
        const RECT line = place(IDC_OPTIONS_SEPARATOR);
        const RECT button = place(IDC_OPTIONS_CLOSE);
        EXPECT_EQ(menu.left, 20);
        EXPECT_EQ(menu.top, 20);
        EXPECT_EQ(confirm.left, 20);
        EXPECT_EQ(confirm.top, menu.bottom + 8);
        EXPECT_EQ(line.left, 0);
        EXPECT_EQ(line.right, client.right);
        EXPECT_EQ(line.top, confirm.bottom + 16);
        EXPECT_EQ(button.top, line.bottom + 16);
        EXPECT_EQ(button.right, client.right - 20);
        EXPECT_LE(button.bottom + 16, client.bottom);
        Close(dialog);
    });
}

}  // namespace
