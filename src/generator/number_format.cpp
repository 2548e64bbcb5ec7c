#include "generator/number_format.h"

#include <charconv>
#include <cmath>

#include "text/numbers.h"

namespace brindle {
namespace {

int PlacesOf(int32_t decimals) { return decimals >= 1 && decimals <= 5 ? decimals : 6; }

}  // namespace

CNumberText::CNumberText(double value, int32_t decimals, TrimFlags trim) {
    if (value == 0.0 || !std::isfinite(value)) value = 0.0;
    if (decimals == kWholeNumber || decimals == 0) {
        WriteWhole(value, decimals == 0);
    } else {
        WriteFixed(value, PlacesOf(decimals));
    }
    if (decimals != kWholeNumber) Trim(trim);
}

void CNumberText::WriteWhole(double value, bool with_point) {
    end_ = std::to_chars(begin_, begin_ + characters_.size(), TruncateToInt32(value)).ptr;
    if (with_point) *end_++ = '.';
}

void CNumberText::WriteFixed(double value, int places) {
    if (WriteScaled(value, places)) return;
    end_ = std::to_chars(begin_, begin_ + characters_.size(), value, std::chars_format::fixed, places).ptr;
}

// Writes by way of a whole number of the last places. False where that might not be the correctly rounded text: then
// the value is too large, or too near the middle between two texts.
//
// The scaled value has an error of at most half a unit in its last place, which is below 1/8 for values up to 2^50. So
// one that lies within 1/4 of a whole number rounds to that number, whatever its exact value is. Values on the grid of
// their decimals, and so nearly all of a run, do.
bool CNumberText::WriteScaled(double value, int places) {
    constexpr double kPowers[] = {1.0, 10.0, 100.0, 1000.0, 10000.0, 100000.0, 1000000.0};
    const double scaled = std::fabs(value) * kPowers[places];
    if (!(scaled < 1125899906842624.0)) return false;
    auto digits = static_cast<int64_t>(scaled + 0.5);
    if (std::fabs(scaled - static_cast<double>(digits)) > 0.25) return false;
    end_ = characters_.data() + characters_.size();
    char* to = end_;  // from the last digit to the first
    const auto write_digit = [&to, &digits] {
        *--to = static_cast<char>('0' + digits % 10);
        digits /= 10;
    };
    for (int i = 0; i < places; ++i) write_digit();
    *--to = '.';
    do write_digit();
    while (digits != 0);
    if (value < 0.0) *--to = '-';
    begin_ = to;
    return true;
}

void CNumberText::Trim(TrimFlags trim) {
    while (trim.zeros && end_ != begin_ && end_[-1] == '0') --end_;
    while (trim.point && end_ != begin_ && end_[-1] == '.') --end_;
}

std::string PlainReal(double value) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value < 0.0 ? "-inf" : "inf";
    return FixedText(value, 6);
}

void AppendInt(std::string& out, int32_t value) {
    char digits[11];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

}  // namespace brindle
