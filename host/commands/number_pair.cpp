#include "host/commands/number_pair.h"

#include "text/ascii.h"
#include "text/numbers.h"

namespace brindle::host {

std::optional<Point> PairText(std::string_view text, char separator) {
    size_t at = text.find(separator);
    if (at == std::string_view::npos) at = text.find(UpperAscii(separator));
    if (at == std::string_view::npos) return std::nullopt;
    const std::optional<double> first = ParseNumber(text.substr(0, at));
    const std::optional<double> second = ParseNumber(text.substr(at + 1));
    if (!first || !second) return std::nullopt;
    return Point{*first, *second};
}

}  // namespace brindle::host
