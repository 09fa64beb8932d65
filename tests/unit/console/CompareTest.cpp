// "compare" in the stand-in's world.
#include <gtest/gtest.h>

#include "FakeWin.h"
#include "console/Commands.h"
#include "console/Interrupt.h"
#include "winlib/Windows.h"

using Console::ExitCode;
using FakeWin::StandardError;
using FakeWin::StandardOutput;

namespace {

const std::string Head =
    R"({"type":"list","format":1,"program":"x","root":"C:\\Data","preset":"p","created":"2026-11-21T06:00:00.0000000Z"})"
    "\n";
const std::string Summary = R"({"type":"summary","size":1,"folders":0,"files":1,"unreadable":0})"
                            "\n";

std::string Entry(const std::string& type, const std::string& path, int size,
                  const std::string& modified = "2026-01-02T08:00:00.0000000Z",
                  const std::string& more = "") {
    return R"({"type":")" + type + R"(","path":")" + path + R"(","size":)" + std::to_string(size) +
           R"(,"modified":")" + modified + "\"" + more + "}\n";
}

std::string File(const std::string& path, int size,
                 const std::string& modified = "2026-01-02T08:00:00.0000000Z", const std::string& more = "") {
    return Entry("file", path, size, modified, more);
}

struct Compare : testing::Test {
    Compare() { Console::CatchInterrupts(); }

    // Compares two lists with these entries.
    static ExitCode Run(const std::string& before, const std::string& after, Console::Arguments more = {}) {
        FakeWin::AddFile(L"C:\\old.jsonl", Head + before + Summary);
        FakeWin::AddFile(L"C:\\new.jsonl", Head + after + Summary);
        return RunOnFiles(std::move(more));
    }

    static ExitCode RunOnFiles(Console::Arguments more = {}) {
        Console::Arguments arguments = {L"compare", L"C:\\old.jsonl", L"C:\\new.jsonl"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Console::RunProgram(arguments);
    }
};

TEST_F(Compare, EqualListsHaveNoDifferences) {
    EXPECT_EQ(Run(File("a", 1) + Entry("directory", "b", 2), Entry("directory", "b", 2) + File("a", 1)),
              ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), "");
    EXPECT_EQ(StandardError(), "");
}

TEST_F(Compare, ShowsDifferencesInTheOrderOfThePaths) {
    EXPECT_EQ(Run(File("same", 1) + File("gone", 1) + File("bigger", 10) + File("z", 1),
                  File("bigger", 20) + File("new", 5) + File("same", 1) +
                      File("z", 1, "2026-01-02T08:00:00.0000001Z")),
              ExitCode::Complete);
    EXPECT_EQ(StandardOutput(),
              "~ bigger  size 10 -> 20\n"
              "- gone\n"
              "+ new\n"
              "~ z  modified 2026-01-02T08:00:00.0000000Z -> 2026-01-02T08:00:00.0000001Z\n");
}

TEST_F(Compare, ShowsAllThatHasChangedOfAnEntry) {
    Run(File("a", 10), Entry("directory", "a", 20, ""));
    EXPECT_EQ(StandardOutput(),
              "~ a  type file -> directory  size 10 -> 20  modified 2026-01-02T08:00:00.0000000Z -> \n");
}

TEST_F(Compare, OtherMembersDoNotCount) {
    const ExitCode code = Run(
        File(
            "a", 1, "",
            R"(,"accessed":"2026-01-01T00:00:00.0000000Z","attributes":"A","later":{"size":[1,{"path":2}]})"),
        File("a", 1, "", R"(,"accessed":"","attributes":"RA","files":null,"x":-1.5e3,"y":true)"));
    EXPECT_EQ(code, ExitCode::Complete);
    EXPECT_EQ(StandardError(), "");
    EXPECT_EQ(StandardOutput(), "");
}

