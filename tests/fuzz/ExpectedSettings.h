// What the settings must make of a registry, value by value.
#pragma once

#include <string>
#include <vector>

#include "properties/RecordFields.h"
#include "support/TestRegistry.h"

namespace Fuzz {

class ExpectedSettings {
public:
    explicit ExpectedSettings(const TestSupport::TestRegistry& registry) : registry_(registry) {}

    // The text of the field, see TextOf, after its record has been read from the key. The field itself holds
    // the default.
    std::wstring TextAfterReading(const RecordField& field, const std::wstring& recordKey) const;

    // Whether the field's stored word is no UTF-16, which the settings do not put up with.
    bool BreaksReading(const RecordField& field, const std::wstring& recordKey) const;

private:
    const TestSupport::TestRegistry& registry_;
};

}  // namespace Fuzz
