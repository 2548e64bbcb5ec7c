// What is reported of a tuning before it is used for a job.
#pragma once

#include <string>

#include "host/load/loaded_tuning.h"

namespace brindle::host {

// Prints the errors that `brindle check` finds in the tuning and in the definition file. False if there is one: a line
// that is dropped or read as something else would show on the part.
bool ReportOnTuning(const LoadedTuning& tuning);

}  // namespace brindle::host
