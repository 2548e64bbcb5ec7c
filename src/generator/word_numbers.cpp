#include "generator/word_numbers.h"

#include <cmath>

namespace brindle {
namespace {

Point Difference(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }

}  // namespace

CNumberText AxisNumber(const RunContext& run, int axis, double value) {
    return {value, run.AxisUnit().number_decimals[axis], run.state.trim};
}

CNumberText RadiusNumber(const RunContext& run, bool is_unsigned) {
    const CNCData& record = run.Record();
    const ArcOptions& arcs = run.options.arcs;
    const bool positive_is_short = record.IsClockwise() ? arcs.cw_positive_is_short : arcs.ccw_positive_is_short;
    double radius = std::fabs(record.GetRadius());
    if (positive_is_short != record.IsMinorArc() && !is_unsigned) radius = -radius;
    return {radius, run.AxisUnit().grid_decimals[run.options.axes.LinearAxis()], run.state.trim};
}

Point CentreOffset(const RunContext& run, bool absolute) {
    const ArcOptions& arcs = run.options.arcs;
    const CNCData& record = run.Record();
    if (absolute ? arcs.abs_from_start : arcs.inc_from_start) return Difference(record.Center(), record.Start());
    if (absolute ? arcs.abs_from_end : arcs.inc_from_end) return Difference(record.Center(), record.End());
    return absolute && arcs.abs_is_absolute ? record.Center() : Point{};
}

}  // namespace brindle
