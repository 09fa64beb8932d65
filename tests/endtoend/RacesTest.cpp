// Hundreds of processes, several at once, whose dialog is pressed from outside at any moment.
#include <gtest/gtest.h>

#include <atomic>
#include <iostream>
#include <thread>

#include "endtoend/Program.h"
#include "resources/resource.h"
#include "support/Random.h"
#include "support/TempFolder.h"

#include <tlhelp32.h>

using EndToEnd::ControlOf;
using EndToEnd::ListsFolder;
using EndToEnd::Process;

namespace {

constexpr int Lanes = 4;

const std::vector<int> Presses[] = {
    {},
    {IDC_PROGRESS_CANCEL},
    {IDC_PROGRESS_BACKGROUND},
    {IDC_PROGRESS_CANCEL, IDC_PROGRESS_BACKGROUND},
    {IDC_PROGRESS_BACKGROUND, IDC_PROGRESS_CANCEL},
};

struct Search {
    DWORD process;
    int control;
    HWND found;
};

BOOL CALLBACK Visit(HWND window, LPARAM parameter) {
    Search& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process || !(ControlOf(window, search.control) || ControlOf(window, IDOK)))
        return TRUE;
    search.found = window;
    return FALSE;
}

// Waits for a window of the process, visible or not, that has this control or is a message box, after which
// the control may never appear; null if the process ends first.
HWND WaitForWindow(const Process& program, int control) {
    Search search = {program.Id(), control, nullptr};
    do {
        EnumWindows(Visit, reinterpret_cast<LPARAM>(&search));
    } while (search.found == nullptr && program.IsRunning());
    return search.found;
}

int RunningPrograms() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    int count = 0;
    for (BOOL more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry))
        count += std::wstring(entry.szExeFile) == L"tamblewick.exe";
    CloseHandle(snapshot);
    return count;
}

class ProcessRaces : public testing::Test {
protected:
    ProcessRaces() {
        for (int lane = 0; lane < Lanes; ++lane)
            for (const wchar_t* const name : {L"\\first.txt", L"\\last.txt"})
                folder_.AddFile(NameOf(lane) + name);
    }

    static std::wstring NameOf(int lane) { return L"Lane " + std::to_wstring(lane); }

    // One process. Returns what was wrong, or nothing.
    std::string Race(int lane, Random& random) {
        const bool fails = random.Below(6) == 0;
        const std::vector<int>& presses = random.Choose(Presses);
        const std::wstring name = NameOf(lane) + (fails ? L" missing" : L"");
        const std::wstring list = ListsFolder() + L"\\List of " + name + L".txt";
        Process program(preset_.Key + L" \"" + folder_.Path(name) + L"\"");
        for (const int button : presses) {
            const HWND window = WaitForWindow(program, button);
            // From the moment in which the button exists to one after the end.
            for (uint32_t turns = random.Below(60) * random.Below(60); turns > 0; turns--)
                SwitchToThread();
            if (const HWND target = ControlOf(window, button))
                PostMessageW(target, BM_CLICK, 0, 0);
        }
        if (fails)
            AnswerBoxes(program);
        const DWORD code = program.Wait();
        std::string wrong = code == 0 ? "" : std::to_string(code) + " as exit code\n";
        const std::optional<std::string> bytes = TestSupport::ReadBytes(list);
        const bool cancels = std::find(presses.begin(), presses.end(), IDC_PROGRESS_CANCEL) != presses.end();
        if (!bytes && !cancels && !fails)
            wrong += "no list\n";
        if (bytes && fails)
            wrong += "a list in spite of an error\n";
        if (bytes && !(bytes->find("first.txt\r\n") != std::string::npos && bytes->ends_with("last.txt\r\n")))
            wrong += "the list is not complete\n";
        DeleteFileW(list.c_str());
        return wrong;
    }

    const EndToEnd::StoredPreset preset_;
    const TestSupport::TempFolder folder_;

private:
    // Until the process ends, which it does only with the answer: a box that goes with its dialog is followed
    // by another one, and a box that never comes is reported by Wait.
    static void AnswerBoxes(const Process& program) {
        while (const HWND box = WaitForWindow(program, IDOK))
            PostMessageW(box, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(ControlOf(box, IDOK)));
    }
};

TEST_F(ProcessRaces, EndWithTheListThatTheUserLeft) {
    constexpr int Starts = 300;
    const uint32_t firstSeed = FirstSeed();
    std::cout << "TAMBLEWICK_SEED=" << firstSeed << '\n';
    std::atomic<int> next = 0;
    std::vector<std::thread> lanes;
    for (int lane = 0; lane < Lanes; ++lane)
        lanes.emplace_back([&, lane] {
            for (int start = next++; start < Starts && !HasFailure(); start = next++) {
                const uint32_t seed = firstSeed + static_cast<uint32_t>(start);
                Random random(seed);
                EXPECT_EQ(Race(lane, random), "") << "TAMBLEWICK_SEED=" << seed;
            }
        });
    for (std::thread& lane : lanes)
        lane.join();
    EXPECT_EQ(RunningPrograms(), 0);
}

}  // namespace
