// The built program as a process, and the world it is started in: a preset written into the registry value by
// value, a folder on the disk, and the program's output.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/windows/Process.h"

namespace EndToEnd {

// A preset under a key of its own, removed at the end. What is not set keeps the program's default, except
// that the list is saved into the folder of lists, over an older one, and not opened.
class StoredPreset {
public:
    StoredPreset();
    StoredPreset(const StoredPreset&) = delete;
    StoredPreset& operator=(const StoredPreset&) = delete;
    ~StoredPreset();

    const std::wstring Key = L"endtoend";

    // section is a path below the preset's key, such as L"Display".
    StoredPreset& Set(const std::wstring& section, const std::wstring& name, uint32_t value);
    StoredPreset& Set(const std::wstring& section, const std::wstring& name, const std::wstring& text);
    StoredPreset& Set(const std::wstring& section, const std::wstring& name,
                      const std::vector<std::wstring>& list);

    // Shows exactly these columns in this order; keys come first in priority, each with its order.
    StoredPreset& FolderColumns(const std::vector<std::wstring>& columns);
    StoredPreset& FileColumns(const std::vector<std::wstring>& columns);
    StoredPreset& FolderSort(const std::vector<std::pair<std::wstring, std::wstring>>& keys);
    StoredPreset& FileSort(const std::vector<std::pair<std::wstring, std::wstring>>& keys);

private:
    void Write(const std::wstring& section, const std::wstring& name, DWORD type, const void* data,
               size_t size);
    void Columns(const std::wstring& kind, size_t count, const std::vector<std::wstring>& columns);
    void Sort(const std::wstring& kind, const std::vector<std::pair<std::wstring, std::wstring>>& keys);
};

// The folder where lists go, without a trailing backslash. Empty at the start of each test.
std::wstring ListsFolder();

// The path of a file in the folder of the test program, where the built programs are too.
std::wstring PathBeside(const std::wstring& name);

class Process : public TestSupport::Process {
public:
    // Starts the program beside the test program with this command line after its name.
    explicit Process(const std::wstring& arguments);

    // The same with another program.
    Process(const std::wstring& program, const std::wstring& arguments);

    // Waits until the process shows a top-level window of this title, and returns it; null if the process
    // ends first.
    HWND WaitForWindow(const std::wstring& title) const;

    // Whether the process shows any top-level window now.
    bool HasWindow() const;
};

// The control with this id in a dialog of another process, or null. GetDlgItem would do, but on windows of
// other processes that come and go it hangs the server of Wine 10.
HWND ControlOf(HWND dialog, int id);

// Starts the program, waits and gives the exit code.
DWORD RunProgram(const std::wstring& arguments);

// The bytes of a file; fails the test if it cannot be read.
std::string ReadFile(const std::wstring& path);

// Every file name in a folder, sorted.
std::vector<std::wstring> FilesIn(const std::wstring& folder);

// The bytes of a list with its stamp replaced by "{stamp}". Fails the test unless the stamp is a moment of
// the last minute, in local time and the user's format.
std::string WithoutStamp(std::string list);

// An expected list, from the folder of lists beside these sources.
std::string ExpectedList(const std::string& name);

// The first line in which two lists differ, for a failure message.
std::string FirstDifference(const std::string& expected, const std::string& actual);

}  // namespace EndToEnd
