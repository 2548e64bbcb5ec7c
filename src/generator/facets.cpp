#include "generator/facets.h"

#include <algorithm>
#include <cmath>

#include "text/numbers.h"

namespace brindle {
namespace {

constexpr int32_t kMostFacets = 100000;
constexpr double kSmallestTolerance = 0.001;
constexpr double kSmallestStep = 0.0001;

// Lines around `arc` with their corners `offset` outside it. An open arc with a count of 0 gives one line, a closed one
// none.
std::vector<CNCLineData> MakeFacets(const CNCArcData& arc, double offset, int32_t count) {
    count = std::min(count, kMostFacets);
    std::vector<CNCLineData> facets;
    const bool closed = arc.IsFullCircle();
    const double sweep = arc.GetSweepAngle(false);
    const double direction = arc.IsClockwise() ? -1.0 : 1.0;
    const double corner_radius = std::fabs(arc.GetRadius()) + offset;
    const Point center = arc.Center();
    double angle = AngleOf(center, arc.Start());
    Point from = arc.Start();
    const int32_t corners = closed ? count : count - 1;
    for (int32_t i = 0; i < corners; ++i) {
        angle += direction * sweep / count;
        const Point to{center.x + corner_radius * std::cos(angle), center.y + corner_radius * std::sin(angle)};
        facets.emplace_back(arc.cut(), from, to);
        from = to;
    }
    if (!closed) {
        facets.emplace_back(arc.cut(), from, arc.End());
    } else if (facets.size() > 1) {
        facets.front().set_start(facets.back().End());
    }
    return facets;
}

// The smallest count, from 2, for which no facet turns by more than `angle` degrees.
int32_t CountByAngle(double sweep, double angle) {
    if (angle >= sweep / 2.0 / kRadiansPerDegree) return 2;
    // Near the quotient, so that the count is found by the same comparison as by counting up from 3.
    const double quotient = sweep / kRadiansPerDegree / angle;
    if (quotient >= kMostFacets) return kMostFacets;
    int32_t count = std::max(3, static_cast<int32_t>(quotient) - 1);
    while (sweep / count / kRadiansPerDegree > angle) ++count;
    return count;
}

}  // namespace

std::vector<CNCLineData> FacetByTolerance(const CNCArcData& arc, double tolerance) {
    tolerance = std::max(tolerance, kSmallestTolerance);
    const double radius = std::fabs(arc.GetRadius());
    const double sweep = std::fabs(arc.GetSweepAngle(false));
    double step = 2.0 * std::acos(radius / (radius + tolerance));
    if (std::fabs(step) < kSmallestStep) step = kSmallestStep;
    const double first = 2.0 * std::acos((radius - tolerance) / (radius + tolerance));
    int32_t count = TruncateToInt32((sweep - first + step) / step);
    if (count != 0) count = WrapAdd(count, 1);
    return MakeFacets(arc, tolerance, count);
}

std::vector<CNCLineData> FacetByAngle(const CNCArcData& arc, double angle) {
    angle = std::fabs(angle);
    if (angle == 0.0) return {};
    const double sweep = std::fabs(arc.GetSweepAngle(false));
    const double radius = std::fabs(arc.GetRadius());
    const int32_t count = CountByAngle(sweep, angle);
    const double offset = (radius - radius * std::cos(sweep / (2.0 * count))) * 0.65;
    return MakeFacets(arc, offset, count);
}

}  // namespace brindle
