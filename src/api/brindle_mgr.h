// The session: the one object that owns everything a job needs.
#pragma once

#include <string>

#include "generator/buffer_mgr.h"
#include "generator/debug_mgr.h"
#include "generator/output_state.h"
#include "generator/run_context.h"
#include "geometry/controller_state.h"
#include "geometry/job_records.h"
#include "geometry/programs.h"
#include "tuning/options.h"

namespace brindle {

// Lives from the first export that needs it until GBrn_Clear.
class CBrindleMgr {
public:
    // The session, made if there is none.
    static CBrindleMgr& Current();
    // Destroys the session, if there is one.
    static void Destroy();
    // The pieces of a tuning line that wait for its last piece. They survive the session.
    static std::string& TuneLineBuffer();
    // Ends the session of an export that could not do its work, as when memory runs out. A job that lacks a record must
    // not reach a machine, so there is no output until the session is destroyed by its host.
    static void LoseWork();
    static bool WorkLost();

    virtual ~CBrindleMgr() = default;

    // The output run, synchronously; none if work was lost.
    void RunOutput();
    // The records of the job, checked.
    JobRecords Records() { return JobRecords(geometry); }
    SessionParts Parts() {
        return {tuning, run_values, controller, output_state, trace, buffers, geometry, run_settings};
    }

    CBrindleOpts tuning;
    CKVItemContainer run_values;  // of the present or last run, by run-time data word
    std::string definition_tuning_name;
    CNCControllerState controller;
    CNCOutputState output_state;
    CNCDebugMgr trace;
    CBufferMgr buffers;
    CNCGeomMgr geometry;
    RunSettings run_settings;
};

}  // namespace brindle
