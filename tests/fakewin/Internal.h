// What the parts of the stand-in share. Each part guards its own state by its own mutex and never holds it
// while code of a test or of the product runs.
#pragma once

#include <string>
#include <string_view>

#include "FakeWin.h"

namespace FakeWin::Internal {

// Counts one use of the call and returns the error with which it must fail, or 0.
DWORD Enter(Call call);
DWORD Enter(Call call, const std::wstring& subject);

// Adds one use to the log.
void Note(Call call, const std::wstring& subject, DWORD detail, DWORD error);
void NoteFind(const FindCall& call);

// One use of a call with a subject, from counting to logging. body returns the call's error, and so does
// this.
template <typename Body>
DWORD Watched(Call call, const std::wstring& subject, DWORD detail, Body body) {
    const DWORD fault = Enter(call, subject);
    const DWORD error = fault != 0 ? fault : body();
    Note(call, subject, detail, error);
    return error;
}

// The same for a call that logs before it begins: its fault, or 0 if it may go on.
inline DWORD Watched(Call call, const std::wstring& subject) {
    return Watched(
        call, subject, 0, [] { return DWORD{0}; });
}

// For calls that return TRUE on success and otherwise leave their error to GetLastError.
inline BOOL Succeeded(DWORD error) {
    if (error != 0)
        SetLastError(error);
    return error == 0;
}

// To be the first statement of a call whose allocations are the system's own.
class SystemMemory {
public:
    SystemMemory();
    ~SystemMemory();
    SystemMemory(const SystemMemory&) = delete;
    SystemMemory& operator=(const SystemMemory&) = delete;
};

// The case of one UTF-16 unit: the alphabets of Europe, others stay as they are. Fold is for comparing names.
wchar_t Lower(wchar_t unit);
wchar_t Upper(wchar_t unit);
std::wstring Fold(std::wstring_view text);

// For messages: units above 127 as \uXXXX.
std::string Narrow(std::wstring_view text);

// Whether less precedes more when case is ignored.
struct FoldedLess {
    using is_transparent = void;
    bool operator()(std::wstring_view less, std::wstring_view more) const;
};

// Mutexes, which are waited for and closed by the calls for all handles. CloseMutex returns whether it was
// one.
bool IsMutex(HANDLE handle);
DWORD WaitForMutex(HANDLE handle, DWORD milliseconds);
bool CloseMutex(HANDLE handle);

// Files that CreateFileW has opened, which are closed by the call for all handles. CloseReadFile returns
// whether it was one.
bool CloseReadFile(HANDLE handle);

// The handles that each part has open, in the form of LeftOpen.
std::string OpenFilesText();
std::string OpenKeysText();
std::string OpenTextsText();
std::string OpenIconsText();
std::string OpenMutexesText();
std::string OpenReadFilesText();
std::string OpenHashesText();

void ResetCalls();
void ResetFiles();
void ResetConsole();
void ResetRegistry();
void ResetTime();
void ResetText();
void ResetShell();
void ResetMutexes();
void ResetReadFiles();
void ResetHashes();
void ResetWindows();

}  // namespace FakeWin::Internal
