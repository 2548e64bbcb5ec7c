#include "host/post/run_report.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/console/messages.h"

namespace brindle::host {
namespace {

constexpr std::string_view kFlyRatios = "maxratio: ";
constexpr std::string_view kUnresolved = "Could not evaluate: ";

// What messages of a run come to.
struct RunMessageInfo {
    std::string_view start;  // how it begins
    std::optional<Rule> rule;
    Cause cause;            // of the loss that says the same; kUnknown if none does, or its detail must be the same
    std::string_view text;  // in place of the run's words, if it is not empty
};

constexpr RunMessageInfo kRunMessages[] = {
    {kUnresolved, Rule::kUnresolvedValue, Cause::kUnknown, {}},
    {"WARNING: type ", Rule::kNotCut, Cause::kNoTool, {}},
    {"WARNING: program ", Rule::kNotCut, Cause::kCallsItself, {}},
    {"WARNING: calls nested too deep", Rule::kNotCut, Cause::kCallsTooDeep, {}},
    {"WARNING: too many calls", Rule::kNotCut, Cause::kTooManyCalls, {}},
    {"Text ignored in incremental mode", Rule::kTextLost, Cause::kTextInIncremental, {}},
    {"WARNING: Text is not supported", Rule::kTextLost, Cause::kTextNotSupported, {}},
    {"WARNING: Short arc", std::nullopt, Cause::kUnknown, "a short arc whose ends meet is cut as a line"},
    {"WARNING: zero radius arc", std::nullopt, Cause::kUnknown, "an arc without a radius is cut as a line"},
    {"Warning: Applying tool offsets", std::nullopt, Cause::kUnknown,
     "the tool has an offset: a sub-program that is called mirrored or turned is cut beside its place"},
    {"ERROR: BLOCK NUM NOT SET", Rule::kNumberNotKnown, Cause::kUnknown,
     "the block number of a called program is not yet known"},
};

const RunMessageInfo* InfoOf(std::string_view text) {
    const auto* const found = std::find_if(std::begin(kRunMessages), std::end(kRunMessages),
                                           [text](const RunMessageInfo& info) { return text.starts_with(info.start); });
    return found == std::end(kRunMessages) ? nullptr : found;
}

bool SaysTheSame(const Loss& loss, const RunMessageInfo& info, std::string_view text) {
    if (info.start == kUnresolved) return loss.rule == info.rule && loss.detail == text.substr(info.start.size());
    return info.cause != Cause::kUnknown && loss.cause == info.cause;
}

// The run's own words, without the severity that some begin with.
std::string TextOf(const RunMessageInfo* info, std::string_view text) {
    if (info != nullptr && !info->text.empty()) return std::string(info->text);
    constexpr std::string_view kWarning = "WARNING: ";
    return std::string(text.substr(text.starts_with(kWarning) ? kWarning.size() : 0));
}

bool IsAllowed(std::optional<Rule> rule, const std::vector<Rule>& allowed) {
    return rule && std::find(allowed.begin(), allowed.end(), *rule) != allowed.end();
}

std::string_view IndentOf(TraceKind kind) {
    switch (kind) {
        case TraceKind::kTemplate: return "";
        case TraceKind::kMessage: return "! ";
        case TraceKind::kBlock: return "  ";
    }
    return {};
}

}  // namespace

size_t PrintRunMessages(const JobResult& result, const std::string& drawing, bool fly_ratios, const CLosses& losses,
                        const std::vector<Rule>& allowed) {
    std::unordered_map<std::string_view, size_t> counts;
    std::vector<std::string_view> texts;  // in the order in which they came first
    for (const size_t record : result.Messages()) {
        const std::string_view text = result.trace.Get(record).text;
        if (text.starts_with(kFlyRatios)) {
            if (fly_ratios) PrintNote({drawing}, text);
        } else if (++counts[text] == 1) {
            texts.push_back(text);
        }
    }
    size_t told = 0;
    for (const std::string_view text : texts) {
        const RunMessageInfo* const info = InfoOf(text);
        const auto says_the_same = [&](const Loss& loss) { return SaysTheSame(loss, *info, text); };
        if (info != nullptr && std::any_of(losses.all().begin(), losses.all().end(), says_the_same)) continue;
        if (info != nullptr && IsAllowed(info->rule, allowed)) continue;
        Message message;
        message.kind = MessageKind::kWarning;
        if (info != nullptr) message.rule = info->rule;
        message.place.file = drawing;
        message.text = PrintableText(TextOf(info, text));
        if (counts[text] > 1) message.text += ", " + std::to_string(counts[text]) + " times";
        Tell(std::move(message));
        ++told;
    }
    return told;
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
