#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"

namespace brindle {
namespace {

bool HoldsDefault(const CPlacedTuning& tuning, const PlacedItem& item) {
    const KeyInfo& info = *item.match.info;
    const CBrindleOpts& options = tuning.options();
    const auto is = [&info](auto value) {
        return info.read_default == KeyDefault(value) || info.editor_default == KeyDefault(value);
    };
    int32_t whole = 0;
    double real = 0.0;
    std::string text;
    TemplateLines lines;
    if (options.GetBool(item.key, whole)) return is(whole != 0);
    if (options.GetInt(item.key, whole)) return is(whole);
    if (options.GetReal(item.key, real)) return is(real);
    if (options.GetText(item.key, text)) return text.empty() || is(text.c_str());
    return options.GetMulti(item.key, lines) && lines.empty();
}

// Directives by the keys that nothing but they read.
using Readers = std::map<std::string_view, std::vector<std::string_view>>;

// The readers of keys that none of them reads: no template that a run reads has them.
Readers FindUnusedReaders(const CPlacedTuning& tuning) {
    Readers readers;
    for (const DirectiveRead& read : DirectiveReads()) {
        std::vector<std::string_view>& names = readers[read.key->name];
        const std::string_view name = Info(read.directive).name;
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
    for (const DirectiveUse& use : tuning.directives()) {
        if (!IsRead(tuning, *use.text)) continue;
        for (const DirectiveRead& read : DirectiveReads()) {
            if (Applies(read, use, tuning)) readers.erase(read.key->name);
        }
    }
    return readers;
}

// `a`, `a or b`, `a, b or another directive`.
std::string AnyOf(const std::vector<std::string_view>& directives) {
    std::string text(directives[0]);
    if (directives.size() == 2) text.append(" or ").append(directives[1]);
    if (directives.size() > 2) text.append(", ").append(directives[1]).append(" or another directive that writes it");
    return text;
}

// Keys that are not read for one reason are reported in one message.
class UnreadKeys {
public:
    void Add(Rule rule, const PlacedItem& item, std::string why) { keys_[{std::move(why), rule}].push_back(&item); }

    void Report(CDiagnostics& diagnostics) const {
        for (const auto& [reason, items] : keys_) {
            diagnostics.Add(reason.second, items.front()->KeyPlace(), Names(items) + " no effect: " + reason.first);
        }
    }

private:
    static std::string Names(const std::vector<const PlacedItem*>& items) {
        constexpr size_t kMostNames = 3;
        if (items.size() == 1) return std::string(items[0]->key) + " has";
        std::string names;
        for (size_t i = 0; i < std::min(items.size(), kMostNames); ++i) {
            if (i > 0) names += i + 1 == items.size() ? " and " : ", ";
            names += items[i]->key;
        }
        if (items.size() > kMostNames) names += " and " + std::to_string(items.size() - kMostNames) + " more";
        return names + " have";
    }

    std::map<std::pair<std::string, Rule>, std::vector<const PlacedItem*>> keys_;
};

}  // namespace

void CheckUnreadKeys(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    const Readers unused_readers = FindUnusedReaders(tuning);
    UnreadKeys unread;
    for (const PlacedItem& item : tuning.items()) {
        const ToolUse* const tool = tuning.Tool(item.match.tool_prefix);
        const bool is_reported_elsewhere = tool != nullptr && !tool->own && !tool->physical;
        if (!item.HasRightKind() || is_reported_elsewhere || HoldsDefault(tuning, item)) continue;
        const std::string_view why = WhyUnread(tuning, item.match);
        if (!why.empty()) {
            unread.Add(Rule::kUnreadKey, item, std::string(why));
        } else if (const auto readers = unused_readers.find(item.match.info->name); readers != unused_readers.end()) {
            unread.Add(Rule::kUnusedKey, item, "no text that a run reads has " + AnyOf(readers->second));
        }
    }
    unread.Report(diagnostics);
}

}  // namespace brindle
