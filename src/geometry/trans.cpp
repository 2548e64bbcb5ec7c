#include "geometry/trans.h"

#include <cmath>

#include "geometry/rounding.h"

namespace brindle {

Rotation::Rotation(double radians) : radians_(radians), cosine_(std::cos(radians)), sine_(std::sin(radians)) {}

void CTrans::Copy(const CTrans& other) {
    const bool own_order = rotate_first;
    *this = other;
    rotate_first = own_order;
}

void CTrans::MultiplyScale(double factor, bool lengths_on_axis_1) {
    scale *= factor;
    lengths_on_axis1 = lengths_on_axis_1;
}

Point CTrans::Rotate(Point p) const {
    if (rotation == 0.0) return p;
    return {p.x * rotation.cosine() - p.y * rotation.sine(), p.x * rotation.sine() + p.y * rotation.cosine()};
}

Point CTrans::Mirror(Point p) const { return {mirror_x ? -p.x : p.x, mirror_y ? -p.y : p.y}; }

Point CTrans::Shift(Point p) const { return {p.x + offset_x, p.y + offset_y}; }

Point CTrans::Scale(Point p) const { return {p.x * scale * axis1_factor, p.y * scale * axis2_factor}; }

Point CTrans::RoundPoint(Point p) const {
    return {RoundToDecimals(p.x, axis1_decimals), RoundToDecimals(p.y, axis2_decimals)};
}

Point CTrans::TransformPoint(Point p, bool no_round) const {
    p = rotate_first ? Mirror(Rotate(p)) : Rotate(Mirror(p));
    p = Scale(Shift(p));
    return no_round ? p : RoundPoint(p);
}

double CTrans::TransformLength(double length, bool no_round) const {
    return lengths_on_axis1 ? TransformLengthAxis1(length, no_round) : TransformLengthAxis2(length, no_round);
}

double CTrans::TransformLengthAxis1(double length, bool no_round) const {
    const double scaled = length * scale * axis1_factor;
    return no_round ? scaled : RoundToDecimals(scaled, axis1_decimals);
}

double CTrans::TransformLengthAxis2(double length, bool no_round) const {
    const double scaled = length * scale * axis2_factor;
    return no_round ? scaled : RoundToDecimals(scaled, axis2_decimals);
}

}  // namespace brindle
