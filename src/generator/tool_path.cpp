#include "generator/tool_path.h"

#include <algorithm>

namespace brindle {

int32_t ToolPath::NumberOfBlock(size_t record) const {
    const auto begins_later = [](size_t value, const BlockRange& range) { return value < range.first; };
    auto at = std::upper_bound(blocks.begin(), blocks.end(), record, begins_later);
    while (at != blocks.begin()) {
        --at;
        if (record < at->last) return static_cast<int32_t>(at - blocks.begin());
        if (at->first != at->last) break;  // after a number without blocks another one may hold the record
    }
    return -1;
}

}  // namespace brindle
