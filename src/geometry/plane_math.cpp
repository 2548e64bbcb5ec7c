#include "geometry/plane_math.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "text/numbers.h"

namespace brindle {
namespace {

// The value without its fraction, with its sign: what std::modf splits off, without the call where an integer holds it.
double WholePart(double value) {
    if (std::abs(value) < 9.0e15) return std::copysign(static_cast<double>(static_cast<int64_t>(value)), value);
    double whole = 0.0;
    std::modf(value, &whole);
    return whole;
}

double FullTurn(bool in_degrees) { return in_degrees ? 360.0 : kFullTurn; }

// What is left of `angle` when its whole turns are taken off: from minus one turn to one and a half.
double WithoutWholeTurns(double angle, double turn) {
    const double rest = angle - WholePart(angle / turn) * turn;
    // Of a huge angle the product has lost the digits that matter.
    if (rest < -turn || rest > 1.5 * turn) return std::fmod(angle, turn);
    return rest;
}

double PowerOfTenth(int32_t decimals) {
    constexpr double kPowers[] = {1.0, 1e-1, 1e-2, 1e-3, 1e-4, 1e-5, 1e-6, 1e-7, 1e-8, 1e-9};
    const auto n = static_cast<size_t>(decimals);
    return n < std::size(kPowers) ? kPowers[n] : std::pow(10.0, -static_cast<double>(decimals));
}

double RoundingStep(int32_t decimals) { return PowerOfTenth(decimals == kWholeNumber ? 0 : decimals); }

// `value` in steps of `decimals`, toward zero, then `more` steps up.
double WholeSteps(double value, int32_t decimals, double more) {
    if (decimals < 0) return value;
    const double step = StepOfDecimals(decimals);
    if (step == 0.0) return value;
    return (WholePart(value / step) + more) * step;
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

double RoundToStep(double value, double step) {
    if (step == 0.0 || value == 0.0) return value;
    const double steps = value / step;
    const double whole = WholePart(steps);
    const double fraction = steps - whole;
    if (fraction >= 0.5) return (whole + 1.0) * step;
    if (fraction <= -0.5) return (whole - 1.0) * step;
    return whole * step;
}

double StepOfDecimals(int32_t decimals) { return decimals >= kWholeNumber ? 1.0 : PowerOfTenth(decimals); }

double RoundToDecimals(double value, int32_t decimals) {
    return decimals < 0 ? value : RoundToStep(value, RoundingStep(decimals));
}

double TruncToDecimals(double value, int32_t decimals) { return WholeSteps(value, decimals, 0.0); }

double NextStepUp(double value, int32_t decimals) { return WholeSteps(value, decimals, 1.0); }

double RoundScaled(double value, double factor, int32_t decimals) {
    return RoundToStep(value * factor, RoundingStep(decimals));
}

bool PointsCoincide(const Point& a, const Point& b, double tolerance_x, double tolerance_y) {
    return AreClose(a.x, b.x, tolerance_x) && AreClose(a.y, b.y, tolerance_y);
}

}  // namespace brindle
