// Pieces of the pictures that `brindle plot` paints.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/picture/axis_ticks.h"

namespace brindle::host {
namespace {

std::string Labels(double low, double high, double least_step) {
    std::string labels;
    for (const AxisTick& tick : TicksBetween(low, high, least_step)) labels += tick.label + " ";
    return labels;
}

TEST(AxisTicksTest, AreRoundAndInRange) {
    struct Row {
        double low, high, least;
        const char* labels;
    };
    const double infinite = std::numeric_limits<double>::infinity();
    const Row rows[] = {
        {-0.5, 3.5, 0.7, "0 1 2 3 "},
        {-250, 250, 101, "-200 0 200 "},
        {0, 1, 0.21, "0.0 0.5 1.0 "},
        {-0.03, 0.03, 0.011, "-0.02 0.00 0.02 "},
        {99990, 100040, 10, "99990 100000 100010 100020 100030 100040 "},
        {0.2, 0.3, 1, ""},
        {1e300, 1.1e300, 1, ""},
        {1e9, 1e9 + 1, 1e-10, ""},
        {-infinite, infinite, 1, ""},
        {0, 1, std::nan(""), ""},
        {0, 1, 0, ""},
    };
    for (const Row& row : rows) EXPECT_EQ(Labels(row.low, row.high, row.least), row.labels) << row.low;
}

}  // namespace
}  // namespace brindle::host
