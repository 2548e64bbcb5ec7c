// Local time and the calendar.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brindle {

// Seconds since the epoch, now.
int64_t Now();

// "%Y_%m_%d_%H_%M_%S" in local time, as definitions and stored records are dated; empty for a time the calendar lacks.
std::string FormatTimeStamp(int64_t seconds);

// The time of such a text, with daylight saving as the system has it: in the hour that an autumn repeats it is the
// first one, in the hour that a spring leaves out the clock counts on. A text of fewer than six words gives 0, and so
// does a number out of its range (year from 1900, month 1 to 12, day 1 to 31, hour 0 to 23, minute and second 0 to 59).
// A day that its month lacks counts on into the next month.
int64_t ParseTimeStamp(std::string_view text);

}  // namespace brindle
