// The clocks, and times as numbers.
#include <chrono>
#include <mutex>
#include <thread>

#include "Internal.h"

namespace FakeWin {
namespace {

constexpr uint64_t TicksPerMillisecond = 10000;
constexpr uint64_t TicksPerDay = 24ull * 60 * 60 * 1000 * TicksPerMillisecond;
constexpr SYSTEMTIME FirstLocalTime = {2024, 3, 6, 9, 17, 5, 9, 0};

std::mutex mutex;
DWORD tickCount = 0;
DWORD tickStep = 0;
SYSTEMTIME localTime = FirstLocalTime;
std::vector<DWORD> sleeps;

std::chrono::sys_days Epoch() {
    return std::chrono::year(1601) / 1 / 1;
}

FILETIME FromTicks(uint64_t ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

uint64_t ToTicks(const FILETIME& time) {
    return static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

template <typename Integer>
WORD AsWord(Integer number) {
    return static_cast<WORD>(number);
}

}  // namespace

void SetTickCount(DWORD milliseconds) {
    const std::lock_guard lock(mutex);
    tickCount = milliseconds;
}

void AdvanceTickCount(DWORD milliseconds) {
    const std::lock_guard lock(mutex);
    tickCount += milliseconds;
}

void SetTickStep(DWORD milliseconds) {
    const std::lock_guard lock(mutex);
    tickStep = milliseconds;
}

void SetLocalTime(const SYSTEMTIME& time) {
    const std::lock_guard lock(mutex);
    localTime = time;
}

std::vector<DWORD> Sleeps() {
    const std::lock_guard lock(mutex);
    return sleeps;
}

FILETIME MakeFileTime(int year, int month, int day, int hour, int minute, int second) {
    const std::chrono::sys_days date =
        std::chrono::year_month_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                    std::chrono::day(static_cast<unsigned>(day)));
    const auto days = static_cast<uint64_t>((date - Epoch()).count());
    const auto seconds = static_cast<uint64_t>((hour * 60 + minute) * 60 + second);
    return FromTicks(days * TicksPerDay + seconds * 1000 * TicksPerMillisecond);
}

namespace Internal {

void ResetTime() {
    const std::lock_guard lock(mutex);
    tickCount = 0;
    tickStep = 0;
    localTime = FirstLocalTime;
    sleeps.clear();
}

}  // namespace Internal
}  // namespace FakeWin

using namespace FakeWin;

DWORD GetTickCount() {
    Internal::Enter(Call::GetTickCount);
    const std::lock_guard lock(mutex);
    const DWORD now = tickCount;
    tickCount += tickStep;
    return now;
}

void Sleep(DWORD milliseconds) {
    Internal::Enter(Call::Sleep);
    {
        const std::lock_guard lock(mutex);
        sleeps.push_back(milliseconds);
    }
    if (milliseconds == 0)
        std::this_thread::yield();
    else
        std::this_thread::sleep_for(std::chrono::microseconds(200));
}

void GetSystemTimeAsFileTime(LPFILETIME time) {
    *time = MakeFileTime(2024, 3, 9, 16, 5, 9);
}

void GetLocalTime(LPSYSTEMTIME time) {
    Internal::Enter(Call::GetLocalTime);
    const std::lock_guard lock(mutex);
    *time = localTime;
}

BOOL FileTimeToSystemTime(const FILETIME* fileTime, LPSYSTEMTIME systemTime) {
    DWORD error = Internal::Enter(Call::FileTimeToSystemTime);
    const uint64_t ticks = ToTicks(*fileTime);
    if (error == 0 && ticks >> 63 != 0)
        error = ERROR_INVALID_PARAMETER;
    if (error != 0)
        return Internal::Succeeded(error);
    const std::chrono::sys_days day = Epoch() + std::chrono::days(ticks / TicksPerDay);
    const std::chrono::year_month_day date = day;
    const uint64_t milliseconds = ticks % TicksPerDay / TicksPerMillisecond;
    systemTime->wYear = AsWord(static_cast<int>(date.year()));
    systemTime->wMonth = AsWord(static_cast<unsigned>(date.month()));
    systemTime->wDayOfWeek = AsWord(std::chrono::weekday(day).c_encoding());
    systemTime->wDay = AsWord(static_cast<unsigned>(date.day()));
    systemTime->wHour = AsWord(milliseconds / 3600000);
    systemTime->wMinute = AsWord(milliseconds / 60000 % 60);
    systemTime->wSecond = AsWord(milliseconds / 1000 % 60);
    systemTime->wMilliseconds = AsWord(milliseconds % 1000);
    return TRUE;
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* systemTime, LPFILETIME fileTime) {
    const FILETIME whole = MakeFileTime(systemTime->wYear, systemTime->wMonth, systemTime->wDay,
                                        systemTime->wHour, systemTime->wMinute, systemTime->wSecond);
    *fileTime = FromTicks(ToTicks(whole) + systemTime->wMilliseconds * TicksPerMillisecond);
    return TRUE;
}

LONG CompareFileTime(const FILETIME* first, const FILETIME* second) {
    Internal::Enter(Call::CompareFileTime);
    const uint64_t one = ToTicks(*first);
    const uint64_t other = ToTicks(*second);
    return one < other ? -1 : one > other;
}
