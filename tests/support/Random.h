// Random inputs for properties. Every round of a test has a seed of its own, which is in the messages of
// its failures; with TAMBLEWICK_SEED set to it in the environment, the first round of each test is that one
// again.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

class Random {
public:
    explicit Random(uint32_t seed) : engine_(seed) {}

    // A number from 0 to count - 1.
    uint32_t Below(uint32_t count) { return static_cast<uint32_t>(engine_() % count); }
    int Between(int least, int most) {
        return least + static_cast<int>(Below(static_cast<uint32_t>(most - least) + 1));
    }
    bool Bool() { return Below(2) == 1; }
    uint64_t Bits() { return engine_(); }

    template <typename Range>
    const auto& Choose(const Range& range) {
        return range[Below(static_cast<uint32_t>(std::size(range)))];
    }
    template <typename Range>
    void Shuffle(Range& range) {
        std::shuffle(range.begin(), range.end(), engine_);
    }

    // UTF-16 units of any kind but 0, at most so many.
    std::wstring Text(uint32_t longest);

private:
    std::mt19937_64 engine_;
};

// The seed from which the rounds of a test count.
uint32_t FirstSeed();

// Runs body(random) in so many rounds, or until one of them fails.
template <typename Body>
void ForRandomInputs(int rounds, Body body) {
    const uint32_t first = FirstSeed();
    for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
        const uint32_t seed = first + static_cast<uint32_t>(round);
        SCOPED_TRACE("TAMBLEWICK_SEED=" + std::to_string(seed));
        Random random(seed);
        body(random);
    }
}
