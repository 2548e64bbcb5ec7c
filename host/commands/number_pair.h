// Pairs of numbers that users type.
#pragma once

#include <optional>
#include <string_view>

#include "geometry/plane_math.h"

namespace brindle::host {

// The two numbers of a text such as `300x200` or `10,-5`. Nothing for any other text. Letters as separators count in
// either case.
std::optional<Point> PairText(std::string_view text, char separator);

}  // namespace brindle::host
