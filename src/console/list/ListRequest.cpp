#include "console/list/ListRequest.h"

#include <array>
#include <utility>

#include "console/Errors.h"
#include "console/FullPath.h"
#include "console/Output.h"
#include "console/presets/PresetChoice.h"
#include "listmaker/OutputName.h"
#include "scanner/Path.h"

namespace Console {

namespace {

constexpr wchar_t StandardOutput[] = L"-";

bool IsTable(ListFormat format) {
    return format == ListFormat::Csv || format == ListFormat::JsonLines;
}

bool IsForPrograms(ListFormat format) {
    return IsTable(format) || format == ListFormat::Sha256Sum;
}

// Takes the preset's operand, or none if an option chooses the preset.
Preset ChoosePreset(const Options& arguments) {
    const bool fromTemplate = arguments.Has("template");
    const bool fromFile = arguments.Has("preset-file");
    if (fromTemplate && fromFile)
        throw UsageError(L"--template and --preset-file exclude each other");
    if (arguments.Has("preset") && !fromFile)
        throw UsageError(L"--preset is for --preset-file");
    const size_t expected = fromTemplate || fromFile ? 1 : 2;
    if (arguments.operands.size() < expected)
        throw UsageError(L"PRESET or FOLDER is missing");
    if (arguments.operands.size() > expected)
        throw UsageError(L"there is no place for the argument '" + arguments.operands[0] +
                         L"', since an option chooses the preset");
    if (fromTemplate)
        return PresetOfTemplate(arguments.Value("template"));
    if (fromFile)
        return PresetOfFile(arguments.Value("preset-file"), arguments.Has("preset")
                                                                ? std::optional(arguments.Value("preset"))
                                                                : std::nullopt);
    return PresetByName(arguments.operands[0]);
}

ListFormat ChooseFormat(const Options& arguments, const Preset& preset) {
    static constexpr std::array<std::pair<const wchar_t*, ListFormat>, 6> Formats = {{
        {L"text", ListFormat::Text},
        {L"html", ListFormat::Html},
        {L"csv", ListFormat::Csv},
        {L"jsonl", ListFormat::JsonLines},
        {L"report", ListFormat::Report},
        {L"sha256sum", ListFormat::Sha256Sum},
    }};
    const std::wstring name = arguments.Has("format") ? arguments.Value("format") : L"preset";
    if (name == L"preset")
        return preset.Get(Format::ListStyle) == ListStyle::Html ? ListFormat::Html : ListFormat::Text;
    for (const auto& [known, format] : Formats)
        if (name == known)
            return format;
    throw UsageError(L"there is no format '" + name +
                     L"'; use preset, text, html, csv, jsonl, report or sha256sum");
}

bool ChooseHash(const Options& arguments, ListFormat format) {
    if (arguments.Has("hash")) {
        const std::wstring& name = arguments.Value("hash");
        if (name != L"sha256")
            throw UsageError(L"--hash takes sha256, not '" + name + L"'");
        if (!IsForPrograms(format))
            throw UsageError(L"--hash is for csv, jsonl and sha256sum");
    }
    return arguments.Has("hash") || format == ListFormat::Sha256Sum;
}

bool ChooseProgress(const Options& arguments) {
    const std::wstring when = arguments.Has("progress") ? arguments.Value("progress") : L"auto";
    if (when != L"auto" && when != L"always" && when != L"never")
        throw UsageError(L"--progress takes auto, always or never, not '" + when + L"'");
    if (arguments.Has("quiet"))
        return false;
    return when == L"always" || (when == L"auto" && ErrorIsConsole());
}

// Without --output a list for programs goes to the standard output, and other lists to where the preset
// saves.
std::optional<std::wstring> ChooseOutput(const Options& arguments, const ListRequest& request) {
    if (!arguments.Has("output"))
        return IsForPrograms(request.format)
                   ? std::nullopt
                   : std::optional(FullPath(OutputName(request.preset, request.folder)));
    const std::wstring& output = arguments.Value("output");
    return output == StandardOutput ? std::nullopt : std::optional(FullPath(output));
}

}  // namespace

ListRequest MakeListRequest(const Options& arguments) {
    Preset preset = ChoosePreset(arguments);
    const ListFormat format = ChooseFormat(arguments, preset);
    if (!IsForPrograms(format))
        preset.Get(Format::ListStyle) = format == ListFormat::Text ? ListStyle::Text : ListStyle::Html;
    if (format == ListFormat::Report)
        preset.Get(Display::ShowFlatStyle) = false;

    ListRequest request = {
        .preset = preset,
        .folder = Scanner::JoinPath(FullPath(arguments.operands.back()), L""),
        .format = format,
        .output = std::nullopt,
        .absolute = arguments.Has("absolute"),
        .hash = ChooseHash(arguments, format),
        .excel = arguments.Has("excel"),
        .progress = ChooseProgress(arguments),
        .open = arguments.Has("open"),
        .quiet = arguments.Has("quiet"),
    };
    if (request.absolute && !IsTable(format))
        throw UsageError(L"--absolute is for csv and jsonl");
    if (request.excel && format != ListFormat::Csv)
        throw UsageError(L"--excel is for csv");
    request.output = ChooseOutput(arguments, request);
    if (request.open && !request.output)
        throw UsageError(L"--open needs a list in a file; give it with --output FILE");
    return request;
}

}  // namespace Console
