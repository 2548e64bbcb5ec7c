// The geometric functions that records, transforms and the generator share. Coordinates are doubles; angles are radians
// unless said otherwise.
#pragma once

namespace brindle {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kHalfTurn = kPi;
inline constexpr double kQuarterTurn = 1.5707963267948966;
inline constexpr double kThreeQuarterTurn = 4.71238898038469;
inline constexpr double kFullTurn = 6.283185307179586;
inline constexpr double kRadiansPerDegree = 0.017453292519943295;
inline constexpr double kMillimetresPerInch = 25.4;
inline constexpr double kInchesPerMillimetre = 0.03937007874015748;
// The general geometric tolerance, millimetres.
inline constexpr double kTolerance = 0.0005;
// A sweep above this, in degrees, makes a long arc; a full circle is one.
inline constexpr double kLongArcDegrees = 270.0005;

struct Point {
    double x = 0.0;
    double y = 0.0;
};

double Distance(const Point& a, const Point& b);
// a * d - b * c.
double Cross(double a, double b, double c, double d);
// Direction from `from` to `to`, above 0.0001 up to just above a full turn: along the positive x axis it is a full
// turn, between coinciding points a quarter turn.
double AngleOf(const Point& from, const Point& to);
// `angle` brought into 0 up to but not including a full turn. An angle that is not finite gives not-a-number here and
// in the next two.
double NormalizePositive(double angle, bool in_degrees);
// `angle` brought into above minus a half turn up to and including a half turn.
double NormalizeSigned(double angle, bool in_degrees);
// Direction from `from` to `to`, above minus a half turn up to and including a half turn: the direction of a line.
double DirectionOf(const Point& from, const Point& to);
// The shortest turn from direction `b` to direction `a`. With `symmetric`, a tool that looks the same after half a
// turn: never more than a quarter turn.
double SmallestTurn(double a, double b, bool symmetric);

// Whether two points are nearer than half a tolerance in both axes; a tolerance below kTolerance is raised to it.
bool PointsCoincide(const Point& a, const Point& b, double tolerance_x, double tolerance_y);

}  // namespace brindle
