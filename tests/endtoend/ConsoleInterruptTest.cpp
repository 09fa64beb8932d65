// Ctrl+C while the companion makes a list.
#include <gtest/gtest.h>

#include <array>

#include "endtoend/Companion.h"
#include "endtoend/Program.h"
#include "support/TempFolder.h"

namespace {

// A running companion with a console of its own.
class Running {
public:
    Running(std::wstring commandLine, const TestSupport::ProcessOptions& options) {
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = options.output;
        startup.hStdError = options.error;
        EXPECT_TRUE(CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, CREATE_NEW_CONSOLE,
                                   nullptr, nullptr, &startup, &process_));
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        // Started processes inherit that Ctrl+C is ignored.
        SetConsoleCtrlHandler(nullptr, FALSE);
        TerminateProcess(process_.hProcess, 99);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }

    // Presses Ctrl+C in the console of the companion, which this process attaches to for that moment.
    void Interrupt() const {
        const std::array<HANDLE, 2> before = {GetStdHandle(STD_OUTPUT_HANDLE),
                                              GetStdHandle(STD_ERROR_HANDLE)};
        FreeConsole();
        EXPECT_TRUE(AttachConsole(process_.dwProcessId));
        SetConsoleCtrlHandler(nullptr, TRUE);
        EXPECT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
        FreeConsole();
        SetStdHandle(STD_OUTPUT_HANDLE, before[0]);
        SetStdHandle(STD_ERROR_HANDLE, before[1]);
    }

    bool IsRunning() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT; }

    DWORD Wait() const {
        EXPECT_EQ(WaitForSingleObject(process_.hProcess, 60'000), static_cast<DWORD>(WAIT_OBJECT_0));
        DWORD code = 99;
        GetExitCodeProcess(process_.hProcess, &code);
        return code;
    }

private:
    PROCESS_INFORMATION process_ = {};
};

// A pipe that holds so little that each write waits for a read.
class NarrowPipe {
public:
    NarrowPipe() {
        SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
        EXPECT_TRUE(CreatePipe(&reader_, &writer_, &inherited, 1));
        SetHandleInformation(reader_, HANDLE_FLAG_INHERIT, 0);
    }
    NarrowPipe(const NarrowPipe&) = delete;
    NarrowPipe& operator=(const NarrowPipe&) = delete;
    ~NarrowPipe() {
        CloseHandle(reader_);
        CloseHandle(writer_);
    }

    HANDLE Writer() const { return writer_; }

    // Waits until a write waits.
    bool WaitForWrite() const {
        for (int i = 0; i < 800; ++i) {
            DWORD available = 0;
            if (PeekNamedPipe(reader_, nullptr, 0, nullptr, &available, nullptr) && available > 0)
                return true;
            Sleep(10);
        }
        return false;
    }

    // Reads until the process that writes has ended.
    void ReadUntilEndOf(const Running& running) const {
        while (running.IsRunning()) {
            DWORD available = 0;
            std::array<char, 4096> block;
            if (PeekNamedPipe(reader_, nullptr, 0, nullptr, &available, nullptr) && available > 0)
                ReadFile(reader_, block.data(), static_cast<DWORD>(block.size()), &available, nullptr);
            else
                Sleep(5);
        }
    }

private:
    HANDLE reader_ = nullptr;
    HANDLE writer_ = nullptr;
};

// Interrupts the companion while it waits for its first write to the pipe, and gives the event time to
// arrive: it sets a flag on a thread of the companion, which cannot be seen from outside. Returns the exit
// code.
DWORD InterruptAtFirstWrite(const Running& running, const NarrowPipe& pipe) {
    EXPECT_TRUE(pipe.WaitForWrite());
    running.Interrupt();
    Sleep(1000);
    pipe.ReadUntilEndOf(running);
    return running.Wait();
}

// The progress is written during the scan. The folder of the system's programs and data takes longer than the
// interval of the progress.
TEST(ConsoleInterrupt, EndsAScanWithoutAList) {
    const TestSupport::TempFolder folder;
    folder.AddFile(L"out.csv", std::string("yesterday"));
    const NarrowPipe pipe;
    const Running running(
        EndToEnd::CompanionCommand(L"list --template 0 Z:\\usr -f csv --progress always -o \"" +
                                   folder.Path(L"out.csv") + L"\""),
        {.output = pipe.Writer(), .error = pipe.Writer()});
    EXPECT_EQ(InterruptAtFirstWrite(running, pipe), 130u);
    EXPECT_EQ(folder.Read(L"out.csv"), "yesterday");
    EXPECT_FALSE(folder.Exists(L"out.csv.part"));
}

TEST(ConsoleInterrupt, EndsTheWritingOfAList) {
    const TestSupport::TempFolder folder;
    for (int i = 0; i < 800; ++i)
        folder.AddFile(L"Data\\" + std::wstring(150, L'x') + std::to_wstring(i));
    const NarrowPipe pipe;
    EndToEnd::OutputFile error;
    const Running running(
        EndToEnd::CompanionCommand(L"list --template 0 \"" + folder.Path(L"Data") + L"\" -o -"),
        {.output = pipe.Writer(), .error = error.Handle()});
    EXPECT_EQ(InterruptAtFirstWrite(running, pipe), 130u);
    EXPECT_EQ(error.ReadAll(), "");
}

// To read the file to its end takes minutes.
TEST(ConsoleInterrupt, EndsTheReadingOfAFile) {
    const TestSupport::TempFolder folder;
    folder.AddFile(L"Data\\large", 20'000'000'000);
    folder.AddFile(L"sums", std::string("yesterday"));
    const NarrowPipe pipe;
    const Running running(
        EndToEnd::CompanionCommand(L"list --template 0 \"" + folder.Path(L"Data") +
                                   L"\" -f sha256sum --progress always -o \"" + folder.Path(L"sums") + L"\""),
        {.output = pipe.Writer(), .error = pipe.Writer()});
    EXPECT_TRUE(pipe.WaitForWrite());
    running.Interrupt();
    Sleep(1000);
    const DWORD resumed = GetTickCount();
    pipe.ReadUntilEndOf(running);
    const DWORD taken = GetTickCount() - resumed;
    RecordProperty("milliseconds", static_cast<int>(taken));
    EXPECT_LT(taken, 3000u);
    EXPECT_EQ(running.Wait(), 130u);
    EXPECT_EQ(folder.Read(L"sums"), "yesterday");
    EXPECT_FALSE(folder.Exists(L"sums.part"));
}

}  // namespace
