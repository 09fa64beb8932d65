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

uint32_t ReadDigits(std::string_view digits) {
    uint32_t number = 0;
    for (const char digit : digits)
        number = number * 10 + static_cast<uint32_t>(digit - '0');
    return number;
}

// Whether a text has digits where the pattern has them, and is the pattern elsewhere.
bool FitsPattern(std::string_view text) {
    const auto fits = [](char character, char pattern) {
        return pattern == '0' ? character >= '0' && character <= '9' : character == pattern;
    };
    return std::ranges::equal(text, Pattern, fits);
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

bool ParseUtc(std::string_view text, FILETIME& time) {
    time = {};
    if (text.empty())
        return true;
    if (!FitsPattern(text))
        return false;
    const year_month_day date(year(static_cast<int>(ReadDigits(text.substr(0, 4)))),
                              month(ReadDigits(text.substr(5, 2))), day(ReadDigits(text.substr(8, 2))));
    const uint32_t hour = ReadDigits(text.substr(11, 2));
    const uint32_t minute = ReadDigits(text.substr(14, 2));
    const uint32_t second = ReadDigits(text.substr(17, 2));
    if (!date.ok() || date.year() < year(1601) || hour > 23 || minute > 59 || second > 59)
        return false;
    const TickTime point = sys_days(date) + hours(hour) + minutes(minute) + seconds(second) +
                           Ticks(ReadDigits(text.substr(20, 7)));
    const auto sinceEpoch = static_cast<uint64_t>((point - FileEpoch).count());
    time = {static_cast<DWORD>(sinceEpoch), static_cast<DWORD>(sinceEpoch >> 32)};
    return true;
}

}  // namespace Console
