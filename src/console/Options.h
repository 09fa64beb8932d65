// Parses the arguments of a command with getopt_long: options anywhere, "--" before operands that begin with
// a hyphen. Not reentrant.
#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

namespace Console {

using Arguments = std::vector<std::wstring>;

struct Option {
    const char* name;         // of the long form
    char letter = 0;          // of the short form; 0 if there is none
    bool takesValue = false;  // the next argument, or after "=" in the same
};

class Options {
public:
    // Throws UsageError on an option that is not among the known ones, without its value, or with a value
    // that it does not take. If an option is given more than once, the last value counts.
    Options(const Arguments& arguments, std::span<const Option> known);

    bool Has(const std::string& name) const { return values_.contains(name); }

    // Returns the value of an option. REQUIRES: Has(name).
    const std::wstring& Value(const std::string& name) const { return values_.at(name); }

    // The arguments that are no options, in their order.
    std::vector<std::wstring> operands;

private:
    std::map<std::string, std::wstring> values_;
};

}  // namespace Console
