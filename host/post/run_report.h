// What a run has told: messages for the user, and the trace as a file.
#pragma once

#include <string>

#include "session/session.h"

namespace brindle::host {

// Prints the messages of the run as warnings on `drawing`. Of more than 20 equal ones the first 20, and how many more
// there are. The ratios that fly mode tells at each of its tests are notes, for `fly_ratios` only.
void PrintRunMessages(const JobResult& result, const std::string& drawing, bool fly_ratios);

// The trace as text, one record a line: `<Line_tTmpl>` where a template starts, the blocks that it makes behind two
// blanks, messages behind `! `.
std::string TraceText(const CNCDebugMgr& trace);

}  // namespace brindle::host
