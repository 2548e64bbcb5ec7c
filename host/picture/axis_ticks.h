// The numbers along an axis of a picture.
#pragma once

#include <string>
#include <vector>

namespace brindle::host {

struct AxisTick {
    double value;
    std::string label;
};

// Round values from `low` to `high`, at least `least_step` apart, with labels of the same decimals. None if the range
// is not finite or a step is lost in its numbers.
std::vector<AxisTick> TicksBetween(double low, double high, double least_step);

}  // namespace brindle::host
