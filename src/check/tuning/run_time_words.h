// Run-time data words, `RTD(1,2)` and `RTD(4)`, against the definition that offers their values.
#pragma once

#include <string>
#include <string_view>

#include "tuning/run_time_data_def.h"

namespace brindle {

// What is wrong with a word: its form, or that the definition has no such row, column or message. Empty if nothing is.
std::string FaultOfRunTimeWord(std::string_view word, const CRunTimeDataDef& definition);

}  // namespace brindle
