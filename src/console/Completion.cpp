#include "console/Completion.h"

#include <map>
#include <string_view>
#include <vector>

namespace Console {

namespace {

constexpr std::string_view Head = R"script(# Completes the arguments of tamblewickc.
# To have it in each session, add this line to the file $PROFILE:
#     tamblewickc completion powershell | Out-String | Invoke-Expression
Register-ArgumentCompleter -Native -CommandName tamblewickc, tamblewickc.exe -ScriptBlock {
    param($word, $line, $cursor)
    $next = @{
)script";

constexpr std::string_view Tail = R"script(    # The word to complete is not yet a part of the command.
    $words = @($line.CommandElements | Select-Object -Skip 1 | ForEach-Object { $_.ToString() })
    if ($word -ne '' -and $words.Count -gt 0) {
        $words = @($words | Select-Object -SkipLast 1)
    }
    $command = ''
    foreach ($name in @(($words[0..1] -join ' '), "$($words | Select-Object -First 1)")) {
        if ($command -eq '' -and $next.ContainsKey($name)) {
            $command = $name
        }
    }
    $candidates = @($next[$command])
    if ($presets -contains $command) {
        $candidates += @(tamblewickc presets list 2>$null | ForEach-Object { ($_ -split "`t")[0] })
    }
    $candidates | Where-Object { $_ -like "$word*" } | ForEach-Object {
        [System.Management.Automation.CompletionResult]::new($_, $_, 'ParameterValue', $_)
    }
}
)script";

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

std::string List(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words)
        list += (list.empty() ? "" : ", ") + Quoted(word);
    return "@(" + list + ")";
}

// What may follow the words that a command line begins with.
std::map<std::string, std::vector<std::string>> Followers(std::span<const Command> commands) {
    std::map<std::string, std::vector<std::string>> followers;
    const auto add = [&](const std::string& words, const std::string& follower) {
        std::vector<std::string>& list = followers[words];
        if (list.empty() || list.back() != follower)
            list.push_back(follower);
    };
    for (const Command& command : commands) {
        const std::string name = command.name;
        const size_t blank = name.find(' ');
        add("", name.substr(0, blank));
        if (blank != std::string::npos)
            add(name.substr(0, blank), name.substr(blank + 1));
        for (const Option& option : command.options)
            add(name, std::string("--") + option.name);
        add(name, "--help");
    }
    add("", "--help");
    add("", "--version");
    return followers;
}

}  // namespace

std::string PowerShellCompletion(std::span<const Command> commands) {
    std::string script(Head);
    for (const auto& [words, followers] : Followers(commands))
        script += "        " + Quoted(words) + " = " + List(followers) + "\n";
    std::vector<std::string> takePresets;
    for (const Command& command : commands)
        if (std::string_view(command.usage).starts_with("PRESET") ||
            std::string_view(command.usage).starts_with("[PRESET"))
            takePresets.push_back(command.name);
    return script + "    }\n    $presets = " + List(takePresets) + "\n" + std::string(Tail);
}

}  // namespace Console
