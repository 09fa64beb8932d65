#include "support/native/EveryCall.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "support/Text.h"

using FakeWin::Call;

namespace TestSupport {
namespace {

constexpr int CallCount = static_cast<int>(Call::Count);

// Of a call that is used very often, as the registry's are, the uses after the first ones take turns.
constexpr int FirstUses = 30;
constexpr int Stride = 5;

bool IsChosen(int use, int uses) {
    return use <= FirstUses || use == uses || use % Stride == 0;
}

std::wstring SubjectOf(Call call, int use) {
    for (const FakeWin::LoggedCall& logged : FakeWin::Log())
        if (logged.call == call && --use == 0)
            return logged.subject;
    return {};
}

}  // namespace

EveryCall::EveryCall(Situation situation) : situation_(std::move(situation)) {
    SCOPED_TRACE("undisturbed");
    FakeWin::Reset();
    Run();
    for (int i = 0; i < CallCount; ++i) {
        const auto call = static_cast<Call>(i);
        if (const int uses = FakeWin::Uses(call))
            uses_[call] = uses;
    }
    faults_ = FakeWin::FaultsStruck();
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}

void EveryCall::ExpectRowsFor(const std::vector<Call>& calls) const {
    for (int i = 0; i < CallCount; ++i) {
        const auto call = static_cast<Call>(i);
        const bool hasRow = std::ranges::find(calls, call) != calls.end();
        EXPECT_TRUE(hasRow || !uses_.contains(call))
            << "nothing says what a failure of " << FakeWin::NameOf(call) << " leads to";
        EXPECT_TRUE(!hasRow || uses_.contains(call)) << FakeWin::NameOf(call) << " is never used";
    }
}

void EveryCall::FailEachUse(Call call, DWORD error, const std::function<void(const Failure&)>& check) const {
    const auto found = uses_.find(call);
    const int uses = found == uses_.end() ? 0 : found->second;
    for (int use = 1; use <= uses; ++use) {
        if (!IsChosen(use, uses))
            continue;
        FakeWin::Reset();
        FakeWin::FailNth(call, use, error);
        Run();
        const std::wstring subject = SubjectOf(call, use);
        SCOPED_TRACE(testing::Message() << FakeWin::NameOf(call) << ", use " << use << " of " << uses
                                        << ", error " << error << ", " << Utf8(subject));
        EXPECT_EQ(FakeWin::FaultsStruck(), faults_ + 1);
        const std::string left = FakeWin::LeftOpen();
        EXPECT_EQ(std::ranges::count(left, '\n'), call == Call::RegCloseKey ? 1 : 0) << left;
        check({call, use, subject});
    }
    FakeWin::Reset();
}

void EveryCall::Run() const {
    {
        const FakeWin::Unwatched unwatched;
        situation_.prepare();
    }
    situation_.run();
}

}  // namespace TestSupport
