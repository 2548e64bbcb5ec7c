#include <optional>
#include <set>
#include <utility>

#include "check/tuning/check.h"
#include "check/tuning/directive_reads.h"

namespace brindle {
namespace {

// Tells each option once, at the first directive that wants it.
class EmptyOptionChecker {
public:
    EmptyOptionChecker(const CCheckedTuning& tuning, CFindings& findings) : tuning_(tuning), findings_(findings) {}

    void Check(const DirectiveUse& use) {
        for (const DirectiveRead& read : DirectiveReads()) {
            if (read.when_empty == WhenEmpty::kFine || !Applies(read, use, tuning_)) continue;
            if (!looked_at_.insert({read.key, read.of_tool}).second) continue;
            const std::optional<std::string> key = EmptyKey(read);
            if (!key) continue;
            findings_.Add(Severity::kWarning, use.text->placed.line(), use.column, use.length, Message(read, *key));
        }
    }

private:
    // The key if it is empty; of a tool's keys the first that is.
    std::optional<std::string> EmptyKey(const DirectiveRead& read) const {
        if (!read.of_tool) return IsEmpty(read.key) ? std::optional(std::string(read.key)) : std::nullopt;
        for (const auto& [prefix, tool] : tuning_.tools()) {
            std::string key = prefix + std::string(read.key);
            if (tool.physical && IsEmpty(key)) return key;
        }
        return std::nullopt;
    }

    bool IsEmpty(std::string_view key) const {
        std::string text;
        return !tuning_.options().GetText(key, text) || text.empty();
    }

    static std::string Message(const DirectiveRead& read, const std::string& key) {
        const std::string directive(read.directive);
        if (read.when_empty == WhenEmpty::kNoWord)
            return key + " is empty: without it " + directive + " writes nothing";
        std::string message = key + " is empty, but " + directive + " writes it";
        if (read.when_empty == WhenEmpty::kNothing) return message;
        message += ": the word has no address";
        const bool can_be_meant = FindDirective(directive)->keywords.Has(Keyword::kData);
        return can_be_meant ? message + " (the keyword DATA tells that this is meant)" : message;
    }

    const CCheckedTuning& tuning_;
    CFindings& findings_;
    std::set<std::pair<std::string_view, bool>> looked_at_;
};

}  // namespace

void CheckEmptyOptions(const CCheckedTuning& tuning, CFindings& findings) {
    EmptyOptionChecker checker(tuning, findings);
    for (const DirectiveUse& use : tuning.directives()) {
        if (IsRead(tuning, *use.text)) checker.Check(use);
    }
}

}  // namespace brindle
