// Facets by what they are for: around the arc, near it, from its start to its end.
#include "generator/facets.h"

#include <gtest/gtest.h>

#include <cmath>

namespace brindle {
namespace {

// Counter-clockwise for a positive sweep.
CNCArcData Arc(double radius, double start_degrees, double sweep_degrees) {
    const auto at = [radius](double degrees) {
        return Point{3.0 + radius * std::cos(degrees * kRadiansPerDegree),
                     -2.0 + radius * std::sin(degrees * kRadiansPerDegree)};
    };
    const CutAttributes cut{.line_type = 4, .tool_id = 2, .cut_width = 0.7, .bridge_count = 3, .bridge_width = 1.5};
    const Point start = at(start_degrees);
    const Point end = std::fabs(sweep_degrees) == 360.0 ? start : at(start_degrees + sweep_degrees);
    return {cut, start, end, {3.0, -2.0}, sweep_degrees > 0.0 ? -radius : radius};
}

double DistanceToChord(const CNCLineData& facet, Point center) {
    const double area =
        Cross(facet.GetDeltaX(), facet.GetDeltaY(), center.x - facet.GetStartX(), center.y - facet.GetStartY());
    return std::fabs(area) / Distance(facet.Start(), facet.End());
}

void ExpectChain(const CNCArcData& arc, const std::vector<CNCLineData>& facets, double outside) {
    ASSERT_FALSE(facets.empty());
    const bool closed = arc.IsFullCircle();
    EXPECT_LT(Distance(facets.back().End(), closed ? facets.front().Start() : arc.End()), 1e-9);
    if (!closed) {
        EXPECT_LT(Distance(facets.front().Start(), arc.Start()), 1e-9);
    }
    for (size_t i = 0; i < facets.size(); ++i) {
        EXPECT_EQ(facets[i].GetToolId(), 2);
        EXPECT_EQ(facets[i].GetLineType(), 4);
        EXPECT_EQ(facets[i].GetBridgeCount(), 3);
        EXPECT_EQ(facets[i].GetBridgeWidth(), 1.5);
        EXPECT_EQ(facets[i].GetCutWidth(), 0.7);
        if (i == 0) continue;
        EXPECT_EQ(facets[i].GetStartX(), facets[i - 1].GetEndX());
        EXPECT_NEAR(Distance(facets[i].Start(), arc.Center()), std::fabs(arc.GetRadius()) + outside, 1e-9);
        const double turn = SmallestTurn(facets[i].GetStartAngle(false), facets[i - 1].GetEndAngle(false), false);
        EXPECT_EQ(turn < 0.0, arc.IsClockwise()) << i;
    }
}

TEST(FacetsTest, KeepToTheToleranceOnBothSides) {
    for (const double radius : {0.5, 10.0, 5000.0}) {
        for (const double sweep : {30.0, -30.0, 180.0, -275.0, 350.0, 360.0, -360.0}) {
            for (const double tolerance : {0.0, 0.01, 0.1}) {
                const CNCArcData arc = Arc(radius, 20.0, sweep);
                const double allowed = std::max(tolerance, 0.001);
                const std::vector<CNCLineData> facets = FacetByTolerance(arc, tolerance);
                ExpectChain(arc, facets, allowed);
                if (facets.size() == 1) continue;  // the chord of a short arc
                for (const CNCLineData& facet : facets) {
                    EXPECT_GT(DistanceToChord(facet, arc.Center()), radius - allowed * 1.01) << radius << " " << sweep;
                }
            }
        }
    }
}

TEST(FacetsTest, TurnByNoMoreThanTheAngle) {
    const struct {
        double sweep, angle;
        size_t count;
    } kCases[] = {
        {90.0, 45.0, 2},  {90.0, 44.9, 3},    {90.0, 30.0, 3},      {-90.0, -10.0, 9},      {90.0, 9.99, 10},
        {360.0, 90.0, 4}, {-360.0, 500.0, 2}, {360.0, 0.01, 36000}, {90.0, 1e-300, 100000}, {360.0, 1e-300, 100000},
    };
    for (const auto& [sweep, angle, count] : kCases) {
        const CNCArcData arc = Arc(10.0, 10.0, sweep);
        const std::vector<CNCLineData> facets = FacetByAngle(arc, angle);
        EXPECT_EQ(facets.size(), count) << sweep << " by " << angle;
        const double half = arc.GetSweepAngle(false) / (2.0 * static_cast<double>(count));
        if (count > 2 && count < 1000) ExpectChain(arc, facets, (10.0 - 10.0 * std::cos(half)) * 0.65);
    }
    EXPECT_TRUE(FacetByAngle(Arc(10.0, 0.0, 90.0), 0.0).empty());
}

TEST(FacetsTest, OfAnArcSmallerThanTheTolerance) {
    EXPECT_EQ(FacetByTolerance(Arc(0.005, 0.0, 90.0), 0.01).size(), 1U);  // straight to the end
    EXPECT_EQ(FacetByTolerance(Arc(0.0, 0.0, 90.0), 0.01).size(), 1U);
}

}  // namespace
}  // namespace brindle
