#include "console/list/UtcTime.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ratio>

namespace Console {

namespace {

using namespace std::chrono;

using Ticks = duration<int64_t, std::ratio<1, 10'000'000>>;
using TickTime = time_point<system_clock, Ticks>;

// A file time counts from here, the clock of the standard library from 1970.
constexpr TickTime FileEpoch = sys_days(year(1601) / 1 / 1);
constexpr TickTime End = sys_days(year(10000) / 1 / 1);

constexpr std::string_view Pattern = "0000-00-00T00:00:00.0000000Z";
static_assert(Pattern.size() == UtcText().size());

// Writes the number with leading zeros to a place of this width that ends at `end`.
void WriteDigits(uint64_t number, int width, char* end) {
    for (int i = 0; i < width; ++i, number /= 10)
        *--end = static_cast<char>('0' + number % 10);
}

}  // namespace

std::string_view FormatUtc(const FILETIME& time, UtcText& memory) {
    const uint64_t sinceEpoch = uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    if (sinceEpoch == 0 || sinceEpoch >= static_cast<uint64_t>((End - FileEpoch).count()))
        return {};
    const TickTime point = FileEpoch + Ticks(static_cast<int64_t>(sinceEpoch));
    const sys_days day = floor<days>(point);
    const year_month_day date = day;
    const hh_mm_ss clock(point - day);

    std::ranges::copy(Pattern, memory.begin());
    const auto put = [&memory](auto number, int width, size_t end) {
        WriteDigits(static_cast<uint64_t>(number), width, memory.data() + end);
    };
    put(static_cast<int>(date.year()), 4, 4);
    put(static_cast<unsigned>(date.month()), 2, 7);
    put(static_cast<unsigned>(date.day()), 2, 10);
    put(clock.hours().count(), 2, 13);
    put(clock.minutes().count(), 2, 16);
    put(clock.seconds().count(), 2, 19);
    put(clock.subseconds().count(), 7, 27);
    return {memory.data(), memory.size()};
}

FILETIME UtcNow() {
    const Ticks sinceEpoch = floor<Ticks>(system_clock::now()) - FileEpoch;
    const auto ticks = static_cast<uint64_t>(sinceEpoch.count());
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

}  // namespace Console
