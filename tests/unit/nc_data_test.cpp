#include "geometry/nc_data.h"

#include <gtest/gtest.h>

#include <cmath>

namespace brindle {
namespace {

Point OnCircle(double degrees) {
    return {10 * std::cos(degrees * kRadiansPerDegree), 10 * std::sin(degrees * kRadiansPerDegree)};
}

TEST(NCData, LinesPointWhereTheyGo) {
    const double rows[][3] = {{1, 0, 0},      {1, 1, 45},   {0, 1, 90}, {-1, 0, 180},
                              {-1, -1, -135}, {0, -1, -90}, {0, 0, 90}};
    for (const auto& [x, y, degrees] : rows) {
        const CNCLineData line({}, {7, 8}, {7 + x, 8 + y});
        EXPECT_NEAR(line.GetStartAngle(true), degrees, 1e-12);
        EXPECT_NEAR(line.GetEndAngle(false), degrees * kRadiansPerDegree, 1e-14);
    }
}

TEST(NCData, ArcAngles) {
    const double rows[][6] = {
        // from, to, radius, sweep, start angle, end angle
        {0, 90, -10, 90, 90, 180},     {0, 90, 10, 270, -90, 0},          {0, 180, -10, 180, 90, -90},
        {0, 180, 10, 180, -90, 90},    {0, 180.1, -10, 180.1, 90, -89.9}, {350, 10, -10, 20, 80, 100},
        {350, 10, 10, 340, -100, -80}, {30, 30, 10, 360, -60, -60},       {30, 30, -10, 360, 120, 120}};
    for (const auto& [from, to, radius, sweep, start_angle, end_angle] : rows) {
        const CNCArcData arc({}, OnCircle(from), OnCircle(to), {0, 0}, radius);
        SCOPED_TRACE(testing::Message() << from << " to " << to << " radius " << radius);
        EXPECT_NEAR(arc.GetSweepAngle(true), sweep, 1e-9);
        EXPECT_NEAR(arc.GetStartAngle(true), start_angle, 1e-9);
        EXPECT_NEAR(arc.GetEndAngle(false), end_angle * kRadiansPerDegree, 1e-11);
        EXPECT_EQ(arc.IsMinorArc(), sweep <= 180);
        EXPECT_EQ(arc.IsLongArc(), sweep > 271);
        EXPECT_EQ(arc.IsFullCircle(), from == to);
    }
    EXPECT_FALSE(CNCArcData({}, OnCircle(0), OnCircle(270.0004), {0, 0}, -10).IsLongArc());
    EXPECT_TRUE(CNCArcData({}, OnCircle(0), OnCircle(270.0006), {0, 0}, -10).IsLongArc());
    EXPECT_EQ(CNCArcData({}, {1, 2}, {1.0001, 2}, {1, 2.0001}, 5).GetSweepAngle(true), 0);
    EXPECT_EQ(CNCArcData({}, {1, 2}, {1.0001, 2}, {1, 2.001}, 5).GetSweepAngle(true), 360);
}

// Adds 1 to x, then doubles, and makes y ten times as much; one decimal.
CTrans Doubling() {
    CTrans trans;
    trans.offset_x = 1;
    trans.scale = 2;
    trans.axis2_factor = 10;
    trans.axis1_decimals = trans.axis2_decimals = 1;
    return trans;
}

TEST(NCData, LineTransform) {
    CNCLineData line({5, 6, 0.33, 7, 0.21}, {1.02, 2.003}, {3.12, 4});
    line.Transform(Doubling());
    EXPECT_DOUBLE_EQ(line.GetStartX(), 4);
    EXPECT_DOUBLE_EQ(line.GetDeltaX(), 4.2);
    EXPECT_DOUBLE_EQ(line.GetDeltaY(), 39.9);
    EXPECT_DOUBLE_EQ(line.GetCutWidth(), 0.7);
    EXPECT_DOUBLE_EQ(line.GetBridgeWidth(), 0.4);
}

TEST(NCData, TextTransformKeepsRotationAndExtraValue) {
    CNCTextData text({3, 4, 2.53, {1.02, 2}, {5, 6}, 1.23, 0.5, 9.99, 3.21, "Label"});
    CTrans trans = Doubling();
    trans.rotation = kQuarterTurn;
    text.Transform(trans);
    EXPECT_DOUBLE_EQ(text.GetStartX(), -2);
    EXPECT_DOUBLE_EQ(text.GetEndY(), 100);
    EXPECT_DOUBLE_EQ(text.GetTextHeight(), 5.06);
    EXPECT_DOUBLE_EQ(text.GetTextFirstLength(), 2.46);
    EXPECT_DOUBLE_EQ(text.GetTextSecondLength(), 6.42);
    EXPECT_EQ(text.GetTextRotation(), 0.5);
    EXPECT_EQ(text.GetTextExtraValue(), 9.99);
}

TEST(NCData, IncludeTransformAndSize) {
    CNCIncludeData call({"Part", {1.02, 2}, {3.5, 4}, 0.5, true, false});
    EXPECT_EQ(call.GetDeltaX(), 7);
    call.Transform(Doubling());
    EXPECT_DOUBLE_EQ(call.GetStartX(), 4);
    EXPECT_DOUBLE_EQ(call.GetCenterY(), 80);
    EXPECT_TRUE(call.GetIncludeRotation() == 0.5 && call.GetIncludeMirrorX());
}

TEST(NCData, CopiesOfArcsStartAfresh) {
    CNCArcData arc({}, {10, 0}, {5.02, -8.68}, {0, 0}, -10);
    CTrans trans;
    trans.axis1_decimals = trans.axis2_decimals = 2;
    trans.axis1_factor = 2;
    arc.Transform(trans);
    ASSERT_EQ(arc.y_ratio(), 2);
    ASSERT_NE(arc.true_end().x, arc.GetEndX());
    const CNCArcData copy(arc);
    CNCArcData assigned({}, {}, {}, {}, 1);
    assigned = arc;
    for (const CNCArcData* fresh : {&copy, &std::as_const(assigned)}) {
        EXPECT_EQ(fresh->y_ratio(), 1);
        EXPECT_EQ(fresh->true_end().x, arc.GetEndX());
        EXPECT_EQ(fresh->GetRadius(), arc.GetRadius());
    }
}

}  // namespace
}  // namespace brindle
