#include <algorithm>
#include <array>

#include "check/tuning/check.h"
#include "check/tuning/conditions.h"

namespace brindle {
namespace {

// The keys of one choice in the order in which a run asks for them. If none is true it takes the last one.
struct Choice {
    std::array<std::string_view, 3> keys;  // empty ones behind them
};

// clang-format off
constexpr Choice kChoices[] = {
    {{"bOutUnitsAuto", "bOutUnitsInches", "bOutUnitsMetric"}},
    {{"bOutModeAbs", "bOutModeInc"}},
    {{"bBlockDelimStd", "bBlockDelimCus"}},
    {{"bParenCurly", "bParenRound", "bParenSquare"}},
    {{"bArcByRad", "bArcBySub", "bArcByCen"}},
    {{"bInAbsCenFromStart", "bInAbsCenFromEnd", "bInAbsCenIsAbs"}},
    {{"bInIncCenFromStart", "bInIncCenFromEnd"}},
    {{"bRadCWArcPosIsShort", "bRadCWArcPosIsLong"}},
    {{"bRadCCWArcPosIsShort", "bRadCCWArcPosIsLong"}},
    {{"bSubArcPosCW", "bSubArcPosCCW"}},
    {{"bRotAxisInDegrees", "bRotAxisPLinear"}},
    {{"bSubsInAbs", "bSubsInInc"}},
    {{"bOutputSubsFirst", "bOutputSubsAfter"}},
    {{"bStartSubsAtCen", "bStartSubsAtLine"}},
    {{"bEndSubsAtCen", "bEndSubsAtLine"}},
    {{"SubNum_bUseSequence", "SubNum_bUseBlockNum", "SubNum_bUseFormula"}},
    {{"Speed_b1", "Speed_b4", "Speed_b2"}},
    {{"Speed_bNearest2", "Speed_bNearest1"}},
    {{"Speed_b2Params", "Speed_b1Param"}},
    {{"Speed_bAsValue", "Speed_bAsExpress"}},
    {{"ToolRot_bPosIsCW", "ToolRot_bPosIsCCW"}},
    {{"Fly_bForFollowing", "Fly_bForPreceeding"}},
};
// clang-format on

class ChoiceChecker {
public:
    ChoiceChecker(const CCheckedTuning& tuning, CFindings& findings) : tuning_(tuning), findings_(findings) {}

    void Check(const Choice& choice) {
        if (!WhyUnread(tuning_, MatchKey(choice.keys[0])).empty()) return;
        const auto end = std::find(choice.keys.begin(), choice.keys.end(), std::string_view());
        const auto taken = std::find_if(choice.keys.begin(), end, [this](auto key) { return IsTrue(key); });
        if (taken == end) return CheckLast(*(end - 1));
        for (auto key = taken + 1; key != end; ++key) CheckFurther(*key, *taken);
    }

private:
    // What a run finds; what it never asks for counts as the tuning has it.
    bool IsTrue(std::string_view key) const {
        int32_t value = MatchKey(key).info->read_default.Bool() ? 1 : 0;
        tuning_.options().GetBool(key, value);
        return value != 0;
    }

    void CheckFurther(std::string_view key, std::string_view taken) {
        const CheckedItem* const item = tuning_.Find(key);
        if (item == nullptr || !IsTrue(key) || !WhyUnread(tuning_, item->match).empty()) return;
        std::string text = std::string(key) + " has no effect: " + std::string(taken);
        text += tuning_.Find(taken) == nullptr ? " is true by default" : " is true too";
        AddAtKey(findings_, Severity::kWarning, *item, std::move(text));
    }

    void CheckLast(std::string_view last) {
        const CheckedItem* const item = tuning_.Find(last);
        if (item == nullptr || item->match.info->read_default.HasValue()) return;
        AddAtKey(findings_, Severity::kWarning, *item,
                 std::string(last) + " is false, but so are all its alternatives: a run takes it all the same");
    }

    const CCheckedTuning& tuning_;
    CFindings& findings_;
};

}  // namespace

void CheckChoices(const CCheckedTuning& tuning, CFindings& findings) {
    ChoiceChecker checker(tuning, findings);
    for (const Choice& choice : kChoices) checker.Check(choice);
}

}  // namespace brindle
