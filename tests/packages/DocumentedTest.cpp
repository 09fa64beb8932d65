// The commands for Windows in README.md and docs/, run with the installed program.
#include <algorithm>

#include "packages/Document.h"

using namespace Packaging;

namespace {

TEST_F(Documented, CommandsOfEachPageRun) {
    for (const fs::path& page : Pages()) {
        registry.DeleteKey(L"Software\\Tamblewick");
        registry.SetString(L"Software\\Tamblewick\\abc", L"Name", L"Of before");
        WriteFile(drive / L"photos-task.xml", BlocksHere(page, "xml"));
        EXPECT_EQ(FailedCommand(page), "") << page;
    }
}

TEST_F(Documented, CommandsOfTheReadmeAreFoundInBlocksAndInTheText) {
    const std::vector<std::string> commands = Commands(L"README.md");
    for (const char* command : {"tamblewickc presets new 0 Photos", "tamblewickc menu on"})
        EXPECT_EQ(std::count(commands.begin(), commands.end(), command), 1) << command;
}

TEST_F(Documented, CommandThatFailsIsNamed) {
    const fs::path page = L"build/a page.md";
    WriteFile(fs::path(SOURCES_FOLDER) / page, "```bat\ntamblewickc menu status\ntamblewickc menu no\n```\n");
    EXPECT_EQ(FailedCommand(page), "tamblewickc menu no");
    fs::remove(fs::path(SOURCES_FOLDER) / page);
}

}  // namespace