TEST_F(Compare, HashesDecideIfBothListsHaveThem) {
    const std::string one = R"(,"sha256":"1111")";
    const std::string two = R"(,"sha256":"2222")";
    Run(File("a", 1, "", one) + File("b", 1, "", one) + File("c", 1, "", one),
        File("a", 2, "2026-01-02T08:00:00.0000000Z", one) + File("b", 1, "", two) + File("c", 1));
    EXPECT_EQ(StandardOutput(),
              "~ b  sha256 1111 -> 2222\n"
              "~ c  modified  -> 2026-01-02T08:00:00.0000000Z  sha256 1111 -> \n");
}

TEST_F(Compare, FatTimesMayDifferByTwoSeconds) {
    const std::string old = File("a", 1, "2026-01-02T08:00:00.0000000Z") +
                            File("b", 1, "2026-01-02T08:00:02.0000001Z") +
                            File("c", 1, "2026-01-02T08:00:02.0000000Z");
    const std::string now = File("a", 1, "2026-01-02T08:00:02.0000000Z") +
                            File("b", 1, "2026-01-02T08:00:00.0000000Z") +
                            File("c", 1, "2026-01-02T08:00:00.0000000Z");
    Run(old, now, {L"--fat"});
    EXPECT_EQ(StandardOutput(),
              "~ b  modified 2026-01-02T08:00:02.0000001Z -> 2026-01-02T08:00:00.0000000Z\n");
}

TEST_F(Compare, JsonHasAnObjectForEachDifference) {
    Run(File("a", 10) + File("gone", 1),
        File("a", 10, "", R"(,"sha256":"22")") + Entry("directory", "new \\u00e9", 5), {L"--json"});
    EXPECT_EQ(StandardOutput(),
              R"({"change":"changed","path":"a","type":"file",)"
              R"("old":{"type":"file","size":10,"modified":"2026-01-02T08:00:00.0000000Z"},)"
              R"("new":{"type":"file","size":10,"modified":"","sha256":"22"}})"
              "\n"
              R"({"change":"removed","path":"gone","type":"file",)"
              R"("old":{"type":"file","size":1,"modified":"2026-01-02T08:00:00.0000000Z"}})"
              "\n"
              "{\"change\":\"added\",\"path\":\"new \xC3\xA9\",\"type\":\"directory\","
              R"("new":{"type":"directory","size":5,"modified":"2026-01-02T08:00:00.0000000Z"}})"
              "\n");
}

TEST_F(Compare, TheExitCodeShowsADifferenceIfAskedFor) {
    EXPECT_EQ(Run(File("a", 1), File("a", 1), {L"--exit-code"}), ExitCode::Complete);
    EXPECT_EQ(Run(File("a", 1), File("a", 2), {L"--exit-code"}), ExitCode::Different);
}

TEST_F(Compare, ListsOfDifferentFoldersAreReported) {
    FakeWin::AddFile(L"C:\\old.jsonl", Head + Summary);
    FakeWin::AddFile(L"C:\\new.jsonl", R"({"type":"list","format":1,"root":"D:\\Data"})"
                                       "\n" +
                                           Summary);
    EXPECT_EQ(RunOnFiles(), ExitCode::Complete);
    EXPECT_EQ(StandardError(),
              "tamblewickc: the lists are of different folders, 'C:\\Data' and 'D:\\Data'\n");
}

TEST_F(Compare, TabsAndLineFeedsOfPathsAreBlanks) {
    Run("", File("a\\tb\\nc", 1));
    EXPECT_EQ(StandardOutput(), "+ a b c\n");
}

TEST_F(Compare, AListWithoutItsSummaryIsNotComplete) {
    const std::string message =
        "tamblewickc: the list 'C:\\new.jsonl' is not complete, since it has no summary line; make it "
        "again\n";
    const std::string whole = Head + File("a", 1) + Summary;
    FakeWin::AddFile(L"C:\\old.jsonl", whole);
    for (size_t size = 0; size < whole.size(); ++size) {
        const size_t before = StandardError().size();
        FakeWin::AddFile(L"C:\\new.jsonl", whole.substr(0, size));
        EXPECT_EQ(RunOnFiles(), ExitCode::Incomplete) << size;
        EXPECT_EQ(StandardError().substr(before), message) << size;
    }
    EXPECT_EQ(StandardOutput(), "");
}

