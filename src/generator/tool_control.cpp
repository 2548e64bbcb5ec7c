#include "generator/tool_control.h"

#include <cmath>

namespace brindle {

void CToolControl::ToolChange() {
    const int32_t number = run_.Record().GetToolId();
    if (number == state_.selected) return;
    const Tool new_tool = run_.tools.Get(number);
    const bool had_tool = state_.selected > 0;
    const Tool old_tool = had_tool ? SelectedTool() : Tool{};
    const bool deselects = had_tool && old_tool.physical->exists();
    state_.keep_physical = false;
    if (deselects) Deselect(old_tool, new_tool);
    if (new_tool.physical->exists()) Select(number, deselects ? &old_tool : nullptr, new_tool);
    WarnOfOffset(*new_tool.physical);
}

void CToolControl::Deselect(const Tool& old_tool, const Tool& new_tool) {
    if (run_.IsAtLastPosition(run_.Record().Start())) {
        const bool keep = old_tool.physical == new_tool.physical;
        state_.keep_physical = keep;
        if (old_tool.physical->off_before_deselect) ToolOff(keep);
    } else {
        ToolOff();
    }
    Execute(old_tool.own->deselect);
    if (new_tool.physical != old_tool.physical && old_tool.own != old_tool.physical) {
        Execute(old_tool.physical->deselect);
    }
    state_.selected = -1;
}

void CToolControl::Select(int32_t number, const Tool* old_tool, const Tool& new_tool) {
    state_.selected = number;
    const bool other_physical = old_tool == nullptr || old_tool->physical != new_tool.physical;
    if (other_physical && new_tool.own != new_tool.physical) Execute(new_tool.physical->select);
    Execute(new_tool.own->select);
    state_.power = new_tool.physical->on_after_select ? ToolPower::kOn : ToolPower::kOff;
}

void CToolControl::WarnOfOffset(const ToolData& physical) {
    const bool has_offset = std::fabs(physical.offset.x) >= kTolerance || std::fabs(physical.offset.y) >= kTolerance;
    if (!has_offset || run_.controller.current_program < 0) return;
    executor_.resolver().ReportError(
        "Warning: Applying tool offsets. This will not be correct if this subprogram is called with a mirror or a "
        "rotation.");
}

void CToolControl::ToolOn() {
    if (state_.power == ToolPower::kOn || state_.selected <= 0) return;
    state_.down = true;
    const Tool tool = SelectedTool();
    const bool physical_too = !state_.keep_physical && tool.physical->exists();
    if (physical_too && tool.physical != tool.own) Execute(tool.physical->on);
    if (tool.own->exists()) Execute(tool.own->on);
    state_.power = ToolPower::kOn;
}

void CToolControl::ToolOff(bool keep) {
    const bool forced = state_.keep_physical && !keep;
    state_.keep_physical = keep;
    if (state_.power == ToolPower::kOff && !forced) return;
    state_.down = false;
    if (state_.selected > 0) {
        const Tool tool = SelectedTool();
        if (tool.own->exists()) Execute(tool.own->off);
        if (!keep && tool.physical->exists() && tool.physical != tool.own) Execute(tool.physical->off);
    }
    state_.power = ToolPower::kOff;
}

void CToolControl::DeselectAtEnd() {
    if (state_.selected <= 0) return;
    const Tool tool = SelectedTool();
    Execute(tool.own->deselect);
    if (tool.physical != tool.own) Execute(tool.physical->deselect);
}

void CToolControl::FlyPreCheck() {
    if (!run_.options.fly.supported) return;
    const CNCData& record = run_.Record();
    const CNCData& next = run_.controller.next_item().Get();
    const ToolData& tool = *run_.tools.Get(record.GetToolId()).physical;
    if (!tool.exists()) return;
    if (!state_.fly_mode && tool.fly && CanFly(record, next, tool.fly_deviation)) {
        state_.fly_mode = true;
        Execute(run_.fly_pre_check);
        state_.fly_post_due = true;
    }
    if (state_.fly_mode && !CanFly(record, next, tool.fly_deviation)) {
        state_.fly_mode = false;
        if (!run_.options.fly.code_with_following) return;
        Execute(run_.fly_pre_check);
        state_.fly_post_due = false;
    }
}

void CToolControl::FlyPostCheck() {
    if (state_.fly_mode || !state_.fly_post_due) return;
    Execute(run_.fly_post_check);
    state_.fly_post_due = false;
}

bool CToolControl::CanFly(const CNCData& record, const CNCData& next, double max_turn) {
    if (!(record.IsLine() || record.IsArc()) || !(next.IsLine() || next.IsArc())) return false;
    if (record.GetToolId() != next.GetToolId()) return false;
    if (!GapCanStayDown(record.End(), record.GetEndAngle(true), next.Start())) return false;
    const double threshold = run_.controller.transform.TransformLength(run_.options.fly.threshold);
    for (const CNCData* arc : {&next, &record}) {
        if (!arc->IsArc()) continue;
        if (!ArcFitsFly(max_turn, threshold, arc->GetSweepAngle(true), std::fabs(arc->GetRadius()))) return false;
    }
    const ToolData& tool = *run_.tools.Get(record.GetToolId()).physical;
    const double turn = SmallestTurn(next.GetStartAngle(false), record.GetEndAngle(false), tool.symmetric);
    return std::fabs(turn / kRadiansPerDegree) < max_turn;
}

bool CToolControl::ArcFitsFly(double max_turn, double threshold, double sweep, double radius) {
    const double largest = max_turn / threshold;
    const double ratio = sweep / radius;
    executor_.resolver().ReportError("maxratio: " + PlainReal(largest) + "  ratio: " + PlainReal(ratio));
    return std::fabs(largest) >= std::fabs(ratio);
}

bool CToolControl::GapCanStayDown(Point from, double angle, Point to) {
    const ToolData& tool = *SelectedTool().physical;
    if (run_.controller.transform.TransformLength(tool.shortest_lift) < Distance(from, to)) return false;
    if (!tool.tangential) return true;
    const double radians = angle * kRadiansPerDegree;
    return std::fabs(Cross(std::cos(radians), std::sin(radians), to.x - from.x, to.y - from.y)) < kTolerance;
}

bool CToolControl::NeedsLift(bool force) {
    if (force) return true;
    const ToolData& tool = *SelectedTool().physical;
    if (!tool.exists() || !tool.tangential) return false;
    if (!run_.controller.ToolDirectionKnown()) return true;
    const double turn =
        SmallestTurn(run_.Record().GetStartAngle(false), run_.controller.GetToolDirection(false), tool.symmetric);
    return std::fabs(turn / kRadiansPerDegree) > tool.lift_angle;
}

}  // namespace brindle
