#include "geometry/plane_math.h"

#include <algorithm>
#include <cmath>

#include "geometry/rounding.h"

namespace brindle {
namespace {

double FullTurn(bool in_degrees) { return in_degrees ? 360.0 : kFullTurn; }

// What is left of `angle` when its whole turns are taken off: from minus one turn to one and a half.
double WithoutWholeTurns(double angle, double turn) {
    const double rest = angle - WholePart(angle / turn) * turn;
    // Of a huge angle the product has lost the digits that matter.
    if (rest < -turn || rest > 1.5 * turn) return std::fmod(angle, turn);
    return rest;
}

double SmallerTurn(double turn) {
    const double with_sign = NormalizeSigned(turn, false);
    const double positive = NormalizePositive(turn, false);
    return std::abs(positive) < std::abs(with_sign) ? positive : with_sign;
}

bool AreClose(double a, double b, double tolerance) {
    tolerance = std::max(tolerance, kTolerance);
    return RoundToStep(std::abs(a - b), tolerance) < tolerance;
}

}  // namespace

double Distance(const Point& a, const Point& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    return std::sqrt(dx * dx + dy * dy);
}

double Cross(double a, double b, double c, double d) { return a * d - b * c; }

double AngleOf(const Point& from, const Point& to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    if (dx == 0.0) return dy >= 0.0 ? kQuarterTurn : kThreeQuarterTurn;
    double angle = std::atan(dy / dx);
    if (dx < 0.0) angle += kHalfTurn;
    if (angle < 0.0001) angle += kFullTurn;
    return angle;
}

double NormalizePositive(double angle, bool in_degrees) {
    const double turn = FullTurn(in_degrees);
    double rest = WithoutWholeTurns(angle, turn);
    if (rest < 0.0) rest += turn;
    if (rest >= turn) rest -= turn;
    return rest;
}

double NormalizeSigned(double angle, bool in_degrees) {
    const double turn = FullTurn(in_degrees);
    double rest = WithoutWholeTurns(angle, turn);
    if (rest <= -turn / 2.0) rest += turn;
    if (rest > turn / 2.0) rest -= turn;
    return rest;
}

double DirectionOf(const Point& from, const Point& to) { return NormalizeSigned(AngleOf(from, to), false); }

double SmallestTurn(double a, double b, bool symmetric) {
    const double turn = SmallerTurn(a - b);
    if (symmetric && std::abs(turn) > kQuarterTurn) return SmallerTurn(a - b - kHalfTurn);
    return turn;
}

bool PointsCoincide(const Point& a, const Point& b, double tolerance_x, double tolerance_y) {
    return AreClose(a.x, b.x, tolerance_x) && AreClose(a.y, b.y, tolerance_y);
}

}  // namespace brindle
