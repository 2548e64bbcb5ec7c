#include "check/drawing/arcs.h"

#include <algorithm>
#include <cmath>

#include "geometry/plane_math.h"
#include "text/numbers.h"
#include "tuning/key_catalogue.h"

namespace brindle {
namespace {

// Radii closer than this are the same. Coordinates in hundredths of a millimetre or thousandths of an inch and radii of
// four digits stay within it.
bool AreSameRadius(double a, double b) { return std::fabs(a - b) <= std::max(0.1, 0.001 * std::max(a, b)); }

std::string Millimetres(double length) { return ShortNumber(length) + " mm"; }

bool IsOpenLongArc(const cff2::Arc& arc, double scale) {
    const auto scaled = [scale](Point p) { return Point{p.x * scale, p.y * scale}; };
    const CNCArcData data(arc.cut, scaled(arc.start), scaled(arc.end), scaled(arc.center), arc.radius);
    return data.IsLongArc() && !data.IsFullCircle();
}

// Whether a run prints the size of radius words or decides by it.
bool UsesRadiusWords(const CBrindleOpts& tuning, const std::map<int32_t, LineUse>& tools) {
    if (tuning.ReadBool(Key("bArcByRad"))) return true;
    const bool flies = tuning.ReadBool(Key("Fly_bSupport"));
    for (const auto& [tool, use] : tools) {
        const std::string prefix = tuning.ToolKeyPrefix(tool, true);
        if (tuning.ReadBool(Key("SmFacet_bUse"), prefix) ||
            tuning.ReadBool(Key("Speed_bUseSmallRadiiFormula"), prefix) ||
            (flies && tuning.ReadBool(Key("Fly_bUse"), prefix))) {
            return true;
        }
    }
    const CKVItemMapObj& items = tuning.items();
    return std::any_of(items.begin(), items.end(), [](const CKVItemMapObj::Entry& entry) {
        return entry.second->GetValueText().find("@Radius") != std::string::npos;
    });
}

}  // namespace

void CArcCheck::Add(size_t line, const cff2::Arc& arc, double scale, CDiagnostics& diagnostics) {
    ++arcs_;
    const double radius = Distance(arc.start, arc.center) * scale;
    const double end_radius = Distance(arc.end, arc.center) * scale;
    if (!std::isfinite(radius) || !std::isfinite(end_radius)) return;
    if (!AreSameRadius(radius, end_radius)) {
        return diagnostics.Add(Rule::kArcCentre, {line},
                               "the centre is " + Millimetres(radius) + " from the start of the arc, but " +
                                   Millimetres(end_radius) + " from its end");
    }
    const double word = std::fabs(arc.radius);
    if (word == 0.0) {
        return diagnostics.Add(
            Rule::kZeroRadius, {line},
            "a radius word of 0 gives no direction: above 0 is clockwise, below 0 counter-clockwise");
    }
    if (AreSameRadius(word, radius)) return;
    const bool is_direction = word == 1.0;
    const bool is_inches = scale != 1.0 && AreSameRadius(word * scale, radius);
    directions_ += is_direction;
    inches_ += is_inches;
    words_.push_back({line, word, radius, is_direction, is_inches, IsOpenLongArc(arc, scale)});
}

RadiusHabits CArcCheck::Report(CDiagnostics& diagnostics) const {
    RadiusHabits habits;
    for (const OddWord& odd : words_) {
        if (odd.moves_centre) {
            diagnostics.Add(Rule::kMovedCentre, {odd.line},
                            "this arc is cut with a radius of " + Millimetres(odd.word) +
                                ", its radius word, instead of " + Millimetres(odd.radius));
        } else if (odd.is_inches && IsHabit(inches_)) {
            habits.inches.Add(odd.line);
        } else if (odd.is_direction && IsHabit(directions_)) {
            habits.directions.Add(odd.line);
        } else {
            diagnostics.Add(Rule::kRadiusWord, {odd.line},
                            "the radius word says " + Millimetres(odd.word) + ", but the arc has a radius of " +
                                Millimetres(odd.radius));
        }
    }
    return habits;
}

void CheckHabits(const RadiusHabits& habits, const CBrindleOpts& tuning, const std::map<int32_t, LineUse>& tools,
                 CDiagnostics& diagnostics) {
    if (habits.directions.count + habits.inches.count == 0 || !UsesRadiusWords(tuning, tools)) return;
    const auto add = [&diagnostics](Rule rule, const LineUse& use, const char* what) {
        if (use.count > 0) diagnostics.Add(rule, {use.first_line}, what + LikeFurther(use, "arc"));
    };
    add(Rule::kRadiusAsDirection, habits.directions,
        "the radius word gives only a direction, but this tuning uses the radius");
    add(Rule::kRadiusInInches, habits.inches,
        "the radius word is in inches, but counts as millimetres, and this tuning uses the radius");
}

}  // namespace brindle
