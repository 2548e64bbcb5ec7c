// Arcs as chains of lines, for arcs that the controller can't take as arcs.
#pragma once

#include <vector>

#include "geometry/nc_data.h"

namespace brindle {

// Facets whose corners lie outside the arc and whose middles lie inside, each by at most `tolerance` (millimetres, at
// least 0.001). An arc shorter than the first of them gives its chord.
std::vector<CNCLineData> FacetByTolerance(const CNCArcData& arc, double tolerance);

// Facets with a turn of at most `angle` (degrees) at each corner; none for an angle of 0.
std::vector<CNCLineData> FacetByAngle(const CNCArcData& arc, double angle);

}  // namespace brindle
