// Starting programs, notifying the shell, and the few calls on modules and processes that the logic makes.
#include <shellapi.h>
#include <shlobj.h>

#include <map>
#include <memory>
#include <mutex>

#include "Internal.h"

namespace FakeWin {
namespace {

struct Process {
    DWORD exitCode;
    bool ended = false;  // has been waited for
};

struct State {
    std::vector<ShellExecution> executions;
    std::vector<ShellNotification> notifications;
    std::function<void(const ShellExecution&)> program;
    std::map<HANDLE, std::unique_ptr<Process>> processes;
    std::vector<DWORD> waits;
    DWORD exitCode = 0;
    Wow64 wow64 = Wow64::No;
    std::wstring modulePath;
    HRESULT (*dllInstall)(BOOL, LPCWSTR) = nullptr;
    int loadedModules = 0;
};

std::mutex mutex;

State& Shell() {
    static State state;
    return state;
}

int kernel32 = 0;  // its address is the handle of the module

std::optional<std::wstring> Copy(LPCWSTR text) {
    return text != nullptr ? std::optional<std::wstring>(text) : std::nullopt;
}

ShellExecution Record(const SHELLEXECUTEINFOW& info) {
    ShellExecution execution;
    execution.size = info.cbSize;
    execution.mask = info.fMask;
    execution.owner = info.hwnd;
    execution.verb = Copy(info.lpVerb);
    execution.file = Copy(info.lpFile);
    execution.parameters = Copy(info.lpParameters);
    execution.directory = Copy(info.lpDirectory);
    execution.show = info.nShow;
    execution.othersZero = info.hInstApp == nullptr && info.lpIDList == nullptr && info.lpClass == nullptr &&
                           info.hkeyClass == nullptr && info.dwHotKey == 0 && info.hIcon == nullptr &&
                           info.hProcess == nullptr;
    return execution;
}

// The process of a handle; under the mutex, null if there is none.
Process* FindProcess(HANDLE handle) {
    const auto found = Shell().processes.find(handle);
    return found != Shell().processes.end() ? found->second.get() : nullptr;
}

BOOL IsWow64ProcessFake(HANDLE, PBOOL answer) {
    const std::lock_guard lock(mutex);
    *answer = Shell().wow64 == Wow64::Yes;
    return TRUE;
}

}  // namespace

std::vector<ShellExecution> ShellExecutions() {
    const std::lock_guard lock(mutex);
    return Shell().executions;
}

void OnShellExecute(std::function<void(const ShellExecution&)> program) {
    const std::lock_guard lock(mutex);
    Shell().program = std::move(program);
}

void SetProcessExitCode(DWORD code) {
    const std::lock_guard lock(mutex);
    Shell().exitCode = code;
}

int OpenProcesses() {
    const std::lock_guard lock(mutex);
    return static_cast<int>(Shell().processes.size());
}

std::vector<DWORD> ProcessWaits() {
    const std::lock_guard lock(mutex);
    return Shell().waits;
}

std::vector<ShellNotification> ShellNotifications() {
    const std::lock_guard lock(mutex);
    return Shell().notifications;
}

void SetInstallModule(const std::wstring& path, HRESULT (*dllInstall)(BOOL install, LPCWSTR text)) {
    const std::lock_guard lock(mutex);
    Shell().modulePath = path;
    Shell().dllInstall = dllInstall;
}

int LoadedModules() {
    const std::lock_guard lock(mutex);
    return Shell().loadedModules;
}

void SetWow64(Wow64 answer) {
    const std::lock_guard lock(mutex);
    Shell().wow64 = answer;
}

namespace Internal {

void ResetShell() {
    const std::lock_guard lock(mutex);
    Shell() = State();
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;
using FakeWin::Internal::Enter;
using FakeWin::Internal::Succeeded;
using FakeWin::Internal::Watched;

BOOL ShellExecuteExW(SHELLEXECUTEINFOW* info) {
    const ShellExecution execution = Record(*info);
    const DWORD error =
        Watched(Call::ShellExecuteExW, execution.file.value_or(L""), info->fMask,
                [&]() -> DWORD { return info->cbSize == sizeof *info ? 0 : ERROR_ACCESS_DENIED; });
    std::function<void(const ShellExecution&)> program;
    {
        const std::lock_guard lock(mutex);
        Shell().executions.push_back(execution);
        if (error == 0 && (info->fMask & SEE_MASK_NOCLOSEPROCESS) != 0) {
            auto process = std::make_unique<Process>(Process{Shell().exitCode});
            info->hProcess = process.get();
            Shell().processes.emplace(info->hProcess, std::move(process));
        }
        program = Shell().program;
    }
    if (error == 0 && program)
        program(execution);
    return Succeeded(error);
}

void SHChangeNotify(LONG event, UINT flags, LPCVOID first, LPCVOID second) {
    Enter(Call::SHChangeNotify);
    const std::lock_guard lock(mutex);
    Shell().notifications.push_back({event, flags, first, second});
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
    if (FakeWin::Internal::IsMutex(handle))
        return FakeWin::Internal::WaitForMutex(handle, milliseconds);
    DWORD error = Enter(Call::WaitForSingleObject);
    const std::lock_guard lock(mutex);
    Shell().waits.push_back(milliseconds);
    Process* const process = FindProcess(handle);
    if (error == 0 && process == nullptr)
        error = ERROR_INVALID_HANDLE;
    if (error == 0)
        process->ended = true;
    return Succeeded(error) ? WAIT_OBJECT_0 : WAIT_FAILED;
}

BOOL GetExitCodeProcess(HANDLE handle, LPDWORD exitCode) {
    DWORD error = Enter(Call::GetExitCodeProcess);
    const std::lock_guard lock(mutex);
    const Process* process = FindProcess(handle);
    if (error == 0 && process == nullptr)
        error = ERROR_INVALID_HANDLE;
    if (error == 0)
        *exitCode = process->ended ? process->exitCode : STILL_ACTIVE;
    return Succeeded(error);
}

BOOL CloseHandle(HANDLE handle) {
    DWORD error = Enter(Call::CloseHandle);
    const std::lock_guard lock(mutex);
    using namespace FakeWin::Internal;
    if (error == 0 && !CloseMutex(handle) && !CloseReadFile(handle) && Shell().processes.erase(handle) == 0)
        error = ERROR_INVALID_HANDLE;
    return Succeeded(error);
}

HMODULE GetModuleHandleW(LPCWSTR name) {
    if (const DWORD fault = Enter(Call::GetModuleHandleW))
        return SetLastError(fault), nullptr;
    if (name == nullptr)
        return reinterpret_cast<HMODULE>(&Shell());
    const std::wstring folded = FakeWin::Internal::Fold(name);
    if (folded == L"KERNEL32" || folded == L"KERNEL32.DLL")
        return reinterpret_cast<HMODULE>(&kernel32);
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

HMODULE LoadLibraryExW(LPCWSTR path, HANDLE, DWORD) {
    const std::lock_guard lock(mutex);
    if (Shell().dllInstall == nullptr || Shell().modulePath != path) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    ++Shell().loadedModules;
    return reinterpret_cast<HMODULE>(&Shell().modulePath);
}

BOOL FreeLibrary(HMODULE) {
    const std::lock_guard lock(mutex);
    --Shell().loadedModules;
    return TRUE;
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name) {
    const std::lock_guard lock(mutex);
    if (module == reinterpret_cast<HMODULE>(&Shell().modulePath) && std::string_view(name) == "DllInstall")
        return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(Shell().dllInstall));
    const bool known =
        module == reinterpret_cast<HMODULE>(&kernel32) && std::string_view(name) == "IsWow64Process";
    if (known && Shell().wow64 != Wow64::Absent)
        return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(IsWow64ProcessFake));
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}

HANDLE GetCurrentProcess() {
    return INVALID_HANDLE_VALUE;
}
