// The dialog in which the user looks at the run-time values of a job before it is run, and changes them.
#pragma once

#include <string>

#include "editor/toolkit/windows.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// Lets the user choose a dataset, `dataset` at first, and its values for the next run. Gives the chosen one and puts
// the values into `run_values`. Gives empty text, with `run_values` as they were, if the user cancelled, or if the
// definition has no dataset, which a message says.
std::string DisplayRunTimeData(CToolkit& toolkit, const CRunTimeDataDef& definition, const std::string& tuning_pick,
                               const std::string& dataset, CKVItemContainer& run_values);

}  // namespace brindle
