#include <cmath>

#include "generator/evaluators.h"
#include "generator/word_numbers.h"

namespace brindle {
namespace {

const CNCData& Current(const RunContext& run) { return run.controller.current_item().Get(); }

void CentreAxisWord(CTextResolver& resolver, int axis, bool absolute, bool address, bool modal, std::string& out) {
    RunContext& run = resolver.run();
    const Point offset = CentreOffset(run, absolute);
    const double value = axis == 0 ? offset.x : offset.y;
    const CNumberText number = AxisNumber(run, axis, value);
    std::string& last = axis == 0 ? run.state.last_centre1 : run.state.last_centre2;
    const bool by_text = absolute && run.options.arcs.abs_is_absolute;
    if (modal && (by_text ? !IsNew(last, number.view()) : std::fabs(value) < kTolerance)) return;
    last = number.view();
    if (address) resolver.AppendText(run.options.arcs.center_address[axis], out);
    out += number.view();
    resolver.AppendSeparator(out);
}

// A minus sign where the tuning's positive sense of a subtended angle is not the arc's.
bool IsAgainstPositiveSense(const RunContext& run) {
    return run.options.arcs.subtended_positive_cw != Current(run).IsClockwise();
}

void RadiusWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    if (!Current(run).IsArc()) return;
    const CNumberText number = RadiusNumber(run, keywords.HasWord(Keyword::kAbs));
    if (keywords.WantModal(false) && !IsNew(run.state.last_radius, number.view())) return;
    run.state.last_radius = number.view();
    if (keywords.WantAddress(true)) resolver.AppendText(run.options.arcs.radius_address, out);
    out += number.view();
    resolver.AppendSeparator(out);
}

void SubtendedWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const ArcOptions& arcs = run.options.arcs;
    if (!Current(run).IsArc()) return;
    const double value = RoundScaled(Current(run).GetSweepAngle(false), arcs.subtended_factor / kRadiansPerDegree,
                                     arcs.subtended_decimals);
    std::string word = IsAgainstPositiveSense(run) ? "-" : "";
    word += CNumberText(value, arcs.subtended_decimals, run.settings.trim).view();
    if (keywords.WantModal(false) && !IsNew(run.state.last_subtended, word)) return;
    run.state.last_subtended = word;
    if (keywords.WantAddress(true)) resolver.AppendText(run.options.arcs.subtended_address, out);
    out += word;
    resolver.AppendSeparator(out);
}

}  // namespace

void CenPtWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    if (!Current(run).IsArc()) return;
    const bool absolute = keywords.WantAbsolute(run.controller.absolute_mode);
    const bool address = keywords.WantAddress(true);
    const bool modal = keywords.WantModal(run.options.arcs.modal);
    std::string axis2_word;  // evaluated first, written last
    if (keywords.WantAxis2(true)) CentreAxisWord(resolver, 1, absolute, address, modal, axis2_word);
    if (keywords.WantAxis1(true)) CentreAxisWord(resolver, 0, absolute, address, modal, out);
    out += axis2_word;
}

void ArcDataWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    const ArcOptions& arcs = resolver.run().options.arcs;
    if (arcs.by_radius) return RadiusWord(resolver, keywords, out);
    if (arcs.by_subtended) return SubtendedWord(resolver, keywords, out);
    CenPtWords(resolver, keywords, out);
}

void Radius(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RadiusWord(resolver, keywords, out);
}

void Subtended(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    SubtendedWord(resolver, keywords, out);
}

void ArcSign(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    const RunContext& run = resolver.run();
    if (Current(run).IsArc() && IsAgainstPositiveSense(run)) out += '-';
}

}  // namespace brindle
