// What a run works on: the session's long-lived parts and the tuning as it is prepared for this run.
#pragma once

#include <cstdint>
#include <string>

#include "generator/buffer_mgr.h"
#include "generator/debug_mgr.h"
#include "generator/number_format.h"
#include "generator/output_state.h"
#include "generator/run_options.h"
#include "generator/tool_table.h"
#include "geometry/controller_state.h"
#include "geometry/programs.h"
#include "language/compiled_text.h"

namespace brindle {

// Fields of the session that a run sets.
struct RunSettings {
    std::string pending_text;  // start of a block whose line was not terminated; survives the run
    TrimFlags trim;
    bool errors_as_comments = false;
    std::string open_comment, close_comment;
    bool default_tool_allowed = false;
    int32_t number_of_tools = 0;
    int32_t segment_limit = -1;       // bytes, negative for none
    uint32_t segment_reserve = 0;     // bytes held back for the end of a segment
    bool keep_physical_tool = false;  // a change within one physical tool is under way
};

// The parts of the session that a run reads and writes. All outlive the run.
struct SessionParts {
    CBrindleOpts& tuning;
    CKVItemContainer& run_values;
    CNCControllerState& controller;
    CNCOutputState& state;
    CNCDebugMgr& trace;
    CBufferMgr& buffers;
    CNCGeomMgr& geometry;
    RunSettings& settings;
};

class CPathRecorder;

// One run: the session's parts, and options and tools prepared from the tuning. The tuning and the run values must not
// change while it lives.
struct RunContext : SessionParts {
    explicit RunContext(const SessionParts& parts)
        : SessionParts(parts), compiler(tuning, run_values), options(compiler), tools(compiler) {}
    RunContext(const RunContext&) = delete;
    RunContext& operator=(const RunContext&) = delete;

    CTextCompiler compiler;
    RunOptions options;
    CToolTable tools;
    CPathRecorder* path = nullptr;  // null if the path is not wanted

    CompiledTemplate file_start = compiler.CompileTemplate("FileStart_");
    CompiledTemplate file_end = compiler.CompileTemplate("FileEnd_");
    CompiledTemplate main_init = compiler.CompileTemplate("MainInit_");
    CompiledTemplate main_term = compiler.CompileTemplate("MainTerm_");
    CompiledTemplate sub_init = compiler.CompileTemplate("SubInit_");
    CompiledTemplate sub_term = compiler.CompileTemplate("SubTerm_");
    CompiledTemplate move = compiler.CompileTemplate("Move_");
    CompiledTemplate line = compiler.CompileTemplate("Line_");
    CompiledTemplate arc = compiler.CompileTemplate("Arc_");
    CompiledTemplate text = compiler.CompileTemplate("Text_");
    CompiledTemplate sub_call = compiler.CompileTemplate("SubCall_");
    CompiledTemplate sub_reset = compiler.CompileTemplate("SubReset_");
    CompiledTemplate origin_set = compiler.CompileTemplate("OriTransSet_");
    CompiledTemplate origin_reset = compiler.CompileTemplate("OriTransReset_");
    CompiledTemplate move_to_include = compiler.CompileTemplate("MoveToIncludePt_");
    CompiledTemplate fly_pre_check = compiler.CompileTemplate("Fly_PreCheck_");
    CompiledTemplate fly_post_check = compiler.CompileTemplate("Fly_PostCheck_");

    const AxisOptions::Unit& AxisUnit() const { return options.axes.In(controller.in_inches); }
    // Makes copies of both records in machine coordinates the current ones, each with the offset of its tool.
    void SetCurrentRecords(const CNCData* current, const CNCData* next, const CTrans& trans);
    // Whether the controller already stands at `p`, which is in output units. Without an axis word written its position
    // counts as unknown.
    bool IsAtLastPosition(Point p) const;
    // A transform with output unit, axis factors and decimals, without offset, rotation or mirrors.
    CTrans PlaneTransform() const;
    // The include variant that `record` calls, -1 if none fits.
    int32_t VariantOf(const CNCData& record) const;
    // The host's radius of the rotary axis, millimetres; the tuning's where the host gave none.
    double EffectiveRotaryRadius() const;
    // Block numbers off, the number and its increment as the tuning wants them at the start of a file.
    void ResetNumbering();
};

}  // namespace brindle
