// The split of the command line into arguments.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Splits at white space outside quotes and at every quote. Quotes cannot be escaped, so a backslash before
// one is an ordinary character; empty pieces are dropped, an empty quoted one too.
std::vector<std::wstring> SplitArguments(std::wstring_view commandLine);
