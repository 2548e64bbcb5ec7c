// Run-time data in the editor's dialog, before a job is run.
#pragma once

#include <string>

#include "host/post/loaded_tuning.h"

namespace brindle::host {

// Opens the dialog on the values of `dataset`, which exists; what the user confirms is stored as the values last used
// under `tuning_pick`, where a later job finds them. Prints the name of the dataset that he chose. Gives the exit
// status: bad input, with a message printed, where there is no dataset or no editor.
int EditData(const LoadedTuning& tuning, const std::string& dataset, const std::string& tuning_pick);

}  // namespace brindle::host
