// What the user is told of what a job loses.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "verify/losses.h"

namespace brindle::host {

struct LossCounts {
    size_t losses = 0, warnings = 0;
};

// Prints the findings, but for those of the rules `allowed`, with the lines of `drawing`, whose file is `path`, and
// what has been drawn, cut and lost in all. Gives how many findings there are.
LossCounts ReportLosses(const CLosses& losses, const std::vector<Rule>& allowed, std::string_view drawing,
                        const std::string& path);

}  // namespace brindle::host
