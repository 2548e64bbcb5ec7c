// Decimals values, which select the format of a number.
#pragma once

#include <string>

namespace brindle {

// What is wrong with a number of decimals: that it has no format of its own. Empty if nothing is.
std::string FaultOfDecimals(double decimals);

}  // namespace brindle
