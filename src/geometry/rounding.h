// Numbers onto the grid of their decimals: every rounding of a coordinate, a length or a word.
#pragma once

#include <cmath>
#include <cstdint>

namespace brindle {

// The value without its fraction, with its sign: what std::modf splits off, without the call where an integer holds it.
inline double WholePart(double value) {
    if (std::abs(value) < 9.0e15) return std::copysign(static_cast<double>(static_cast<int64_t>(value)), value);
    double whole = 0.0;
    std::modf(value, &whole);
    return whole;
}

// The nearest multiple of `step`, halves away from zero. A step of 0 leaves `value` alone.
double RoundToStep(double value, double step);
// 1 for the decimals value of whole numbers (kWholeNumber or more), otherwise 10 to the power -decimals.
double StepOfDecimals(int32_t decimals);
// `value` on the grid of `decimals`, where kWholeNumber counts as 0 and a negative count leaves `value` alone: the
// nearest grid value, the one toward zero, and the one a step above that.
double RoundToDecimals(double value, int32_t decimals);
double TruncToDecimals(double value, int32_t decimals);
double NextStepUp(double value, int32_t decimals);
// `value` times `factor` on the grid of `decimals`; a negative count is a grid coarser than 1.
double RoundScaled(double value, double factor, int32_t decimals);

}  // namespace brindle
