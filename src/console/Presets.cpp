// presets: lists, makes and removes presets from a console, for those who start lists in batch mode with a
// preset's key. Redirected texts are UTF-8; a console gets UTF-16, which it shows whatever its code page is.

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "settings/MainSettings.h"
#include "settings/PresetKey.h"
#include "settings/Templates.h"
#include "winlib/DllSearch.h"
#include "winlib/Windows.h"

#include <io.h>

namespace {

constexpr std::wstring_view Usage =
    L"Usage: presets list                     key, position and name of every preset\n"
    L"       presets new TEMPLATE [NAME]      make a preset, print its key\n"
    L"       presets remove KEY               remove a preset\n"
    L"       presets templates                number and name of every template\n"
    L"       presets --help                   this text\n"
    L"TEMPLATE is a template's number or name. A list is made with: tamblewick KEY FOLDER\n";

using Arguments = std::vector<std::wstring>;

// Half a surrogate pair, which a name may hold, becomes a replacement character.
std::string Utf8(std::wstring_view text) {
    std::string bytes(text.length() * 3, '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.length()),
                                         bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<size_t>(size));
    return bytes;
}

// Returns whether all of the text was written.
bool Write(std::FILE* stream, std::wstring_view text) {
    const HANDLE handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD count = 0;
    if (GetConsoleMode(handle, &count))
        return WriteConsoleW(handle, text.data(), static_cast<DWORD>(text.length()), &count, nullptr) &&
               count == text.length();
    const std::string bytes = Utf8(text);
    return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() && std::fflush(stream) == 0;
}

void Print(std::wstring_view text) {
    if (!Write(stdout, text))
        throw std::runtime_error("the output could not be written");
}

int Fail(const std::wstring& message) {
    Write(stderr, L"presets: " + message + L"\n");
    return 1;
}

int WrongUsage() {
    return Fail(L"wrong usage, see presets --help");
}

int ListPresets() {
    MainSettings settings;
    settings.LoadAll();
    for (const auto& preset : settings.Presets) {
        Print(preset->Key() + L"\t" + std::to_wstring(preset->Get(Preset::Position)) + L"\t" +
              preset->Get(Preset::Name) + L"\n");
    }
    return 0;
}

int ListTemplates() {
    for (uint32_t number = 0; number < TemplateCount; ++number)
        Print(std::to_wstring(number) + L"\t" + TemplateNames[number] + L"\n");
    return 0;
}

// The template of this number or name; TemplateCount if there is none.
uint32_t FindTemplate(const std::wstring& text) {
    uint32_t number = 0;
    while (number < TemplateCount && text != std::to_wstring(number) && text != TemplateNames[number])
        ++number;
    return number;
}

// A key is drawn from the current second. Waits for one that is fit for use: not empty, and not the key of a
// preset that a script made a moment ago.
std::wstring WaitForFreeKey(MainSettings& settings) {
    std::wstring key = MakePresetKey();
    while (key.empty() || settings.FindPreset(key)) {
        Sleep(50);
        key = MakePresetKey();
    }
    return key;
}

int NewPreset(const Arguments& arguments) {
    const uint32_t number = FindTemplate(arguments[1]);
    if (number == TemplateCount)
        return Fail(L"no such template: " + arguments[1]);
    MainSettings settings;
    settings.LoadAll();
    Preset& preset = settings.CreateFromTemplate(number, WaitForFreeKey(settings));
    if (arguments.size() == 3)
        preset.Get(Preset::Name) = arguments[2];
    if (!preset.Save())
        return Fail(L"the preset could not be stored");
    Print(preset.Key() + L"\n");
    return 0;
}

int RemovePreset(const Arguments& arguments) {
    MainSettings settings;
    settings.LoadAll();
    const Preset* preset = settings.FindPreset(arguments[1]);
    if (!preset)
        return Fail(L"no such preset: " + arguments[1]);
    preset->DeleteKey();
    settings.Remove(*preset);
    settings.Renumber();
    return 0;
}

int Run(const Arguments& arguments) {
    const size_t count = arguments.size();
    const std::wstring command = count > 0 ? arguments[0] : L"";
    if (command == L"list" && count == 1)
        return ListPresets();
    if (command == L"templates" && count == 1)
        return ListTemplates();
    if (command == L"new" && (count == 2 || count == 3))
        return NewPreset(arguments);
    if (command == L"remove" && count == 2)
        return RemovePreset(arguments);
    if (command == L"--help" && count == 1) {
        Print(Usage);
        return 0;
    }
    return WrongUsage();
}

}  // namespace

int wmain(int count, wchar_t** values) {
    WinLib::LimitDllSearch();
    try {
        return Run(Arguments(values + 1, values + count));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "presets: %s\n", error.what());
        return 1;
    }
}
