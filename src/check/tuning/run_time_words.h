// Run-time data words, `RTD(1,2)` and `RTD(4)`, against the definition that offers their values.
#pragma once

#include <string>
#include <string_view>

#include "check/diagnostics.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// Reports at `place` what is wrong with a word: its form, or that the definition has no such row, column or message.
// True if nothing is.
bool CheckRunTimeWord(std::string_view word, const CRunTimeDataDef& definition, Place place, CDiagnostics& diagnostics);

// Reports that too, or else the first dataset that has no value for the word.
void CheckRunTimeValue(const std::string& word, const CRunTimeDataDef& definition, Place place,
                       CDiagnostics& diagnostics);

}  // namespace brindle
