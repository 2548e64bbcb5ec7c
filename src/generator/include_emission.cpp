// Calls of sub-programs: expanded where the controller has none, otherwise as calls.
#include "generator/emission.h"

#include <algorithm>

namespace brindle {
namespace {

// A call's rotation and mirrors, without the caller's transform.
void TakePlacing(const CNCIncludeData& record, CTrans& trans) {
    trans.mirror_x = record.GetIncludeMirrorX();
    trans.mirror_y = record.GetIncludeMirrorY();
    trans.rotation = record.GetIncludeRotation();
}

Point Placed(const CNCIncludeData& record, Point p) {
    CTrans trans;
    TakePlacing(record, trans);
    return trans.TransformPoint(p);
}

Point Sum(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }

}  // namespace

void CEmission::EmitInclude(const CNCIncludeData& record, const CTrans& trans) {
    const int32_t program = run_.geometry.FindProgram(record.GetIncludeName());
    if (IsEmptyProgram(program)) {
        return LogDropped(program < 0 ? DropReason::kUnknownProgram : DropReason::kEmptyCall);
    }
    if (!run_.options.programs.use_subs || run_.controller.job.tile_to_output != 0) return ExpandCall(record, program);
    CallSub(record, program, trans);
}

bool CEmission::IsEmptyProgram(int32_t program) const {
    const int32_t count = run_.geometry.GetRecordCount(program);
    if (count != 1) return count == 0;
    const CNCData& only = *run_.geometry.GetRecord(program, 0);
    return Distance(only.Start(), only.End()) < kTolerance;
}

void CEmission::ExpandCall(const CNCIncludeData& record, int32_t program) {
    if (!MayExpand(program)) return;
    CTrans trans = run_.PlaneTransform();
    TakePlacing(record, trans);
    trans.offset_x = record.GetStartX();
    trans.offset_y = record.GetStartY();
    if (run_.log != nullptr) run_.log->ExpansionStarts(record);
    OutputProgram(program, trans);
    if (run_.log != nullptr) run_.log->ExpansionEnds();
}

bool CEmission::MayExpand(int32_t program) {
    CTextResolver& resolver = executor_.resolver();
    if (std::find(active_programs_.begin(), active_programs_.end(), program) != active_programs_.end()) {
        LogDropped(DropReason::kCallsItself);
        resolver.ReportError("WARNING: program " + std::string(run_.geometry.GetProgramName(program)) +
                             " calls itself.  Call ignored.");
        return false;
    }
    if (active_programs_.size() > kDeepestCall) {
        LogDropped(DropReason::kCallsTooDeep);
        resolver.ReportError("WARNING: calls nested too deep.  Call ignored.");
        return false;
    }
    if (expanded_calls_ >= kMostCalls) {
        LogDropped(DropReason::kTooManyCalls);
        resolver.ReportError("WARNING: too many calls.  Call ignored.");
        return false;
    }
    ++expanded_calls_;
    return true;
}

Point CEmission::StartReference(const CNCIncludeData& record, int32_t program) const {
    Point p;
    if (run_.options.programs.use_subs && run_.options.programs.start_subs_at_center) {
        run_.geometry.GetProgramCenter(program, p);
    } else {
        run_.geometry.GetFirstPoint(program, p);
    }
    return Placed(record, p);
}

Point CEmission::EndReference(const CNCIncludeData& record, int32_t program) const {
    Point p;
    if (run_.options.programs.end_subs_at_center) {
        run_.geometry.GetProgramCenter(program, p);
    } else {
        run_.geometry.GetLastPoint(program, p);
    }
    return Placed(record, p);
}

void CEmission::MakeCallPointCurrent(const CNCIncludeData& record, Point place, const CTrans& trans) {
    const CNCIncludeData call({record.GetIncludeName(),
                               place,
                               {},
                               record.GetIncludeRotation(),
                               record.GetIncludeMirrorX(),
                               record.GetIncludeMirrorY()});
    run_.SetCurrentRecords(&call, nullptr, trans);
}

void CEmission::CallSub(const CNCIncludeData& record, int32_t program, const CTrans& trans) {
    const bool on_block = run_.options.axes.start_end_on_block;
    MakeCallPointCurrent(record, Sum(record.Start(), StartReference(record, program)), trans);
    if (run_.log != nullptr) run_.log->CallStarts(record, run_.VariantOf(record));
    if (!on_block) ReachCallPoint(record);
    tools_.ToolOff();
    executor_.ExecuteTemplate(run_.sub_call);
    run_.state.last.Clear();
    run_.state.tool.power = ToolPower::kUnknown;
    if (run_.options.programs.subs_absolute && !on_block) {
        MakeCallPointCurrent(record, Sum(record.Start(), EndReference(record, program)), run_.controller.transform);
        executor_.ExecuteTemplate(run_.origin_reset);
        run_.state.last.Clear();
    }
    executor_.ExecuteTemplate(run_.sub_reset);
    if (run_.log != nullptr) run_.log->CallEnds();
}

void CEmission::ReachCallPoint(const CNCIncludeData& record) {
    ExecuteMove(run_.move_to_include);
    if (!run_.options.programs.subs_absolute) return;
    MakeCallPointCurrent(record, record.Start(), run_.controller.transform);
    executor_.ExecuteTemplate(run_.origin_set);
    run_.state.last.Clear();
}

}  // namespace brindle
