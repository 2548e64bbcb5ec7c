// What the user is told of what a job loses.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/load/loaded_drawing.h"
#include "host/post/tuning_findings.h"
#include "verify/losses.h"

namespace brindle::host {

struct FindingCounts {
    size_t losses = 0, warnings = 0;
};

// Tells what is wrong with `drawing`, what its job loses, but for findings of the rules `allowed`, and what has been
// drawn, cut and lost in all. What the drawing and the tuning say of the cause of a loss becomes part of it, so that
// each cause is told once. Gives how many findings there are.
FindingCounts ReportLosses(const CLosses& losses, const std::vector<Rule>& allowed, LoadedDrawing& drawing,
                           CTuningFindings& tuning);

}  // namespace brindle::host
