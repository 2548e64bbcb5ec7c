#include <cmath>

#include "generator/evaluators.h"
#include "generator/word_numbers.h"
#include "geometry/rounding.h"

namespace brindle {
namespace {

void CentreAxisWord(CTextResolver& resolver, int axis, bool absolute, bool address, bool modal, std::string& out) {
    RunContext& run = resolver.run();
    const Point offset = CentreOffset(run, absolute);
    const double value = axis == 0 ? offset.x : offset.y;
    const CNumberText number = AxisNumber(run, axis, value);
    const bool by_text = absolute && run.options.arcs.abs_is_absolute;
    LoggedWord word{.kind = WordKind::kCentre, .axis = static_cast<uint8_t>(axis), .absolute = by_text};
    word.text = number.view();
    if (modal && !by_text && std::fabs(value) < kTolerance) {
        word.fate = WordFate::kNoDistance;
        return resolver.Log(word);
    }
    resolver.AppendWord(address ? &run.options.arcs.center_address[axis] : nullptr, word, modal && by_text,
                        run.state.last.centre[axis], out);
}

// A minus sign where the tuning's positive sense of a subtended angle is not the arc's.
bool IsAgainstPositiveSense(const RunContext& run) {
    return run.options.arcs.subtended_positive_cw != run.Record().IsClockwise();
}

}  // namespace

void CenPtWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    if (!run.Record().IsArc()) return;
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
    if (arcs.by_radius) return Radius(resolver, keywords, out);
    if (arcs.by_subtended) return Subtended(resolver, keywords, out);
    CenPtWords(resolver, keywords, out);
}

void Radius(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    if (!run.Record().IsArc()) return;
    const CNumberText number = RadiusNumber(run, keywords.HasWord(Keyword::kAbs));
    const LoggedWord word{.kind = WordKind::kRadius, .text = number.view()};
    resolver.AppendWord(keywords.WantAddress(true) ? &run.options.arcs.radius_address : nullptr, word,
                        keywords.WantModal(false), run.state.last.radius, out);
}

void Subtended(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RunContext& run = resolver.run();
    const ArcOptions& arcs = run.options.arcs;
    if (!run.Record().IsArc()) return;
    const double value = RoundScaled(run.Record().GetSweepAngle(false), arcs.subtended_factor / kRadiansPerDegree,
                                     arcs.subtended_decimals);
    std::string number = IsAgainstPositiveSense(run) ? "-" : "";
    number += CNumberText(value, arcs.subtended_decimals, run.state.trim).view();
    const LoggedWord word{.kind = WordKind::kSubtended, .text = number};
    resolver.AppendWord(keywords.WantAddress(true) ? &arcs.subtended_address : nullptr, word, keywords.WantModal(false),
                        run.state.last.subtended, out);
}

void ArcSign(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    const RunContext& run = resolver.run();
    if (run.Record().IsArc() && IsAgainstPositiveSense(run)) out += '-';
}

}  // namespace brindle
