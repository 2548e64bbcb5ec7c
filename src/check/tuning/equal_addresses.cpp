// Words of one line whose addresses are the same: the controller can't tell them apart.
#include <map>
#include <set>
#include <utility>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"
#include "text/message_words.h"

namespace brindle {
namespace {

constexpr KeyPattern kAddresses = "*Addr*";

class AddressChecker {
public:
    AddressChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics)
        : tuning_(tuning), diagnostics_(diagnostics) {}

    // Uses come in the order of their texts.
    void Check(const DirectiveUse& use) {
        if (use.text != line_) key_of_.clear();
        line_ = use.text;
        for (const DirectiveRead& read : DirectiveReads()) {
            if (read.of_tool || !kAddresses.Covers(read.key.Info()) || !Applies(read, use, tuning_)) continue;
            const std::string address = tuning_.options().ReadText(read.key);
            if (address.empty()) continue;
            const auto [found, is_new] = key_of_.emplace(address, read.key->name);
            if (!is_new && found->second != read.key->name) Report(use, found->second, read.key->name, address);
        }
    }

private:
    void Report(const DirectiveUse& use, std::string_view first, std::string_view second, const std::string& address) {
        if (!reported_.insert({first, second}).second) return;
        diagnostics_.Add(Rule::kEqualAddresses, use.place,
                         std::string(first) + " and " + std::string(second) + " are both " + Quoted(address) +
                             ": the words can't be told apart in this line");
    }

    const CPlacedTuning& tuning_;
    CDiagnostics& diagnostics_;
    const PlacedText* line_ = nullptr;
    std::map<std::string, std::string_view> key_of_;  // of the addresses of the line
    std::set<std::pair<std::string_view, std::string_view>> reported_;
};

}  // namespace

void CheckEqualAddresses(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    AddressChecker checker(tuning, diagnostics);
    for (const DirectiveUse& use : tuning.directives()) {
        if (use.text->InTemplate() && IsRead(tuning, *use.text)) checker.Check(use);
    }
}

}  // namespace brindle
