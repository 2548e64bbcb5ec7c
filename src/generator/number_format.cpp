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
    char* const begin = characters_.data();
    char* const end = begin + characters_.size();
    if (decimals == kWholeNumber || decimals == 0) {
        char* last = std::to_chars(begin, end, TruncateToInt32(value)).ptr;
        if (decimals == 0) *last++ = '.';
        size_ = static_cast<size_t>(last - begin);
    } else {
        const auto result = std::to_chars(begin, end, value, std::chars_format::fixed, PlacesOf(decimals));
        size_ = static_cast<size_t>(result.ptr - begin);
    }
    if (decimals != kWholeNumber) Trim(trim);
}

void CNumberText::Trim(TrimFlags trim) {
    while (trim.zeros && size_ > 0 && characters_[size_ - 1] == '0') --size_;
    while (trim.point && size_ > 0 && characters_[size_ - 1] == '.') --size_;
}

std::string PlainReal(double value) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value < 0.0 ? "-inf" : "inf";
    char digits[328];
    const auto result = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 6);
    return {digits, result.ptr};
}

void AppendInt(std::string& out, int32_t value) {
    char digits[11];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

}  // namespace brindle
