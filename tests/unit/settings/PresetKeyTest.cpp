#include "settings/PresetKey.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <set>

namespace {

// The key that eight draws from this seed give: each draws one of 36 characters or, with index 36, the end.
std::wstring ExpectedKey(unsigned seed) {
    std::srand(seed);
    std::wstring key;
    for (int draw = 0; draw < 8; ++draw) {
        const int index = std::rand() % 37;
        if (index == 36)
            break;
        key += static_cast<wchar_t>(index < 10 ? L'0' + index : L'a' + index - 10);
    }
    return key;
}

std::wstring DrawnKey(unsigned seed) {
    std::srand(seed);
    return DrawPresetKey();
}

TEST(PresetKey, EightDrawsMakeAKeyThatEndsAtTheFirstZero) {
    std::set<size_t> lengths;
    for (unsigned seed = 0; seed < 5000; ++seed) {
        const std::wstring key = DrawnKey(seed);
        ASSERT_EQ(key, ExpectedKey(seed)) << "seed " << seed;
        lengths.insert(key.length());
    }
    // The seeds were enough to see every length, the empty key included.
    EXPECT_EQ(lengths, (std::set<size_t>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(PresetKey, ADrawnZeroTakesItsPlaceAmongTheEight) {
    for (unsigned seed = 0; seed < 500; ++seed) {
        std::srand(seed);
        for (int draw = 0; draw < 8; ++draw)
            std::rand();
        const int next = std::rand();
        DrawnKey(seed);
        ASSERT_EQ(std::rand(), next) << "seed " << seed;
    }
}

TEST(PresetKey, TheSeedIsTheSecond) {
    std::time_t before = 0;
    std::time_t after = 1;
    std::wstring key;
    while (before != after) {
        before = std::time(nullptr);
        key = MakePresetKey();
        after = std::time(nullptr);
    }
    EXPECT_EQ(key, ExpectedKey(static_cast<unsigned>(before)));
}

}  // namespace
