#include "geometry/plane_math.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

#include "geometry/rounding.h"
#include "text/numbers.h"

namespace brindle {
namespace {

TEST(PlaneMath, AngleOf) {
    const std::pair<Point, double> rows[] = {
        {{1, 0}, kFullTurn},  {{0, 1}, kQuarterTurn},      {{0, 0}, kQuarterTurn},       {{0, -1}, kThreeQuarterTurn},
        {{-1, 0}, kHalfTurn}, {{-1, 1}, 0.75 * kHalfTurn}, {{-1, -1}, 1.25 * kHalfTurn}, {{1, -1}, 1.75 * kHalfTurn}};
    for (const auto& [to, angle] : rows) EXPECT_DOUBLE_EQ(AngleOf({0, 0}, to), angle) << to.x << ' ' << to.y;
    // Just above the x axis it is still a full turn and more.
    EXPECT_DOUBLE_EQ(AngleOf({0, 0}, {1, 0.00009}), kFullTurn + std::atan(0.00009));
    EXPECT_DOUBLE_EQ(AngleOf({0, 0}, {1, 0.00011}), std::atan(0.00011));
}

TEST(PlaneMath, Normalize) {
    const double degrees[][3] = {{0, 0, 0},       {180, 180, 180},        {-180, 180, 180},       {360, 0, 0},
                                 {-90, 270, -90}, {180.5, 180.5, -179.5}, {-180.5, 179.5, 179.5}, {-360, 0, 0},
                                 {725, 5, 5},     {-725, 355, -5},        {359.5, 359.5, -0.5},   {-1e-20, 0, -1e-20}};
    for (const auto& [angle, positive, with_sign] : degrees) {
        EXPECT_EQ(NormalizePositive(angle, true), positive) << angle;
        EXPECT_EQ(NormalizeSigned(angle, true), with_sign) << angle;
    }
    EXPECT_EQ(NormalizeSigned(-kHalfTurn, false), kHalfTurn);
    for (double angle = -1.0; std::abs(angle) < 1e300; angle *= -7.3) {
        const double positive = NormalizePositive(angle, false);
        EXPECT_TRUE(positive >= 0.0 && positive < kFullTurn) << angle;
        const double with_sign = NormalizeSigned(angle, false);
        EXPECT_TRUE(with_sign > -kHalfTurn && with_sign <= kHalfTurn) << angle;
    }
    EXPECT_TRUE(std::isnan(NormalizePositive(std::numeric_limits<double>::infinity(), false)));
}

TEST(PlaneMath, SmallestTurn) {
    const double degrees[][4] = {{30, 10, 20, 20}, {10, 350, 20, 20}, {350, 10, -20, -20}, {200, 0, -160, 20},
                                 {91, 0, 91, -89}, {-91, 0, -91, 89}, {180, 0, 180, 0},    {0, 180, 180, 0},
                                 {90, 0, 90, 90},  {0, 90, -90, -90}};
    for (const auto& [a, b, turn, symmetric_turn] : degrees) {
        const double from = b * kRadiansPerDegree;
        const double to = a * kRadiansPerDegree;
        EXPECT_NEAR(SmallestTurn(to, from, false) / kRadiansPerDegree, turn, 1e-12) << a << ' ' << b;
        EXPECT_NEAR(SmallestTurn(to, from, true) / kRadiansPerDegree, symmetric_turn, 1e-12) << a << ' ' << b;
    }
}

TEST(PlaneMath, Rounding) {
    EXPECT_EQ(RoundToStep(2.5, 1), 3);
    EXPECT_EQ(RoundToStep(-2.5, 1), -3);
    EXPECT_EQ(RoundScaled(1.25, 2, kWholeNumber), 3);
    EXPECT_EQ(RoundScaled(1.25, 2, 1), 2.5);
    EXPECT_EQ(RoundScaled(1.5, 1234, -2), 1900);
    const struct {
        double value;
        int32_t decimals;
        double rounded, truncated, next;
    } rows[] = {{1.23456, kWholeNumber, 1, 1, 2},
                {1.5, 0, 2, 1, 2},
                {-1.5, 0, -2, -1, 0},
                {-1.25, 1, -1.3, -1.2, -1.1},
                {-0.04, 1, 0, 0, 0.1},
                {12.3456785, 9, 12.3456785, 12.3456785, 12.345678501},
                {1.5, -1, 1.5, 1.5, 1.5},
                {1.5, 400, 1.5, 1.5, 1.5}};
    for (const auto& row : rows) {
        EXPECT_DOUBLE_EQ(RoundToDecimals(row.value, row.decimals), row.rounded) << row.value << ' ' << row.decimals;
        EXPECT_DOUBLE_EQ(TruncToDecimals(row.value, row.decimals), row.truncated) << row.value << ' ' << row.decimals;
        EXPECT_DOUBLE_EQ(NextStepUp(row.value, row.decimals), row.next) << row.value << ' ' << row.decimals;
    }
}

TEST(PlaneMath, StepOfDecimals) {
    for (int32_t n = -12; n <= 20; ++n) EXPECT_EQ(StepOfDecimals(n), std::pow(10.0, -static_cast<double>(n))) << n;
    EXPECT_EQ(StepOfDecimals(kWholeNumber) + StepOfDecimals(5000), 2);
    EXPECT_EQ(StepOfDecimals(kWholeNumber - 1), 0);
    EXPECT_TRUE(std::isinf(StepOfDecimals(std::numeric_limits<int32_t>::min())));
}

TEST(PlaneMath, PointsCoincide) {
    const std::tuple<Point, double, bool> rows[] = {
        {{0.00024, -0.00024}, 0, true}, {{0.00026, 0}, 0, false}, {{0, -0.00026}, 0, false}, {{0.4, 0}, 1, true},
        {{0.00024, 0}, 0.0001, true},   {{0.5, 0}, 1, false},     {{0, 0.4}, 1, false}};
    for (const auto& [to, tolerance_x, coincide] : rows)
        EXPECT_EQ(PointsCoincide({0, 0}, to, tolerance_x, 0), coincide) << to.x;
}

}  // namespace
}  // namespace brindle
