// Pieces of a drawing and of what is cut, and how far one lies from another.
#pragma once

#include <vector>

#include "geometry/nc_data.h"
#include "geometry/plane_math.h"
#include "verify/machine.h"

namespace brindle {

inline constexpr double kNoLength = 1e-9;     // millimetres; what is shorter is no cut
inline constexpr double kLooseDegrees = 1.0;  // by which a tangential tool may be off beyond its lift angle

// A line or an arc, millimetres in the plane of the drawing.
struct Curve {
    Point start, end, center;
    double radius = 0.0;   // of an arc
    double sweep = 0.0;    // of an arc, radians, positive counter-clockwise; 0 for a line
    double inexact = 0.0;  // by how much the radii of the two ends differ

    bool IsArc() const { return sweep != 0.0; }
    bool IsCircle() const;
    double Length() const;
    // The point at `share` of the way along, from 0 to 1.
    Point At(double share) const;
    // The direction there, radians.
    double DirectionAt(double share) const;
};

// A line or arc of a drawing as it is drawn, carried through `placing`: around its centre from its start to its end, in
// the direction that its radius gives, whose size is not looked at.
Curve CurveOf(const CNCData& record, const PlaneTurn& placing);
Curve CurveOf(const Motion& motion);

// Where a point lies by a curve.
struct Nearness {
    double distance;  // millimetres
    double along;     // from the start to the nearest point of the curve, millimetres
};
Nearness NearnessOf(const Curve& curve, Point p);

// Which parts of a curve have been cut.
class CCoverage {
public:
    // Begins with nothing cut of `curve`, which must outlive what follows.
    void Restart(const Curve& curve) {
        curve_ = &curve;
        length_ = curve.Length();
        spans_.clear();
    }
    // Takes `cut` as a part of the curve if no point of it is farther away than `limit`, and gives how far one is,
    // millimetres.
    double Take(const Curve& cut, double limit);
    bool IsEmpty() const { return spans_.empty(); }
    // How far a point of the curve may be away from what is cut of it, millimetres. Something must be cut.
    double LargestGap();
    // The length that is cut a second time, but for overlaps of up to `overlap`.
    double CutTwice(double overlap);

private:
    struct Span {
        double first, last;  // along the curve
    };

    void Add(const Curve& cut);
    void AddSpan(double first, double last);
    void Sort();
    double GapBetween(double first, double last) const;

    const Curve* curve_ = nullptr;
    double length_ = 0.0;
    std::vector<Span> spans_;
};

// How far points of `curve` are away from `other` at most, millimetres.
double DeviationFrom(const Curve& other, const Curve& curve);

}  // namespace brindle
