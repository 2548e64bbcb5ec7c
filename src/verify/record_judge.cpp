#include "verify/record_judge.h"

#include <algorithm>
#include <cmath>

namespace brindle {
namespace {

double SmallestOf(const std::vector<Curve>& curves, Point p) {
    double smallest = HUGE_VAL;
    for (const Curve& curve : curves) smallest = std::min(smallest, NearnessOf(curve, p).distance);
    return smallest;
}

double StepInPlane(const RunContext& run) {
    const CTrans plane = run.PlaneTransform();
    const double factors[] = {plane.scale * plane.axis1_factor, plane.scale * plane.axis2_factor};
    double step = 0.0;
    for (int axis = 0; axis < 2; ++axis) {
        const double factor = std::fabs(factors[axis]);
        if (factor > 0.0) step = std::max(step, run.AxisUnit().step[axis] / factor);
    }
    return step;
}

bool IsNear(double word, double radius) { return std::fabs(word - radius) <= 0.01 * radius; }

}  // namespace

CRecordJudge::CRecordJudge(RunContext& run, const CToolPower& power, const ComparisonOptions& options, CLosses& losses)
    : run_(run), power_(power), options_(options), losses_(losses), step_(StepInPlane(run)) {}

// ---- What is open ----

void CRecordJudge::Open(DrawnRecord drawn) {
    drawn.tolerance = ToleranceOf(drawn.curve);
    ++losses_.sums.drawn;
    if (!drawn.is_text) losses_.sums.drawn_mm += drawn.curve.Length();
    open_.push_back(drawn);
}

void CRecordJudge::Withdraw() {
    --losses_.sums.drawn;
    losses_.sums.drawn_mm -= open_.back().curve.Length();
    open_.pop_back();
}

void CRecordJudge::Forget() {
    open_.clear();
    cuts_.clear();
}

void CRecordJudge::Settle(const Circumstances& now) {
    if (open_.empty() && cuts_.empty()) return;
    while (coverage_.size() < open_.size()) coverage_.emplace_back();
    for (size_t i = 0; i < open_.size(); ++i) coverage_[i].Restart(open_[i].curve);
    strays_.curves.clear();
    strays_.length = strays_.off = 0.0;
    if (!cuts_.empty()) JudgeLeftOut(&cuts_.front());
    for (const MadeCut& cut : cuts_) JudgeCut(cut, now);
    for (size_t i = 0; i < open_.size(); ++i) JudgeRecord(i, now);
    JudgeStrays(now);
    if (!cuts_.empty()) last_cut_ = cuts_.back();
    Forget();
}

// ---- Cuts ----

void CRecordJudge::JudgeCut(const MadeCut& cut, const Circumstances& now) {
    const double length = cut.curve.Length();
    losses_.sums.cut_mm += length;
    double off = HUGE_VAL;
    if (IsDrawn(cut, now, off)) return;
    const double tolerance = ToleranceOf(cut.curve);
    const double shortest_lift = run_.tools.Get(cut.tool).physical->shortest_lift;
    if (length <= tolerance + (cut.is_move ? shortest_lift : 0.0)) return;
    strays_.curves.push_back(cut.curve);
    strays_.length += length;
    strays_.off = std::max(strays_.off, std::isfinite(off) ? off : length);
}

// Takes the cut for a part of the first record that it lies on. `off` becomes how far it is from the nearest.
bool CRecordJudge::IsDrawn(const MadeCut& cut, const Circumstances& now, double& off) {
    for (size_t i = 0; i < open_.size(); ++i) {
        const DrawnRecord& drawn = open_[i];
        if (drawn.is_text) continue;
        const bool is_facet = drawn.curve.IsArc() && !cut.curve.IsArc();
        const double limit = drawn.tolerance + (is_facet ? SagOf(drawn) : 0.0);
        const double deviation = coverage_[i].Take(cut.curve, limit);
        off = std::min(off, deviation);
        if (deviation > limit) continue;
        JudgeHeading(cut, drawn, now);
        if (!cut.right_tool && cut.curve.Length() > drawn.tolerance) {
            const Cause cause = now.has_callees_tool ? Cause::kCalleesTool : Cause::kNoSelection;
            losses_.Add({Rule::kOtherTool, cause, drawn.tool, cut.from}, drawn.place, 0.0, cut.curve.Length());
        }
        return true;
    }
    return false;
}

// A machine that is told no angles may turn its tool by itself.
bool CRecordJudge::WritesAngles(int32_t tool) {
    const auto [at, is_new] = writes_angles_.try_emplace(tool, false);
    if (!is_new) return at->second;
    const Tool& data = run_.tools.Get(tool);
    for (const CompiledTemplate* compiled : {&run_.move, &run_.line, &run_.arc, &data.own->select, &data.own->on,
                                             &data.physical->select, &data.physical->on}) {
        at->second |= compiled->Has(DirectiveId::kAtAngle) || compiled->Has(DirectiveId::kFinAngle);
    }
    return at->second;
}

// Whether a tangential tool points along its cut, and turns with it.
void CRecordJudge::JudgeHeading(const MadeCut& cut, const DrawnRecord& drawn, const Circumstances& now) {
    const ToolData& tool = *run_.tools.Get(drawn.tool).physical;
    if (!tool.tangential || !WritesAngles(drawn.tool) || now.is_turned) return;
    const Curve& curve = cut.curve;
    const double size = curve.IsArc() ? std::min(curve.radius, curve.Length()) : curve.Length();
    if (size <= 20.0 * step_) return;  // its direction is that of its rounding
    const double loose = (tool.lift_angle + kLooseDegrees) * kRadiansPerDegree + 3.0 * step_ / size;
    const double round = tool.symmetric ? kHalfTurn : kFullTurn;
    const double off = std::max(std::fabs(std::remainder(cut.heading_before - curve.DirectionAt(0.0), round)),
                                std::fabs(std::remainder(cut.heading_after - curve.DirectionAt(1.0), round)));
    const double turned_off = std::fabs(cut.heading_after - cut.heading_before - curve.sweep);
    const auto lose = [&](Rule rule, double radians) {
        losses_.Add({rule, Cause::kUnknown, drawn.tool, cut.from}, drawn.place, radians / kRadiansPerDegree,
                    curve.Length());
    };
    if (off > loose) {
        lose(Rule::kToolDirection, off);
    } else if (turned_off > loose) {
        lose(Rule::kTurnInMaterial, turned_off);
    }
}

void CRecordJudge::JudgeStrays(const Circumstances& now) {
    if (strays_.curves.empty() || strays_.length <= 0.0) return;
    const MadeCut& cut = cuts_.front();
    const Cause cause = cut.tool > 0 && !power_.HasOff(cut.tool) ? Cause::kNoToolOff
                        : open_.empty()                          ? Cause::kUnknown
                                                                 : CauseOf(open_.front(), strays_.off, now);
    losses_.Add({Rule::kStrayCut, cause, cut.tool, cut.from}, open_.empty() ? cut.place : open_.front().place,
                strays_.off, strays_.length);
}

// ---- Records ----

void CRecordJudge::JudgeRecord(size_t index, const Circumstances& now) {
    const DrawnRecord& drawn = open_[index];
    if (drawn.is_text) return JudgeText(drawn, now);
    CCoverage& coverage = coverage_[index];
    const double length = drawn.curve.Length();
    const double allowed = drawn.tolerance + (now.has_facets ? SagOf(drawn) : 0.0);
    if (!coverage.IsEmpty()) {
        const double twice = coverage.CutTwice(2.0 * allowed);
        if (twice > 2.0 * allowed) {
            losses_.Add({Rule::kCutTwice, Cause::kUnknown, drawn.tool, now.cut_template}, drawn.place, 0.0, twice);
        }
    }
    const bool elsewhere = !strays_.curves.empty();
    const double off = coverage.IsEmpty() ? OffOf(index) : coverage.LargestGap();
    const bool is_missing = coverage.IsEmpty() && !elsewhere;
    if (is_missing && off <= 2.0 * allowed && length > kNoLength && !drawn.dropped) {
        return LeaveOut(drawn, off > allowed, now);
    }
    if (off <= allowed) return;
    const double amount = elsewhere ? std::max(off, strays_.off) : length;
    const Cause cause = CauseOf(drawn, amount, now);
    losses_.Add({elsewhere ? Rule::kCutElsewhere : Rule::kNotCut, cause, drawn.tool, FromOf(cause, drawn, now)},
                drawn.place, amount, length);
    ++losses_.sums.lost;
    losses_.sums.lost_mm += length;
    strays_.curves.clear();
}

// How far a record of which nothing is cut is from what is cut instead.
double CRecordJudge::OffOf(size_t index) const {
    const Curve& curve = open_[index].curve;
    double off = 0.0;
    for (int k = 0; k <= 8; ++k) {
        const Point p = curve.At(k / 8.0);
        off = std::max(off, strays_.curves.empty() ? Distance(p, curve.start) : SmallestOf(strays_.curves, p));
    }
    return off;
}

void CRecordJudge::JudgeText(const DrawnRecord& drawn, const Circumstances& now) {
    if (drawn.is_written && !drawn.dropped) return;
    const Cause cause = drawn.dropped ? brindle::CauseOf(*drawn.dropped) : Cause::kNoTemplate;
    losses_.Add({Rule::kTextLost, cause, drawn.tool, now.cut_template}, drawn.place, 0.0, 0.0);
    ++losses_.sums.lost;
}

// Too short to be missed where it meets another cut of its tool, or one at each end.
void CRecordJudge::LeaveOut(const DrawnRecord& drawn, bool needs_both, const Circumstances& now) {
    const bool meets = last_cut_ && last_cut_->tool == drawn.tool &&
                       Distance(last_cut_->curve.end, drawn.curve.start) <= 2.0 * drawn.tolerance;
    if (meets && !needs_both) return;
    const Cause cause = CauseOf(drawn, 0.0, now);
    left_out_.push_back({drawn, cause, FromOf(cause, drawn, now), meets || !needs_both});
}

void CRecordJudge::JudgeLeftOut(const MadeCut* next) {
    for (const auto& [drawn, cause, from, may_meet] : left_out_) {
        const bool meets = may_meet && next != nullptr && next->tool == drawn.tool &&
                           Distance(next->curve.start, drawn.curve.end) <= 2.0 * drawn.tolerance;
        if (meets) continue;
        const double length = drawn.curve.Length();
        losses_.Add({Rule::kNotCut, cause, drawn.tool, from}, drawn.place, length, length);
        ++losses_.sums.lost;
        losses_.sums.lost_mm += length;
    }
    left_out_.clear();
}

// The template with which a way out of the loss begins.
TemplatePlace CRecordJudge::FromOf(Cause cause, const DrawnRecord& drawn, const Circumstances& now) const {
    const Tool& tool = run_.tools.Get(drawn.tool);
    if (cause == Cause::kNoToolOn) return {&tool.own->on};
    if (cause == Cause::kMasterOff) return {&tool.physical->on};
    return now.cut_template;
}

// ---- What is allowed, and why it is not kept ----

double CRecordJudge::ToleranceOf(const Curve& curve) const {
    const bool is_long = curve.IsArc() && std::fabs(curve.sweep) > kLongArcDegrees * kRadiansPerDegree;
    return options_.tolerance + (is_long ? 3.0 * step_ + curve.inexact : 1.5 * step_);
}

// What facets may be off their arc.
double CRecordJudge::SagOf(const DrawnRecord& drawn) const {
    double sag = 2.0 * std::max(0.001, run_.options.arcs.facet_tolerance);
    const ToolData& tool = *run_.tools.Get(drawn.tool).physical;
    if (tool.facets_small_arcs && tool.small_arc_angle && drawn.curve.radius <= tool.small_arc_radius + step_) {
        const double angle = std::min(*tool.small_arc_angle * kRadiansPerDegree, std::fabs(drawn.curve.sweep) / 2.0);
        sag = std::max(sag, drawn.curve.radius * (1.0 - std::cos(angle / 2.0)));
    }
    return sag;
}

Cause CRecordJudge::CauseOf(const DrawnRecord& drawn, double off, const Circumstances& now) const {
    if (drawn.dropped) return brindle::CauseOf(*drawn.dropped);
    if (!now.wrote_cut && now.cut_template.compiled != nullptr) return Cause::kNoTemplate;
    if (!power_.IsOn(drawn.tool, now.depth)) {
        return power_.HasOn(drawn.tool) ? Cause::kMasterOff : Cause::kNoToolOn;
    }
    const ProgramOptions& programs = run_.options.programs;
    const bool absolute = now.in_sub ? programs.subs_absolute : programs.absolute;
    if (now.no_code) return Cause::kNoLineCode;
    if (power_.ReadsText() && now.is_absolute != absolute) return now.in_sub ? Cause::kSubsMode : Cause::kNoModeCode;
    const bool is_arc = drawn.record->IsArc();
    const bool by_radius = run_.options.arcs.by_radius;
    const bool uses_radius = by_radius || now.has_facets || std::fabs(drawn.curve.sweep) > kThreeQuarterTurn;
    const double word = std::fabs(drawn.record->GetRadius());
    if (is_arc && uses_radius && !IsNear(word, drawn.curve.radius)) {
        return IsNear(word * kMillimetresPerInch, drawn.curve.radius) ? Cause::kRadiusInInches
                                                                      : Cause::kRadiusAsDirection;
    }
    if (now.in_nested_expansion) return Cause::kNestedExpansion;
    if (now.has_unwritten_turn) return Cause::kUnwrittenTurn;
    if (is_arc && now.left_out_repeat) return Cause::kCentreRepeat;
    if (!absolute && now.had_long_arc) return Cause::kLongArc;
    if (!absolute && now.left_out_step) return Cause::kSmallSteps;
    if (now.after_long_arc && drawn.curve.IsArc()) return Cause::kClosedAfterLong;
    if (is_arc && by_radius) return Cause::kRadiusWord;
    if (drawn.curve.Length() < 20.0 * step_) return Cause::kFewDecimals;
    if (off > 0.0 && run_.move.Source().empty()) return Cause::kNoMove;
    return Cause::kUnknown;
}

}  // namespace brindle
