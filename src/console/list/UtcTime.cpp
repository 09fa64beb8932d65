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

// Writes the number with leading zeros to the digits that begin at `begin`.
template <size_t Width>
void WriteDigits(uint32_t number, char* begin) {
    for (size_t i = Width; i-- > 0; number /= 10)
        begin[i] = static_cast<char>('0' + number % 10);
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
    char* const text = memory.data();
    WriteDigits<4>(static_cast<uint32_t>(static_cast<int>(date.year())), text);
    WriteDigits<2>(static_cast<unsigned>(date.month()), text + 5);
    WriteDigits<2>(static_cast<unsigned>(date.day()), text + 8);
    WriteDigits<2>(static_cast<uint32_t>(clock.hours().count()), text + 11);
    WriteDigits<2>(static_cast<uint32_t>(clock.minutes().count()), text + 14);
    WriteDigits<2>(static_cast<uint32_t>(clock.seconds().count()), text + 17);
    WriteDigits<7>(static_cast<uint32_t>(clock.subseconds().count()), text + 20);
    return {memory.data(), memory.size()};
}

}  // namespace Console
