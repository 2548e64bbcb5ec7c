#include "check/tuning/decimals.h"

#include "text/numbers.h"

namespace brindle {

std::string FaultOfDecimals(double decimals) {
    constexpr double kMostDecimals = 6.0;
    if ((decimals >= 0.0 && decimals <= kMostDecimals) || decimals == kWholeNumber) return {};
    return "no format has " + ShortNumber(decimals) + " decimals: numbers are printed with 6 (there are 0 to 6, and " +
           std::to_string(kWholeNumber) + " for whole numbers without a point)";
}

}  // namespace brindle
