// The one road into the engine: a session holds a job, RunJob makes its NC text. The exports, the command, the editor's
// preview and the tests all go this way.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "generator/buffer_mgr.h"
#include "generator/debug_mgr.h"
#include "generator/run_context.h"
#include "generator/run_log.h"
#include "generator/tool_path.h"
#include "geometry/controller_state.h"
#include "geometry/job_records.h"
#include "geometry/programs.h"
#include "tuning/options.h"

namespace brindle {

// A job (tuning, geometry, job data), and what runs leave to the next one. Texts are UTF-8. Two sessions share nothing,
// so each may have a thread of its own.
class CSession {
public:
    // The programs of the job; what they add is checked.
    JobRecords Records() { return JobRecords(geometry); }
    JobData& Job() { return controller.job; }
    // Takes the drawing at `path` in the place of all programs. False, with everything left alone, if it can't be read.
    bool OpenDrawing(const std::string& path);
    // The same with a drawing that is read already.
    void TakeDrawing(std::string_view text);

    // What a run reads and writes.
    SessionParts Parts() { return {tuning, run_values, controller, run_state, trace, buffers, geometry}; }

    CBrindleOpts tuning;
    CKVItemContainer run_values;  // of the present or last run, by run-time data word
    CNCControllerState controller;
    RunState run_state;
    CNCDebugMgr trace;
    CBufferMgr buffers;
    CNCGeomMgr geometry;
};

// What a run gives. It lies in the session, up to its next run.
struct JobResult {
    CBufferMgr& buffers;  // the NC text, a buffer for each segment
    const CNCDebugMgr& trace;

    // The messages of the run, by their places in the trace.
    std::vector<size_t> Messages() const;
};

// Runs the tuning of the session over its geometry. `log`, if it is not null, is told what is written.
JobResult RunJob(CSession& session, CRunLog* log = nullptr);

}  // namespace brindle
