#include "generator/evaluators.h"

namespace brindle {
namespace {

// A code that may repeat. An empty code still gets its separator.
void ModalCode(CTextResolver& resolver, const OptionText& code, LoggedWord word, bool modal, std::string& last,
               std::string& out) {
    std::string scratch;
    word.text = resolver.ReadText(code, scratch);
    resolver.AppendWord(nullptr, word, modal, last, out);
}

MotionCode InterpolationOf(const RunContext& run) {
    const CNCData& record = run.Record();
    if (run.state.tool.move == MoveKind::kRapid) return MotionCode::kRapid;
    if (run.state.tool.move == MoveKind::kLinear) return MotionCode::kLinear;
    if (!run.state.tool.down) return MotionCode::kRapid;
    if (!record.IsArc()) return MotionCode::kLinear;
    return record.IsClockwise() ? MotionCode::kClockwise : MotionCode::kCounterClockwise;
}

const OptionText& InterpolationCode(RunContext& run, MotionCode motion) {
    const CNCData& record = run.Record();
    const ToolData& codes = run.options.codes.interp_depends_on_tool ? *run.tools.Get(record.GetToolId()).physical
                                                                     : run.tools.WithoutTool();
    switch (motion) {
        case MotionCode::kRapid: return codes.rapid_code;
        case MotionCode::kLinear: return codes.linear_code;
        case MotionCode::kClockwise: return codes.cw_code;
        case MotionCode::kCounterClockwise: break;
    }
    return codes.ccw_code;
}

}  // namespace

void InterpCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const MotionCode motion = InterpolationOf(run);
    ModalCode(resolver, InterpolationCode(run, motion), {.kind = WordKind::kInterpolation, .motion = motion},
              keywords.WantModal(run.options.codes.interp_modal), run.state.last.interp_code, out);
}

void AbsIncCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const CodeOptions& codes = run.options.codes;
    const bool absolute = run.controller.absolute_mode;
    ModalCode(resolver, absolute ? codes.abs : codes.inc, {.kind = WordKind::kDistanceMode, .absolute = absolute},
              keywords.WantModal(codes.abs_inc_modal), run.state.last.abs_inc_code, out);
}

void UnitsCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const CodeOptions& codes = run.options.codes;
    ModalCode(resolver, run.controller.in_inches ? codes.inch : codes.metric, {.kind = WordKind::kUnits},
              keywords.WantModal(codes.units_modal), run.state.last.units_code, out);
}

void GrainCode(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    RunContext& run = resolver.run();
    const bool horizontal = run.geometry.IsHorizontal(run.controller.current_program);
    resolver.AppendText(horizontal ? run.options.codes.horizontal : run.options.codes.vertical, out);
}

void SideCode(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    RunContext& run = resolver.run();
    const bool inside = run.geometry.IsInside(run.controller.current_program);
    resolver.AppendText(inside ? run.options.codes.inside : run.options.codes.outside, out);
}

void FlyModeCode(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    RunContext& run = resolver.run();
    resolver.AppendText(run.state.tool.fly_mode ? run.options.codes.fly_on : run.options.codes.fly_off, out);
    resolver.AppendSeparator(out);
}

}  // namespace brindle
