#include "writers/SizeFormat.h"

#include <gtest/gtest.h>

#include <string>

#include "support/lists/ListSupport.h"

namespace {

std::string Shown(SizeStyle style, uint64_t size) {
    return Written(
        ListPreset().Sizes(style), [size](Writer& writer) { writer.sizeWriter(writer, size); });
}

constexpr uint64_t Kibi = uint64_t{1} << 10;
constexpr uint64_t Mebi = uint64_t{1} << 20;
constexpr uint64_t Gibi = uint64_t{1} << 30;
constexpr uint64_t Tebi = uint64_t{1} << 40;
constexpr uint64_t Pebi = uint64_t{1} << 50;

TEST(SizeFormat, DynamicStylesChooseTheUnitByTheExactSize) {
    struct Row {
        uint64_t size;
        const char* dynamic;
        const char* dynamic0;
    };
    const Row rows[] = {
        {0, "0 Bytes", "0 Bytes"},
        {1, "1 Bytes", "1 Bytes"},
        {1023, "1023 Bytes", "1023 Bytes"},
        {1024, "1.0 KiB", "1 KiB"},
        {1536, "1.5 KiB", "1 KiB"},
        {1048575, "1024.0 KiB", "1023 KiB"},
        {1048576, "1.0 MiB", "1 MiB"},
        {1572864, "1.5 MiB", "1 MiB"},
        {Gibi - 1, "1024.0 MiB", "1023 MiB"},
        {Gibi, "1.0 GiB", "1 GiB"},
        {Gibi + Gibi / 2, "1.5 GiB", "1 GiB"},
        {Tebi - 1, "1024.0 GiB", "1023 GiB"},
        {Tebi, "1.0 TiB", "1 TiB"},
        {Tebi + Tebi / 2, "1.5 TiB", "1 TiB"},
        {Pebi - 1, "1024.0 TiB", "1023 TiB"},
        {1125899906842624, "", ""},
        {UINT64_MAX, "", ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Shown(SizeStyle::Dynamic, row.size), row.dynamic) << row.size;
        EXPECT_EQ(Shown(SizeStyle::Dynamic0, row.size), row.dynamic0) << row.size;
    }
}

// Values that lie in the middle between two decimals, which a double holds exactly: the even one is taken.
TEST(SizeFormat, MiddlesAreRoundedToEven) {
    EXPECT_EQ(Shown(SizeStyle::Dynamic, 1280), "1.2 KiB");
    EXPECT_EQ(Shown(SizeStyle::Dynamic, 1792), "1.8 KiB");
    EXPECT_EQ(Shown(SizeStyle::KibiBytes, 256), "0.2 KiB");
    EXPECT_EQ(Shown(SizeStyle::KibiBytes, 768), "0.8 KiB");
    EXPECT_EQ(Shown(SizeStyle::Dynamic, 2 * Mebi + Mebi / 4), "2.2 MiB");
    EXPECT_EQ(Shown(SizeStyle::Dynamic, 3 * Gibi + Gibi / 4 * 3), "3.8 GiB");
}

TEST(SizeFormat, FixedStylesKeepTheirUnit) {
    struct Row {
        SizeStyle style;
        uint64_t size;
        const char* text;
    };
    const Row rows[] = {
        {SizeStyle::Bytes, 0, "0 Bytes"},
        {SizeStyle::Bytes, 1048576, "1048576 Bytes"},
        {SizeStyle::Bytes, UINT64_MAX, "18446744073709551615 Bytes"},
        {SizeStyle::KibiBytes, 0, "0.0 KiB"},
        {SizeStyle::KibiBytes, 1536, "1.5 KiB"},
        {SizeStyle::KibiBytes, Mebi, "1024.0 KiB"},
        {SizeStyle::MebiBytes, 0, "0.0 MiB"},
        {SizeStyle::MebiBytes, 1023, "0.0 MiB"},
        {SizeStyle::MebiBytes, 1024, "0.0 MiB"},
        {SizeStyle::MebiBytes, 1536, "0.0 MiB"},
        {SizeStyle::MebiBytes, 1048575, "1.0 MiB"},
        {SizeStyle::MebiBytes, 1048576, "1.0 MiB"},
        {SizeStyle::MebiBytes, 1572864, "1.5 MiB"},
        {SizeStyle::GibiBytes, 0, "0.0 GiB"},
        {SizeStyle::GibiBytes, Gibi + Gibi / 2, "1.5 GiB"},
        {SizeStyle::GibiBytes, 1125899906842624, "1048576.0 GiB"},
        {SizeStyle::TebiBytes, 0, "0.0 TiB"},
        {SizeStyle::TebiBytes, Tebi + Tebi / 2, "1.5 TiB"},
        {SizeStyle::TebiBytes, UINT64_MAX, "16777216.0 TiB"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Shown(row.style, row.size), row.text) << row.size << " in style " << int(row.style);
}

TEST(SizeFormat, DropsTheBitsBelowTheNextLowerUnit) {
    // 52 KiB are 0.0508 MiB; one byte less counts as 51 KiB, 0.0498 MiB.
    EXPECT_EQ(Shown(SizeStyle::MebiBytes, 52 * Kibi), "0.1 MiB");
    EXPECT_EQ(Shown(SizeStyle::MebiBytes, 52 * Kibi - 1), "0.0 MiB");
}

TEST(SizeFormat, ComputesInSinglePrecision) {
    // From 2^34 on a float steps by 2048, so half a KiB more is lost.
    EXPECT_EQ(Shown(SizeStyle::KibiBytes, 16 * Gibi + 512), "16777216.0 KiB");
    EXPECT_EQ(Shown(SizeStyle::KibiBytes, 16 * Gibi + 2048), "16777218.0 KiB");
}

TEST(SizeFormat, RoundsToOneDecimal) {
    EXPECT_EQ(Shown(SizeStyle::KibiBytes, 153), "0.1 KiB");   // 0.1494
    EXPECT_EQ(Shown(SizeStyle::KibiBytes, 154), "0.2 KiB");   // 0.1504
    EXPECT_EQ(Shown(SizeStyle::KibiBytes, 1996), "1.9 KiB");  // 1.9492
    EXPECT_EQ(Shown(SizeStyle::KibiBytes, 1997), "2.0 KiB");  // 1.9502
}

TEST(SizeFormat, RefusesStylesOutsideTheEnumeration) {
    EXPECT_NO_THROW(MakeSizeWriter(static_cast<SizeStyle>(6)));
    EXPECT_THROW(MakeSizeWriter(static_cast<SizeStyle>(7)), std::exception);
    EXPECT_THROW(MakeSizeWriter(static_cast<SizeStyle>(UINT32_MAX)), std::exception);
}

}  // namespace
