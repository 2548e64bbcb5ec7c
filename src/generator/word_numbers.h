// The printed numbers of coordinates and radii, for their words and for whoever must know whether they fit.
#pragma once

#include "generator/run_context.h"

namespace brindle {

// The number of an axis value (axis 0 or 1), which is in output units and scaled already.
CNumberText AxisNumber(const RunContext& run, int axis, double value);
// The number of the current record's radius word. `is_unsigned`: without the sign that tells a long arc.
CNumberText RadiusNumber(const RunContext& run, bool is_unsigned);
// What the centre words of the current record are measured as, in output units.
Point CentreOffset(const RunContext& run, bool absolute);

}  // namespace brindle
