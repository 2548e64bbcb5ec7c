#include "generator/block_numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace brindle {
namespace {

TEST(BlockNumbersTest, RiseToMultiples) {
    constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
    constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
    const int32_t rows[][3] = {{0, 10, 10}, {10, 10, 20}, {14, 10, 20},  {15, 10, 20},    {7, 1, 8},
                               {7, 0, 7},   {-3, 10, 0},  {20, -10, 10}, {kMax, 1, kMin}, {kMax, 10, -2147483640}};
    for (const auto& [from, increment, to] : rows) {
        BlockNumbers numbers{.on = true, .increment = increment, .number = from};
        numbers.Advance();
        EXPECT_EQ(numbers.number, to) << from << " by " << increment;
    }
}

}  // namespace
}  // namespace brindle
