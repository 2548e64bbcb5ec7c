// Numbers in what users type: options of the command and words of drawings. The same in every locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "geometry/plane_math.h"

namespace brindle {

// The number that `text` is as a whole: a sign, decimal digits with a point, an exponent. Nothing for any other text,
// nor for a number that a double can't hold.
std::optional<double> WholeNumberText(std::string_view text);

// The two numbers of a text such as `300x200` or `10,-5`. Nothing for any other text. Letters as separators count in
// either case.
std::optional<Point> PairText(std::string_view text, char separator);

// `value` in at most six decimals, without trailing zeros and never in exponent form: as it may stand in NC text.
std::string ShortNumber(double value);

}  // namespace brindle
