// The values of run-time data that the user gives on the command line, checked before any job runs.
#pragma once

#include "host/load/loaded_tuning.h"
#include "host/post/run_data.h"

namespace brindle::host {

// Holds the values against the tuning as if they were lines of it. False, with messages printed that name the option
// and its text, if one would be read as something else than it says (a speed `90,5`, text where every dataset has a
// number), if a setting is for a word that neither a template or option text of the tuning nor one of its datasets has,
// or if an expression's value is one that no dataset asks for.
bool CheckGivenValues(const LoadedTuning& tuning, const RunDataRequest& request);

}  // namespace brindle::host
