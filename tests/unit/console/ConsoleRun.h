// Runs commands in the stand-in's world.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "FakeWin.h"
#include "console/Commands.h"
#include "console/Interrupt.h"
#include "support/TestRegistry.h"

// A folder with a file, a subfolder with a file, and a list of yesterday.
struct ListFixture : testing::Test {
    ListFixture() {
        Console::CatchInterrupts();
        FakeWin::AddFile(L"C:\\Data\\a.txt", 5);
        FakeWin::AddFile(L"C:\\Data\\Sub\\b.txt", 7);
        FakeWin::AddFile(Output, Yesterday);
    }

    // Runs "list --template 0 C:\Data -o C:\Lists\out.txt" with more arguments.
    static Console::ExitCode RunList(Console::Arguments more = {}) {
        Console::Arguments arguments = {L"list", L"--template", L"0", L"C:\\Data", L"-o", Output};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Console::RunProgram(arguments);
    }

    static constexpr wchar_t Output[] = L"C:\\Lists\\out.txt";
    static constexpr wchar_t Part[] = L"C:\\Lists\\out.txt.part";
    inline static const std::string Yesterday = "the list of yesterday";
    inline static const std::string Today =
        "\xEF\xBB\xBFTamblewick 4.0.1\r\n"
        "\r\n"
        "Summary of path: C:\\Data\r\n"
        "Created: 2024-03-09 17:05:09\r\n"
        "\r\n"
        "C:\\Data\\Sub\r\n"
        "\tC:\\Data\\Sub\\b.txt\r\n"
        "C:\\Data\\a.txt\r\n";
};
