// What a run has told: messages for the user, and the trace as a file.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"
#include "verify/losses.h"

namespace brindle::host {

// Tells the messages of the run as warnings on `drawing`, equal ones once, but for what `losses` says, and for the
// rules `allowed`. Gives how many were told. The ratios that fly mode tells at each of its tests are notes, for
// `verbose` only.
size_t PrintRunMessages(const JobResult& result, const std::string& drawing, bool verbose, const CLosses& losses = {},
                        const std::vector<Rule>& allowed = {});

// The templates that could not evaluate a word.
class CUnresolvedTemplates {
public:
    explicit CUnresolvedTemplates(const JobResult& result);
    // The keys of the first few that lack the value of `word`, in the order of the run.
    const std::vector<std::string>& ThatLack(std::string_view word) const;

private:
    std::map<std::string, std::vector<std::string>, std::less<>> keys_;  // by word
};

// The trace as text, one record a line: `<Line_tTmpl>` where a template starts, the blocks that it makes behind two
// blanks, messages behind `! `.
std::string TraceText(const CNCDebugMgr& trace);

}  // namespace brindle::host
