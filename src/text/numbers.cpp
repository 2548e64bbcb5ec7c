#include "text/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace brindle {
namespace {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view SkipSpace(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t\n\v\f\r");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

// Takes a leading sign off `text` and says whether it was a minus.
bool TakeSign(std::string_view& text) {
    if (text.empty() || (text[0] != '-' && text[0] != '+')) return false;
    const bool negative = text[0] == '-';
    text.remove_prefix(1);
    return negative;
}

// Reads off the front of the text what std::from_chars would. The digits of most numbers and the power of ten below
// them are doubles without a rounding, so that one division gives the nearest double (W. D. Clinger, "How to read
// floating point numbers accurately", 1990). All others go to the library.
std::from_chars_result FromDecimal(const char* first, const char* last, double& value) {
    constexpr double kPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr ptrdiff_t kMostDigits = 15;
    const char* at = first;
    const bool negative = at != last && *at == '-';
    if (negative) ++at;
    uint64_t digits = 0;
    const auto take_digits = [&] {
        const char* const start = at;
        for (; at != last && IsDigit(*at); ++at) digits = digits * 10 + static_cast<uint64_t>(*at - '0');
        return at - start;
    };
    const ptrdiff_t whole = take_digits();
    if (at != last && *at == '.') ++at;
    const ptrdiff_t decimals = take_digits();
    const bool is_plain = whole > 0 && whole + decimals <= kMostDigits && (at == last || (*at != 'e' && *at != 'E'));
    if (!is_plain) return std::from_chars(first, last, value, std::chars_format::general);
    value = static_cast<double>(digits) / kPowers[decimals];
    if (negative) value = -value;
    return {at, std::errc()};
}

bool BeginsDecimal(std::string_view text) {
    return !text.empty() && (IsDigit(text[0]) || (text[0] == '.' && text.size() > 1 && IsDigit(text[1])));
}

}  // namespace

double LeadingDouble(std::string_view text) {
    text = SkipSpace(text);
    const bool negative = TakeSign(text);
    if (!BeginsDecimal(text)) return 0.0;
    double value = 0.0;
    const auto result = FromDecimal(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || !std::isfinite(value)) return 0.0;
    return negative ? -value : value;
}

std::optional<double> ParseNumber(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = FromDecimal(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

int32_t LeadingInt(std::string_view text) {
    text = SkipSpace(text);
    const bool negative = TakeSign(text);
    int64_t value = 0;
    for (const char c : text) {
        if (!IsDigit(c)) break;
        value = value * 10 + (c - '0');
        if (value > std::numeric_limits<int32_t>::max()) {
            return negative ? std::numeric_limits<int32_t>::min() : std::numeric_limits<int32_t>::max();
        }
    }
    return static_cast<int32_t>(negative ? -value : value);
}

double FarPowerOfTenth(int32_t n) {
    if (n < -std::numeric_limits<double>::max_exponent10) return std::numeric_limits<double>::infinity();
    return LeadingDouble("1e" + std::to_string(-int64_t{n}));
}

int32_t TruncateToInt32(double value) {
    if (std::isnan(value)) return 0;
    if (value >= 2147483647.0) return std::numeric_limits<int32_t>::max();
    if (value <= -2147483648.0) return std::numeric_limits<int32_t>::min();
    return static_cast<int32_t>(value);
}

std::string FixedText(double value, int decimals) {
    constexpr size_t kLongestInteger = 1 + std::numeric_limits<double>::max_exponent10 + 1;  // sign and digits
    if (!std::isfinite(value)) value = 0.0;
    std::string text(kLongestInteger + 1 + static_cast<size_t>(decimals), '\0');
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
    text.resize(static_cast<size_t>(end - text.data()));
    return text;
}

std::string ShortNumber(double value) {
    std::string text = FixedText(value, 6);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text == "-0" ? "0" : text;
}

}  // namespace brindle
