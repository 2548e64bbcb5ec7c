#include "generator/debug_mgr.h"

#include <cstring>
#include <stdexcept>

namespace brindle {

void CNCDebugMgr::Clear() {
    log_.Clear();
    header_numbers_.clear();
    headers_.clear();
    last_header_ = 0;
}

void CNCDebugMgr::Add(TraceKind kind, std::string_view text) {
    const auto tag = static_cast<uint8_t>(kind);
    if (kind != TraceKind::kTemplate) return log_.Add(tag, text);
    const uint32_t number = HeaderNumber(text);
    char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    log_.Add(tag, {bytes, sizeof number});
}

uint32_t CNCDebugMgr::HeaderNumber(std::string_view header) {
    if (last_header_ < headers_.size() && headers_[last_header_] == header) return last_header_;
    const auto known = header_numbers_.find(header);
    if (known != header_numbers_.end()) return last_header_ = known->second;
    last_header_ = static_cast<uint32_t>(headers_.size());
    header_numbers_.emplace(headers_.emplace_back(header), last_header_);
    return last_header_;
}

CNCDebugInfo CNCDebugMgr::Get(size_t index) const {
    if (index >= log_.size()) throw std::out_of_range("trace index");
    const CTextLog::Entry entry = log_.Get(index);
    const auto kind = static_cast<TraceKind>(entry.tag);
    if (kind != TraceKind::kTemplate) return {kind, entry.text};
    uint32_t number = 0;
    std::memcpy(&number, entry.text.data(), sizeof number);
    return {kind, headers_[number]};
}

}  // namespace brindle
