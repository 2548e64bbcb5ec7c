#include "platform/local_time.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <mutex>
#include <vector>

#include "text/numbers.h"
#include "text/words.h"

namespace brindle {
namespace {

constexpr int32_t kFirstYear = 1900;

constexpr bool IsWithin(int32_t value, int32_t first, int32_t last) { return value >= first && value <= last; }

bool IsCalendarTime(int32_t year, int32_t month, int32_t day, int32_t hour, int32_t minute, int32_t second) {
    return year >= kFirstYear && IsWithin(month, 1, 12) && IsWithin(day, 1, 31) && IsWithin(hour, 0, 23) &&
           IsWithin(minute, 0, 59) && IsWithin(second, 0, 59);
}

// The C library has one time zone for all threads, and reads it anew where TZ has changed.
std::mutex time_zone;

// How far the local clock is ahead of UTC at that time, in seconds.
int64_t OffsetAt(int64_t seconds) {
    const std::time_t time = static_cast<std::time_t>(seconds);
    std::tm local = {};
    return localtime_r(&time, &local) ? local.tm_gmtoff : 0;
}

// The time at which the local clock shows what the clock of UTC shows at `clock`. Of two such times it is the earlier
// one; where the clock leaps over them, the time since the leap counts. mktime would choose by what it was asked
// before.
int64_t TimeOfLocalClock(int64_t clock) {
    constexpr int64_t kDay = 86400;
    const int64_t before = OffsetAt(clock - kDay);
    const int64_t after = OffsetAt(clock + kDay);
    if (OffsetAt(clock - before) == before) return clock - before;
    return OffsetAt(clock - after) == after ? clock - after : clock - before;
}

// A field of the text, with its separator in front.
std::string Field(int value) { return std::string(value < 10 ? "_0" : "_").append(std::to_string(value)); }

}  // namespace

int64_t Now() {
    return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

std::string FormatTimeStamp(int64_t seconds) {
    const std::time_t time = static_cast<std::time_t>(seconds);
    std::tm local = {};
    const std::lock_guard lock(time_zone);
    tzset();
    if (!localtime_r(&time, &local) || local.tm_year < 0) return {};
    return std::to_string(int64_t{kFirstYear} + local.tm_year) + Field(local.tm_mon + 1) + Field(local.tm_mday) +
           Field(local.tm_hour) + Field(local.tm_min) + Field(local.tm_sec);
}

int64_t ParseTimeStamp(std::string_view text) {
    std::vector<std::string_view> words;
    SplitWords(text, words, "_ \t");
    if (words.size() < 6) return 0;
    std::array<int32_t, 6> parts = {};
    std::transform(words.begin(), words.begin() + 6, parts.begin(), LeadingInt);
    const auto [year, month, day, hour, minute, second] = parts;
    if (!IsCalendarTime(year, month, day, hour, minute, second)) return 0;
    std::tm local = {};
    local.tm_year = year - kFirstYear;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    local.tm_hour = hour;
    local.tm_min = minute;
    local.tm_sec = second;
    const std::lock_guard lock(time_zone);
    tzset();
    return TimeOfLocalClock(timegm(&local));
}

}  // namespace brindle
