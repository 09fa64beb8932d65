// The pages README.md and docs/ with their commands and blocks, and a fixture that runs what they tell a user
// to run.
#pragma once

#include <string>
#include <vector>

#include "packages/Installation.h"

namespace Packaging {

// README.md and all of docs/, relative to the sources.
std::vector<fs::path> Pages();

// The commands for Windows of a page: the lines of its blocks "bat", and what its text quotes that begins
// with "tamblewickc " or "reg " and has no word in capitals, which a user replaces. Commands of schtasks
// without a file are left out: Wine's knows no other.
std::vector<std::string> Commands(const fs::path& page);

// The contents of all fenced blocks of a page that begin with "```KIND", one after the other, without their
// indentation. Fails the test if there is no such page.
std::string Blocks(const fs::path& page, const std::string& kind);

std::string Replaced(std::string text, const std::string& from, const std::string& to);

// The program is installed, and there are the folders of which the pages speak: D:\Photos with two files,
// D:\Data with one, D:\Lists, and a folder for a day in the share \\server\lists. Drive and share are folders
// here.
class Documented : public Installation {
protected:
    Documented();
    ~Documented() override;

    // The blocks of this kind with the folder in the place of the drive.
    std::string BlocksHere(const fs::path& page, const std::string& kind) const;

    // Runs the commands of the page in their order, in the folder of the drive, with the installed program.
    // Returns the first that fails; empty if none does.
    std::string FailedCommand(const fs::path& page) const;

    // The file of the task of task-scheduler.md, once the system has it.
    const fs::path task = L"C:\\windows\\system32\\tasks\\Tamblewick Photos";
    const fs::path drive = L"C:\\tamblewick-drive";

private:
    // The text with the folders in the place of the drive and the share.
    std::string Here(const std::string& text) const;
};

}  // namespace Packaging
