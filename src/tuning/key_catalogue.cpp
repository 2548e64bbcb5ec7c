#include "tuning/key_catalogue.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "text/ascii.h"

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

// Looks for the candidate that takes the fewest edits to reach from one name.
class NearestName {
public:
    explicit NearestName(std::string_view name)
        : name_(name), most_edits_(std::clamp<size_t>(name.size() / 4, 1, 3)), best_cost_((most_edits_ + 1) * kEdit) {}

    // Takes `candidate` if it is nearer than all before it.
    void Offer(std::string_view candidate) {
        if (candidate.size() > name_.size() + most_edits_ || name_.size() > candidate.size() + most_edits_) return;
        const size_t cost = Cost(candidate);
        if (cost >= best_cost_) return;
        best_cost_ = cost;
        best_ = candidate;
    }

    // Empty if no candidate was near.
    const std::string& best() const { return best_; }

private:
    // A letter in the wrong case costs 1, every other edit this much.
    static constexpr size_t kEdit = 100;

    static size_t ReplaceCost(char a, char b) { return a == b ? 0 : LowerAscii(a) == LowerAscii(b) ? 1 : kEdit; }

    // Cost of the cheapest way from the name to `candidate`; stops with best_cost_ or more once it cannot be less.
    size_t Cost(std::string_view candidate) {
        const size_t width = candidate.size() + 1;
        row_.resize(width);
        for (size_t j = 0; j < width; ++j) row_[j] = j * kEdit;
        for (size_t i = 1; i <= name_.size(); ++i) {
            before_last_.swap(last_);
            last_.swap(row_);
            FillRow(i, candidate);
            const size_t least = *std::ranges::min_element(row_);
            if (least >= best_cost_) return least;
        }
        return row_.back();
    }

    // row_[j]: cost of the way from the first `i` letters of the name to the first j of `candidate`.
    void FillRow(size_t i, std::string_view candidate) {
        row_.resize(candidate.size() + 1);
        row_[0] = i * kEdit;
        for (size_t j = 1; j < row_.size(); ++j) {
            const char a = name_[i - 1];
            const char b = candidate[j - 1];
            row_[j] = std::min({last_[j] + kEdit, row_[j - 1] + kEdit, last_[j - 1] + ReplaceCost(a, b)});
            const bool swapped = i > 1 && j > 1 && a == candidate[j - 2] && b == name_[i - 2];
            if (swapped) row_[j] = std::min(row_[j], before_last_[j - 2] + kEdit);
        }
    }

    std::string_view name_;
    size_t most_edits_;
    size_t best_cost_;
    std::string best_;
    std::vector<size_t> row_, last_, before_last_;
};

void OfferTemplateKeys(bool per_tool, NearestName& nearest) {
    std::string candidate;
    for (const EventInfo& event : TemplateEvents()) {
        if (event.per_tool != per_tool) continue;
        for (const KeyInfo& row : KeyCatalogue()) {
            if (row.scope == KeyScope::kEvent) nearest.Offer(candidate.assign(event.prefix).append(row.name));
        }
    }
}

}  // namespace

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
    NearestName nearest(misspelt.name);
    for (const KeyInfo& row : KeyCatalogue()) {
        if (row.scope == (per_tool ? KeyScope::kTool : KeyScope::kGlobal)) nearest.Offer(row.name);
    }
    OfferTemplateKeys(per_tool, nearest);
    return nearest.best().empty() ? std::string() : misspelt.tool_prefix + nearest.best();
}

}  // namespace brindle
