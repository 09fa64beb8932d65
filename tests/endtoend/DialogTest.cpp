// The progress dialog and the message boxes of the running program, seen and pressed from outside.
#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "endtoend/Program.h"
#include "resources/resource.h"
#include "support/TempFolder.h"

using EndToEnd::ControlOf;
using EndToEnd::FilesIn;
using EndToEnd::ListsFolder;
using EndToEnd::Process;
using EndToEnd::StoredPreset;

namespace {

using Names = std::vector<std::wstring>;

std::wstring TextOf(HWND window) {
    std::array<wchar_t, 1024> text = {};
    SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

// The text of a message box.
std::wstring MessageOf(HWND box) {
    return TextOf(ControlOf(box, 0xFFFF));
}

void Press(HWND dialog, int id) {
    PostMessageW(ControlOf(dialog, id), BM_CLICK, 0, 0);
}

// The message box of a running program: a dialog of this title that has the box's text. The progress dialog
// has the same title.
HWND WaitForBox(const Process& program) {
    for (;;) {
        HWND box = nullptr;
        while ((box = FindWindowExW(nullptr, box, L"#32770", L"Tamblewick")) != nullptr)
            if (ControlOf(box, 0xFFFF) && !ControlOf(box, IDC_PROGRESS_CANCEL) && IsWindowVisible(box))
                return box;
        if (!program.IsRunning())
            return nullptr;
        Sleep(1);
    }
}

struct ErrorRow {
    const wchar_t* path;
    const wchar_t* message;
};

TEST(Dialogs, MissingFolderIsReportedAndNoListIsWritten) {
    const StoredPreset preset;
    const ErrorRow rows[] = {
        {L"C:\\no such folder",
         L"The folder 'C:\\no such folder' does not exist or cannot be accessed by the application.\n"
         L"The listing proccess will be cancelled."},
        {L"C:\\no such folder\\",
         L"The folder 'C:\\no such folder' does not exist or cannot be accessed by the application.\n"
         L"The listing proccess will be cancelled."},
    };
    for (const ErrorRow& row : rows) {
        Process program(preset.Key + L" \"" + row.path + L"\"");
        const HWND box = WaitForBox(program);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(MessageOf(box), row.message);
        EXPECT_TRUE((GetWindowLongW(ControlOf(box, IDOK), GWL_STYLE) & WS_VISIBLE) != 0);
        Press(box, IDOK);
        EXPECT_EQ(program.Wait(), 0u);
        EXPECT_EQ(FilesIn(ListsFolder()), Names{});
    }
}

// The error comes 25 milliseconds after the start, about when the dialog is created.
TEST(Dialogs, AnErrorBelongsToTheDialogWhichTakesNoClicks) {
    const StoredPreset preset;
    for (int i = 0; i < 20 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Process program(preset.Key + L" \"C:\\no such folder\"");
        const HWND box = WaitForBox(program);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(TextOf(box), L"Tamblewick");
        const HWND dialog = GetWindow(box, GW_OWNER);
        EXPECT_NE(GetDlgItem(dialog, IDC_PROGRESS_CANCEL), nullptr);
        EXPECT_FALSE(IsWindowEnabled(dialog));
        Press(box, IDOK);
        EXPECT_EQ(program.Wait(), 0u);
    }
}

// A folder whose scan takes long enough to be interrupted: opening a folder costs more than anything else.
class LongListing : public testing::Test {
protected:
    static void SetUpTestSuite() {
        folder_ = std::make_unique<TestSupport::TempFolder>();
        for (int i = 0; i < 6000; ++i)
            CreateDirectoryW(folder_->Path(std::to_wstring(i)).c_str(), nullptr);
    }
    static void TearDownTestSuite() { folder_.reset(); }

    LongListing() : program_(MakePreset().Key + L" \"" + folder_->Path() + L"\"") {}

    StoredPreset& MakePreset() { return preset_.Set(L"Display", L"SearchSubfolders", 1u); }

    inline static std::unique_ptr<TestSupport::TempFolder> folder_;
    StoredPreset preset_;
    Process program_;
};

TEST_F(LongListing, CancelEndsTheListingWithoutAList) {
    const HWND dialog = program_.WaitForWindow(L"Tamblewick");
    ASSERT_NE(dialog, nullptr);
    Press(dialog, IDC_PROGRESS_CANCEL);
    EXPECT_EQ(program_.Wait(), 0u);
    EXPECT_EQ(FilesIn(ListsFolder()), Names{});
}

TEST_F(LongListing, BackgroundHidesTheDialogAndTheListIsMade) {
    const HWND dialog = program_.WaitForWindow(L"Tamblewick");
    ASSERT_NE(dialog, nullptr);
    Press(dialog, IDC_PROGRESS_BACKGROUND);
    while (IsWindow(dialog))
        Sleep(1);
    EXPECT_FALSE(program_.HasWindow());
    EXPECT_EQ(program_.Wait(), 0u);
    EXPECT_EQ(FilesIn(ListsFolder()),
              Names{L"List of " + folder_->Path().substr(folder_->Path().rfind(L'\\') + 1) + L".txt"});
}

TEST_F(LongListing, EnterEscapeAndCloseLeaveTheDialogOpen) {
    const HWND dialog = program_.WaitForWindow(L"Tamblewick");
    ASSERT_NE(dialog, nullptr);
    for (const WPARAM id : {IDOK, IDCANCEL})
        SendMessageW(dialog, WM_COMMAND, id, 0);
    SendMessageW(dialog, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(dialog));
    Press(dialog, IDC_PROGRESS_CANCEL);
    EXPECT_EQ(program_.Wait(), 0u);
}

}  // namespace
