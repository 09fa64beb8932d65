// Mutexes with a name, which the threads of a test share as processes do.
#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>

#include "Internal.h"

namespace FakeWin {
namespace {

struct Mutex {
    std::wstring name;
    DWORD owner = 0;  // the thread, 0 if there is none
    int depth = 0;
};

struct State {
    std::map<HANDLE, std::shared_ptr<Mutex>> handles;
    std::map<std::wstring, std::weak_ptr<Mutex>> names;
    uintptr_t last = 0x30000;
};

std::mutex guard;
std::condition_variable released;

State& Mutexes() {
    static State state;
    return state;
}

// Under the guard; null if there is none.
std::shared_ptr<Mutex> FindMutex(HANDLE handle) {
    const auto found = Mutexes().handles.find(handle);
    return found != Mutexes().handles.end() ? found->second : nullptr;
}

std::wstring NameOfMutex(HANDLE handle) {
    const std::lock_guard lock(guard);
    const std::shared_ptr<Mutex> mutex = FindMutex(handle);
    return mutex ? mutex->name : L"";
}

}  // namespace

int OpenMutexes() {
    const std::lock_guard lock(guard);
    return static_cast<int>(Mutexes().handles.size());
}

namespace Internal {

bool IsMutex(HANDLE handle) {
    const std::lock_guard lock(guard);
    return FindMutex(handle) != nullptr;
}

DWORD WaitForMutex(HANDLE handle, DWORD milliseconds) {
    if (const DWORD fault = Enter(Call::WaitForSingleObject))
        return SetLastError(fault), WAIT_FAILED;
    std::unique_lock lock(guard);
    const std::shared_ptr<Mutex> mutex = FindMutex(handle);
    const DWORD thread = GetCurrentThreadId();
    const auto isFree = [&] { return mutex->owner == 0 || mutex->owner == thread; };
    if (milliseconds == INFINITE)
        released.wait(lock, isFree);
    else if (!released.wait_for(lock, std::chrono::milliseconds(milliseconds), isFree))
        return WAIT_TIMEOUT;
    mutex->owner = thread;
    ++mutex->depth;
    return WAIT_OBJECT_0;
}

bool CloseMutex(HANDLE handle) {
    const std::lock_guard lock(guard);
    return Mutexes().handles.erase(handle) != 0;
}

std::string OpenMutexesText() {
    const std::lock_guard lock(guard);
    std::string text;
    for (const auto& [handle, mutex] : Mutexes().handles)
        text += "mutex " + Narrow(mutex->name) + "\n";
    return text;
}

void ResetMutexes() {
    const std::lock_guard lock(guard);
    Mutexes() = State();
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;
using FakeWin::Internal::Watched;

HANDLE CreateMutexW(LPSECURITY_ATTRIBUTES, BOOL, LPCWSTR name) {
    if (const DWORD fault = Watched(Call::CreateMutexW, name))
        return SetLastError(fault), nullptr;
    const std::lock_guard lock(guard);
    std::weak_ptr<Mutex>& named = Mutexes().names[name];
    std::shared_ptr<Mutex> mutex = named.lock();
    SetLastError(mutex ? ERROR_ALREADY_EXISTS : 0);
    if (!mutex)
        named = mutex = std::make_shared<Mutex>(Mutex{name});
    const HANDLE handle = reinterpret_cast<HANDLE>(++Mutexes().last);
    Mutexes().handles[handle] = std::move(mutex);
    return handle;
}

BOOL ReleaseMutex(HANDLE handle) {
    const DWORD error = Watched(Call::ReleaseMutex, NameOfMutex(handle), 0, [&]() -> DWORD {
        const std::lock_guard lock(guard);
        const std::shared_ptr<Mutex> mutex = FindMutex(handle);
        if (!mutex)
            return ERROR_INVALID_HANDLE;
        if (mutex->owner != GetCurrentThreadId())
            return ERROR_NOT_OWNER;
        if (--mutex->depth == 0)
            mutex->owner = 0;
        return 0;
    });
    released.notify_all();
    return Internal::Succeeded(error);
}
