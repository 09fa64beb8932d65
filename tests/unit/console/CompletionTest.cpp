#include "console/Completion.h"

#include <gtest/gtest.h>

#include <array>

using Console::Command;
using Console::Option;

namespace {

constexpr std::array<Option, 2> SomeOptions = {{{"quiet", 'q'}, {"output", 'o', true}}};

constexpr std::array<Command, 3> SomeCommands = {{
    {"list", "PRESET FOLDER", "", SomeOptions, 0, 0, nullptr},
    {"presets new", "TEMPLATE", "", {}, 0, 0, nullptr},
    {"presets export", "[PRESET...]", "", {}, 0, 0, nullptr},
}};

const std::string Script = Console::PowerShellCompletion(SomeCommands);

}  // namespace

TEST(PowerShellCompletion, RegistersACompleterOfTheProgram) {
    EXPECT_NE(Script.find("\nRegister-ArgumentCompleter -Native -CommandName tamblewickc, tamblewickc.exe "),
              std::string::npos);
    EXPECT_TRUE(Script.ends_with("\n}\n"));
}

TEST(PowerShellCompletion, HasWhatMayFollowEachBeginning) {
    EXPECT_NE(Script.find("    $next = @{\n"
                          "        '' = @('list', 'presets', '--help', '--version')\n"
                          "        'list' = @('--quiet', '--output', '--help')\n"
                          "        'presets' = @('new', 'export')\n"
                          "        'presets export' = @('--help')\n"
                          "        'presets new' = @('--help')\n"
                          "    }\n"),
              std::string::npos)
        << Script;
}

TEST(PowerShellCompletion, CompletesPresetsWhereTheyAreTaken) {
    EXPECT_NE(Script.find("    $presets = @('list', 'presets export')\n"), std::string::npos) << Script;
}
