#include <cmath>

#include "geometry/nc_data.h"
#include "geometry/rounding.h"

// An arc goes out as points and a radius that are each rounded to the grid of the axes. Rounding them one by one would
// leave the two radii of the arc unequal, so the end points are rounded first and the centre is then looked for on the
// grid: as far from both ends, and as far from the chord, as it was. The axes can differ in units; the search runs in
// scaled coordinates, in which both measure the same.

namespace brindle {
namespace {

double Half(double value) { return value / 2.0; }

double ChordOffset(const Point& start, const Point& end, const Point& center) {
    const double radius = Half(Distance(start, center) + Distance(end, center));
    if (radius < kTolerance) return 0.0;
    const double cosine = Half(Distance(start, end)) / radius;
    if (cosine > 1.0) return 0.0;
    return std::sin(std::acos(cosine)) * radius;
}

Point PointAt(const Point& from, double distance, double angle) {
    return {from.x + distance * std::cos(angle), from.y + distance * std::sin(angle)};
}

// Scaled coordinates of one transform.
struct AxisScaling {
    double step = 1.0;
    double x_ratio = 1.0;
    double y_ratio = 1.0;

    explicit AxisScaling(const CTrans& trans) : step(StepOfDecimals(trans.LengthDecimals())) {
        if (trans.lengths_on_axis1) {
            y_ratio = trans.axis1_factor / trans.axis2_factor;
        } else {
            x_ratio = trans.axis2_factor / trans.axis1_factor;
        }
    }
    Point Scaled(const Point& p) const { return {p.x * x_ratio, p.y * y_ratio}; }
    Point Unscaled(const Point& p) const { return {p.x / x_ratio, p.y / y_ratio}; }
    double ScaledDistance(const Point& a, const Point& b) const { return Distance(Scaled(a), Scaled(b)); }
};

// The search for the grid point that serves best as the centre of an arc between two rounded ends.
class CenterSearch {
public:
    // `target` is the centre's distance from the chord, scaled.
    CenterSearch(const AxisScaling& scaling, const Point& start, const Point& end, double target, const Point& first)
        : scaling_(scaling), start_(scaling.Scaled(start)), end_(scaling.Scaled(end)), target_(target), best_(first) {}

    void Try(const Point& candidate) {
        if (IsBetter(candidate)) best_ = candidate;
    }
    const Point& best() const { return best_; }

private:
    // A gain in the radius gap counts only while the best is more than a step out; after that the chord decides.
    bool IsBetter(const Point& candidate) const {
        const double gap = RadiusGap(candidate);
        const double best_gap = RadiusGap(best_);
        if (gap - best_gap > kTolerance * scaling_.step) return false;
        if (best_gap > 1.0005 * scaling_.step && gap < best_gap) return true;
        const double miss = ChordMiss(candidate);
        return miss < kTolerance && miss < ChordMiss(best_);
    }
    double RadiusGap(const Point& center) const {
        const Point scaled = scaling_.Scaled(center);
        return std::abs(Distance(start_, scaled) - Distance(end_, scaled));
    }
    double ChordMiss(const Point& center) const {
        return std::abs(ChordOffset(start_, end_, scaling_.Scaled(center)) - target_);
    }

