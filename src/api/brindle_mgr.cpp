#include "api/brindle_mgr.h"

#include <cstddef>
#include <memory>
#include <new>

namespace brindle {
namespace {

struct ProcessState {
    std::unique_ptr<CBrindleMgr> session;
    std::string line_buffer;
    bool work_lost = false;
};

// Never destroyed: a host may still call while its own objects go. Not on the heap: it can't fail to come into being.
ProcessState& Process() {
    alignas(ProcessState) static std::byte place[sizeof(ProcessState)];
    static ProcessState& process = *new (place) ProcessState;
    return process;
}

// Leaves nothing behind in a process that unloads the library and goes on.
const struct AtUnload {
    ~AtUnload() {
        CBrindleMgr::Destroy();
        std::string().swap(Process().line_buffer);
    }
} at_unload;

}  // namespace

CBrindleMgr& CBrindleMgr::Current() {
    std::unique_ptr<CBrindleMgr>& session = Process().session;
    if (session == nullptr) session = std::make_unique<CBrindleMgr>();
    return *session;
}

void CBrindleMgr::Destroy() {
    Process().session.reset();
    Process().work_lost = false;
}

std::string& CBrindleMgr::TuneLineBuffer() { return Process().line_buffer; }

void CBrindleMgr::LoseWork() {
    Destroy();
    Process().line_buffer.clear();
    Process().work_lost = true;
}

bool CBrindleMgr::WorkLost() { return Process().work_lost; }

}  // namespace brindle
