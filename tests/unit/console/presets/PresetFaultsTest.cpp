// Changes of presets while the system refuses: all is stored or nothing, and the exit code says which.
#include <atomic>
#include <thread>

#include "FakeWindows.h"
#include "PresetsRun.h"
#include "console/presets/PresetLock.h"
#include "settings/Preset.h"
#include "support/native/Snapshot.h"

using Console::ExitCode;
using FakeWin::Call;
using TestSupport::Differences;
using TestSupport::RegistryNow;
using TestSupport::Snapshot;

namespace {

constexpr wchar_t File[] = L"C:\\Lists\\presets.json";

struct PresetFaults : PresetsFixture {
    // Two presets, and a file with one of them and a new one.
    void Prepare() const {
        FakeWin::Reset();
        Console::CatchInterrupts();
        Preset preset(L"first");
        preset.Get(Preset::Name) = L"First";
        preset.Get(Preset::Position) = 1;
        EXPECT_TRUE(preset.Save());
        Preset second(L"second");
        second.Get(Preset::Name) = L"Second";
        second.Get(Preset::Position) = 2;
        EXPECT_TRUE(second.Save());
        FakeWin::AddFile(File, R"({"format":"tamblewick-presets","version":1,"presets":[{"Name":"New"},)"
                               R"({"Name":"Second","Format":{"ListStyle":"Html"},"Display":{"IndentSize":5,)"
                               R"("ShowFlatStyle":true},"Filter":{"ExcludedFolders":[]}}]})");
    }

    // All commands that change presets.
    const std::vector<Console::Arguments> Changes = {
        {L"new", L"0"},
        {L"duplicate", L"first"},
        {L"rename", L"first", L"Other"},
        {L"set", L"first", L"Display.IndentSize=5", L"Columns.FileEnabled[2]=true",
         L"Saving.SaveLocation=Custom", L"Name=Third", L"Filter.ExcludedFolders=[\"x\"]"},
        {L"remove", L"first", L"second"},
        {L"import", File},
        {L"import", File, L"--replace"},
    };

    // Fails each use of the call in each command. What the command has changed must then be undone.
    void FailEachUse(Call call, DWORD error) {
        for (const Console::Arguments& arguments : Changes) {
            Prepare();
            const int before = FakeWin::Uses(call);
            EXPECT_EQ(Run(arguments).code, ExitCode::Complete);
            const int uses = FakeWin::Uses(call) - before;
            for (int use = 1; use <= uses; ++use) {
                Prepare();
                const Snapshot stored = RegistryNow();
                FakeWin::FailNth(call, use, error);
                const Outcome outcome = Run(arguments);
                SCOPED_TRACE(TestSupport::Utf8(arguments[0]) + ", use " + std::to_string(use));
                EXPECT_EQ(outcome.code, ExitCode::NotWritten);
                EXPECT_EQ(outcome.out, "");
                EXPECT_EQ(Differences(RegistryNow(), stored), "");
                EXPECT_EQ(FakeWin::LeftOpen(), "");
            }
        }
    }
};

// Destroys what it holds on a thread of its own.
class OtherThread {
public:
    template <typename Body>
    explicit OtherThread(Body body) : thread_(body) {}
    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;
    ~OtherThread() { thread_.join(); }

private:
    std::thread thread_;
};

}  // namespace

TEST_F(PresetFaults, AValueThatCannotBeWrittenUndoesTheChange) {
    FailEachUse(Call::RegSetValueExW, ERROR_ACCESS_DENIED);
}

TEST_F(PresetFaults, AKeyThatCannotBeCreatedUndoesTheChange) {
    FailEachUse(Call::RegCreateKeyExW, ERROR_ACCESS_DENIED);
}

TEST_F(PresetFaults, AKeyThatCannotBeDeletedUndoesTheChange) {
    FailEachUse(Call::RegDeleteKeyW, ERROR_ACCESS_DENIED);
}

TEST_F(PresetFaults, WithoutALockNothingIsChanged) {
    FailEachUse(Call::CreateMutexW, ERROR_ACCESS_DENIED);
    FailEachUse(Call::WaitForSingleObject, ERROR_INVALID_HANDLE);
}

TEST_F(PresetFaults, MessagesNameThePreset) {
    Prepare();
    FakeWin::Fail(Call::RegSetValueExW, ERROR_ACCESS_DENIED);
    ExpectFailure({L"new", L"0", L"Mine"}, ExitCode::NotWritten,
                  "the preset 'Mine' could not be stored in the registry");
    ExpectFailure({L"rename", L"first", L"x"}, ExitCode::NotWritten,
                  "the preset 'first' could not be stored in the registry");
    FakeWin::Fail(Call::RegCreateKeyExW, ERROR_ACCESS_DENIED);
    ExpectFailure({L"new", L"0", L"Mine"}, ExitCode::NotWritten,
                  "the preset could not be stored in the registry");
    FakeWin::Fail(Call::RegDeleteKeyW, ERROR_ACCESS_DENIED);
    ExpectFailure({L"remove", L"first"}, ExitCode::NotWritten,
                  "the preset 'first' could not be removed from the registry");
    FakeWin::Fail(Call::CreateMutexW, ERROR_ACCESS_DENIED);
    ExpectFailure({L"list"}, ExitCode::NotWritten,
                  "the presets cannot be locked against changes by other programs; try again");
}

