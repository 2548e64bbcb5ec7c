// Numbers out of text by the leading-number rule, doubles into 32-bit integers and into text. Never depends on the
// locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brindle {

// The decimals value of a whole number that is written without a decimal point.
inline constexpr int32_t kWholeNumber = 4545;

// The number at the front of `text`: blanks, a sign, decimal digits with a point, an exponent; what follows is ignored.
// No number gives 0, one too large for a double gives 0, one too small gives 0. There is no hexadecimal, `inf` or
// `nan`.
double LeadingDouble(std::string_view text);

// The number that `text` is as a whole: a sign, decimal digits with a point, an exponent. Nothing for any other text,
// nor for a number that a double can't hold.
std::optional<double> ParseNumber(std::string_view text);

// The whole number at the front of `text`: blanks, a sign, decimal digits. No number gives 0; one beyond 32 bits gives
// the nearest 32-bit value.
int32_t LeadingInt(std::string_view text);

// `value` with its fraction dropped. Beyond 32 bits it gives the nearest 32-bit value, for not-a-number 0.
int32_t TruncateToInt32(double value);

// 10 to the power -n: the unit of the n-th decimal. Beyond the range of doubles 0 or infinity. Not by std::pow, which C
// libraries round differently.
double FarPowerOfTenth(int32_t n);
inline double PowerOfTenth(int32_t n) {
    constexpr double kPowers[] = {1.0, 1e-1, 1e-2, 1e-3, 1e-4, 1e-5, 1e-6, 1e-7, 1e-8, 1e-9};
    return n >= 0 && n < 10 ? kPowers[n] : FarPowerOfTenth(n);
}

// `value` with exactly `decimals` digits after the point, which is left out for 0 decimals; never in exponent form. A
// value that is not finite is written as 0.
std::string FixedText(double value, int decimals);

// `value` in at most six decimals, without trailing zeros and never in exponent form: as it may be in NC text.
std::string ShortNumber(double value);

// Sums and products that wrap at 32 bits, as a controller's counters do.
constexpr int32_t WrapAdd(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}
constexpr int32_t WrapMultiply(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

}  // namespace brindle
