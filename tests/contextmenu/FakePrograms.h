// Takes the place of the programs that a loaded module starts: notes each start and lets the program run
// until the test ends it.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "contextmenu/ImportHook.h"

class FakePrograms {
public:
    // Only one object may exist at a time.
    explicit FakePrograms(HMODULE module);
    // Ends all programs and waits for the module's threads.
    ~FakePrograms();
    FakePrograms(const FakePrograms&) = delete;
    FakePrograms& operator=(const FakePrograms&) = delete;

    // Makes the start with this number fail; the first is 0.
    void FailStart(size_t number);

    // Lets programs that are started from now on end at once.
    void EndAtOnce();

    // Ends the program with this number, which must have been started.
    void End(size_t number);

    // Wait until the module has made so many starts in all, failed ones included, or until its threads have
    // ended. Return false if that does not happen.
    bool WaitForStarts(size_t count);
    bool WaitForThreads();

    // The command lines of all starts so far, failed ones included.
    std::vector<std::wstring> CommandLines();

    // The largest number of programs that have run at the same time, those that end at once aside; and the
    // number of threads that the module has started.
    size_t MostAtOnce();
    size_t Threads();

private:
    struct Closer {
        void operator()(HANDLE handle) const { CloseHandle(handle); }
    };
    using Handle = std::unique_ptr<void, Closer>;

    struct Start {
        std::wstring commandLine;
        Handle end;  // an event, signaled when the program has ended; null if the start failed
    };

    static BOOL WINAPI OnCreateProcess(LPCWSTR program, LPWSTR commandLine, LPSECURITY_ATTRIBUTES,
                                       LPSECURITY_ATTRIBUTES, BOOL, DWORD, LPVOID, LPCWSTR, LPSTARTUPINFOW,
                                       LPPROCESS_INFORMATION process);
    static HANDLE WINAPI OnCreateThread(LPSECURITY_ATTRIBUTES, SIZE_T, LPTHREAD_START_ROUTINE routine,
                                        LPVOID parameter, DWORD flags, LPDWORD id);
    bool NoteStart(const wchar_t* commandLine, PROCESS_INFORMATION& process);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Start> starts_;
    std::set<size_t> failing_;
    bool endAtOnce_ = false;
    size_t running_ = 0;
    size_t mostAtOnce_ = 0;
    std::vector<Handle> threads_;
    const ImportHook process_;
    const ImportHook thread_;
};
