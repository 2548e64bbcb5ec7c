#include "api/brindle_mgr.h"

#include <memory>

#include "generator/output_run.h"

namespace brindle {
namespace {

// Neither this nor the line buffer is destroyed with the process: a host may still call while its own objects go.
std::unique_ptr<CBrindleMgr>& Session() {
    static auto& session = *new std::unique_ptr<CBrindleMgr>;
    return session;
}

}  // namespace

CBrindleMgr& CBrindleMgr::Current() {
    std::unique_ptr<CBrindleMgr>& session = Session();
    if (session == nullptr) session = std::make_unique<CBrindleMgr>();
    return *session;
}

void CBrindleMgr::Destroy() { Session().reset(); }

std::string& CBrindleMgr::TuneLineBuffer() {
    static auto& buffer = *new std::string;
    return buffer;
}

void CBrindleMgr::RunOutput() { brindle::RunOutput(Parts()); }

}  // namespace brindle
