// Stores one value in the registry and reads it into a single field.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "SingleField.h"
#include "settings/metatypes/RegistryDeserializer.h"
#include "support/TestRegistry.h"

class SingleFieldReader : public testing::Test {
protected:
    const std::wstring Key = L"Software\\Tamblewick\\Test";

    // Reads what is stored as "Value" into a single field.
    template <typename Member>
    bool Read(Member& member) {
        static constexpr SingleField Field = SingleFieldOf<Member>();
        return MetaTypes::RegistryDeserializer(Key).Deserialize(Field.rows, &member);
    }

    template <typename Member>
    void ExpectRead(const Member& expected, Member initial) {
        EXPECT_TRUE(Read(initial));
        EXPECT_EQ(initial, expected);
    }

    // The field keeps what it had.
    template <typename Member>
    void ExpectKept(Member initial) {
        const Member before = initial;
        EXPECT_FALSE(Read(initial));
        EXPECT_EQ(initial, before);
    }

    void StoreDword(uint32_t value) { registry_.SetDword(Key, L"Value", value); }
    void StoreText(std::wstring_view text) { registry_.SetString(Key, L"Value", text); }
    void Store(DWORD type, const std::string& data) { registry_.SetRaw(Key, L"Value", type, data); }

    TestSupport::TestRegistry registry_;
};
