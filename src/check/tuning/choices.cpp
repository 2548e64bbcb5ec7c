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
        std::string text = std::string(key->name) + " has no effect: " + std::string(taken->name);
        text += tuning_.Find(taken->name) == nullptr ? " is true by default" : " is true too";
        diagnostics_.Add(Rule::kSeveralChosen, item->KeyPlace(), std::move(text));
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
