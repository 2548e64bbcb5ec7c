#include "generator/number_format.h"

#include <charconv>
#include <cmath>

#include "text/numbers.h"

namespace brindle {
namespace {

int PlacesOf(int32_t decimals) { return decimals >= 1 && decimals <= 5 ? decimals : 6; }

// Writes `value` with `places` decimals by way of a whole number of its last places, and gives the end. Null where that might
// not be the correctly rounded text: then `value` is too large, or too near the middle between two texts.
//
// The scaled value has an error of at most half a unit in its last place, which is below 1/8 for values up to 2^50. So one
// that lies within 1/4 of a whole number rounds to that number, whatever its exact value is. Values on the grid of their
// decimals, and so nearly all of a run, do.
char* WriteScaled(char* to, double value, int places) {
    constexpr double kPowers[] = {1.0, 10.0, 100.0, 1000.0, 10000.0, 100000.0, 1000000.0};
    const double scaled = std::fabs(value) * kPowers[places];
    if (!(scaled < 1125899906842624.0)) return nullptr;
    const auto digits = static_cast<int64_t>(scaled + 0.5);
    if (std::fabs(scaled - static_cast<double>(digits)) > 0.25) return nullptr;
    const auto unit = static_cast<int64_t>(kPowers[places]);
    if (value < 0.0) *to++ = '-';
    to = std::to_chars(to, to + 20, digits / unit).ptr;
    *to++ = '.';
    auto fraction = static_cast<uint32_t>(digits % unit);
    for (int i = places - 1; i >= 0; --i, fraction /= 10) to[i] = static_cast<char>('0' + fraction % 10);
    return to + places;
}

char* WriteFixed(char* begin, char* end, double value, int places) {
    char* const last = WriteScaled(begin, value, places);
    return last != nullptr ? last : std::to_chars(begin, end, value, std::chars_format::fixed, places).ptr;
}

}  // namespace

CNumberText::CNumberText(double value, int32_t decimals, TrimFlags trim) {
    if (value == 0.0 || !std::isfinite(value)) value = 0.0;
    char* const begin = characters_.data();
    char* const end = begin + characters_.size();
    char* last = begin;
    if (decimals == kWholeNumber || decimals == 0) {
        last = std::to_chars(begin, end, TruncateToInt32(value)).ptr;
        if (decimals == 0) *last++ = '.';
    } else {
        last = WriteFixed(begin, end, value, PlacesOf(decimals));
    }
    size_ = static_cast<size_t>(last - begin);
    if (decimals != kWholeNumber) Trim(trim);
}

void CNumberText::Trim(TrimFlags trim) {
    while (trim.zeros && size_ > 0 && characters_[size_ - 1] == '0') --size_;
    while (trim.point && size_ > 0 && characters_[size_ - 1] == '.') --size_;
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
