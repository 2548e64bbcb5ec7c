#include "geometry/rounding.h"

#include "text/numbers.h"

namespace brindle {
namespace {

double RoundingStep(int32_t decimals) { return PowerOfTenth(decimals == kWholeNumber ? 0 : decimals); }

// `value` in steps of `decimals`, toward zero, then `more` steps up.
double WholeSteps(double value, int32_t decimals, double more) {
    if (decimals < 0) return value;
    const double step = StepOfDecimals(decimals);
    if (step == 0.0) return value;
    return (WholePart(value / step) + more) * step;
}

}  // namespace

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

}  // namespace brindle
