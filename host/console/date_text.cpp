#include "host/console/date_text.h"

#include <algorithm>

#include "platform/local_time.h"

namespace brindle::host {

DateText LocalDateText(int64_t seconds) {
    const std::string stamp = FormatTimeStamp(seconds);  // 2024_03_01_10_00_00
    const size_t time = stamp.size() < 8 ? stamp.size() : stamp.size() - 8;
    DateText text{stamp.substr(0, time == 0 ? 0 : time - 1), stamp.substr(time)};
    std::replace(text.date.begin(), text.date.end(), '_', '-');
    std::replace(text.time.begin(), text.time.end(), '_', ':');
    return text;
}

}  // namespace brindle::host
