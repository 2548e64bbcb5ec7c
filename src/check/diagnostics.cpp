#include "check/diagnostics.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace brindle {
namespace {

static_assert(std::size(Rules()) == static_cast<size_t>(Rule::kNotJudged) + 1);
static_assert([] {
    for (size_t i = 0; i < std::size(Rules()); ++i) {
        if (static_cast<size_t>(Rules()[i].rule) != i) return false;
        for (const char c : Rules()[i].name) {
            if ((c < 'a' || c > 'z') && (c < '0' || c > '9') && c != '-') return false;
        }
        for (size_t j = 0; j < i; ++j) {
            if (Rules()[j].name == Rules()[i].name) return false;
        }
    }
    return true;
}());

constexpr size_t kMostKept = 100000;
constexpr size_t kMostOfAGroup = 20;

}  // namespace

void CDiagnostics::Add(Diagnostic diagnostic) {
    const RuleInfo& info = InfoOf(diagnostic.rule);
    if (IsAllowed(diagnostic.rule) && info.severity != Severity::kError) return;
    ++counts_[static_cast<size_t>(info.severity)];
    GroupUse& group = groups_[static_cast<size_t>(info.group)];
    if (++group.count > kMostOfAGroup && IsLimited(info.group)) return;
    group.last_line = diagnostic.place.line;
    if (kept_.size() >= kMostKept) return;
    diagnostic.severity = info.severity;
    kept_.push_back(std::move(diagnostic));
}

void CDiagnostics::Drop(const std::function<bool(const Diagnostic&)>& is_told) {
    std::array<size_t, kRuleGroups> left = {};
    const auto drop = [&](const Diagnostic& diagnostic) {
        const bool goes = is_told(diagnostic);
        if (goes) --counts_[static_cast<size_t>(diagnostic.severity)];
        if (!goes) ++left[static_cast<size_t>(InfoOf(diagnostic.rule).group)];
        return goes;
    };
    if (std::erase_if(kept_, drop) == 0) return;
    // With the last one of a group those that are only counted go, too.
    for (size_t i = 0; i < kRuleGroups; ++i) {
        if (left[i] == 0) groups_[i].count = 0;
    }
}

std::string_view CDiagnostics::LineOf(const Place& place) const {
    return place.line == 0 || place.line > lines_.size() ? std::string_view() : lines_[place.line - 1];
}

const std::vector<Diagnostic>& CDiagnostics::Sorted() {
    AddFurther();
    std::stable_sort(kept_.begin(), kept_.end(), [](const Diagnostic& a, const Diagnostic& b) {
        return std::tie(a.place.line, a.place.column) < std::tie(b.place.line, b.place.column);
    });
    return kept_;
}

void CDiagnostics::AddFurther() {
    for (const RuleInfo& info : Rules()) {
        GroupUse& group = groups_[static_cast<size_t>(info.group)];
        if (!IsLimited(info.group) || group.count <= kMostOfAGroup) continue;
        const size_t more = std::exchange(group.count, 0) - kMostOfAGroup;
        kept_.push_back({.rule = Rule::kFurther,
                         .severity = InfoOf(Rule::kFurther).severity,
                         .place = {group.last_line},
                         .message = "and " + std::to_string(more) + " more of this kind after this line"});
    }
}

}  // namespace brindle
