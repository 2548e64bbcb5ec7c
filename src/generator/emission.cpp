#include "generator/emission.h"

#include <cmath>
#include <string>

#include "generator/facets.h"
#include "generator/word_numbers.h"
#include "geometry/rounding.h"
#include "text/numbers.h"

namespace brindle {

void CEmission::OutputProgram(int32_t program, const CTrans& trans) {
    active_programs_.push_back(program);
    const int32_t count = run_.geometry.GetRecordCount(program);
    for (int32_t i = 0; i < count; ++i) {
        if (run_.log != nullptr) run_.log->RecordStarts(program, i);
        const bool goes_out =
            EmitRecord(*run_.geometry.GetRecord(program, i), run_.geometry.GetRecord(program, i + 1), trans);
        if (run_.log != nullptr) run_.log->RecordEnds(!run_.state.pending_text.empty());
        if (goes_out) segments_.EndSegmentIfFull();
    }
    active_programs_.pop_back();
}

bool CEmission::EmitRecord(const CNCData& record, const CNCData* next, const CTrans& trans) {
    run_.SetCurrentRecords(&record, next, trans);
    const bool is_cut = record.IsLine() || record.IsArc();
    const ProgramOptions& programs = run_.options.programs;
    const bool is_unknown_tool =
        static_cast<uint32_t>(record.GetToolId()) > static_cast<uint32_t>(programs.number_of_tools);
    if (is_cut && is_unknown_tool && !programs.default_tool) {
        LogDropped(DropReason::kToolOutOfRange);
        return false;
    }

    std::vector<CNCLineData> facets;
    bool force_lift = false;
    if (record.IsArc()) facets = FacetsOf(static_cast<const CNCArcData&>(record), force_lift);
    if (facets.empty()) {
        EmitDispatched(record, next, trans);
    } else {
        if (run_.log != nullptr) run_.log->ArcAsLines(true);
        EmitFacets(facets, next, trans, force_lift);
    }
    UpdateToolDirection(record);
    return true;
}

void CEmission::EmitDispatched(const CNCData& record, const CNCData* next, const CTrans& trans) {
    if (record.IsLine() && !ReportsNoTool(record, "Line")) return CutLine(false);
    if (record.IsArc()) return EmitArc(static_cast<const CNCArcData&>(record), next, trans);
    if (record.IsText()) return EmitText(record);
    if (record.IsInclude()) return EmitInclude(static_cast<const CNCIncludeData&>(record), trans);
}

std::vector<CNCLineData> CEmission::FacetsOf(const CNCArcData& record, bool& force_lift) {
    if (IsTooLargeForWords()) return FacetByTolerance(record, run_.options.arcs.facet_tolerance);
    const ToolData& tool = *run_.tools.Get(record.GetToolId()).physical;
    const bool is_small = tool.small_arc_radius >= std::fabs(record.GetRadius());
    if (!tool.facets_small_arcs || !is_small || !tool.small_arc_angle) return {};
    force_lift = true;
    return FacetByAngle(record, *tool.small_arc_angle);
}

bool CEmission::IsTooLargeForWords() const {
    const ArcOptions& arcs = run_.options.arcs;
    const double limit = run_.controller.in_inches ? arcs.largest_word_inches : arcs.largest_word_metric;
    const AxisOptions::Unit& unit = run_.AxisUnit();
    const auto printed = [](const CNumberText& number) { return std::fabs(LeadingDouble(number.view())); };
    if (arcs.by_radius) {
        return unit.factor[run_.options.axes.LinearAxis()] * limit <= printed(RadiusNumber(run_, false));
    }
    const Point offset = CentreOffset(run_, run_.controller.absolute_mode);
    return unit.factor[0] * limit <= printed(AxisNumber(run_, 0, offset.x)) ||
           unit.factor[1] * limit <= printed(AxisNumber(run_, 1, offset.y));
}

void CEmission::EmitFacets(const std::vector<CNCLineData>& facets, const CNCData* next, const CTrans& trans,
                           bool force_lift) {
    for (size_t i = 0; i < facets.size(); ++i) {
        const CNCData* const following = i + 1 < facets.size() ? &facets[i + 1] : next;
        if (!ReportsNoTool(facets[i], "Line")) {
            run_.SetCurrentRecords(&facets[i], following, trans);
            CutLine(force_lift);
        }
        run_.controller.PointToolAlong(facets[i]);
    }
}

void CEmission::UpdateToolDirection(const CNCData& record) {
    if (record.IsLine() || record.IsArc()) {
        run_.controller.PointToolAlong(run_.Record());
        return;
    }
    run_.controller.ForgetToolDirection();
    run_.state.last.tool_angle = -1.0;
}

bool CEmission::ReportsNoTool(const CNCData& record, const char* what) {
    if (run_.tools.Get(record.GetToolId()).physical->exists()) return false;
    LogDropped(DropReason::kNoTool);
    executor_.resolver().ReportError("WARNING: type " + std::to_string(record.GetLineType()) + " maps to tool 0.  " +
                                     what + " ignored.");
    return true;
}

void CEmission::LogDropped(DropReason reason) {
    if (run_.log != nullptr) run_.log->RecordDropped(reason);
}

void CEmission::ApproachCut(bool force_lift) {
    tools_.ToolChange();
    if (!run_.options.axes.start_end_on_block) ExecuteMove(run_.move);
    if (tools_.NeedsLift(force_lift)) tools_.ToolOff();
    tools_.ToolOn();
    tools_.FlyPreCheck();
}

void CEmission::CutLine(bool force_lift) {
    ApproachCut(force_lift);
    executor_.ExecuteTemplate(run_.line);
    run_.controller.last_position = run_.Record().End();
    tools_.FlyPostCheck();
}

void CEmission::EmitArc(const CNCArcData& record, const CNCData* next, const CTrans& trans) {
    if (ReportsNoTool(record, "Arc")) return;
    const CNCArcData& current = *run_.controller.current_item().AsArc();
    const CTrans& machine = run_.controller.transform;
    const bool is_open =
        std::fabs(current.GetStartX() - current.GetEndX()) > 2.0 * StepOfDecimals(machine.axis1_decimals) ||
        std::fabs(current.GetStartY() - current.GetEndY()) > 2.0 * StepOfDecimals(machine.axis2_decimals);
    if (is_open) return CutArc();
    if (!current.IsLongArc()) {
        return EmitAsLine(record, next, trans, "WARNING: Short arc being treated as short line");
    }
    const int axis = run_.options.axes.LinearAxis();
    const AxisOptions::Unit& unit = run_.AxisUnit();
    const double radius = std::fabs(RoundToDecimals(current.GetRadius(), unit.grid_decimals[axis]));
    if (unit.step[axis] >= radius) {
        return EmitAsLine(record, next, trans, "WARNING: zero radius arc being treated as zero length line");
    }
    if (!run_.options.arcs.by_radius) return CutArc();
    EmitHalves(record, next, trans);
}

void CEmission::EmitAsLine(const CNCArcData& record, const CNCData* next, const CTrans& trans, const char* warning) {
    if (run_.log != nullptr) run_.log->ArcAsLines(false);
    executor_.resolver().ReportError(warning);
    const CNCLineData line(record.cut(), record.Start(), record.End());
    run_.SetCurrentRecords(&line, next, trans);
    CutLine(false);
}

void CEmission::EmitHalves(const CNCArcData& record, const CNCData* next, const CTrans& trans) {
    const double tangent = record.GetStartAngle(false);
    const double radius = record.GetRadius();
    const Point split{record.GetCenterX() + radius * std::cos(tangent),
                      record.GetCenterY() + radius * std::sin(tangent)};
    CutAttributes cut = record.cut();
    cut.bridge_count /= 4;
    const CNCArcData first(cut, record.Start(), split, record.Center(), radius);
    const CNCArcData second(cut, split, record.End(), record.Center(), radius);
    run_.SetCurrentRecords(&first, &second, trans);
    CutArc();
    run_.SetCurrentRecords(&second, next, trans);
    CutArc();
}

void CEmission::CutArc() {
    ApproachCut(false);
    executor_.ExecuteTemplate(run_.arc);
    const CNCArcData* const arc = run_.controller.current_item().AsArc();
    run_.controller.last_position = arc->true_end();
    tools_.FlyPostCheck();
}

void CEmission::EmitText(const CNCData& record) {
    CTextResolver& resolver = executor_.resolver();
    if (!run_.controller.absolute_mode) {
        LogDropped(DropReason::kTextInIncremental);
        return resolver.ReportError("Text ignored in incremental mode");
    }
    if (!run_.options.programs.use_text) {
        LogDropped(DropReason::kTextNotSupported);
        return resolver.ReportError("WARNING: Text is not supported.");
    }
    if (ReportsNoTool(record, "Line")) return;
    tools_.ToolChange();
    ExecuteMove(run_.move);
    tools_.ToolOn();
    executor_.ExecuteTemplate(run_.text);
}

void CEmission::ExecuteMove(const CompiledTemplate& compiled) {
    CNCControllerState& controller = run_.controller;
    MoveKind& move = run_.state.tool.move;
    const Point start = run_.Record().Start();
    if (run_.IsAtLastPosition(start)) return;
    move = MoveKind::kRapid;
    if (run_.state.last.PositionUnknown()) {
        tools_.ToolOff();
    } else {
        const double shortest_rapid = controller.transform.TransformLength(run_.options.programs.shortest_rapid);
        if (Distance(controller.last_position, start) <= shortest_rapid) move = MoveKind::kLinear;
        if (tools_.GapCanStayDown(controller.last_position, controller.GetToolDirection(true), start)) {
            move = MoveKind::kLinear;
        } else {
            tools_.ToolOff();
        }
    }
    executor_.ExecuteTemplate(compiled);
    controller.last_position = start;
    controller.SetToolDirection(run_.Record().GetStartAngle(false));
    move = MoveKind::kNone;
}

}  // namespace brindle
