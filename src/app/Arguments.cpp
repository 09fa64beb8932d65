#include "app/Arguments.h"

#include <cwctype>

std::vector<std::wstring> SplitArguments(std::wstring_view commandLine) {
    std::vector<std::wstring> arguments;
    size_t start = 0;
    bool inQuotes = false;

    const auto endPiece = [&](size_t position) {
        if (position > start)
            arguments.emplace_back(commandLine.substr(start, position - start));
        start = position + 1;
    };

    for (size_t position = 0; position < commandLine.size(); position++) {
        const wchar_t c = commandLine[position];
        if (c == L'"') {
            endPiece(position);
            inQuotes = !inQuotes;
        } else if (!inQuotes && std::iswspace(static_cast<wint_t>(c)) != 0) {
            endPiece(position);
        }
    }
    endPiece(commandLine.size());
    return arguments;
}
