#include "check/number_words.h"

#include <charconv>
#include <cmath>

#include "text/ascii.h"
#include "text/numbers.h"

namespace brindle {

std::optional<double> WholeNumberText(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<Point> PairText(std::string_view text, char separator) {
    size_t at = text.find(separator);
    if (at == std::string_view::npos) at = text.find(UpperAscii(separator));
    if (at == std::string_view::npos) return std::nullopt;
    const std::optional<double> first = WholeNumberText(text.substr(0, at));
    const std::optional<double> second = WholeNumberText(text.substr(at + 1));
    if (!first || !second) return std::nullopt;
    return Point{*first, *second};
}

std::string ShortNumber(double value) {
    std::string text = FixedText(value, 6);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text == "-0" ? "0" : text;
}

}  // namespace brindle
