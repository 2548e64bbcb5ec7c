// Records into template executions: moves, lifts, arcs in the form that the controller can take, calls of sub-programs.
#pragma once

#include <cstdint>
#include <vector>

#include "generator/run_log.h"
#include "generator/segments.h"
#include "generator/tool_control.h"

namespace brindle {

// Walks programs. Records are in the host's plane; each is copied and transformed as the walk reaches it.
class CEmission {
public:
    CEmission(RunContext& run, CTemplateExecutor& executor, CToolControl& tools, CSegments& segments)
        : run_(run), executor_(executor), tools_(tools), segments_(segments) {}

    // Outputs all records of a program under `trans`.
    void OutputProgram(int32_t program, const CTrans& trans);
    // A move to the start of the current record, unless the machine is there.
    void ExecuteMove(const CompiledTemplate& compiled);

private:
    // False, with nothing done, if the record's tool is none of the tuning's.
    bool EmitRecord(const CNCData& record, const CNCData* next, const CTrans& trans);
    // These take the stored record and expect its copy to be the current record.
    void EmitArc(const CNCArcData& record, const CNCData* next, const CTrans& trans);
    void EmitText(const CNCData& record);
    void EmitInclude(const CNCIncludeData& record, const CTrans& trans);
    void EmitDispatched(const CNCData& record, const CNCData* next, const CTrans& trans);
    // Facets of an arc that can't go out as an arc; empty if it can. `force_lift` is set for small arcs.
    std::vector<CNCLineData> FacetsOf(const CNCArcData& record, bool& force_lift);
    bool IsTooLargeForWords() const;
    void EmitFacets(const std::vector<CNCLineData>& facets, const CNCData* next, const CTrans& trans, bool force_lift);
    void EmitAsLine(const CNCArcData& record, const CNCData* next, const CTrans& trans, const char* warning);
    void EmitHalves(const CNCArcData& record, const CNCData* next, const CTrans& trans);
    // The current record cut as a line, or as an arc. `force_lift`: the tool lifts before it.
    void CutLine(bool force_lift);
    void CutArc();
    // Tool, move and lift before the template of a line or arc, and tool on.
    void ApproachCut(bool force_lift);
    void LogDropped(DropReason reason);
    bool ReportsNoTool(const CNCData& record, const char* what);
    void UpdateToolDirection(const CNCData& record);

    bool IsEmptyProgram(int32_t program) const;
    void ExpandCall(const CNCIncludeData& record, int32_t program);
    bool MayExpand(int32_t program);
    void CallSub(const CNCIncludeData& record, int32_t program, const CTrans& trans);
    void ReachCallPoint(const CNCIncludeData& record);
    // A point of the called program after the call's rotation and mirrors: its start or end reference.
    Point StartReference(const CNCIncludeData& record, int32_t program) const;
    Point EndReference(const CNCIncludeData& record, int32_t program) const;
    void MakeCallPointCurrent(const CNCIncludeData& record, Point place, const CTrans& trans);

    RunContext& run_;
    CTemplateExecutor& executor_;
    CToolControl& tools_;
    CSegments& segments_;
    std::vector<int32_t> active_programs_;  // those being output, outermost first
    size_t expanded_calls_ = 0;
};

}  // namespace brindle
