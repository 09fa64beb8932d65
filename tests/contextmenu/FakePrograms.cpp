#include "contextmenu/FakePrograms.h"

#include <algorithm>
#include <chrono>

namespace {

constexpr DWORD Limit = 10'000;  // milliseconds

FakePrograms* current = nullptr;

HANDLE Duplicate(HANDLE handle) {
    HANDLE copy = nullptr;
    DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return copy;
}

}  // namespace

FakePrograms::FakePrograms(HMODULE module)
    : process_(module, "CreateProcessW", OnCreateProcess), thread_(module, "CreateThread", OnCreateThread) {
    current = this;
}

FakePrograms::~FakePrograms() {
    EndAtOnce();
    for (const Start& start : starts_)
        SetEvent(start.end.get());
    WaitForThreads();
    current = nullptr;
}

void FakePrograms::FailStart(size_t number) {
    const std::lock_guard locked(mutex_);
    failing_.insert(number);
}

void FakePrograms::EndAtOnce() {
    const std::lock_guard locked(mutex_);
    endAtOnce_ = true;
}

void FakePrograms::End(size_t number) {
    const std::lock_guard locked(mutex_);
    --running_;
    SetEvent(starts_.at(number).end.get());
}

bool FakePrograms::WaitForStarts(size_t count) {
    std::unique_lock locked(mutex_);
    return changed_.wait_for(locked, std::chrono::milliseconds(Limit),
                             [&] { return starts_.size() >= count; });
}

bool FakePrograms::WaitForThreads() {
    const auto hasEnded = [](const Handle& thread) {
        return WaitForSingleObject(thread.get(), Limit) == WAIT_OBJECT_0;
    };
    return std::all_of(threads_.begin(), threads_.end(), hasEnded);
}

std::vector<std::wstring> FakePrograms::CommandLines() {
    const std::lock_guard locked(mutex_);
    std::vector<std::wstring> lines;
    for (const Start& start : starts_)
        lines.push_back(start.commandLine);
    return lines;
}

size_t FakePrograms::MostAtOnce() {
    const std::lock_guard locked(mutex_);
    return mostAtOnce_;
}

size_t FakePrograms::Threads() {
    const std::lock_guard locked(mutex_);
    return threads_.size();
}

bool FakePrograms::NoteStart(const wchar_t* commandLine, PROCESS_INFORMATION& process) {
    const std::lock_guard locked(mutex_);
    const bool fails = failing_.contains(starts_.size());
    Handle end(fails ? nullptr : CreateEventW(nullptr, TRUE, endAtOnce_, nullptr));
    if (!fails) {
        process.hProcess = Duplicate(end.get());
        process.hThread = Duplicate(end.get());
        running_ += endAtOnce_ ? 0 : 1;
        mostAtOnce_ = std::max(mostAtOnce_, running_);
    }
    starts_.push_back({commandLine, std::move(end)});
    changed_.notify_all();
    return !fails;
}

BOOL WINAPI FakePrograms::OnCreateProcess(LPCWSTR, LPWSTR commandLine, LPSECURITY_ATTRIBUTES,
                                          LPSECURITY_ATTRIBUTES, BOOL, DWORD, LPVOID, LPCWSTR, LPSTARTUPINFOW,
                                          LPPROCESS_INFORMATION process) {
    return current->NoteStart(commandLine, *process);
}

HANDLE WINAPI FakePrograms::OnCreateThread(LPSECURITY_ATTRIBUTES security, SIZE_T stack,
                                           LPTHREAD_START_ROUTINE routine, LPVOID parameter, DWORD flags,
                                           LPDWORD id) {
    const HANDLE thread = ::CreateThread(security, stack, routine, parameter, flags, id);
    const std::lock_guard locked(current->mutex_);
    current->threads_.emplace_back(Duplicate(thread));
    return thread;
}
