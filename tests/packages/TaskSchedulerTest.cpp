// docs/task-scheduler.md: the commands in it, the task that it shows, and the results that it promises,
// with the installed companion. The drive D: of the page is a folder here.
#include <sstream>

#include "packages/Document.h"

using namespace Packaging;

namespace {

const fs::path Page = L"docs/task-scheduler.md";

class TaskScheduler : public Documented {
protected:
    TaskScheduler() { WriteFile(drive / L"photos-task.xml", BlocksHere(Page, "xml")); }

    // Runs the action of the task as the Task Scheduler does and returns its result.
    DWORD RunTask() const { return RunProcess(Element(L"Command") + L" " + Element(L"Arguments")); }

    // The text of the task's only element of this name.
    std::wstring Element(const std::wstring& name) const {
        const std::string xml = BlocksHere(Page, "xml");
        const std::string narrow(name.begin(), name.end());
        const size_t begin = xml.find("<" + narrow + ">") + narrow.size() + 2;
        std::string text = xml.substr(begin, xml.find("</" + narrow + ">") - begin);
        text = Replaced(Replaced(Replaced(text, "&gt;", ">"), "&lt;", "<"), "&amp;", "&");
        return {text.begin(), text.end()};
    }

    std::vector<std::string> LogLines() const {
        std::istringstream log(Bytes(drive / L"Lists" / L"photos.log"));
        std::vector<std::string> lines;
        for (std::string line; std::getline(log, line);)
            lines.push_back(line.substr(0, line.find_last_not_of(" \r") + 1));
        return lines;
    }

    std::string List() const { return Bytes(drive / L"Lists" / L"photos.csv"); }
};

TEST_F(TaskScheduler, CommandsOfThePageMakeTheListAndTheTask) {
    ASSERT_EQ(FailedCommand(Page), "");
    EXPECT_NE(List().find("file,Summer\\sea.jpg,sea.jpg,jpg,5,"), std::string::npos) << List();
    EXPECT_TRUE(fs::exists(task));
}

TEST_F(TaskScheduler, TaskMakesTheListAndLogsItsNameAfterTheTime) {
    ASSERT_EQ(FailedCommand(Page), "");
    WriteFile(drive / L"Photos" / L"new.jpg", "123");
    EXPECT_EQ(RunTask(), 0u);
    EXPECT_NE(List().find("new.jpg"), std::string::npos) << List();
    ASSERT_EQ(LogLines().size(), 2u);
    EXPECT_EQ(LogLines()[0].find_first_not_of("0123456789./,:- APM"), std::string::npos) << LogLines()[0];
    EXPECT_EQ(LogLines()[1], "C:\\tamblewick-drive\\Lists\\photos.csv");
}

TEST_F(TaskScheduler, TaskKeepsTheListOfTheDayBeforeIfItFails) {
    ASSERT_EQ(FailedCommand(Page), "");
    const std::string before = List();
    fs::rename(drive / L"Photos", drive / L"Elsewhere");
    EXPECT_EQ(RunTask(), 1u);
    EXPECT_EQ(List(), before);
    fs::rename(drive / L"Elsewhere", drive / L"Photos");
    WriteFile(drive / L"Photos" / L"new.jpg", "123");
    {
        const LockedFile locked(drive / L"Lists" / L"photos.csv");
        EXPECT_EQ(RunTask(), 4u);
    }
    EXPECT_EQ(List(), before);
    registry.DeleteKey(L"Software\\Tamblewick");
    EXPECT_EQ(RunTask(), 2u);
    EXPECT_EQ(List(), before);
    ASSERT_EQ(LogLines().size(), 6u);
    for (size_t i : {1u, 3u, 5u})
        EXPECT_EQ(LogLines()[i].find("tamblewickc: "), 0u) << LogLines()[i];
}

}  // namespace