TEST_F(Compare, AFileThatIsNoListIsAnError) {
    const char* const files[] = {
        "name,size\n",
        "{}\n",
        "[]\n",
        "\n",
        "{\"type\":\"list\"}\n",
        "{\"type\":\"list\",\"format\":2}\n",
        "{\"type\":\"file\"}\n",
        "{\"type\":1}\n",
        "{\"type\":{}}\n",
        "\xFF\n",
    };
    FakeWin::AddFile(L"C:\\new.jsonl", Head + Summary);
    for (const std::string file : files) {
        const size_t before = StandardError().size();
        FakeWin::AddFile(L"C:\\old.jsonl", file);
        EXPECT_EQ(RunOnFiles(), ExitCode::Failed) << file;
        EXPECT_EQ(StandardError().substr(before),
                  "tamblewickc: line 1 of 'C:\\old.jsonl' is not of a list; make it with 'tamblewickc list "
                  "-f jsonl'\n")
            << file;
    }
}

TEST_F(Compare, ALineThatIsNoEntryIsNamed) {
    const std::string lines[] = {"no json\n", Head, File("a", 1, "yesterday"),
                                 File("a", 1, "2026-13-02T08:00:00.0000000Z"),
                                 R"({"type":"file","path":"a","size":"1"})"
                                 "\n"};
    for (const std::string& line : lines) {
        const size_t before = StandardError().size();
        EXPECT_EQ(Run(File("a", 1) + line, ""), ExitCode::Failed) << line;
        EXPECT_EQ(StandardError().substr(before),
                  "tamblewickc: line 3 of 'C:\\old.jsonl' is not of a list; make it with 'tamblewickc list "
                  "-f jsonl'\n")
            << line;
    }
}

TEST_F(Compare, AMissingFileIsAnError) {
    EXPECT_EQ(RunOnFiles(), ExitCode::Failed);
    EXPECT_EQ(
        StandardError(),
        "tamblewickc: the list 'C:\\old.jsonl' cannot be opened; check that it exists and may be read\n");
}

TEST_F(Compare, AFailedReadIsAnError) {
    FakeWin::FailOn(FakeWin::Call::ReadFile, L"C:\\old.jsonl", ERROR_GEN_FAILURE);
    EXPECT_EQ(Run(File("a", 1), File("a", 1)), ExitCode::Failed);
    EXPECT_EQ(StandardError(), "tamblewickc: the list 'C:\\old.jsonl' could not be read\n");
}

TEST_F(Compare, AFailedOutputIsAnError) {
    FakeWin::FailOn(FakeWin::Call::WriteFile, L"standard output", ERROR_DISK_FULL);
    EXPECT_EQ(Run("", File("a", 1)), ExitCode::NotWritten);
}

TEST_F(Compare, AnInterruptEndsIt) {
    FakeWin::AtUse(FakeWin::Call::ReadFile, 1, [] { FakeWin::SendConsoleEvent(CTRL_C_EVENT); });
    EXPECT_EQ(Run(File("a", 1), ""), ExitCode::Cancelled);
    EXPECT_EQ(StandardOutput(), "");
}

TEST_F(Compare, LinesMayBeOfAnyLength) {
    std::string before;
    for (int i = 0; i < 3; ++i)
        before += File(std::string(1'500'000, static_cast<char>('a' + i)), 1);
    EXPECT_EQ(Run(before, before), ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), "");
}

TEST_F(Compare, WrongUsageShowsTheUsage) {
    EXPECT_EQ(Console::RunProgram({L"compare", L"a"}), ExitCode::WrongUsage);
    EXPECT_EQ(StandardError(),
              "tamblewickc: an argument is missing\nUsage: tamblewickc compare OLD NEW [--json] [--fat] "
              "[--exit-code]\n");
}

}  // namespace
