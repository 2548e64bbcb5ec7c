// Tools around the records: selected, deselected, switched on and off, and fly mode.
#pragma once

#include "generator/template_executor.h"

namespace brindle {

// A tool whose power is unknown (as after a sub-program call) gets both templates out at the next occasion.
//
// Order at a change: own deselection, physical deselection, physical selection, own selection. Switching on goes
// physical first and own second, switching off the other way round. Between tools that follow one physical tool, its
// templates stay out.
class CToolControl {
public:
    CToolControl(RunContext& run, CTemplateExecutor& executor)
        : run_(run), executor_(executor), state_(run.state.tool) {}

    // Selects the tool of the current record, after the deselection of another.
    void ToolChange();
    void ToolOn();
    // `keep`: the physical tool stays on.
    void ToolOff(bool keep = false);
    // The deselection templates of the selected tool, if one is selected.
    void DeselectAtEnd();

    // Fly mode around a record: the pre-code where it begins or ends, the post-code after the record.
    void FlyPreCheck();
    void FlyPostCheck();

    // Whether the tool can stay down on its way from `from`, where it points to `angle` (degrees), to `to`.
    bool GapCanStayDown(Point from, double angle, Point to);
    // Whether the tool lifts before the current record.
    bool NeedsLift(bool force);

private:
    void Deselect(const Tool& old_tool, const Tool& new_tool);
    void Select(int32_t number, const Tool* old_tool, const Tool& new_tool);
    void WarnOfOffset(const ToolData& physical);
    // Whether fly mode goes on from `record` to `next`; `max_turn` in degrees.
    bool CanFly(const CNCData& record, const CNCData& next, double max_turn);
    // Whether an arc (sweep in degrees, radius in output units) turns slowly enough for fly mode.
    bool ArcFitsFly(double max_turn, double threshold, double sweep, double radius);
    void Execute(const CompiledTemplate& compiled) { executor_.ExecuteTemplate(compiled); }
    Tool SelectedTool() { return run_.tools.Get(state_.selected); }

    RunContext& run_;
    CTemplateExecutor& executor_;
    ToolState& state_;
};

}  // namespace brindle
