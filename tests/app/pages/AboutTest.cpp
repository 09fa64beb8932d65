// The About box, opened modally and operated from within its own loop.

#include "pages/AboutController.h"

#include <gtest/gtest.h>

#include <shellapi.h>

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "resources/resource.h"
#include "support/TempFolder.h"
#include "support/ui/DismissModal.h"
#include "support/ui/HostWindow.h"
#include "support/ui/Input.h"
#include "support/ui/ReplacedImport.h"
#include "winlib/ParentCoordinates.h"
#include "winlib/WindowText.h"

namespace {

// Makes a command the system's mail program, as long as it lives.
class MailProgram {
public:
    explicit MailProgram(const std::wstring& command) {
        DWORD size = sizeof(earlier_);
        RegGetValueW(HKEY_CLASSES_ROOT, Key, nullptr, RRF_RT_REG_SZ, nullptr, earlier_, &size);
        Set(command);
    }
    MailProgram(const MailProgram&) = delete;
    MailProgram& operator=(const MailProgram&) = delete;
    ~MailProgram() { Set(earlier_); }

private:
    static constexpr wchar_t Key[] = L"mailto\\shell\\open\\command";

    static void Set(const std::wstring& command) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, Key, nullptr, REG_SZ, command.c_str(),
                                  static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }

    wchar_t earlier_[256] = {};
};

class AboutTest : public testing::Test {
protected:
    // Opens the box, has the action done in its loop, and returns its result. The action must close it.
    INT_PTR Run(const std::function<void(HWND dialog)>& action) {
        AboutController controller;
        const Ui::DismissModal dismiss(action);
        return WinLib::RunModal(controller, IDD_ABOUT, host.Handle, host.Application.Instance);
    }

    static void Close(HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); }

    static LOGFONTW FontOf(HWND dialog, int id) {
        LOGFONTW font = {};
        GetObjectW(reinterpret_cast<HFONT>(SendDlgItemMessageW(dialog, id, WM_GETFONT, 0, 0)), sizeof(font),
                   &font);
        return font;
    }

    HostWindow host;
};

TEST_F(AboutTest, EveryWayOfClosingHasItsResult) {
    EXPECT_EQ(Run([](HWND dialog) { Ui::Click(GetDlgItem(dialog, IDC_ABOUT_CLOSE)); }), 1);
    EXPECT_EQ(Run([](HWND dialog) { Close(dialog); }), 1);
    EXPECT_EQ(Run([](HWND) { PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1); }), 0);
    EXPECT_EQ(Run([](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDOK, 0); }), 1);
}

TEST_F(AboutTest, ShowsTheProgramsIcon) {
    Run([](HWND dialog) {
        EXPECT_NE(SendDlgItemMessageW(dialog, IDC_ABOUT_ICON, STM_GETICON, 0, 0), 0);
        Close(dialog);
    });
}

TEST_F(AboutTest, TitleIsLargerAndBold) {
    Run([](HWND dialog) {
        const LOGFONTW title = FontOf(dialog, IDC_ABOUT_TITLE);
        const LOGFONTW text = FontOf(dialog, IDC_ABOUT_AUTHOR);
        EXPECT_EQ(title.lfHeight, text.lfHeight - 4);
        EXPECT_EQ(title.lfWeight, 700);
        EXPECT_EQ(std::wstring(title.lfFaceName), text.lfFaceName);
        Close(dialog);
    });
}

TEST_F(AboutTest, TitleFitsInItsFont) {
    Run([](HWND dialog) {
        const HWND title = GetDlgItem(dialog, IDC_ABOUT_TITLE);
        const HDC dc = GetDC(title);
        SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(title, WM_GETFONT, 0, 0)));
        const std::wstring text = WinLib::GetWindowText(title);
        SIZE size = {};
        GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
        ReleaseDC(title, dc);
        RECT client = {};
        GetClientRect(title, &client);
        EXPECT_LE(size.cx, client.right);
        EXPECT_LE(size.cy, client.bottom);
        Close(dialog);
    });
}

