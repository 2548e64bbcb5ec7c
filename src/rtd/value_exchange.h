// The values of run-time data words for one run, settled from a dataset's defaults and from what the user last used.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "tuning/run_time_data_def.h"

namespace brindle {

// Asks the user a question with the answers Yes and No; true for Yes.
using AskUser = std::function<bool(const std::string& question)>;

// The question whether values older than their definition are still wanted.
extern const char* const kStaleValuesQuestion;

// The name of the stored record of a tuning pick and dataset.
std::string RecordName(std::string_view tuning_pick, std::string_view dataset);

// Stores `values` for the user under `name`, dated now. Failures are silent. A tab or a line end (CR LF) in a value
// ends it when it is read again.
void SaveRunTimeValues(const std::string& name, const CKVItemContainer& values);

// Reads a stored record in place of `values` and `date`. False, with both emptied, if there is none.
bool LoadStoredValues(const std::string& name, CKVItemContainer& values, std::string& date);

// Puts the values of a dataset into `values`, in place of what is there: the user's stored ones where they are not
// older than the definition, and the dataset's defaults for the rest. Computed expressions and hidden entries always
// take the dataset's value. Stored entries that the dataset lacks stay, whatever their age. For values that are older,
// `ask` decides if there is one; without it they count as stale. With an unknown dataset `values` is what is stored.
// All texts end up with the plain kind.
void LoadRunTimeValues(const CRunTimeDataDef& definition, const std::string& dataset, const std::string& tuning_pick,
                       const AskUser& ask, CKVItemContainer& values);

// The values of an output run. A `dataset` that is empty or unknown becomes the definition's first one, empty if there
// is none. Nobody is asked: values older than the definition are dropped.
void SettleRunValues(const CRunTimeDataDef& definition, const std::string& tuning_pick, std::string& dataset,
                     CKVItemContainer& values);

}  // namespace brindle
