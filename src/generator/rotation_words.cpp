#include <algorithm>
#include <cmath>

#include "generator/evaluators.h"
#include "geometry/rounding.h"
#include "text/numbers.h"

namespace brindle {
namespace {

// A turn of the tool on the present record, radians.
struct Turn {
    double from;  // where the tool points
    double to;    // where it must point
    bool symmetric;

    double Degrees() const { return SmallestTurn(to, from, symmetric) / kRadiansPerDegree; }
};

// At the start of the record the tool turns from where it stands; at its end only the turn along the record counts.
Turn TurnOf(const RunContext& run, bool at_start, const ToolData& tool) {
    const CNCData& record = run.Record();
    if (!at_start) return {record.GetStartAngle(false), record.GetEndAngle(false), tool.symmetric};
    const double last = run.state.last.tool_angle;
    return {last >= 0.0 ? last : run.controller.GetToolDirection(false), record.GetStartAngle(false), tool.symmetric};
}

std::string_view WithoutMinus(std::string_view word) {
    return word.substr(std::min(word.find_first_not_of('-'), word.size()));
}

bool IsNewRotation(std::string_view last, std::string_view word, bool ignore_sign) {
    if (last.empty()) return true;
    return ignore_sign ? WithoutMinus(last) != WithoutMinus(word) : last != word;
}

std::string RotationNumber(const RunContext& run, double degrees) {
    const RotationOptions& rotation = run.options.rotation;
    const double value = RoundScaled(degrees, rotation.factor, rotation.decimals);
    return std::string(CNumberText(value, rotation.decimals, run.state.trim).view());
}

std::string IncrementalNumber(const RunContext& run, double degrees) {
    const RotationOptions& rotation = run.options.rotation;
    double value = RoundScaled(degrees, rotation.factor, rotation.decimals);
    if (rotation.positive_is_cw) value = -value;
    return std::string(CNumberText(value, rotation.decimals, run.state.trim).view());
}

// The direction that the turn reaches, which for a symmetric tool need not be the record's own. A minus sign tells that
// the tool travels there the negative way round.
std::string AbsoluteNumber(const RunContext& run, const Turn& turn) {
    const RotationOptions& rotation = run.options.rotation;
    const double degrees = turn.Degrees();
    double angle = turn.from / kRadiansPerDegree + degrees - rotation.offset;
    if (rotation.positive_is_cw) angle = -angle;
    const std::string number = RotationNumber(run, NormalizePositive(angle, true));
    if (!rotation.use_sign) return number;
    const double travel = RoundToDecimals(degrees, rotation.decimals);
    const bool is_negative = rotation.positive_is_cw ? travel > 0.0 : travel < 0.0;
    return is_negative ? '-' + number : number;
}

// The number of the word; empty for a tool that is not tangential.
std::string AngleNumber(const RunContext& run, const Turn& turn, const ToolData& tool, bool absolute) {
    if (!tool.exists() || !tool.tangential) return {};
    if (absolute || run.options.rotation.always_absolute) return AbsoluteNumber(run, turn);
    return IncrementalNumber(run, turn.Degrees());
}

// Whether a modal word is to be written.
bool IsDue(const RunContext& run, const Turn& turn, std::string_view number, bool absolute) {
    const RotationOptions& rotation = run.options.rotation;
    const double degrees = RoundScaled(turn.Degrees(), rotation.factor, rotation.decimals);
    if (degrees > 0.0 && run.state.last.tool_angle >= 0.0 && !absolute) return true;
    if (!absolute && !rotation.always_absolute) return LeadingDouble(number) != 0.0;
    if (turn.symmetric && degrees == 0.0) return false;
    return IsNewRotation(run.state.last.tool_rotation, number, rotation.always_absolute && rotation.use_sign);
}

// The direction of the radius at the start or end of an arc; empty for other records.
std::string RadialNumber(const RunContext& run, bool at_start) {
    const CNCData& record = run.Record();
    const RotationOptions& rotation = run.options.rotation;
    if (!record.IsArc()) return {};
    double angle = at_start ? record.GetStartAngle(true) : record.GetEndAngle(true);
    angle += record.IsClockwise() ? 90.0 : -90.0;
    angle -= rotation.offset;
    if (rotation.positive_is_cw) angle = -angle;
    return RotationNumber(run, NormalizePositive(angle, true));
}

void AppendWord(CTextResolver& resolver, std::string_view number, bool address, std::string& out) {
    if (address) resolver.AppendText(resolver.run().options.rotation.address, out);
    out += number;
    resolver.AppendSeparator(out);
}

void RotationWord(CTextResolver& resolver, const CAtDirKeywords& keywords, bool at_start, std::string& out) {
    RunContext& run = resolver.run();
    const bool address = keywords.WantAddress(true);
    if (keywords.HasWord(Keyword::kRadial)) {
        const std::string number = RadialNumber(run, at_start);
        if (!number.empty()) AppendWord(resolver, number, address, out);
        return;
    }
    const bool absolute = keywords.WantAbsolute(run.controller.absolute_mode);
    const ToolData& tool = *run.tools.Get(run.Record().GetToolId()).physical;
    const Turn turn = TurnOf(run, at_start, tool);
    const std::string number = AngleNumber(run, turn, tool, absolute);
    if (number.empty()) return;
    LoggedWord logged{.kind = WordKind::kToolAngle,
                      .at_start = at_start,
                      .absolute = absolute || run.options.rotation.always_absolute,
                      .text = number};
    if (keywords.WantModal(run.options.rotation.modal) && !IsDue(run, turn, number, absolute)) {
        logged.fate = WordFate::kRepeat;
        return resolver.Log(logged);
    }
    if (!keywords.HasWord(Keyword::kSilent)) resolver.Log(logged);
    run.state.last.tool_rotation = number;
    std::string word;
    AppendWord(resolver, number, address, word);
    if (!absolute) run.state.last.tool_angle = NormalizePositive(turn.to, false);
    if (!keywords.HasWord(Keyword::kSilent)) out += word;
}

void AuxiliaryCode(CTextResolver& resolver, const OptionText& code, std::string& out) {
    RunContext& run = resolver.run();
    const ToolData& tool = *run.tools.Get(run.state.tool.selected).physical;
    if (tool.exists() && tool.tangential) resolver.AppendText(code, out);
}

}  // namespace

void SetToolDir(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string&) {
    RunContext& run = resolver.run();
    double degrees = keywords.HasWord(Keyword::kSetTo) ? keywords.SetTo(0.0) : 0.0;
    degrees += run.options.rotation.offset;
    if (run.options.rotation.positive_is_cw) degrees = -degrees;
    run.controller.SetToolDirection(degrees * kRadiansPerDegree);
}

void AtAngle(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RotationWord(resolver, keywords, true, out);
}

void FinAngle(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    RotationWord(resolver, keywords, false, out);
}

void TangAuxCode1(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    AuxiliaryCode(resolver, resolver.run().options.rotation.auxiliary1, out);
}

void TangAuxCode2(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    AuxiliaryCode(resolver, resolver.run().options.rotation.auxiliary2, out);
}

}  // namespace brindle
