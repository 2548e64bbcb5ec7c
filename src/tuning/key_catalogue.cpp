#include "tuning/key_catalogue.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "text/ascii.h"
#include "text/nearest_name.h"

namespace brindle {
namespace {

constexpr std::string_view kDigits = "0123456789";

constexpr std::pair<std::string_view, KeyScope> NameAndScope(const KeyInfo* row) { return {row->name, row->scope}; }

// The rows in the order of name and scope, for binary search.
constexpr auto kRowsByName = [] {
    std::array<const KeyInfo*, KeyCatalogue().size()> rows{};
    std::ranges::transform(KeyCatalogue(), rows.begin(), [](const KeyInfo& row) { return &row; });
    std::ranges::sort(rows, {}, NameAndScope);
    return rows;
}();

const KeyInfo* FindRow(std::string_view name, KeyScope scope) {
    const std::pair wanted(name, scope);
    const auto found = std::ranges::lower_bound(kRowsByName, wanted, {}, NameAndScope);
    return found != kRowsByName.end() && NameAndScope(*found) == wanted ? *found : nullptr;
}

const EventInfo* FindEvent(std::string_view prefix, bool per_tool) {
    for (const EventInfo& event : TemplateEvents()) {
        if (event.prefix == prefix && event.per_tool == per_tool) return &event;
    }
    return nullptr;
}

// Length of the `T%d_` or `T_` at the start of a key, 0 if there is none.
size_t ToolPrefixLength(std::string_view key) {
    if (!key.starts_with('T')) return 0;
    const size_t end = key.find_first_not_of(kDigits, 1);
    return end != key.npos && key[end] == '_' ? end + 1 : 0;
}

// A key whose tool prefix may have a small `t` or lack its `_`.
struct MisspeltKey {
    std::string tool_prefix;  // put right; empty if there is none
    std::string_view name;    // the rest

    explicit MisspeltKey(std::string_view key) : name(key) {
        if (key.empty() || UpperAscii(key[0]) != 'T') return;
        const size_t end = std::min(key.find_first_not_of(kDigits, 1), key.size());
        const bool has_underscore = end < key.size() && key[end] == '_';
        if (end == 1 && !has_underscore) return;
        tool_prefix.append("T").append(key.substr(1, end - 1)).append("_");
        name.remove_prefix(has_underscore ? end + 1 : end);
    }
};

void OfferTemplateKeys(bool per_tool, CNearestName& nearest) {
    std::string candidate;
    for (const EventInfo& event : TemplateEvents()) {
        if (event.per_tool != per_tool) continue;
        for (const KeyInfo& row : KeyCatalogue()) {
            if (row.scope == KeyScope::kEvent) nearest.Offer(candidate.assign(event.prefix).append(row.name));
        }
    }
}

}  // namespace

std::string TemplateKey(const EventInfo& event, std::string_view tool_prefix) {
    return std::string(tool_prefix).append(event.prefix).append(Key("tTmpl")->name);
}

KeyMatch MatchKey(std::string_view key) {
    const std::string_view tool_prefix = key.substr(0, ToolPrefixLength(key));
    const bool per_tool = !tool_prefix.empty();
    const std::string_view name = key.substr(tool_prefix.size());
    if (const KeyInfo* row = FindRow(name, per_tool ? KeyScope::kTool : KeyScope::kGlobal)) {
        return {row, tool_prefix, nullptr};
    }
    const size_t suffix = name.rfind('_') + 1;
    const EventInfo* event = FindEvent(name.substr(0, suffix), per_tool);
    const KeyInfo* row = event != nullptr ? FindRow(name.substr(suffix), KeyScope::kEvent) : nullptr;
    return row != nullptr ? KeyMatch{row, tool_prefix, event} : KeyMatch{};
}

std::string NearestKey(std::string_view key) {
    const MisspeltKey misspelt(key);
    const bool per_tool = !misspelt.tool_prefix.empty();
    CNearestName nearest(misspelt.name);
    for (const KeyInfo& row : KeyCatalogue()) {
        if (row.scope == (per_tool ? KeyScope::kTool : KeyScope::kGlobal)) nearest.Offer(row.name);
    }
    OfferTemplateKeys(per_tool, nearest);
    return nearest.best().empty() ? std::string() : misspelt.tool_prefix + nearest.best();
}

}  // namespace brindle
