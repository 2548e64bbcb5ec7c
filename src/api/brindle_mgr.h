// The session of the exports. A process has one at a time.
#pragma once

#include <string>

#include "session/session.h"

namespace brindle {

// What the exports keep from call to call, from the first one that needs it until GBrn_Clear.
class CBrindleMgr : public CSession {
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

    std::string definition_tuning_name;
};

}  // namespace brindle
