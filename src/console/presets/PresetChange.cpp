#include "console/presets/PresetChange.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <deque>
#include <exception>
#include <limits>
#include <nlohmann/json.hpp>

#include "console/Errors.h"
#include "console/Interrupt.h"
#include "console/Output.h"
#include "console/presets/PresetJson.h"
#include "resources/version.h"
#include "settings/PresetKey.h"
#include "settings/StorageKey.h"
#include "settings/metatypes/MakeRow.h"
#include "settings/metatypes/RegistrySerializer.h"
#include "winlib/RegistryKey.h"

namespace Console {

namespace {

using MetaTypes::FieldRow;
using nlohmann::ordered_json;

std::wstring KeyPath(const std::wstring& key) {
    return std::wstring(StorageKey) + L"\\" + key;
}

// Writes the fields that have different values in two presets.
class DifferenceSerializer : public MetaTypes::ISerializer {
public:
    DifferenceSerializer(const std::wstring& path, const Preset& first, const Preset& second)
        : path_(path), first_(FieldsOf(first)), second_(FieldsOf(second)) {}

    bool Serialize(const FieldRow* table, const void* record) override {
        return MetaTypes::RegistrySerializer(path_).Serialize(Differing(table, first_, second_), record);
    }

private:
    // Returns a table of the rows whose values differ.
    const FieldRow* Differing(const FieldRow* table, const ordered_json& first, const ordered_json& second) {
        std::vector<FieldRow>& rows = tables_.emplace_back();
        for (const FieldRow* row = table; row->name; ++row) {
            if (first.value(row->name, ordered_json()) == second.value(row->name, ordered_json()))
                continue;
            rows.push_back(*row);
            if (row->type == MetaTypes::TypeCode::Section)
                rows.back().subTable = Differing(static_cast<const FieldRow*>(row->subTable),
                                                 first[row->name], second[row->name]);
        }
        rows.push_back(MetaTypes::EndOfTable);
        return rows.data();
    }

    const std::wstring path_;
    const ordered_json first_;
    const ordered_json second_;
    std::deque<std::vector<FieldRow>> tables_;  // keeps their addresses
};

// Creates a key that no preset has and returns its name.
std::wstring CreateKey() {
    while (true) {
        const std::wstring name = DrawPresetKey();
        RegistryKey key;
        DWORD disposition = REG_OPENED_EXISTING_KEY;
        if (!name.empty() &&
            RegCreateKeyExW(HKEY_CURRENT_USER, KeyPath(name).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                            key.Receive(), &disposition) != ERROR_SUCCESS)
            throw Error(ExitCode::NotWritten, L"the preset could not be stored in the registry");
        if (disposition == REG_CREATED_NEW_KEY)
            return name;
    }
}

bool IsGone(const std::wstring& name) {
    RegistryKey key;
    return RegOpenKeyExW(HKEY_CURRENT_USER, KeyPath(name).c_str(), 0, KEY_READ, key.Receive()) ==
           ERROR_FILE_NOT_FOUND;
}

// The title alone would fit a folder's window too.
bool IsMainWindowOpen() {
    constexpr wchar_t DialogClass[] = L"#32770";
    return FindWindowW(DialogClass, L"" PROGRAM_TITLE) != nullptr;
}

}  // namespace

// Not the current second, with which the window program seeds the generator: it would draw the same keys and
// save its presets under them. The library's random device would load a DLL.
PresetChange::PresetChange()
    : PresetChange(static_cast<unsigned>(std::chrono::steady_clock::now().time_since_epoch().count())) {}

PresetChange::PresetChange(unsigned seed) : presets_(ReadLockedPresets()) {
    std::srand(seed);
    if (!presets_.empty())
        highest_ = std::max(highest_, presets_.front().preset.Get(Preset::Position));
}

PresetChange::~PresetChange() {
    for (auto undo = undo_.rbegin(); undo != undo_.rend(); ++undo) {
        try {
            (*undo)();
        } catch (const std::exception&) {
            // Without memory for one preset, there may be enough for the next.
        }
    }
}

std::wstring PresetChange::Add(const Preset& values) {
    Preset preset(CreateKey());
    undo_.push_back([key = preset.Key()] { Preset(key).DeleteKey(); });
    if (highest_ < std::numeric_limits<int32_t>::max())
        ++highest_;
    preset.Assign(values);
    preset.Get(Preset::Position) = highest_;
    if (!preset.Save())
        throw Error(ExitCode::NotWritten,
                    L"the preset '" + values.Get(Preset::Name) + L"' could not be stored in the registry");
    return preset.Key();
}

void PresetChange::Write(const Preset& before, const Preset& changed) {
    const auto write = [path = KeyPath(before.Key())](const Preset& from, const Preset& to) {
        DifferenceSerializer serializer(path, from, to);
        return to.Serialize(serializer);
    };
    undo_.push_back([write, before, changed] { write(changed, before); });
    if (!write(before, changed))
        throw Error(ExitCode::NotWritten,
                    L"the preset '" + before.Key() + L"' could not be stored in the registry");
}

void PresetChange::Remove(const StoredPreset& stored) {
    if (!stored.damaged)
        undo_.push_back([preset = stored.preset] { preset.Save(); });
    stored.preset.DeleteKey();
    if (!IsGone(stored.preset.Key()))
        throw Error(ExitCode::NotWritten,
                    L"the preset '" + stored.preset.Key() + L"' could not be removed from the registry");
}

void PresetChange::Commit() {
    ThrowIfInterrupted();
    undo_.clear();
    if (IsMainWindowOpen())
        Warn(
            "a window of Tamblewick is open, and its next change overwrites this one; close it and open it "
            "again");
}

}  // namespace Console
