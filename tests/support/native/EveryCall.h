// Makes every call that a piece of the program uses fail, each use in turn, so that none is forgotten.
//
// A test says what must follow in a table with one or more rows for each call. The piece runs once
// undisturbed, which shows the calls and how often each is used; a call without a row fails the test, and so
// does a row without a call. Then it runs once more for each row and each use, in a fresh world; of very many
// uses the first thirty, each fifth and the last are taken.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "fakewin/FakeWin.h"

namespace TestSupport {

// In the place of the error of a call that always succeeds.
inline constexpr DWORD CannotFail = 0;

// What is put to the test.
struct Situation {
    std::function<void()> prepare;  // fills the empty world; its own calls do not count
    std::function<void()> run;
};

// The one use that failed.
struct Failure {
    FakeWin::Call call;
    int use;               // 1 is the first
    std::wstring subject;  // as in FakeWin::Log, empty if the call is not logged
};

class EveryCall {
public:
    // Runs it undisturbed.
    explicit EveryCall(Situation situation);

    // Every call that was used, and no other, must be among these.
    void ExpectRowsFor(const std::vector<FakeWin::Call>& calls) const;

    // Runs it again for each use of the call, which fails with the error, and checks the world after each
    // run. Of handles only a key whose closing fails may be left open.
    void FailEachUse(FakeWin::Call call, DWORD error, const std::function<void(const Failure&)>& check) const;

private:
    void Run() const;

    const Situation situation_;
    std::map<FakeWin::Call, int> uses_;
    int faults_;  // that the situation itself asked for
};

// Goes through a table whose rows have a call and an error.
template <typename Row>
void FailEveryCall(const Situation& situation, const std::vector<Row>& table,
                   const std::function<void(const Row&, const Failure&)>& check) {
    const EveryCall every(situation);
    std::vector<FakeWin::Call> calls;
    for (const Row& row : table)
        calls.push_back(row.call);
    every.ExpectRowsFor(calls);
    for (const Row& row : table)
        if (row.error != CannotFail)
            every.FailEachUse(row.call, row.error, [&](const Failure& failure) { check(row, failure); });
}

}  // namespace TestSupport
