#include "packages/Document.h"

#include <regex>
#include <sstream>

namespace Packaging {

namespace {

// The argument of the scripts.
constexpr wchar_t Day[] = L"2026-11-21";

}  // namespace

std::vector<fs::path> Pages() {
    std::vector<fs::path> pages = {L"README.md"};
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCES_FOLDER) / L"docs"))
        if (entry.path().extension() == L".md")
            pages.push_back(fs::path(L"docs") / entry.path().filename());
    return pages;
}

std::string Blocks(const fs::path& page, const std::string& kind) {
    const fs::path path = fs::path(SOURCES_FOLDER) / page;
    EXPECT_TRUE(fs::exists(path)) << path;
    std::istringstream lines(Bytes(path));
    std::string blocks;
    std::string line;
    while (std::getline(lines, line)) {
        const size_t indentation = line.find_first_not_of(' ');
        if (indentation == std::string::npos || line.substr(indentation) != "```" + kind)
            continue;
        const std::string end = std::string(indentation, ' ') + "```";
        while (std::getline(lines, line) && line != end)
            blocks += (line.size() > indentation ? line.substr(indentation) : "") + "\n";
    }
    return blocks;
}

std::vector<std::string> Commands(const fs::path& page) {
    const std::regex fence("^ *```(\\w*)$");
    const std::regex quoted("`((?:tamblewickc|reg) [^`]*)`");
    const std::regex placeholder("(^|[ |])[A-Z]{2,}([ |.]|$)");
    std::istringstream lines(Bytes(fs::path(SOURCES_FOLDER) / page));
    std::vector<std::string> commands;
    std::string block = "none";
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        if (std::regex_match(line, match, fence)) {
            block = block == "none" ? match.str(1) : "none";
        } else if (block == "bat") {
            if (line.find("schtasks") == std::string::npos || line.find("/xml") != std::string::npos)
                commands.push_back(line);
        } else if (block == "none") {
            for (std::sregex_iterator i(line.begin(), line.end(), quoted), end; i != end; ++i)
                if (!std::regex_search(i->str(1), placeholder))
                    commands.push_back(i->str(1));
        }
    }
    return commands;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (size_t place = 0; (place = text.find(from, place)) != std::string::npos; place += to.size())
        text.replace(place, from.size(), to);
    return text;
}

Documented::Documented() {
    fs::remove(task);
    fs::remove_all(drive);
    fs::create_directories(drive / L"Lists");
    fs::create_directories(drive / L"share" / Day);
    WriteFile(drive / L"Data" / L"notes.txt", "1");
    WriteFile(drive / L"Photos" / L"Summer" / L"sea.jpg", "12345");
    WriteFile(drive / L"Photos" / L"old.jpg", "1");
    Install();
}

Documented::~Documented() {
    fs::remove(task);
    fs::remove_all(drive);
}

std::string Documented::Here(const std::string& text) const {
    return Replaced(Replaced(text, "D:\\", drive.string() + "\\"), "\\\\server\\lists",
                    (drive / L"share").string());
}

std::string Documented::BlocksHere(const fs::path& page, const std::string& kind) const {
    return Here(Blocks(page, kind));
}

std::string Documented::FailedCommand(const fs::path& page) const {
    const std::vector<std::string> commands = Commands(page);
    std::string script = "@echo off\r\nset PATH=" + installed.string() + ";%PATH%\r\n";
    for (size_t i = 0; i < commands.size(); ++i)
        script += Here(commands[i]) + "\r\nif errorlevel 1 exit /b " + std::to_string(i + 1) + "\r\n";
    WriteFile(drive / L"commands.cmd", script + "exit /b 0\r\n");
    const DWORD failed =
        RunProcess(L"cmd.exe /c " + (drive / L"commands.cmd").wstring() + L" " + Day, {.folder = drive});
    return failed == 0 ? "" : failed <= commands.size() ? commands[failed - 1] : std::to_string(failed);
}

}  // namespace Packaging
