// What a run has told: messages for the user, and the trace as a file.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"
#include "verify/losses.h"

namespace brindle::host {

// Tells the messages of the run as warnings on `drawing`, equal ones once, but for what `losses` says, and for the
// rules `allowed`. Gives how many were told. The ratios that fly mode tells at each of its tests are notes, for
// `fly_ratios` only.
size_t PrintRunMessages(const JobResult& result, const std::string& drawing, bool fly_ratios,
                        const CLosses& losses = {}, const std::vector<Rule>& allowed = {});

// The trace as text, one record a line: `<Line_tTmpl>` where a template starts, the blocks that it makes behind two
// blanks, messages behind `! `.
std::string TraceText(const CNCDebugMgr& trace);

}  // namespace brindle::host
