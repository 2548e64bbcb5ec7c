#include "host/post/run_report.h"

#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/console/messages.h"

namespace brindle::host {
namespace {

constexpr size_t kMostEqual = 20;
constexpr std::string_view kFlyRatios = "maxratio: ";

std::string_view IndentOf(TraceKind kind) {
    switch (kind) {
        case TraceKind::kTemplate: return "";
        case TraceKind::kMessage: return "! ";
        case TraceKind::kBlock: return "  ";
    }
    return {};
}

}  // namespace

void PrintRunMessages(const JobResult& result, const std::string& drawing, bool fly_ratios) {
    std::unordered_map<std::string_view, size_t> counts;
    std::vector<std::string_view> frequent;  // in the order in which they became so
    for (const size_t record : result.Messages()) {
        const std::string_view text = result.trace.Get(record).text;
        const bool is_ratio = text.starts_with(kFlyRatios);
        if (is_ratio && !fly_ratios) continue;
        const size_t count = ++counts[text];
        if (count <= kMostEqual) (is_ratio ? PrintNote : PrintWarning)({drawing}, text);
        if (count == kMostEqual + 1) frequent.push_back(text);
    }
    for (const std::string_view text : frequent) {
        const size_t more = counts[text] - kMostEqual;
        PrintWarning({drawing}, std::string(text) + " (" + std::to_string(more) + " more times)");
    }
}

std::string TraceText(const CNCDebugMgr& trace) {
    std::string text;
    for (size_t i = 0; i < trace.GetCount(); ++i) {
        const CNCDebugInfo record = trace.Get(i);
        text.append(IndentOf(record.kind)).append(record.text).push_back('\n');
    }
    return text;
}

}  // namespace brindle::host
