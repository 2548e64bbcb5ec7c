#include "generator/debug_mgr.h"

#include <stdexcept>

namespace brindle {
namespace {

// How the start of a template is kept: by its header, or by the number of a header that is in the log already.
constexpr uint8_t kHeader = 2;
constexpr uint8_t kNumber = 0;

}  // namespace

void CNCDebugMgr::Clear() {
    log_.Clear();
    headers_.clear();
}

void CNCDebugMgr::Add(TraceKind kind, std::string_view text) {
    log_.Add(kind == TraceKind::kTemplate ? kHeader : static_cast<uint8_t>(kind), text);
}

void CNCDebugMgr::AddTemplate(std::string_view header, uint32_t number) {
    if (headers_.size() <= number) headers_.resize(number + 1);
    if (headers_[number].data() == nullptr) {
        headers_[number] = log_.Add(kHeader, header);
        return;
    }
    char bytes[sizeof number];  // as few as it takes, the lowest first
    size_t size = 0;
    for (uint32_t rest = number; rest != 0; rest >>= 8) bytes[size++] = static_cast<char>(rest & 0xFF);
    log_.Add(kNumber, {bytes, size});
}

TraceKind CNCDebugMgr::KindOf(uint8_t tag) {
    return tag == kHeader || tag == kNumber ? TraceKind::kTemplate : static_cast<TraceKind>(tag);
}

std::vector<uint32_t> CNCDebugMgr::Select(bool templates, bool messages) const {
    std::vector<uint32_t> selected;
    CTextLog::Reader reader(log_);
    for (uint32_t index = 0; !reader.AtEnd(); ++index) {
        const TraceKind kind = KindOf(reader.Next().tag);
        if ((kind != TraceKind::kTemplate || templates) && (kind != TraceKind::kMessage || messages)) {
            selected.push_back(index);
        }
    }
    return selected;
}

CNCDebugInfo CNCDebugMgr::Get(size_t index) const {
    if (index >= log_.size()) throw std::out_of_range("trace index");
    const CTextLog::Entry entry = log_.Get(index);
    if (entry.tag != kNumber) return {KindOf(entry.tag), entry.text};
    uint32_t number = 0;
    for (size_t i = entry.text.size(); i > 0; --i) number = number << 8 | static_cast<unsigned char>(entry.text[i - 1]);
    return {TraceKind::kTemplate, headers_[number]};
}

}  // namespace brindle
