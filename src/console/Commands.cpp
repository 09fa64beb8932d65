#include "console/Commands.h"

#include <algorithm>
#include <array>
#include <exception>
#include <new>
#include <string>
#include <string_view>

#include "console/Completion.h"
#include "console/Errors.h"
#include "console/Output.h"
#include "console/compare/CompareCommand.h"
#include "console/list/ListCommand.h"
#include "console/menu/MenuCommand.h"
#include "console/presets/PresetCommands.h"
#include "resources/version.h"

namespace Console {

namespace {

constexpr char CompletionHelp[] =
    "\n"
    "Prints a script that completes command lines in PowerShell. To have it in each session, add this line "
    "to\n"
    "the file $PROFILE:\n"
    "\n"
    "  tamblewickc completion powershell | Out-String | Invoke-Expression\n";

ExitCode RunCompletion(const Options&) {
    Print(PowerShellCompletion(Commands()));
    return ExitCode::Complete;
}

constexpr std::array<Command, 16> Table = {{
    {"list", ListUsage, ListHelp, ListOptions, 1, 2, RunList},
    {"presets list", "[--json]", PresetsListHelp, PresetsListOptions, 0, 0, ListPresets},
    {"presets templates", "", TemplatesHelp, {}, 0, 0, ListTemplates},
    {"presets new", "TEMPLATE [NAME]", NewHelp, {}, 1, 2, NewPreset},
    {"presets duplicate", "PRESET [NAME]", DuplicateHelp, {}, 1, 2, DuplicatePreset},
    {"presets rename", "PRESET NAME", RenameHelp, {}, 2, 2, RenamePreset},
    {"presets remove", "PRESET...", RemoveHelp, {}, 1, AnyNumber, RemovePresets},
    {"presets get", "PRESET [FIELD]", GetHelp, {}, 1, 2, GetFields},
    {"presets set", "PRESET FIELD=VALUE...", SetHelp, {}, 2, AnyNumber, SetPresetFields},
    {"presets export", "[PRESET...] [-o FILE]", ExportHelp, ExportOptions, 0, AnyNumber, ExportPresets},
    {"presets import", "FILE|- [--replace] [--trust]", ImportHelp, ImportOptions, 1, 1, ImportPresets},
    {"compare", CompareUsage, CompareHelp, CompareOptions, 2, 2, CompareLists},
    {"menu status", "", MenuStatusHelp, {}, 0, 0, RunMenuStatus},
    {"menu on", "[--all-users]", MenuOnHelp, MenuOptions, 0, 0, RunMenuOn},
    {"menu off", "[--all-users]", MenuOffHelp, MenuOptions, 0, 0, RunMenuOff},
    {"completion powershell", "", CompletionHelp, {}, 0, 0, RunCompletion},
}};

// The program's arguments, split after the name of the command.
struct Invocation {
    const Command* command = nullptr;  // null if the arguments name none
    std::string group;                 // the first word
    Arguments arguments;
};

std::string UsageLine(const Command& command) {
    return std::string("tamblewickc ") + command.name + (*command.usage ? " " : "") + command.usage + "\n";
}

// The usage lines of all commands, or of the commands whose name begins with this word.
std::string UsageLines(const std::string& group) {
    std::string lines;
    for (const Command& command : Table)
        if (group.empty() || std::string(command.name).starts_with(group + " "))
            lines += "  " + UsageLine(command);
    return lines;
}

bool IsGroup(const std::string& word) {
    return !word.empty() && !UsageLines(word).empty();
}

bool AsksForHelp(const std::wstring& argument) {
    return argument == L"--help" || argument == L"-h" || argument == L"/?";
}

Invocation Split(const Arguments& arguments) {
    Invocation invocation;
    std::string name;
    for (size_t words = 1; words <= std::min<size_t>(arguments.size(), 2); ++words) {
        name += (words == 1 ? "" : " ") + ToUtf8(arguments[words - 1]);
        if (words == 1)
            invocation.group = name;
        for (const Command& command : Table) {
            if (command.name == name) {
                invocation.command = &command;
                invocation.arguments.assign(arguments.begin() + static_cast<std::ptrdiff_t>(words),
                                            arguments.end());
            }
        }
    }
    return invocation;
}

bool AnyAsksForHelp(const Arguments& arguments) {
    const auto end = std::find(arguments.begin(), arguments.end(), L"--");
    return std::any_of(arguments.begin(), end, AsksForHelp);
}

ExitCode PrintHelp(const Invocation& invocation) {
    if (invocation.command != nullptr) {
        Print("Usage: " + UsageLine(*invocation.command) + invocation.command->help);
        return ExitCode::Complete;
    }
    const std::string group = IsGroup(invocation.group) ? invocation.group : "";
    Print("Usage:\n" + UsageLines(group) + "  tamblewickc COMMAND --help\n  tamblewickc --version\n");
    return ExitCode::Complete;
}

void RequireOperands(const Command& command, const std::vector<std::wstring>& operands) {
    if (operands.size() < command.leastOperands)
        throw UsageError(L"an argument is missing");
    if (operands.size() > command.mostOperands)
        throw UsageError(L"there is no place for the argument '" + operands[command.mostOperands] + L"'");
}

[[noreturn]] void RefuseCommand(const Arguments& arguments, const Invocation& invocation) {
    if (arguments.empty())
        throw UsageError(L"a command is missing");
    if (!IsGroup(invocation.group))
        throw UsageError(L"there is no command '" + arguments[0] + L"'");
    if (arguments.size() == 1)
        throw UsageError(L"a command is missing after '" + arguments[0] + L"'");
    throw UsageError(L"there is no command '" + arguments[0] + L" " + arguments[1] + L"'");
}

ExitCode Dispatch(const Arguments& arguments, const Invocation& invocation) {
    if (AnyAsksForHelp(arguments))
        return PrintHelp(invocation);
    if (arguments.size() == 1 && arguments[0] == L"--version") {
        Print(PROGRAM_TITLE "\n");
        return ExitCode::Complete;
    }
    if (invocation.command == nullptr)
        RefuseCommand(arguments, invocation);
    const Options options(invocation.arguments, invocation.command->options);
    RequireOperands(*invocation.command, options.operands);
    return invocation.command->run(options);
}

// The usage of the command, or of what comes nearest to it.
std::string NearestUsage(const Invocation& invocation) {
    if (invocation.command != nullptr)
        return UsageLine(*invocation.command);
    if (IsGroup(invocation.group))
        return "tamblewickc " + invocation.group + " COMMAND ..., see tamblewickc " + invocation.group +
               " --help\n";
    return "tamblewickc COMMAND ..., see tamblewickc --help\n";
}

}  // namespace

std::span<const Command> Commands() {
    return Table;
}

ExitCode RunProgram(const Arguments& arguments) {
    const Invocation invocation = Split(arguments);
    try {
        return Dispatch(arguments, invocation);
    } catch (const UsageError& error) {
        Warn(error.what());
        PrintError("Usage: " + NearestUsage(invocation));
        return error.code;
    } catch (const Cancelled& error) {
        return error.code;
    } catch (const Error& error) {
        Warn(error.what());
        return error.code;
    } catch (const std::bad_alloc&) {
        Warn("there is not enough memory");
        return ExitCode::NotWritten;
    } catch (const std::exception& error) {
        Warn(error.what());
        return ExitCode::NotWritten;
    }
}

}  // namespace Console
