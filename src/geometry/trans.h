// The plane transform that carries stored geometry into machine coordinates.
#pragma once

#include <cstdint>

#include "geometry/plane_math.h"

namespace brindle {

// An angle with its cosine and sine, worked out once.
class Rotation {
public:
    constexpr Rotation() = default;
    Rotation(double radians);  // NOLINT(google-explicit-constructor): stands for the angle
    operator double() const { return radians_; }
    double cosine() const { return cosine_; }
    double sine() const { return sine_; }

private:
    double radians_ = 0.0;
    double cosine_ = 1.0;
    double sine_ = 0.0;
};

// A value type: mirror and rotation of a call, shift to a program's origin, scale to output unit and axis factors, and
// rounding to the decimals that the controller's axes print.
class CTrans {
public:
    double offset_x = 0.0;  // added after rotation and mirroring, before scaling
    double offset_y = 0.0;
    double scale = 1.0;
    double axis1_factor = 1.0;
    double axis2_factor = 1.0;
    Rotation rotation;      // radians, counter-clockwise
    bool mirror_x = false;  // negate x
    bool mirror_y = false;  // negate y
    int32_t axis1_decimals = 6;
    int32_t axis2_decimals = 6;
    bool rotate_first = true;      // rotate before mirroring
    bool lengths_on_axis1 = true;  // lengths take factor and decimals of axis 1, otherwise those of axis 2

    bool operator==(const CTrans&) const = default;

    void Reset() { *this = CTrans(); }
    // Takes all fields of `other` but the order of rotation and mirroring.
    void Copy(const CTrans& other);
    void MultiplyScale(double factor, bool lengths_on_axis_1);

    Point Rotate(Point p) const;
    Point Mirror(Point p) const;
    Point Shift(Point p) const;
    Point Scale(Point p) const;
    Point RoundPoint(Point p) const;
    // Rotate and Mirror in their order, Shift, Scale, and RoundPoint unless `no_round`.
    Point TransformPoint(Point p, bool no_round = false) const;

    // `length` in the output unit, without factors or rounding.
    double ScaleOnly(double length) const { return length * scale; }
    // `length` in the output unit with the factor of its axis, on that axis's grid unless `no_round`.
    double TransformLength(double length, bool no_round = false) const;
    double TransformLengthAxis1(double length, bool no_round = false) const;
    double TransformLengthAxis2(double length, bool no_round = false) const;

    int32_t LengthDecimals() const { return lengths_on_axis1 ? axis1_decimals : axis2_decimals; }
};

}  // namespace brindle
