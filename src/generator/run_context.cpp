#include "generator/run_context.h"

namespace brindle {
namespace {

// Turns a distance into degrees of turn at the rotary radius, whatever the output unit.
double RotaryFactor(const RunContext& run) {
    const double radius = run.EffectiveRotaryRadius();
    double factor = 1.0;
    if (radius >= 1.0) factor = 1.0 / (radius * kRadiansPerDegree);
    if (run.controller.in_inches) factor *= kMillimetresPerInch;
    return factor;
}

}  // namespace

void RunContext::SetCurrentRecords(const CNCData* current, const CNCData* next, const CTrans& trans) {
    const auto offset_of = [this](const CNCData* record) {
        if (record == nullptr || !(record->IsLine() || record->IsArc())) return Point{};
        return tools.Get(record->GetToolId()).physical->offset;
    };
    controller.SetCurrentRecords(current, next, trans, offset_of(current), offset_of(next));
}

bool RunContext::IsAtLastPosition(Point p) const {
    if (state.last.PositionUnknown()) return false;
    const Point last = controller.last_position;
    if (p.x == last.x && p.y == last.y) return true;  // mostly: records that meet
    const AxisOptions::Unit& unit = AxisUnit();
    return PointsCoincide(last, p, unit.step[0], unit.step[1]);
}

CTrans RunContext::PlaneTransform() const {
    const AxisOptions& axes = options.axes;
    const AxisOptions::Unit& unit = AxisUnit();
    const double rotary = axes.rotary_in_degrees ? RotaryFactor(*this) : 1.0;
    CTrans trans;
    trans.MultiplyScale(controller.in_inches ? kInchesPerMillimetre : 1.0, !axes.axis1_rotary);
    trans.axis1_decimals = unit.grid_decimals[0];
    trans.axis2_decimals = unit.grid_decimals[1];
    trans.axis1_factor *= unit.factor[0] * (axes.axis1_rotary ? rotary : 1.0);
    trans.axis2_factor *= unit.factor[1] * (axes.axis2_rotary ? rotary : 1.0);
    return trans;
}

int32_t RunContext::VariantOf(const CNCData& record) const {
    CIncludeInfo info{.name = record.GetIncludeName(),
                      .number = -1,
                      .rotation = record.GetIncludeRotation(),
                      .mirror_x = record.GetIncludeMirrorX(),
                      .mirror_y = record.GetIncludeMirrorY()};
    return geometry.FindVariant(info, {options.programs.rotations_in_use, options.programs.mirror_in_use});
}

double RunContext::EffectiveRotaryRadius() const {
    const double radius = controller.job.rotary_radius;
    return radius < 1.0 ? options.axes.default_rotary_radius : radius;
}

}  // namespace brindle