    const AxisScaling& scaling_;
    Point start_;
    Point end_;
    double target_;
    Point best_;
};

// The centre at the distance `target` from the chord, on the side of the chord where `old_center` lies.
Point CenterOverChord(const AxisScaling& scaling, const Point& start, const Point& end, double target,
                      const Point& old_center) {
    const Point from = scaling.Scaled(start);
    const Point to = scaling.Scaled(end);
    const double across = AngleOf(from, to) + kQuarterTurn;
    const Point middle = {Half(from.x + to.x), Half(from.y + to.y)};
    const Point left = scaling.Unscaled(PointAt(middle, target, across));
    const Point right = scaling.Unscaled(PointAt(middle, -target, across));
    const bool right_is_nearer = scaling.ScaledDistance(right, old_center) < scaling.ScaledDistance(left, old_center);
    return right_is_nearer ? right : left;
}

// The best of the grid points around `center`.
Point CenterOnGrid(const CTrans& trans, const AxisScaling& scaling, const Point& start, const Point& end, double target,
                   const Point& center) {
    const Point low = {TruncToDecimals(center.x, trans.axis1_decimals),
                       TruncToDecimals(center.y, trans.axis2_decimals)};
    const Point high = {NextStepUp(center.x, trans.axis1_decimals), NextStepUp(center.y, trans.axis2_decimals)};
    CenterSearch search(scaling, start, end, target, trans.RoundPoint(center));
    search.Try(low);
    search.Try({high.x, low.y});
    search.Try(high);
    search.Try({low.x, high.y});
    return search.best();
}

// No radius is less than half of its chord.
double AtLeastHalf(double radius, double chord, bool negative, int32_t decimals) {
    const double half = Half(chord);
    if (!(half > std::abs(radius))) return radius;
    const double least = NextStepUp(half, decimals);
    return negative ? -least : least;
}

double Mirrored(double radius, const CTrans& trans) { return trans.mirror_x != trans.mirror_y ? -radius : radius; }

bool MeetOnGrid(const CTrans& trans, const Point& a, const Point& b) {
    return std::abs(a.x - b.x) < 2.0 * StepOfDecimals(trans.axis1_decimals) &&
           std::abs(a.y - b.y) < 2.0 * StepOfDecimals(trans.axis2_decimals);
}

}  // namespace

void CNCArcData::Transform(const CTrans& trans) {
    if (trans.axis1_factor == 0.0 || trans.axis2_factor == 0.0) return;
    const bool is_long = IsLongArc();
    const AxisScaling scaling(trans);
    x_ratio_ = scaling.x_ratio;
    y_ratio_ = scaling.y_ratio;
    if (is_long) {
        TransformLongArc(trans);
    } else {
        TransformShortArc(trans);
    }
    cut_.Transform(trans);
}

void CNCArcData::TransformShortArc(const CTrans& trans) {
    const AxisScaling scaling(trans);
    const Point exact_start = trans.TransformPoint(start_, true);
    const Point exact_end = trans.TransformPoint(end_, true);
    const Point exact_center = trans.TransformPoint(center_, true);
    start_ = trans.RoundPoint(exact_start);
    end_ = trans.RoundPoint(exact_end);

    const bool collapsed =
        std::abs(start_.x - end_.x) * x_ratio_ < kTolerance && std::abs(start_.y - end_.y) * y_ratio_ < kTolerance;
    if (collapsed) {
        center_ = trans.RoundPoint(start_);
        radius_ = 0.0;
    } else {
        const double target =
            ChordOffset(scaling.Scaled(exact_start), scaling.Scaled(exact_end), scaling.Scaled(exact_center));
        const Point over_chord = CenterOverChord(scaling, start_, end_, target, exact_center);
        center_ = CenterOnGrid(trans, scaling, start_, end_, target, over_chord);
    }

    const int32_t decimals = trans.LengthDecimals();
    const bool negative = radius_ < 0.0;
    const double radius = RoundToDecimals(trans.TransformLength(radius_), decimals);
    radius_ = Mirrored(AtLeastHalf(radius, scaling.ScaledDistance(start_, end_), negative, decimals), trans);
    true_end_ = end_;
}

// The chord of a long arc is short or nothing and says little about the centre: the centre follows from the radius, and
// the end moves onto the circle.
void CNCArcData::TransformLongArc(const CTrans& trans) {
    const AxisScaling scaling(trans);
    true_end_ = trans.TransformPoint(end_);
    start_ = trans.RoundPoint(trans.TransformPoint(start_, true));
    end_ = trans.TransformPoint(end_, true);
    center_ = trans.TransformPoint(center_, true);
    radius_ = Mirrored(trans.TransformLength(radius_, true), trans);

    if (MeetOnGrid(trans, start_, end_)) {
        end_ = start_;
        true_end_ = start_;
        center_ = trans.RoundPoint(center_);
    } else {
        const Point start = scaling.Scaled(start_);
        const double inward = AngleOf(start, scaling.Scaled(center_));
        center_ = trans.RoundPoint(scaling.Unscaled(PointAt(start, std::abs(radius_), inward)));
        const Point center = scaling.Scaled(center_);
        const double outward = AngleOf(center, scaling.Scaled(end_));
        end_ = trans.RoundPoint(scaling.Unscaled(PointAt(center, Distance(start, center), outward)));
    }

    const int32_t decimals = trans.LengthDecimals();
    const double radius = RoundToDecimals(radius_, decimals);
    radius_ = AtLeastHalf(radius, scaling.ScaledDistance(start_, end_), radius_ < 0.0, decimals);
}

}  // namespace brindle
