#include "generator/evaluators.h"

namespace brindle {
namespace {

// A code that may repeat. An empty code still gets its separator.
void ModalCode(CTextResolver& resolver, const OptionText& code, bool modal, std::string& last, std::string& out) {
    std::string scratch;
    resolver.AppendWord(nullptr, resolver.ReadText(code, scratch), modal, last, out);
}

const OptionText& InterpolationCode(RunContext& run) {
    const CNCData& record = run.Record();
    const ToolData& codes = run.options.codes.interp_depends_on_tool ? *run.tools.Get(record.GetToolId()).physical
                                                                     : run.tools.WithoutTool();
    if (run.state.tool.move == MoveKind::kRapid) return codes.rapid_code;
    if (run.state.tool.move == MoveKind::kLinear) return codes.linear_code;
    if (!run.state.tool.down) return codes.rapid_code;
    if (!record.IsArc()) return codes.linear_code;
    return record.IsClockwise() ? codes.cw_code : codes.ccw_code;
}

}  // namespace

void InterpCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    ModalCode(resolver, InterpolationCode(run), keywords.WantModal(run.options.codes.interp_modal),
              run.state.last.interp_code, out);
}

void AbsIncCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const CodeOptions& codes = run.options.codes;
    ModalCode(resolver, run.controller.absolute_mode ? codes.abs : codes.inc, keywords.WantModal(codes.abs_inc_modal),
              run.state.last.abs_inc_code, out);
}

void UnitsCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const CodeOptions& codes = run.options.codes;
    ModalCode(resolver, run.controller.in_inches ? codes.inch : codes.metric, keywords.WantModal(codes.units_modal),
              run.state.last.units_code, out);
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
