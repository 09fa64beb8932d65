// Runs the commands "presets ..." in the stand-in's world.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "FakeWin.h"
#include "console/Commands.h"
#include "console/Interrupt.h"
#include "support/TestRegistry.h"
#include "support/Text.h"

struct Outcome {
    Console::ExitCode code;
    std::string out;
    std::string error;
};

struct PresetsFixture : testing::Test {
    PresetsFixture() { Console::CatchInterrupts(); }

    // Runs "presets" with these arguments.
    static Outcome Run(Console::Arguments arguments) {
        const size_t out = FakeWin::StandardOutput().size();
        const size_t error = FakeWin::StandardError().size();
        arguments.insert(arguments.begin(), L"presets");
        const Console::ExitCode code = Console::RunProgram(arguments);
        return {code, FakeWin::StandardOutput().substr(out), FakeWin::StandardError().substr(error)};
    }

    // Runs a command that must succeed, and returns what it prints.
    static std::string Printed(const Console::Arguments& arguments) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.code, Console::ExitCode::Complete) << outcome.error;
        EXPECT_EQ(outcome.error, "");
        return outcome.out;
    }

    // Makes a preset of template 0 and returns its key.
    static std::wstring Make(const std::wstring& name) {
        std::string key = Printed({L"new", L"0", name});
        key.pop_back();
        return TestSupport::Wide(key);
    }

    // Expects a command to fail with this message and to print nothing.
    static void ExpectFailure(const Console::Arguments& arguments, Console::ExitCode code,
                              const std::string& message) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.code, code) << message;
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.error, "tamblewickc: " + message + "\n");
    }

    std::wstring Text(const std::wstring& key, const std::wstring& name) const {
        return TextOfValue(registry.Get(Root + key, name));
    }

    // A preset of which one word is half a surrogate pair.
    void MakeDamaged(const std::wstring& key, const std::wstring& name, uint32_t position) const {
        registry.SetString(Root + key, L"Name", name);
        registry.SetDword(Root + key, L"Position", position);
        registry.SetString(Root + key + L"\\Format", L"ListStyle", L"Ht\xD800");
    }

    static std::wstring TextOfValue(const std::optional<TestSupport::RegistryValue>& value) {
        if (!value)
            return L"(none)";
        const auto* const units = reinterpret_cast<const wchar_t*>(value->data.data());
        return std::wstring(units, value->data.size() / sizeof(wchar_t) - 1);
    }

    const std::wstring Root = L"Software\\Tamblewick\\";
    const TestSupport::TestRegistry registry;
};
