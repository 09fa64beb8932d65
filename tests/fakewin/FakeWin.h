// What a test can do to the stand-in for Win32: fill its world, make its calls fail, and read what was done
// to it. Everything lies in memory and is thread safe. Reset brings back the empty world; the test support
// does it before each test.
//
// wchar_t holds one UTF-16 unit. Paths of files are plain Windows paths (C:\..., \\server\share\...), without
// the \\?\ prefix; what a call was given with the prefix is reported without it, but for the text of a query.
// Subjects of registry calls begin with "HKCU\" or "HKCR\" and end, where a value is concerned, with a
// backslash and its name. All comparisons of paths and keys ignore case.
//
// The header's parts: the whole world, calls and their faults, files, registry, time and text, shell; windows
// have a header of their own, FakeWindows.h.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

namespace FakeWin {

// ---- The whole world

// Forgets everything and restores the state before the first test: the drive C: with the folder C:\Temp, an
// empty registry, no windows, a desktop of 1024 by 768. Open handles become invalid.
void Reset();

// Find handles, registry keys, files, system texts, icons, mutexes and hashes that are open now, one to a
// line as "find C:\Data"; empty if there are none. Process handles do not count, see OpenProcesses.
std::string LeftOpen();

int OpenFinds();
int OpenKeys();
int OpenFiles();

// While one exists, the calls of this thread are not counted, not logged, and do not fail on request. For
// test code that itself uses the calls.
class Unwatched {
public:
    Unwatched();
    ~Unwatched();
    Unwatched(const Unwatched&) = delete;
    Unwatched& operator=(const Unwatched&) = delete;
};

// ---- Calls and their faults

enum class Call {
    GetFileAttributesW,    // subject: the path
    GetFileAttributesExW,  // the path
    FindFirstFileExW,      // the folder that is searched
    FindNextFileW,         // the folder
    FindClose,             // the folder
    OpenFile,              // the path; _wfsopen
    WriteFile,             // the path; one write of an open file
    CloseFile,             // the path; the file is closed all the same
    DeleteFileW,           // the path
    MoveFileExW,           // the path of the file that is moved
    GetTempPathW,          // no subject from here to GetModuleHandleW
    GetModuleFileNameW,
    GetLongPathNameW,
    GetTickCount,
    Sleep,
    GetLocalTime,
    FileTimeToSystemTime,
    CompareFileTime,
    CompareStringW,
    CharLowerW,
    GetDateFormatW,
    GetTimeFormatW,
    FormatMessageW,
    LocalFree,
    GetModuleHandleW,
    RegOpenKeyExW,     // the key, also where it does not exist
    RegCreateKeyExW,   // the key
    RegCloseKey,       // the key
    RegQueryValueExW,  // the value
    RegSetValueExW,    // the value
    RegDeleteValueW,   // the value
    RegEnumValueW,     // the key
    RegEnumKeyExW,     // the key
    RegQueryInfoKeyW,  // the key
    RegDeleteKeyW,     // the key to be deleted
    ShellExecuteExW,   // the file, as given
    WaitForSingleObject,
    GetExitCodeProcess,
    CloseHandle,
    SHChangeNotify,
    DialogBoxParamW,     // the number of the template in decimal
    CreateDialogParamW,  // the number of the template
    GetMessageW,
    PostMessageW,
    MessageBoxW,  // the text
    GetDesktopWindow,
    LoadImageW,                   // the number of the resource
    GetFullPathNameW,             // no subject
    ReadFile,                     // the path; one read of an open file
    CreateMutexW,                 // the name
    ReleaseMutex,                 // the name
    FindWindowW,                  // the title
    CreateFileW,                  // the path
    BCryptOpenAlgorithmProvider,  // no subject from here on; they return the error
    BCryptCreateHash,
    BCryptHashData,
    BCryptFinishHash,
    Count,
};

// The name of a call, for messages.
const char* NameOf(Call call);

// How often a call was used since the last Reset.
int Uses(Call call);

// The use-th use of the call from now on fails with the error; 1 is the next one. The call then does nothing
// and returns what it returns on failure: FindFirstFileExW INVALID_HANDLE_VALUE, GetTempPathW and
// CompareStringW 0, a registry call the error itself, DialogBoxParamW and GetMessageW -1, ...
void FailNth(Call call, int use, DWORD error);

// Runs the action inside the use-th use of the call from now on, on its thread, before the call does
// anything.
void AtUse(Call call, int use, std::function<void()> action);

// Each use of the call fails from now on, or the next times uses.
inline constexpr int Always = -1;
void Fail(Call call, DWORD error, int times = Always);

// The same for one subject: FailOn(Call::FindFirstFileExW, L"C:\\Data\\Secret", ERROR_ACCESS_DENIED),
// FailOn(Call::RegSetValueExW, L"HKCU\\Software\\Tamblewick\\FirstRun", ERROR_ACCESS_DENIED). Several errors
// for the same subject follow one another as each one's times are used up: 50 once, then 5.
void FailOn(Call call, const std::wstring& subject, DWORD error, int times = Always);

// The enumeration of this folder breaks off: after count entries, "." and ".." included, the next step fails
// with the error. ERROR_NO_MORE_FILES ends it early as if there were no more. The first entry comes from
// FindFirstFileExW and counts.
void FailFindNext(const std::wstring& folder, int count, DWORD error);

// How many uses have failed on request since the last Reset.
int FaultsStruck();

// GetTempPathW returns this number and leaves the buffer alone: as for a path too long.
void SetTempPathResult(DWORD result);

// One use of a call that has a subject, or of ShellExecuteExW and the like; the calls without a subject and
// FindNextFileW, which come in great numbers, are not logged. The log ends after eight million characters.
struct LoggedCall {
    Call call;
    std::wstring subject;
    DWORD detail;  // of RegOpenKeyExW and RegCreateKeyExW the access that was asked for, of FindFirstFileExW
                   // the flags
    DWORD error;   // 0 if it succeeded
};
std::vector<LoggedCall> Log();
void ClearLog();

// Benchmarks switch the log off.
void SetLogging(bool enabled);

// Whether this thread is inside a file call or a comparison of texts: what is allocated there belongs to the
// system and not to its caller. For tests in which memory runs out.
bool AllocatesForTheSystem();

// One use of FindFirstFileExW in full.
struct FindCall {
    std::wstring query;  // as given, prefix included
    FINDEX_INFO_LEVELS level;
    DWORD flags;
};
std::vector<FindCall> FindCalls();

// ---- Files

// Each makes the missing folders above it, the drive or share included. A folder enumerates its entries in
// the order in which they were added, after "." and ".."; the root of a drive or share has no such two. An
// entry that exists is changed in place. A folder has FILE_ATTRIBUTE_DIRECTORY in any case.
void AddFolder(const std::wstring& path, DWORD attributes = FILE_ATTRIBUTE_DIRECTORY);
void AddFile(const std::wstring& path, uint64_t size = 0, DWORD attributes = FILE_ATTRIBUTE_ARCHIVE);
void AddFile(const std::wstring& path, const std::string& contents,
             DWORD attributes = FILE_ATTRIBUTE_ARCHIVE);

// The entry must exist. New entries have the three times of 2020-01-02 03:04:05 UTC.
void SetTimes(const std::wstring& path, FILETIME created, FILETIME accessed, FILETIME written);
void SetAttributes(const std::wstring& path, DWORD attributes);

// An entry and all that lies below it.
void RemoveEntry(const std::wstring& path);

bool EntryExists(const std::wstring& path);

// The bytes of a file, with 0D 0A if it was written in text mode; nothing if there is no such file.
std::optional<std::string> Contents(const std::wstring& path);

// All files below a folder that have been opened for writing since the last Reset, in this order.
std::vector<std::wstring> WrittenFiles();

// How many writes of any size have reached this file since it was opened last.
int WritesTo(const std::wstring& path);

// The disk under this file is full after this many bytes (as stored on the disk).
void FailWritesAfter(const std::wstring& path, uint64_t bytes);

// What GetTempPathW, GetModuleFileNameW and GetLongPathNameW give: at first C:\Temp\ and
// C:\Program Files\Tamblewick\tamblewick.exe; a path without a long form of its own is its own.
void SetTempPath(const std::wstring& path);
void SetModulePath(const std::wstring& path);
void SetLongPath(const std::wstring& path, const std::wstring& longPath);

// ---- Console
//
// The standard output and the standard error, each a file until it is made a console. Their writes are calls
// of Call::WriteFile with the subjects "standard output" and "standard error". The current folder is C:\.

// Everything that was written to them since the last Reset, as on the disk.
std::string StandardOutput();
std::string StandardError();

// What a program reads from its standard input; at first nothing. Reads are calls of Call::ReadFile with the
// subject "standard input".
void SetStandardInput(const std::string& contents);

// There is no standard output any more, as after ">&-".
void CloseStandardOutput();

// The standard output, or the standard error, is a console with lines of this many characters.
void SetOutputConsole(int width);
void SetErrorConsole(int width);

// Calls the program's handler as the console does, on this thread. Returns whether there is one and it has
// handled the event.
bool SendConsoleEvent(DWORD event);

// ---- Registry
//
// Values are filled and read with TestSupport::TestRegistry, which does so on both sides. Data are kept byte
// for byte as they were given, so a text takes sizeof(wchar_t) bytes a character here and 2 on Windows; both
// are length * sizeof(wchar_t). HKEY_CLASSES_ROOT is another name of HKEY_CURRENT_USER\Software\Classes, so
// that tests fill it from there on both sides; the calls' subjects say HKCR\ all the same.

// ---- Time and text
//
// The user's locale is fixed: dates as 2024-03-09, times as 17:05:09. CompareStringW sorts punctuation before
// digits before letters; letters compare first without case and accents, then by accent, then lower case
// before upper; hyphen and apostrophe count only between otherwise equal texts, as Windows' word sort has it.

// GetTickCount is 0 until it is set or advanced; each use advances it by the step, at first 0, after
// it was read.
void SetTickCount(DWORD milliseconds);
void AdvanceTickCount(DWORD milliseconds);
void SetTickStep(DWORD milliseconds);

// GetLocaleInfoW gives ";" as the list separator, and GetSystemTimeAsFileTime 2024-03-09 16:05:09.

// What GetLocalTime gives; at first 2024-03-09 17:05:09.
void SetLocalTime(const SYSTEMTIME& time);

// The milliseconds of each Sleep since the last Reset. A Sleep really lasts 0.2 ms at most and does not move
// GetTickCount.
std::vector<DWORD> Sleeps();

// A time as the file system keeps it.
FILETIME MakeFileTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

// ---- Shell

struct ShellExecution {
    DWORD size;
    ULONG mask;
    HWND owner;
    std::optional<std::wstring> verb;  // empty for a null pointer
    std::optional<std::wstring> file;
    std::optional<std::wstring> parameters;
    std::optional<std::wstring> directory;
    int show;
    bool othersZero;  // all fields that are not named here
};
std::vector<ShellExecution> ShellExecutions();

// Runs inside each successful ShellExecuteExW, on its thread: in the place of the started program.
void OnShellExecute(std::function<void(const ShellExecution&)> program);

// The exit code of the programs started from now on; at first 0. A program ends while it is waited for.
void SetProcessExitCode(DWORD code);

// Mutex handles that were given out and not closed.
int OpenMutexes();

// Process handles that were given out and not closed; how often one was waited for, and with what limit.
int OpenProcesses();
std::vector<DWORD> ProcessWaits();

struct ShellNotification {
    LONG event;
    UINT flags;
    LPCVOID first;
    LPCVOID second;
};
std::vector<ShellNotification> ShellNotifications();

// LoadLibraryExW finds a module at this path, whose only function is DllInstall; null for none.
void SetInstallModule(const std::wstring& path, HRESULT (*dllInstall)(BOOL install, LPCWSTR text));

// Modules that were loaded and not freed.
int LoadedModules();

// What IsWow64Process of kernel32 answers: it does not exist, no (at first), or yes.
enum class Wow64 { Absent, No, Yes };
void SetWow64(Wow64 answer);

}  // namespace FakeWin
