// Loads a CFF2 drawing into the geometry store, as if a host had sent its records.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "geometry/controller_state.h"
#include "geometry/programs.h"

namespace brindle {

// Reads the drawing whose whole file is `text` in the place of all programs. Its unit records set `job.auto_inches`.
// Records that are short, not finite, or before the `UR` record that starts the main program are dropped.
void ReadCF2(std::string_view text, CNCGeomMgr& geometry, JobData& job);

// The line, from 1, of each record that ReadCF2 makes of `text`, by program and record.
std::vector<std::vector<size_t>> LinesOfRecords(std::string_view text);

}  // namespace brindle