TEST_F(AboutTest, AddressAndHomePageAreLinks) {
    Run([](HWND dialog) {
        for (const int id : {IDC_ABOUT_MAIL, IDC_ABOUT_HOME}) {
            const HWND link = GetDlgItem(dialog, id);
            EXPECT_NE(GetWindowLongPtrW(link, GWL_STYLE) & SS_NOTIFY, 0) << id;
            SendMessageW(link, WM_MOUSEMOVE, 0, MAKELPARAM(2, 2));
            EXPECT_EQ(GetCapture(), link) << id;
            SendMessageW(link, WM_MOUSEMOVE, 0, MAKELPARAM(-2, 2));
            EXPECT_EQ(GetCapture(), nullptr) << id;
        }
        Close(dialog);
    });
}

TEST_F(AboutTest, MailLinkHoldsTheAddressUnescaped) {
    EXPECT_EQ(MailLinkTo(L"ostrel.vane@tamblewick.example"),
              L"mailto:Ostrel Vane <ostrel.vane@tamblewick.example>?subject=Tamblewick");
    EXPECT_EQ(MailLinkTo(L"a b+c&d%\x00E4?"), L"mailto:Ostrel Vane <a b+c&d%\x00E4?>?subject=Tamblewick");
    EXPECT_EQ(MailLinkTo(L""), L"mailto:Ostrel Vane <>?subject=Tamblewick");
}

TEST_F(AboutTest, ClickOnTheHomePageOpensTheTextOfTheControl) {
    const TestSupport::TempFolder folder;
    folder.AddFile(L"open.bat", "@echo opened> \"%~dp0opened.txt\"\r\n");
    Run([&folder](HWND dialog) {
        SetDlgItemTextW(dialog, IDC_ABOUT_HOME, folder.Path(L"open.bat").c_str());
        Ui::Click(GetDlgItem(dialog, IDC_ABOUT_HOME));
        Ui::MessagePump pump(dialog);
        pump.RunUntil([&folder] { return folder.Read(L"opened.txt") == "opened\r\n"; },
                      std::chrono::seconds(20), "the file that the batch file writes");
        Close(dialog);
    });
}

// The recorder of command lines writes into a folder of this name.
TEST_F(AboutTest, ClickOnTheAddressOpensTheMailLink) {
    const std::filesystem::path folder = L"C:\\tamblewick-lists";
    const std::filesystem::path record = folder / L"recorded";
    std::filesystem::create_directories(folder);
    std::filesystem::remove(record);
    std::array<wchar_t, MAX_PATH> self;
    GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size()));
    const auto recorder = std::filesystem::path(self.data()).parent_path() / L"recorder.exe";
    const MailProgram mail(L"\"" + recorder.wstring() + L"\" \"%1\"");
    std::optional<std::string> line;
    Run([&](HWND dialog) {
        SetDlgItemTextW(dialog, IDC_ABOUT_MAIL, L"me@here.example");
        Ui::Click(GetDlgItem(dialog, IDC_ABOUT_MAIL));
        Ui::MessagePump pump(dialog);
        // For a moment after its renaming the file cannot be opened.
        const auto isRecorded = [&] { return (line = TestSupport::ReadBytes(record.wstring())).has_value(); };
        pump.RunUntil(isRecorded, std::chrono::seconds(20), "the recorded command line");
        Close(dialog);
    });
    ASSERT_TRUE(line.has_value());
    EXPECT_TRUE(line->ends_with(" \"mailto:Ostrel Vane <me@here.example>?subject=Tamblewick\"")) << *line;
    std::filesystem::remove_all(folder);
}

struct Opened {
    std::wstring file;
    SHELLEXECUTEINFOW call;
};
std::vector<Opened> opened;

BOOL WINAPI RecordExecute(SHELLEXECUTEINFOW* execute) {
    opened.push_back({execute->lpFile, *execute});
    return TRUE;
}

