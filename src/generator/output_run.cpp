#include "generator/output_run.h"

#include <cmath>

#include "rtd/value_exchange.h"

namespace brindle {

void RunOutput(const SessionParts& session, CRunLog* log) {
    session.buffers.Reset();
    session.trace.Clear();
    JobData& job = session.controller.job;
    SettleRunValues(session.tuning.definition(), job.tuning_pick, job.dataset_name, session.run_values);
    COutputRun(session).RunOutput(log);
}

void COutputRun::RunOutput(CRunLog* log) {
    const ProgramOptions& programs = run_.options.programs;
    run_.controller.ForgetRecords();
    run_.geometry.CollectIncludes({programs.rotations_in_use, programs.mirror_in_use});
    run_.controller.current_program_name = run_.geometry.GetProgramName(0);
    run_.controller.current_program = -1;
    run_.state.last.Clear();  // the comment marks see nothing of the run before
    resolver_.SettleCommentMarks();
    TakeSettings();
    ResetController();
    run_.controller.SetTransform(run_.PlaneTransform());
    segments_.MeasureEnd();
    ResetController();
    run_.log = log;  // what was measured is no part of the NC text
    if (run_.log != nullptr) run_.log->RunStarts(run_);
    executor_.ExecuteTemplate(run_.file_start);
    OutputPrograms();
    executor_.ExecuteTemplate(run_.file_end);
    if (run_.log != nullptr) run_.log->RunEnds();
}

void COutputRun::TakeSettings() {
    const BlockOptions& blocks = run_.options.blocks;
    const ProgramOptions& programs = run_.options.programs;
    run_.state.trim = {blocks.trim_zeros, blocks.trim_point};
    run_.controller.in_inches = programs.inches_auto ? run_.controller.job.auto_inches : programs.inches;
    run_.controller.absolute_mode = programs.absolute;
}

// Comes before the end of a segment is measured, so that it is measured from the same state in each run, and again
// after it.
void COutputRun::ResetController() {
    run_.controller.ForgetToolDirection();
    run_.state.tool = {.power = ToolPower::kOff};
    run_.state.last.tool_angle = -1.0;
    run_.state.last.Clear();
    run_.state.numbers.Reset(run_.options.blocks);
}

void COutputRun::OutputPrograms() {
    const ProgramOptions& programs = run_.options.programs;
    const bool with_subs = programs.use_subs && run_.controller.job.tile_to_output == 0;
    const bool subs_first = programs.subs_first || programs.sub_numbers_by_block;
    if (with_subs && subs_first) OutputSubs();
    OutputMain();
    if (with_subs && !subs_first) OutputSubs();
}

void COutputRun::OutputMain() {
    const CTrans trans = run_.PlaneTransform();
    run_.controller.SetTransform(trans);
    run_.controller.current_program_name = run_.geometry.GetProgramName(0);
    run_.controller.current_program = -1;
    run_.controller.absolute_mode = run_.options.programs.absolute;
    run_.state.ForgetOutput();
    if (run_.log != nullptr) run_.log->ProgramStarts(-1);
    executor_.ExecuteTemplate(run_.main_init);
    emission_.OutputProgram(0, trans);
    tools_.ToolOff();
    FinishMain(trans);
    tools_.ToolOff();
    tools_.DeselectAtEnd();
    run_.state.tool.selected = -1;
    executor_.ExecuteTemplate(run_.main_term);
    if (run_.log != nullptr) run_.log->ProgramEnds();
    run_.state.ForgetOutput();
}

void COutputRun::FinishMain(const CTrans& trans) {
    const ProgramOptions& programs = run_.options.programs;
    const int32_t tool = programs.use_primary_tool ? programs.primary_tool : run_.Record().GetToolId();
    MakeFinalRecordCurrent(tool, trans);
    if (tool != 0 && programs.use_primary_tool) {
        tools_.ToolChange();
        if (programs.primary_tool_on) tools_.ToolOn();
    }
    if (run_.controller.job.final_position_set) emission_.ExecuteMove(run_.move);
}

void COutputRun::MakeFinalRecordCurrent(int32_t tool, const CTrans& trans) {
    const JobData& job = run_.controller.job;
    const Point at = job.final_position_set ? job.final_position : run_.controller.last_position;
    const double direction = run_.options.rotation.offset * kRadiansPerDegree;
    const Point beyond{at.x + std::cos(direction), at.y + std::sin(direction)};
    const CNCLineData record({.line_type = tool, .tool_id = tool}, at, beyond);
    run_.SetCurrentRecords(&record, nullptr, trans);
}

void COutputRun::OutputSubs() {
    const ProgramOptions& programs = run_.options.programs;
    CTrans trans = run_.PlaneTransform();
    run_.controller.absolute_mode = programs.subs_absolute;
    // What the controller can't do at the call goes into the sub-program's coordinates.
    const bool use_mirror = programs.use_subs && !programs.mirror_in_use;
    const bool use_rotation = programs.use_subs && !programs.rotations_in_use;
    for (int32_t variant = 0; variant < run_.geometry.GetVariantCount(); ++variant) {
        int32_t program = -1;
        std::string name;
        if (!run_.geometry.GetVariant(variant, program, name, use_mirror, use_rotation, trans)) continue;
        OutputSub(variant, program, name, trans);
    }
    run_.controller.last_position = {};
}

void COutputRun::OutputSub(int32_t variant, int32_t program, const std::string& name, CTrans trans) {
    const bool on_block = run_.options.axes.start_end_on_block;
    run_.controller.current_program = variant;
    run_.controller.current_program_name = name;
    run_.state.ForgetOutput();
    const Point start = SubStart(program);
    if (on_block) {
        trans.offset_x = -start.x;
        trans.offset_y = -start.y;
    } else {
        run_.controller.last_position = trans.TransformPoint(start);
    }
    if (run_.log != nullptr) run_.log->ProgramStarts(variant);
    executor_.ExecuteTemplate(run_.sub_init);
    emission_.OutputProgram(program, trans);
    tools_.ToolOff();
    if (!on_block) ReturnFromSub(program, trans);
    executor_.ExecuteTemplate(run_.sub_term);
    if (run_.log != nullptr) run_.log->ProgramEnds();
    run_.state.ForgetOutput();
}

Point COutputRun::SubStart(int32_t program) const {
    Point start;
    if (run_.options.programs.start_subs_at_center) {
        run_.geometry.GetProgramCenter(program, start);
    } else {
        run_.geometry.GetFirstPoint(program, start);
    }
    return start;
}

void COutputRun::ReturnFromSub(int32_t program, const CTrans& trans) {
    const ProgramOptions& programs = run_.options.programs;
    Point end = SubStart(program);
    if (programs.absolute) {
        if (!programs.end_subs_at_center) return;
        end = {};
        run_.geometry.GetProgramCenter(program, end);
    }
    const CNCLineData record({}, end, end);
    run_.SetCurrentRecords(&record, nullptr, trans);
    emission_.ExecuteMove(run_.move);
}

}  // namespace brindle
