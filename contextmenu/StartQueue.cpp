#include "contextmenu/StartQueue.h"

#include <memory>
#include <type_traits>

#include "contextmenu/Module.h"

namespace StartQueue {

namespace {

struct LibraryFreer {
    void operator()(HMODULE library) const { FreeLibrary(library); }
};
using LibraryReference = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryFreer>;

LibraryReference ReferToModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<const wchar_t*>(Module::Instance()), &module);
    return LibraryReference(module);
}

// What the thread works on and owns.
struct Queue {
    std::list<ProgramStart> waiting;  // guarded by the lock
    UniqueProcess running;            // null if its start has failed

    // The first makes DllCanUnloadNow answer no. The second keeps the module loaded also in a host that does
    // not ask, and until the thread has left the module's code.
    const Module::Use use;
    LibraryReference module = ReferToModule();
};

constinit SRWLOCK lock = SRWLOCK_INIT;

// The queue of the thread that is at work, or null. Guarded by the lock.
constinit Queue* current = nullptr;

class Locked {
public:
    Locked() { AcquireSRWLockExclusive(&lock); }
    ~Locked() { ReleaseSRWLockExclusive(&lock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
};

// Takes the next start from the queue. Returns an empty list if there is none; from then on nothing is
// appended to the queue.
std::list<ProgramStart> TakeNext(Queue& queue) {
    const Locked locked;
    std::list<ProgramStart> next;
    if (queue.waiting.empty())
        current = nullptr;
    else
        next.splice(next.begin(), queue.waiting, queue.waiting.begin());
    return next;
}

void RunToTheEnd(Queue& queue) {
    for (;;) {
        if (queue.running)
            WaitForSingleObject(queue.running.get(), INFINITE);
        std::list<ProgramStart> next = TakeNext(queue);
        if (next.empty())
            return;
        queue.running = next.front().Run();
    }
}

// Nothing on this thread throws: it has no ExceptionState.
DWORD WINAPI Work(void* parameter) {
    LibraryReference module;
    {
        const std::unique_ptr<Queue> queue(static_cast<Queue*>(parameter));
        RunToTheEnd(*queue);
        module = std::move(queue->module);
    }
    FreeLibraryAndExitThread(module.release(), 0);
}

}  // namespace

bool Append(std::list<ProgramStart> starts) {
    const Locked locked;
    if (current != nullptr) {
        current->waiting.splice(current->waiting.end(), starts);
        return true;
    }
    auto queue = std::make_unique<Queue>();
    if (!queue->module)
        return false;
    queue->waiting = std::move(starts);
    queue->running = queue->waiting.front().Run();
    queue->waiting.pop_front();
    if (!queue->running && queue->waiting.empty())
        return false;
    const HANDLE thread = CreateThread(nullptr, 0, Work, queue.get(), 0, nullptr);
    if (thread == nullptr)
        return false;
    CloseHandle(thread);
    current = queue.release();
    return true;
}

}  // namespace StartQueue
