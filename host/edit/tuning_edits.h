// What a session of the editor has done to a tuning.
#pragma once

#include <string>
#include <vector>

#include "tuning/options.h"

namespace brindle::host {

// The keys of a tuning that the user has changed, added or removed, in order. What the editor adds by itself for keys
// that were missing, its defaults, counts as no edit. Run-time data counts under the one name "run-time data".
std::vector<std::string> EditedKeys(const CBrindleOpts& before, const CBrindleOpts& after);

// The keys that were missing, for which the editor has written its default, and a run took another value: the NC text
// can change by them.
std::vector<std::string> ChangedByDefaults(const CBrindleOpts& before, const CBrindleOpts& after);

}  // namespace brindle::host
