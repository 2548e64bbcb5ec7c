// Dates and times as people read them.
#pragma once

#include <cstdint>
#include <string>

namespace brindle::host {

struct DateText {
    std::string date;  // 2024-03-01
    std::string time;  // 10:00:00
};

// Local date and time of `seconds` since the epoch; empty texts for a time that the calendar lacks.
DateText LocalDateText(int64_t seconds);

}  // namespace brindle::host