TEST_F(AboutTest, LinksAreOpenedWithoutAWordOfTheSystem) {
    opened.clear();
    Run([](HWND dialog) {
        const Ui::ReplacedImport recorded("ShellExecuteExW", RecordExecute);
        Ui::Click(GetDlgItem(dialog, IDC_ABOUT_MAIL));
        Ui::Click(GetDlgItem(dialog, IDC_ABOUT_HOME));
        Close(dialog);
    });
    ASSERT_EQ(opened.size(), 2u);
    EXPECT_EQ(opened[0].file, L"mailto:Ostrel Vane <ostrel.vane@tamblewick.example>?subject=Tamblewick");
    EXPECT_EQ(opened[1].file, L"https://www.tamblewick.example/");
    for (const Opened& link : opened) {
        EXPECT_EQ(link.call.cbSize, sizeof(link.call));
        EXPECT_EQ(link.call.fMask, static_cast<ULONG>(SEE_MASK_UNICODE | SEE_MASK_FLAG_NO_UI));
        EXPECT_EQ(link.call.nShow, SW_SHOWNORMAL);
        EXPECT_EQ(link.call.lpVerb, nullptr);
        EXPECT_EQ(link.call.lpParameters, nullptr);
        EXPECT_EQ(link.call.lpDirectory, nullptr);
    }
}

TEST_F(AboutTest, LinkThatCannotBeOpenedIsSilent) {
    EXPECT_EQ(Run([](HWND dialog) {
                  const Ui::DismissModal messages(IDOK);
                  SetDlgItemTextW(dialog, IDC_ABOUT_HOME, L"C:\\nowhere\\at.all");
                  Ui::Click(GetDlgItem(dialog, IDC_ABOUT_HOME));
                  EXPECT_TRUE(messages.Seen().empty());
                  EXPECT_TRUE(IsWindow(dialog));
                  Close(dialog);
              }),
              1);
}

TEST_F(AboutTest, RowsStandBelowEachOther) {
    Run([](HWND dialog) {
        const auto place = [dialog](int id) { return WinLib::RectInParent(GetDlgItem(dialog, id)); };
        const auto middle = [&place](int id) { return (place(id).left + place(id).right) / 2; };
        RECT client = {};
        GetClientRect(dialog, &client);
        const RECT icon = place(IDC_ABOUT_ICON);
        const RECT title = place(IDC_ABOUT_TITLE);
        // 16 for the margin and, after the space that stretches, a gap.
        EXPECT_EQ(std::min(icon.top, title.top), 16 + 8);
        EXPECT_EQ(icon.right, title.left);
        EXPECT_LE(std::abs(icon.top + icon.bottom - title.top - title.bottom), 1);
        const LONG titleRow = std::max(icon.bottom, title.bottom);
        EXPECT_EQ(place(IDC_ABOUT_AUTHOR).top, titleRow + 8 + 4 + 8);
        EXPECT_EQ(place(IDC_ABOUT_MAIL).top, place(IDC_ABOUT_AUTHOR).bottom + 8);
        EXPECT_EQ(place(IDC_ABOUT_MAIL_LABEL).top, place(IDC_ABOUT_MAIL).top);
        EXPECT_EQ(place(IDC_ABOUT_MAIL_LABEL).right, place(IDC_ABOUT_MAIL).left);
        EXPECT_EQ(place(IDC_ABOUT_MAKER).top, place(IDC_ABOUT_MAIL).bottom + 8 + 4 + 8);
        EXPECT_EQ(place(IDC_ABOUT_HOME).top, place(IDC_ABOUT_MAKER).bottom + 8);
        EXPECT_EQ(place(IDC_ABOUT_HOME_LABEL).right, place(IDC_ABOUT_HOME).left);
        EXPECT_EQ(place(IDC_ABOUT_SEPARATOR).top, place(IDC_ABOUT_HOME).bottom + 8 + 4 + 8);
        EXPECT_EQ(place(IDC_ABOUT_SEPARATOR).left, 0);
        EXPECT_EQ(place(IDC_ABOUT_SEPARATOR).right, client.right);
        EXPECT_EQ(place(IDC_ABOUT_CLOSE).top, place(IDC_ABOUT_SEPARATOR).bottom + 8 + 0 + 8);
        EXPECT_LT(place(IDC_ABOUT_CLOSE).bottom, client.bottom);
        for (const int id : {IDC_ABOUT_AUTHOR, IDC_ABOUT_MAKER, IDC_ABOUT_CLOSE})
            EXPECT_LE(std::abs(2 * middle(id) - client.right), 2) << id;
        Close(dialog);
    });
}

}  // namespace
