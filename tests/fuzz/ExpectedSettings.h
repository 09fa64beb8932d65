// The contents of a registry, and the settings that must be loaded from it, value by value.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "support/TestRegistry.h"
#include "support/settings/RecordFields.h"

namespace Fuzz {

class ExpectedSettings {
public:
    // Takes down everything below the key.
    ExpectedSettings(const TestSupport::TestRegistry& registry, const std::wstring& key);

    // The text of the field, see TextOf, after its record has been read from recordKey. The field itself
    // holds the default.
    std::wstring TextAfterReading(const RecordField& field, const std::wstring& recordKey) const;

    // Whether a word of an enumeration in the record is no UTF-16, which the settings do not put up with.
    bool BreaksReading(MetaTypes::Settings& record, const std::wstring& recordKey) const;

    // All values, by their key and name with a backslash between.
    const std::map<std::wstring, TestSupport::RegistryValue>& Values() const { return values_; }

private:
    void TakeDown(const TestSupport::TestRegistry& registry, const std::wstring& key);
    std::optional<TestSupport::RegistryValue> Stored(const RecordField& field,
                                                     const std::wstring& recordKey) const;

    std::set<std::wstring> keys_;
    std::map<std::wstring, TestSupport::RegistryValue> values_;
};

}  // namespace Fuzz
