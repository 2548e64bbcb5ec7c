#include "api/brindle_mgr.h"

#include <memory>

#include "generator/output_run.h"

namespace brindle {
namespace {

std::unique_ptr<CBrindleMgr>& Session() {
    static std::unique_ptr<CBrindleMgr> session;
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
    static std::string buffer;
    return buffer;
}

void CBrindleMgr::RunOutput() { brindle::RunOutput(Parts()); }

}  // namespace brindle
