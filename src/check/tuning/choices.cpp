#include <algorithm>
#include <span>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"
#include "tuning/key_choices.h"

namespace brindle {
namespace {

class ChoiceChecker {
public:
    ChoiceChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics)
        : tuning_(tuning), diagnostics_(diagnostics) {}

    void Check(std::span<const KeyRef> choice) {
        if (!WhyUnread(tuning_, MatchKey(choice[0]->name)).empty()) return;
        const auto taken = std::find_if(choice.begin(), choice.end(), [this](KeyRef key) { return IsTrue(key); });
        if (taken == choice.end()) return CheckLast(choice.back());
        for (auto key = taken + 1; key != choice.end(); ++key) CheckFurther(*key, *taken);
    }

private:
    // What a run finds; what it never asks for counts as the tuning has it.
    bool IsTrue(KeyRef key) const { return tuning_.options().ReadBool(key); }

    void CheckFurther(KeyRef key, KeyRef taken) {
        const PlacedItem* const item = tuning_.Find(key->name);
        if (item == nullptr || !IsTrue(key) || !WhyUnread(tuning_, item->match).empty()) return;
        std::string why(taken->name);
        why += tuning_.Find(taken->name) == nullptr ? " is true by default" : " is true too";
        if (key == Key("bInAbsCenIsAbs") && tuning_.options().ReadBool(Key("bArcDataModal"))) {
            return diagnostics_.Add(Rule::kSeveralChosen, item->KeyPlace(), HalfAbsoluteText(taken, why),
                                    "set " + std::string(taken->name) + " false for absolute centres");
        }
        diagnostics_.Add(Rule::kSeveralChosen, item->KeyPlace(), std::string(key->name) + " has no effect: " + why);
    }

    // A run asks for bInAbsCenIsAbs apart from how centres are measured, for how repeats are left out.
    static std::string HalfAbsoluteText(KeyRef taken, const std::string& why) {
        const bool from_start = taken == Key("bInAbsCenFromStart");
        return why + ": centre words are offsets from the " + (from_start ? "start" : "end") +
               " of the arc, and yet left out where they repeat the last ones";
    }

    void CheckLast(KeyRef last) {
        const PlacedItem* const item = tuning_.Find(last->name);
        if (item == nullptr || last->read_default.HasValue()) return;
        diagnostics_.Add(
            Rule::kNoneChosen, item->KeyPlace(),
            std::string(last->name) + " is false, but so are all its alternatives: a run takes it all the same");
    }

    const CPlacedTuning& tuning_;
    CDiagnostics& diagnostics_;
};

}  // namespace

void CheckChoices(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    ChoiceChecker checker(tuning, diagnostics);
    for (const KeyChoice& choice : kKeyChoices) checker.Check(choice.keys());
}

}  // namespace brindle
