#include <optional>
#include <set>
#include <utility>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"

namespace brindle {
namespace {

// Reports each option once, at the first directive that wants it.
class EmptyTextChecker {
public:
    EmptyTextChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics)
        : tuning_(tuning), diagnostics_(diagnostics) {}

    void Check(const DirectiveUse& use) {
        for (const DirectiveRead& read : DirectiveReads()) {
            if (read.when_empty == WhenEmpty::kFine || !Applies(read, use, tuning_)) continue;
            if (!looked_at_.insert({read.key->name, read.of_tool}).second) continue;
            const std::optional<std::string> key = EmptyKey(read);
            if (!key) continue;
            Report(read, use, *key);
        }
    }

private:
    // The key if it is empty; of a tool's keys the first that is.
    std::optional<std::string> EmptyKey(const DirectiveRead& read) const {
        if (!read.of_tool) return IsEmpty(read.key->name) ? std::optional(std::string(read.key->name)) : std::nullopt;
        for (const auto& [prefix, tool] : tuning_.tools()) {
            std::string key = prefix + std::string(read.key->name);
            if (tool.physical && IsEmpty(key)) return key;
        }
        return std::nullopt;
    }

    bool IsEmpty(std::string_view key) const {
        std::string text;
        return !tuning_.options().GetText(key, text) || text.empty();
    }

    void Report(const DirectiveRead& read, const DirectiveUse& use, const std::string& key) {
        const std::string name(use.directive->name);
        if (read.when_empty == WhenEmpty::kNoWord) {
            return diagnostics_.Add(Rule::kEmptyAddress, use.place,
                                    key + " is empty: without it " + name + " writes nothing");
        }
        const std::string message = key + " is empty, but " + name + " writes it";
        if (read.when_empty == WhenEmpty::kNothing) return diagnostics_.Add(Rule::kEmptyCode, use.place, message);
        const bool can_be_meant = use.directive->keywords.Has(Keyword::kData);
        diagnostics_.Add(Rule::kEmptyAddress, use.place, message + ": the word has no address",
                         can_be_meant ? "the keyword DATA says that this is meant" : "");
    }

    const CPlacedTuning& tuning_;
    CDiagnostics& diagnostics_;
    std::set<std::pair<std::string_view, bool>> looked_at_;
};

}  // namespace

void CheckEmptyAddressesAndCodes(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    EmptyTextChecker checker(tuning, diagnostics);
    for (const DirectiveUse& use : tuning.directives()) {
        if (IsRead(tuning, *use.text)) checker.Check(use);
    }
}

}  // namespace brindle
