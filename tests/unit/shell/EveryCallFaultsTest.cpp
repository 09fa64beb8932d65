// The context-menu registration while each use of each call fails.
#include <gtest/gtest.h>

#include <optional>

#include "RegisteredKeys.h"
#include "shell/ShellExtension.h"
#include "support/native/EveryCall.h"

using FakeWin::Call;
using TestSupport::Failure;
using TestSupport::Situation;

namespace {

constexpr wchar_t Module[] = L"C:\\Program Files\\Tamblewick\\tamblewick.dll";

// Made anew in each world, whose keys it registers; the keys of the world before are gone by then.
struct Registered {
    Registered() { keys.Register(Module); }

    const RegisteredKeys keys;
    const ShellExtension extension{RegisteredKeys::Name, RegisteredKeys::ClassId};
};

struct Row {
    Call call;
    DWORD error;
    bool result;
    int notifications = 0;
};

struct EveryCallOfTheShellExtension : testing::Test {
    std::optional<Registered> registered_;
    bool result_ = false;
    const std::function<void()> prepare_ = [this] {
        registered_.reset();
        registered_.emplace();
    };
};

TEST_F(EveryCallOfTheShellExtension, AnswersNoWhereItCannotAsk) {
    const std::vector<Row> rows = {
        {Call::RegOpenKeyExW, ERROR_ACCESS_DENIED, false},
        {Call::RegQueryValueExW, ERROR_ACCESS_DENIED, false},
        {Call::RegCloseKey, ERROR_INVALID_HANDLE, true},
        // A system without the question for the width of the process has but one.
        {Call::GetModuleHandleW, ERROR_MOD_NOT_FOUND, true},
    };
    const Situation ask{prepare_, [this] { result_ = registered_->extension.IsRegistered(); }};
    TestSupport::FailEveryCall<Row>(ask, rows, [this](const Row& row, const Failure&) {
        EXPECT_EQ(result_, row.result);
        int opens = 0;
        for (const FakeWin::LoggedCall& logged : FakeWin::Log())
            opens += logged.call == Call::RegOpenKeyExW;
        EXPECT_EQ(opens, 3) << "all three are always asked";
        const FakeWin::Unwatched unwatched;
        EXPECT_TRUE(registered_->extension.IsRegistered()) << "nothing has been changed";
    });
}

TEST_F(EveryCallOfTheShellExtension, StartsTheRegistrationOrReportsThatItCould) {
    const std::vector<Row> rows = {
        {Call::ShellExecuteExW, ERROR_CANCELLED, false},
        {Call::ShellExecuteExW, ERROR_FILE_NOT_FOUND, false},
        // The program was started, whatever is known of its end. One that still runs has no exit code.
        {Call::WaitForSingleObject, ERROR_INVALID_HANDLE, true},
        {Call::GetExitCodeProcess, ERROR_INVALID_HANDLE, true},
        {Call::SHChangeNotify, TestSupport::CannotFail, true, 1},
    };
    for (const bool add : {true, false}) {
        const auto run = [&] {
            const ShellExtension& extension = registered_->extension;
            result_ = add ? extension.Register() : extension.Unregister();
        };
        TestSupport::FailEveryCall<Row>({prepare_, run}, rows, [&](const Row& row, const Failure&) {
            EXPECT_EQ(result_, row.result);
            EXPECT_EQ(FakeWin::ShellExecutions().size(), 1u);
            EXPECT_EQ(FakeWin::ProcessWaits().size(), row.result ? 1u : 0u);
            EXPECT_EQ(FakeWin::Uses(Call::GetExitCodeProcess), row.result ? 1 : 0);
            EXPECT_EQ(FakeWin::ShellNotifications().size(), static_cast<size_t>(row.notifications));
            EXPECT_EQ(FakeWin::Uses(Call::MessageBoxW), 0);
            EXPECT_EQ(FakeWin::Uses(Call::RegOpenKeyExW), 0);
        });
    }
}

}  // namespace
