// What is reported of a tuning before it is used for a job.
#pragma once

#include <cstddef>
#include <string>

#include "host/load/loaded_tuning.h"

namespace brindle::host {

// Prints the errors that `brindle check` finds in the tuning and in the definition file. False if there is one: a line
// that is dropped or read as something else would show on the part.
bool ReportOnTuning(const LoadedTuning& tuning);

// The same for the definition file alone; true if there is none.
bool ReportOnDefinition(const LoadedTuning& tuning);

// Says that a file with so many errors is not used.
void NoteRefusal(const std::string& path, size_t errors);

}  // namespace brindle::host
