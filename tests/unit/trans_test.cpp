#include "geometry/trans.h"

#include <gtest/gtest.h>

#include "text/numbers.h"

namespace brindle {
namespace {

CTrans Turned(double rotation, bool mirror_x, bool mirror_y, bool rotate_first) {
    CTrans trans;
    trans.rotation = rotation;
    trans.mirror_x = mirror_x;
    trans.mirror_y = mirror_y;
    trans.rotate_first = rotate_first;
    return trans;
}

TEST(Trans, OrderOfRotationAndMirrors) {
    const struct {
        double rotation;
        bool mirror_x, mirror_y, rotate_first;
        Point gives;
    } rows[] = {{kQuarterTurn, false, false, true, {-1, 3}},
                {-kQuarterTurn, false, false, true, {1, -3}},
                {kQuarterTurn, true, false, true, {1, 3}},
                {kQuarterTurn, true, false, false, {-1, -3}},
                {kQuarterTurn, false, true, true, {-1, -3}},
                {kQuarterTurn, false, true, false, {1, 3}},
                {0, true, false, true, {-3, 1}},
                {kHalfTurn, true, true, true, {3, 1}}};
    for (const auto& row : rows) {
        const Point p = Turned(row.rotation, row.mirror_x, row.mirror_y, row.rotate_first).TransformPoint({3, 1});
        EXPECT_DOUBLE_EQ(p.x, row.gives.x) << row.rotation << row.mirror_x << row.mirror_y << row.rotate_first;
        EXPECT_DOUBLE_EQ(p.y, row.gives.y) << row.rotation << row.mirror_x << row.mirror_y << row.rotate_first;
    }
}

TEST(Trans, ShiftsBeforeItScales) {
    CTrans trans = Turned(kQuarterTurn, false, false, true);
    trans.offset_x = 10;
    trans.scale = 2;
    EXPECT_EQ(trans.TransformPoint({1, 0}).x, 20);
    EXPECT_EQ(trans.TransformPoint({1, 0}).y, 2);
}

TEST(Trans, EachAxisHasItsFactorAndDecimals) {
    CTrans trans;
    trans.scale = 2;
    trans.axis1_factor = 3;
    trans.axis2_factor = 0.1;
    trans.axis1_decimals = 1;
    trans.axis2_decimals = kWholeNumber;
    EXPECT_DOUBLE_EQ(trans.TransformPoint({1.234, 7.6}).x, 7.4);
    EXPECT_DOUBLE_EQ(trans.TransformPoint({1.234, 7.6}).y, 2);
    EXPECT_DOUBLE_EQ(trans.TransformPoint({1.234, 7.6}, true).x, 7.404);
    EXPECT_DOUBLE_EQ(trans.ScaleOnly(1.234), 2.468);
    EXPECT_DOUBLE_EQ(trans.TransformLength(1.234), 7.4);
    trans.MultiplyScale(0.5, false);
    EXPECT_DOUBLE_EQ(trans.TransformLength(17), 2);
    EXPECT_DOUBLE_EQ(trans.TransformLengthAxis1(17), 51);
    EXPECT_DOUBLE_EQ(trans.TransformLength(17, true), 1.7);
}

// Another order of the factors would end in another last digit.
TEST(Trans, MultipliesScaleThenFactor) {
    CTrans trans;
    trans.scale = kInchesPerMillimetre;
    trans.axis1_factor = trans.axis2_factor = 0.3;
    EXPECT_EQ(trans.Scale({7.3, 0}).x, 7.3 * kInchesPerMillimetre * 0.3);
    EXPECT_EQ(trans.Scale({0, 7.3}).y, 7.3 * kInchesPerMillimetre * 0.3);
    EXPECT_NE(trans.Scale({7.3, 0}).x, 7.3 * (kInchesPerMillimetre * 0.3));
}

TEST(Trans, CopyKeepsItsOwnOrder) {
    CTrans trans;
    trans.Copy(Turned(1, true, false, false));
    EXPECT_TRUE(trans.rotate_first && trans.mirror_x && trans.rotation == 1);
}

}  // namespace
}  // namespace brindle
