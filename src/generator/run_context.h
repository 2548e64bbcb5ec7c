// What a run works on: the session's long-lived parts and the tuning as it is prepared for this run.
#pragma once

#include <cstddef>
#include <cstdint>

#include "generator/buffer_mgr.h"
#include "generator/debug_mgr.h"
#include "generator/run_options.h"
#include "generator/run_state.h"
#include "generator/tool_table.h"
#include "geometry/controller_state.h"
#include "geometry/programs.h"
#include "language/compiled_text.h"

namespace brindle {

// The limits of calls, so that no drawing can hang a run.
inline constexpr size_t kDeepestCall = 64;
inline constexpr size_t kMostCalls = 1000000;

// The parts of the session that a run reads and writes. All outlive the run.
struct SessionParts {
    CBrindleOpts& tuning;
    CKVItemContainer& run_values;
    CNCControllerState& controller;
    RunState& state;
    CNCDebugMgr& trace;
    CBufferMgr& buffers;
    CNCGeomMgr& geometry;
};

class CRunLog;

// One run: the session's parts, and options and tools prepared from the tuning. The tuning and the run values must not
// change while it lives.
struct RunContext : SessionParts {
    explicit RunContext(const SessionParts& parts)
        : SessionParts(parts), compiler(tuning, run_values), options(compiler), tools(compiler) {}
    RunContext(const RunContext&) = delete;
    RunContext& operator=(const RunContext&) = delete;

    CTextCompiler compiler;
    const RunOptions options;
    CToolTable tools;
    CRunLog* log = nullptr;  // null if nobody follows

    const CompiledTemplate file_start = compiler.CompileTemplate(Event("FileStart_"));
    const CompiledTemplate file_end = compiler.CompileTemplate(Event("FileEnd_"));
    const CompiledTemplate main_init = compiler.CompileTemplate(Event("MainInit_"));
    const CompiledTemplate main_term = compiler.CompileTemplate(Event("MainTerm_"));
    const CompiledTemplate sub_init = compiler.CompileTemplate(Event("SubInit_"));
    const CompiledTemplate sub_term = compiler.CompileTemplate(Event("SubTerm_"));
    const CompiledTemplate move = compiler.CompileTemplate(Event("Move_"));
    const CompiledTemplate line = compiler.CompileTemplate(Event("Line_"));
    const CompiledTemplate arc = compiler.CompileTemplate(Event("Arc_"));
    const CompiledTemplate text = compiler.CompileTemplate(Event("Text_"));
    const CompiledTemplate sub_call = compiler.CompileTemplate(Event("SubCall_"));
    const CompiledTemplate sub_reset = compiler.CompileTemplate(Event("SubReset_"));
    const CompiledTemplate origin_set = compiler.CompileTemplate(Event("OriTransSet_"));
    const CompiledTemplate origin_reset = compiler.CompileTemplate(Event("OriTransReset_"));
    const CompiledTemplate move_to_include = compiler.CompileTemplate(Event("MoveToIncludePt_"));
    const CompiledTemplate fly_pre_check = compiler.CompileTemplate(Event("Fly_PreCheck_"));
    const CompiledTemplate fly_post_check = compiler.CompileTemplate(Event("Fly_PostCheck_"));

    const AxisOptions::Unit& AxisUnit() const { return options.axes.In(controller.in_inches); }
    // The record that is being written, in machine coordinates.
    const CNCData& Record() const { return controller.current_item().Get(); }
    // Makes copies of both records in machine coordinates the current ones, each with the offset of its tool.
    void SetCurrentRecords(const CNCData* current, const CNCData* next, const CTrans& trans);
    // Whether the controller is already at `p`, which is in output units. Without an axis word written its position
    // counts as unknown.
    bool IsAtLastPosition(Point p) const;
    // A transform with output unit, axis factors and decimals, without offset, rotation or mirrors.
    CTrans PlaneTransform() const;
    // The include variant that `record` calls, -1 if none fits.
    int32_t VariantOf(const CNCData& record) const;
    // The host's radius of the rotary axis, millimetres; the tuning's where the host gave none.
    double EffectiveRotaryRadius() const;
};

}  // namespace brindle