TEST_F(PresetFaults, AKeyThatCannotBePrintedIsNotStored) {
    for (const Console::Arguments& arguments : {Changes[0], Changes[1], Changes[5], Changes[6]}) {
        Prepare();
        const Snapshot stored = RegistryNow();
        FakeWin::FailOn(Call::WriteFile, L"standard output", ERROR_DISK_FULL);
        ExpectFailure(arguments, ExitCode::NotWritten, "the standard output could not be written");
        EXPECT_EQ(Differences(RegistryNow(), stored), "");
    }
}

TEST_F(PresetFaults, OutputThatCannotBeWrittenIsAnError) {
    for (const Console::Arguments& arguments : {Console::Arguments{L"list"},
                                                {L"list", L"--json"},
                                                {L"templates"},
                                                {L"get", L"first"},
                                                {L"export"}}) {
        Prepare();
        FakeWin::FailOn(Call::WriteFile, L"standard output", ERROR_DISK_FULL);
        ExpectFailure(arguments, ExitCode::NotWritten, "the standard output could not be written");
    }
}

TEST_F(PresetFaults, AnExportThatFailsLeavesTheFormerFile) {
    for (const Call call : {Call::OpenFile, Call::WriteFile, Call::CloseFile, Call::MoveFileExW}) {
        Prepare();
        FakeWin::AddFile(File, "yesterday");
        const std::wstring part = std::wstring(File) + L".part";
        FakeWin::FailOn(call, part, ERROR_DISK_FULL);
        const Outcome outcome = Run({L"export", L"-o", File});
        EXPECT_EQ(outcome.code, ExitCode::NotWritten) << FakeWin::NameOf(call);
        EXPECT_TRUE(outcome.error.starts_with("tamblewickc: the file 'C:\\Lists\\presets.json' c"))
            << outcome.error;
        EXPECT_EQ(FakeWin::Contents(File), "yesterday");
        EXPECT_FALSE(FakeWin::EntryExists(part));
    }
}

TEST_F(PresetFaults, CtrlCUndoesTheChange) {
    for (const Console::Arguments& arguments : Changes) {
        Prepare();
        const Snapshot stored = RegistryNow();
        FakeWin::SendConsoleEvent(CTRL_C_EVENT);
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.code, ExitCode::Cancelled);
        EXPECT_EQ(outcome.error, "");
        EXPECT_EQ(Differences(RegistryNow(), stored), "") << TestSupport::Utf8(arguments[0]);
    }
}

TEST_F(PresetFaults, CtrlCWhileTheStandardInputIsReadIsNoDamagedFile) {
    FakeWin::SetStandardInput("{");
    FakeWin::SendConsoleEvent(CTRL_C_EVENT);
    const Outcome outcome = Run({L"import", L"-"});
    EXPECT_EQ(outcome.code, ExitCode::Cancelled);
    EXPECT_EQ(outcome.error, "");
}

TEST_F(PresetFaults, CtrlCEndsTheWaitForTheLock) {
    Prepare();
    const Console::PresetLock lock;
    FakeWin::SendConsoleEvent(CTRL_C_EVENT);
    ExitCode code = ExitCode::Complete;
    {
        const OtherThread other([&] { code = Run({L"list"}).code; });
    }
    EXPECT_EQ(code, ExitCode::Cancelled);
    EXPECT_EQ(FakeWin::OpenMutexes(), 1);
}

TEST_F(PresetFaults, AChangeWaitsForTheOneBefore) {
    Prepare();
    std::atomic<bool> locked = true;
    std::atomic<bool> changedWhileLocked = false;
    auto lock = std::make_unique<Console::PresetLock>();
    {
        const OtherThread other([&] {
            Run({L"rename", L"first", L"Later"});
            changedWhileLocked = locked.load();
        });
        while (FakeWin::Uses(Call::WaitForSingleObject) < 2)
            std::this_thread::yield();
        EXPECT_EQ(Text(L"first", L"Name"), L"First");
        locked = false;
        lock.reset();
    }
    EXPECT_FALSE(changedWhileLocked);
    EXPECT_EQ(Text(L"first", L"Name"), L"Later");
}

TEST_F(PresetFaults, AnOpenMainWindowIsReportedAfterAChange) {
    constexpr int MainDialog = 700;
    FakeWin::DialogTemplate mainWindow;
    mainWindow.caption = L"Tamblewick 4.0.1";
    mainWindow.size = {100, 100};
    const std::string warning =
        "tamblewickc: a window of Tamblewick is open, and its next change overwrites this one; close it and "
        "open it "
        "again\n";
    for (const Console::Arguments& arguments : Changes) {
        Prepare();
        EXPECT_EQ(Run(arguments).error, "");
        Prepare();
        FakeWin::DefineDialog(MainDialog, mainWindow);
        const HWND window = CreateDialogParamW(nullptr, MAKEINTRESOURCEW(MainDialog), nullptr, nullptr, 0);
        EXPECT_EQ(Run(arguments).error, warning);
        EXPECT_EQ(Run({L"list"}).error, "");
        DestroyWindow(window);
    }
}

TEST_F(PresetFaults, AnotherWindowOfThisTitleIsNoMainWindow) {
    Prepare();
    const HWND window = FakeWin::CreatePlainWindow(L"Tamblewick 4.0.1");
    EXPECT_EQ(Run({L"rename", L"first", L"x"}).error, "");
    DestroyWindow(window);
}
