#include "generator/debug_mgr.h"

#include <stdexcept>

namespace brindle {

CNCDebugInfo CNCDebugMgr::Get(size_t index) const {
    if (index >= log_.size()) throw std::out_of_range("trace index");
    const CTextLog::Entry entry = log_.Get(index);
    return {static_cast<TraceKind>(entry.tag), entry.text};
}

}  // namespace brindle
