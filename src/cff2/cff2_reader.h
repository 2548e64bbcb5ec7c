// Loads a CFF2 drawing into the geometry store, as if a host had sent its records.
#pragma once

#include <string>

#include "geometry/controller_state.h"
#include "geometry/programs.h"

namespace brindle {

// Reads the drawing at `path` in the place of all programs. Its unit records set `job.auto_inches`. Records that are
// short, not finite, or before the `UR` record that starts the main program are dropped. False, with everything left
// alone, if the file can't be read.
bool ReadCF2(const std::string& path, CNCGeomMgr& geometry, JobData& job);

}  // namespace brindle
