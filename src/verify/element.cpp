#include "verify/element.h"

#include <algorithm>
#include <cmath>

namespace brindle {
namespace {

constexpr double kSamePoint = 1e-6;

double PositiveAngle(double angle) {
    angle = std::fmod(angle, kFullTurn);
    return angle < 0.0 ? angle + kFullTurn : angle;
}

double HeadingOf(Point from, Point to) { return std::atan2(to.y - from.y, to.x - from.x); }

// The turn from the start of `arc` to the direction of `p`, in the arc's sense.
double TurnTo(const Curve& arc, Point p) {
    const double turn = HeadingOf(arc.center, p) - HeadingOf(arc.center, arc.start);
    return PositiveAngle(arc.sweep > 0.0 ? turn : -turn);
}

}  // namespace

bool Curve::IsCircle() const { return std::fabs(sweep) >= kFullTurn - 1e-9; }

double Curve::Length() const { return IsArc() ? radius * std::fabs(sweep) : Distance(start, end); }

Point Curve::At(double share) const {
    if (!IsArc()) return {start.x + share * (end.x - start.x), start.y + share * (end.y - start.y)};
    const double from = Distance(center, start);
    const double to = Distance(center, end);
    const double at = from + share * (to - from);
    const double angle = HeadingOf(center, start) + share * sweep;
    return {center.x + at * std::cos(angle), center.y + at * std::sin(angle)};
}

double Curve::DirectionAt(double share) const {
    if (!IsArc()) return HeadingOf(start, end);
    return HeadingOf(center, start) + share * sweep + (sweep > 0.0 ? kQuarterTurn : -kQuarterTurn);
}

Curve CurveOf(const CNCData& record, const PlaneTurn& placing) {
    Curve curve{placing(record.Start()), placing(record.End()), placing(record.Center())};
    if (!record.IsArc()) return curve;
    const double from = Distance(curve.center, curve.start);
    const double to = Distance(curve.center, curve.end);
    curve.radius = 0.5 * (from + to);
    curve.inexact = std::fabs(from - to);
    const bool clockwise = record.IsClockwise() != placing.Mirrors();
    curve.sweep = clockwise ? -kFullTurn : kFullTurn;
    if (Distance(curve.start, curve.end) < kSamePoint) return curve;
    const double turn = TurnTo(curve, curve.end);
    curve.sweep = clockwise ? -turn : turn;
    return curve;
}

Curve CurveOf(const Motion& motion) {
    Curve curve{motion.start, motion.end, motion.center};
    curve.sweep = motion.sweep;
    if (!curve.IsArc()) return curve;
    const double from = Distance(curve.center, curve.start);
    const double to = Distance(curve.center, curve.end);
    curve.radius = 0.5 * (from + to);
    curve.inexact = std::fabs(from - to);
    return curve;
}

Nearness NearnessOf(const Curve& curve, Point p) {
    if (!curve.IsArc()) {
        const double length = Distance(curve.start, curve.end);
        if (length == 0.0) return {Distance(curve.start, p), 0.0};
        const Point along{(curve.end.x - curve.start.x) / length, (curve.end.y - curve.start.y) / length};
        const double at = std::clamp((p.x - curve.start.x) * along.x + (p.y - curve.start.y) * along.y, 0.0, length);
        return {Distance(p, {curve.start.x + at * along.x, curve.start.y + at * along.y}), at};
    }
    const double whole = std::fabs(curve.sweep);
    const double turn = TurnTo(curve, p);
    if (turn <= whole) {
        const Point on_curve = curve.At(turn / whole);
        return {std::fabs(Distance(p, curve.center) - Distance(on_curve, curve.center)), turn * curve.radius};
    }
    const double to_start = Distance(p, curve.start);
    const double to_end = Distance(p, curve.end);
    return to_start <= to_end ? Nearness{to_start, 0.0} : Nearness{to_end, whole * curve.radius};
}

// ---- What is cut ----

double CCoverage::Take(const Curve& cut, double limit) {
    if (curve_->IsArc() || cut.IsArc()) {
        const double deviation = DeviationFrom(*curve_, cut);
        if (deviation <= limit) Add(cut);
        return deviation;
    }
    const Nearness first = NearnessOf(*curve_, cut.start);
    const Nearness last = NearnessOf(*curve_, cut.end);
    const double deviation = std::max(first.distance, last.distance);
    if (deviation <= limit) AddSpan(first.along, last.along);
    return deviation;
}

void CCoverage::Add(const Curve& cut) {
    const double first = NearnessOf(*curve_, cut.start).along;
    const double last = NearnessOf(*curve_, cut.end).along;
    if (!curve_->IsArc()) return AddSpan(first, last);
    const double whole = kFullTurn * curve_->radius;
    double likely = 0.0;  // of a facet, which goes the short way
    if (cut.IsArc()) {
        const bool same_sense = (cut.sweep > 0.0) == (curve_->sweep > 0.0);
        likely = std::fabs(cut.sweep) * (same_sense ? curve_->radius : -curve_->radius);
    }
    const double travel = likely + std::remainder(last - first - likely, whole);
    const double from = std::min(first, first + travel);
    const double to = std::max(first, first + travel);
    for (const double shift : {0.0, -whole, whole}) {
        if (to + shift < 0.0 || from + shift > length_) continue;
        AddSpan(std::max(from + shift, 0.0), std::min(to + shift, length_));
    }
}

void CCoverage::AddSpan(double first, double last) { spans_.push_back({std::min(first, last), std::max(first, last)}); }

void CCoverage::Sort() {
    std::sort(spans_.begin(), spans_.end(), [](const Span& a, const Span& b) { return a.first < b.first; });
}

// Both ends are cut.
double CCoverage::GapBetween(double first, double last) const {
    if (last - first < kSamePoint || length_ == 0.0) return 0.0;
    if (!curve_->IsArc()) return 0.5 * (last - first);
    const Point ends[] = {curve_->At(first / length_), curve_->At(last / length_)};
    double gap = 0.0;
    for (int i = 1; i < 8; ++i) {
        const Point p = curve_->At((first + (last - first) * i / 8.0) / length_);
        gap = std::max(gap, std::min(Distance(p, ends[0]), Distance(p, ends[1])));
    }
    return gap;
}

double CCoverage::LargestGap() {
    Sort();
    double reached = spans_.front().first;
    double gap = 0.0;
    for (const Span& span : spans_) {
        if (span.first > reached) gap = std::max(gap, GapBetween(reached, span.first));
        reached = std::max(reached, span.last);
    }
    if (curve_->IsCircle()) {
        // What is not cut at its end goes on at its beginning.
        return std::max(gap, GapBetween(reached, length_ + spans_.front().first));
    }
    if (!curve_->IsArc()) return std::max({gap, spans_.front().first, length_ - reached});
    const Point first = curve_->At(spans_.front().first / length_);
    gap = std::max(gap, Distance(first, curve_->start));
    for (int i = 1; i <= 8; ++i) {
        const Point p = curve_->At((reached + (length_ - reached) * i / 8.0) / length_);
        gap = std::max(gap, Distance(p, curve_->At(reached / length_)));
        const Point q = curve_->At(spans_.front().first * (8 - i) / 8.0 / length_);
        gap = std::max(gap, Distance(q, first));
    }
    return gap;
}

double CCoverage::CutTwice(double overlap) {
    Sort();
    double twice = 0.0;
    double reached = 0.0;
    for (const Span& span : spans_) {
        const double again = std::min(reached, span.last) - span.first;
        if (again > overlap) twice += again;
        reached = std::max(reached, span.last);
    }
    return twice;
}

double DeviationFrom(const Curve& other, const Curve& curve) {
    const int pieces = curve.IsArc() || other.IsArc() ? 8 : 1;
    double deviation = 0.0;
    for (int i = 0; i <= pieces; ++i) {
        deviation = std::max(deviation, NearnessOf(other, curve.At(static_cast<double>(i) / pieces)).distance);
    }
    return deviation;
}

}  // namespace brindle
