// The import of presets from a file that may hold anything.
#include <utf8.h>

#include <algorithm>
#include <span>

#include "FakeWin.h"
#include "console/Commands.h"
#include "console/presets/JsonText.h"
#include "console/presets/PresetFile.h"
#include "console/presets/StoredPresets.h"
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "support/settings/RecordFields.h"

using namespace Fuzz;
using Console::ExitCode;

namespace {

constexpr wchar_t File[] = L"C:\\presets.json";

// What a file is made of, and what parsers stumble over.
constexpr const char* Pieces[] = {
    "{",
    "}",
    "[",
    "]",
    ",",
    ":",
    "\"",
    "\\",
    " ",
    "\n",
    "true",
    "false",
    "null",
    "0",
    "1",
    "8",
    "9",
    "-1",
    "1.5",
    "1e400",
    "4294967295",
    "4294967296",
    "2147483648",
    "18446744073709551616",
    "\"\"",
    "\"\\u0000\"",
    "\"\\ud800\"",
    "\"\\ud83d\\ude00\"",
    "\"\xC3\xBC\"",
    "\"\xFF\"",
    "\"\xED\xA0\x80\"",
    "\xEF\xBB\xBF",
    "{\"format\":\"tamblewick-presets\",\"version\":1,\"presets\":[",
    "]}",
    "\"format\":",
    "\"version\":",
    "\"presets\":",
    "\"Key\":",
    "\"Name\":",
    "\"Position\":",
    "\"Format\":",
    "\"ListStyle\":",
    "\"Html\"",
    "\"Text\"",
    "\"EnableUtf8\":",
    "\"Display\":",
    "\"IndentSize\":",
    "\"SizeStyle\":",
    "\"Columns\":",
    "\"FolderColumns\":",
    "\"FileEnabled\":",
    "\"Path\"",
    "\"Filter\":",
    "\"PresetSearchPattern\":",
    "\"ExcludedFolders\":",
    "\"Opening\":",
    "\"OpenMethod\":",
    "\"Custom\"",
    "\"Sorting\":",
    "\"FileSortKeys\":",
    "[\"Path\",\"Name\",\"Extension\",\"Size\",\"TimeCreated\",\"LastTimeAccessed\",\"LastTimeWritten\"]",
    "[true,false,true,false,true,false,true,false,true,false,true]",
    "[[[[[[[[[[[[[[[[",
    "}}}}",
    "{}",
    "[]"};

std::string Raw(Input& input) {
    std::string text;
    while (!input.IsAtEnd())
        text += static_cast<char>(input.Byte());
    return text;
}

std::string Assembled(Input& input) {
    std::string text;
    while (!input.IsAtEnd())
        text += input.Choose(Pieces);
    return text;
}

// A complete file in which some places have been overwritten.
std::string Damaged(Input& input) {
    const Preset preset(L"key");
    const Preset* const presets[] = {&preset, &preset};
    std::string text = Console::FormatPresetFile(std::span(presets).first(1 + input.Below(2)));
    while (!input.IsAtEnd()) {
        const size_t place = (input.Byte() * size_t{256} + input.Byte()) % text.size();
        const size_t length = input.Below(40);
        text.replace(place, length, input.Choose(Pieces));
    }
    return text;
}

std::string FileText(Input& input) {
    switch (input.Below(3)) {
        case 0:
            return Raw(input);
        case 1:
            return Assembled(input);
        default:
            return Damaged(input);
    }
}

void CheckMessage(const std::string& message) {
    Check(!message.empty() && message.size() < 2000, "a message is short", message);
    Check(std::ranges::count(message, '\n') <= 1, "a message has one line", message);
    Check(utf8::is_valid(message.begin(), message.end()), "a message is UTF-8", message);
}

// The values as the import stores them.
std::vector<std::wstring> StoredTexts(const Preset& preset) {
    Preset stored(preset);
    OpenMethod& method = stored.Get(Opening::OpenMethod);
    if (method == OpenMethod::Custom)
        method = OpenMethod::Nothing;
    stored.Get(Preset::Position) = 0;
    return TextsOf(stored);
}

void CheckPresets(const std::vector<Preset>& presets) {
    std::vector<const Preset*> pointers;
    for (const Preset& preset : presets)
        pointers.push_back(&preset);
    const std::string text = Console::FormatPresetFile(pointers);
    const std::vector<Preset> again = Console::ParsePresetFile(text);
    Check(again.size() == presets.size(), "an export has all presets", text);
    for (size_t i = 0; i < presets.size(); ++i)
        Check(StoredTexts(again[i]) == StoredTexts(presets[i]), "an export has all values", text);
}

void CheckImport(const std::string& text, const std::vector<Preset>* presets) {
    FakeWin::AddFile(File, text);
    const ExitCode code = Console::RunProgram({L"presets", L"import", File});
    const Console::StoredPresets stored = Console::ReadPresets();
    if (presets == nullptr) {
        Check(code == ExitCode::Failed, "a file that does not fit is refused", text);
        Check(stored.empty(), "a file that does not fit stores nothing", text);
        CheckMessage(FakeWin::StandardError());
        return;
    }
    Check(code == ExitCode::Complete, "a file that fits is imported", text);
    Check(stored.size() == presets->size(), "each preset is stored", text);
    auto expected = presets->begin();
    for (const Console::StoredPreset& preset : stored) {
        Check(!preset.damaged, "no preset is damaged", text);
        Check(StoredTexts(preset.preset) == StoredTexts(*expected), "a preset is stored with its values",
              text);
        ++expected;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FakeWin::Reset();
    FakeWin::SetLogging(false);
    Input input(data, size);
    const std::string text = FileText(input);
    try {
        const std::vector<Preset> presets = Console::ParsePresetFile(text);
        CheckPresets(presets);
        CheckImport(text, &presets);
    } catch (const Console::JsonError& error) {
        CheckMessage(error.what());
        CheckImport(text, nullptr);
    }
    Check(FakeWin::LeftOpen().empty(), "nothing stays open", FakeWin::LeftOpen());
    return 0;
}
