// Counting, failing on request and logging, which all calls have in common.
#include <array>
#include <atomic>
#include <deque>
#include <map>
#include <mutex>

#include "Internal.h"

namespace FakeWin {
namespace {

constexpr size_t CallCount = static_cast<size_t>(Call::Count);

struct Fault {
    DWORD error;
    int times;
};

struct NthFault {
    int use;  // counts down
    DWORD error;
};

struct Action {
    int use;  // counts down
    std::function<void()> run;
};

// What has been asked of one call.
struct CallFaults {
    std::vector<NthFault> nth;
    std::deque<Fault> all;
    std::map<std::wstring, std::deque<Fault>> bySubject;  // folded
    std::vector<Action> actions;
};

std::array<std::atomic<int>, CallCount> uses;
std::atomic<bool> anyFault = false;
std::atomic<bool> logging = true;
std::atomic<int> faultsStruck = 0;
thread_local int unwatched = 0;
thread_local int systemMemory = 0;

std::mutex mutex;
std::array<CallFaults, CallCount> faults;
std::vector<LoggedCall> entries;
std::vector<FindCall> findCalls;
size_t loggedUnits = 0;

// What the log takes at most, in characters: a deep tree has a path of thousands for each folder.
constexpr size_t LogLimit = 8'000'000;

CallFaults& FaultsOf(Call call) {
    return faults[static_cast<size_t>(call)];
}

DWORD TakeFirst(std::deque<Fault>& waiting) {
    if (waiting.empty())
        return 0;
    const DWORD error = waiting.front().error;
    if (waiting.front().times != Always && --waiting.front().times == 0)
        waiting.pop_front();
    return error;
}

// The error of this use by its number. Counts for all faults that wait, as each begins at a use of its own.
DWORD TakeNth(std::vector<NthFault>& waiting) {
    DWORD error = 0;
    for (NthFault& fault : waiting)
        if (--fault.use == 0)
            error = fault.error;
    std::erase_if(waiting, [](const NthFault& fault) { return fault.use <= 0; });
    return error;
}

bool Count(Call call) {
    if (unwatched > 0)
        return false;
    uses[static_cast<size_t>(call)].fetch_add(1, std::memory_order_relaxed);
    return anyFault.load(std::memory_order_acquire);
}

bool HasRoom(const std::wstring& text) {
    loggedUnits += text.size();
    return loggedUnits <= LogLimit;
}

DWORD FindFault(Call call, const std::wstring* subject) {
    const std::lock_guard lock(mutex);
    CallFaults& waiting = FaultsOf(call);
    if (const DWORD error = TakeNth(waiting.nth))
        return error;
    if (subject != nullptr) {
        const auto found = waiting.bySubject.find(Internal::Fold(*subject));
        if (found != waiting.bySubject.end()) {
            if (const DWORD error = TakeFirst(found->second))
                return error;
        }
    }
    return TakeFirst(waiting.all);
}

// Runs what was asked for at this use, without the lock.
void RunActions(Call call) {
    std::vector<std::function<void()>> due;
    {
        const std::lock_guard lock(mutex);
        for (Action& action : FaultsOf(call).actions)
            if (--action.use == 0)
                due.push_back(action.run);
    }
    for (const std::function<void()>& run : due)
        run();
}

DWORD TakeFault(Call call, const std::wstring* subject) {
    RunActions(call);
    const DWORD error = FindFault(call, subject);
    if (error != 0)
        ++faultsStruck;
    return error;
}

}  // namespace

Unwatched::Unwatched() {
    ++unwatched;
}

Unwatched::~Unwatched() {
    --unwatched;
}

int Uses(Call call) {
    return uses[static_cast<size_t>(call)].load();
}

void FailNth(Call call, int use, DWORD error) {
    const std::lock_guard lock(mutex);
    FaultsOf(call).nth.push_back({use, error});
    anyFault = true;
}

void AtUse(Call call, int use, std::function<void()> action) {
    const std::lock_guard lock(mutex);
    FaultsOf(call).actions.push_back({use, std::move(action)});
    anyFault = true;
}

void Fail(Call call, DWORD error, int times) {
    const std::lock_guard lock(mutex);
    FaultsOf(call).all.push_back({error, times});
    anyFault = true;
}

void FailOn(Call call, const std::wstring& subject, DWORD error, int times) {
    const std::lock_guard lock(mutex);
    FaultsOf(call).bySubject[Internal::Fold(subject)].push_back({error, times});
    anyFault = true;
}

int FaultsStruck() {
    return faultsStruck;
}

bool AllocatesForTheSystem() {
    return systemMemory > 0;
}

std::vector<LoggedCall> Log() {
    const std::lock_guard lock(mutex);
    return entries;
}

void ClearLog() {
    const std::lock_guard lock(mutex);
    entries.clear();
    findCalls.clear();
    loggedUnits = 0;
}

std::vector<FindCall> FindCalls() {
    const std::lock_guard lock(mutex);
    return findCalls;
}

void SetLogging(bool enabled) {
    logging = enabled;
}

namespace Internal {

SystemMemory::SystemMemory() {
    ++systemMemory;
}

SystemMemory::~SystemMemory() {
    --systemMemory;
}

DWORD Enter(Call call) {
    return Count(call) ? TakeFault(call, nullptr) : 0;
}

DWORD Enter(Call call, const std::wstring& subject) {
    return Count(call) ? TakeFault(call, &subject) : 0;
}

void Note(Call call, const std::wstring& subject, DWORD detail, DWORD error) {
    if (unwatched > 0 || !logging)
        return;
    const std::lock_guard lock(mutex);
    if (HasRoom(subject))
        entries.push_back({call, subject, detail, error});
}

void NoteFind(const FindCall& call) {
    if (unwatched > 0 || !logging)
        return;
    const std::lock_guard lock(mutex);
    if (HasRoom(call.query))
        findCalls.push_back(call);
}

void ResetCalls() {
    const std::lock_guard lock(mutex);
    for (std::atomic<int>& count : uses)
        count = 0;
    faults = {};
    entries.clear();
    findCalls.clear();
    loggedUnits = 0;
    anyFault = false;
    faultsStruck = 0;
    logging = true;
}

}  // namespace Internal
}  // namespace FakeWin
