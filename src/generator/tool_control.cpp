#include "generator/tool_control.h"

#include <cmath>

namespace brindle {

void CToolControl::ToolChange() {
    const int32_t number = run_.controller.current_item().Get().GetToolId();
    if (number == run_.state.selected_tool) return;
    const Tool new_tool = run_.tools.Get(number);
    const bool had_tool = run_.state.selected_tool > 0;
    const Tool old_tool = had_tool ? SelectedTool() : Tool{};
    const bool deselects = had_tool && old_tool.physical->exists();
    run_.settings.keep_physical_tool = false;
    if (deselects) Deselect(old_tool, new_tool);
    if (new_tool.physical->exists()) Select(number, deselects ? &old_tool : nullptr, new_tool);
    WarnOfOffset(*new_tool.physical);
}

void CToolControl::Deselect(const Tool& old_tool, const Tool& new_tool) {
    if (run_.IsAtLastPosition(run_.controller.current_item().Get().Start())) {
        const bool keep = old_tool.physical == new_tool.physical;
        run_.settings.keep_physical_tool = keep;
        if (old_tool.physical->off_before_deselect) ToolOff(keep);
    } else {
        ToolOff();
    }
    Execute(old_tool.own->deselect);
    if (new_tool.physical != old_tool.physical && old_tool.own != old_tool.physical) {
        Execute(old_tool.physical->deselect);
    }
    run_.state.selected_tool = -1;
}

void CToolControl::Select(int32_t number, const Tool* old_tool, const Tool& new_tool) {
    run_.state.selected_tool = number;
    const bool other_physical = old_tool == nullptr || old_tool->physical != new_tool.physical;
    if (other_physical && new_tool.own != new_tool.physical) Execute(new_tool.physical->select);
    Execute(new_tool.own->select);
    run_.state.tool_on = new_tool.physical->on_after_select ? 1 : 0;
}

void CToolControl::WarnOfOffset(const ToolData& physical) {
    const bool has_offset = std::fabs(physical.offset.x) >= kTolerance || std::fabs(physical.offset.y) >= kTolerance;
    if (!has_offset || run_.controller.current_program < 0) return;
    executor_.resolver().ReportError(
        "Warning: Applying tool offsets. This will not be correct if this subprogram is called with a mirror or a "
        "rotation.");
}

void CToolControl::ToolOn() {
    if (run_.state.tool_on >= 1 || run_.state.selected_tool <= 0) return;
    run_.controller.tool_down = true;
    const Tool tool = SelectedTool();
    const bool physical_too = !run_.settings.keep_physical_tool && tool.physical->exists();
    if (physical_too && tool.physical != tool.own) Execute(tool.physical->on);
    if (tool.own->exists()) Execute(tool.own->on);
    run_.state.tool_on = 1;
}

void CToolControl::ToolOff(bool keep) {
    const bool forced = run_.settings.keep_physical_tool && !keep;
    run_.settings.keep_physical_tool = keep;
    if (run_.state.tool_on == 0 && !forced) return;
    run_.controller.tool_down = false;
    if (run_.state.selected_tool > 0) {
        const Tool tool = SelectedTool();
        if (tool.own->exists()) Execute(tool.own->off);
        if (!keep && tool.physical->exists() && tool.physical != tool.own) Execute(tool.physical->off);
    }
    run_.state.tool_on = 0;
}

void CToolControl::DeselectAtEnd() {
    if (run_.state.selected_tool <= 0) return;
    const Tool tool = SelectedTool();
    Execute(tool.own->deselect);
    if (tool.physical != tool.own) Execute(tool.physical->deselect);
}

void CToolControl::FlyPreCheck() {
    if (!run_.options.fly.supported) return;
    CNCControllerState& controller = run_.controller;
    const CNCData& record = controller.current_item().Get();
    const CNCData& next = controller.next_item().Get();
    const ToolData& tool = *run_.tools.Get(record.GetToolId()).physical;
    if (!tool.exists()) return;
    if (!controller.fly_mode_on && tool.fly && CanFly(record, next, tool.fly_deviation)) {
        controller.fly_mode_on = true;
        Execute(run_.fly_pre_check);
        run_.state.fly_check = 1;
    }
    if (controller.fly_mode_on && !CanFly(record, next, tool.fly_deviation)) {
        controller.fly_mode_on = false;
        if (!run_.options.fly.code_with_following) return;
        Execute(run_.fly_pre_check);
        run_.state.fly_check = 0;
    }
}

void CToolControl::FlyPostCheck() {
    if (run_.controller.fly_mode_on || run_.state.fly_check < 1) return;
    Execute(run_.fly_post_check);
    run_.state.fly_check = 0;
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
    const double turn = SmallestTurn(run_.controller.current_item().Get().GetStartAngle(false),
                                     run_.controller.GetToolDirection(false), tool.symmetric);
    return std::fabs(turn / kRadiansPerDegree) > tool.lift_angle;
}

}  // namespace brindle
