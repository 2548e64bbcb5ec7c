// Choices of one key among several. The editor offers them as radio buttons and lists, `brindle check` judges them.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "tuning/key_catalogue.h"

namespace brindle {

// The keys of one choice in the order in which a run asks for them. If none is true it takes the last one.
class KeyChoice {
public:
    constexpr KeyChoice(KeyRef first, KeyRef second) : keys_{first, second, second}, count_(2) {}
    constexpr KeyChoice(KeyRef first, KeyRef second, KeyRef third) : keys_{first, second, third}, count_(3) {}
    constexpr std::span<const KeyRef> keys() const { return {keys_, count_}; }

private:
    KeyRef keys_[3];
    size_t count_;
};

inline constexpr KeyChoice kKeyChoices[] = {
    {Key("bOutUnitsAuto"), Key("bOutUnitsInches"), Key("bOutUnitsMetric")},
    {Key("bOutModeAbs"), Key("bOutModeInc")},
    {Key("bBlockDelimStd"), Key("bBlockDelimCus")},
    {Key("bParenCurly"), Key("bParenRound"), Key("bParenSquare")},
    {Key("bArcByRad"), Key("bArcBySub"), Key("bArcByCen")},
    {Key("bInAbsCenFromStart"), Key("bInAbsCenFromEnd"), Key("bInAbsCenIsAbs")},
    {Key("bInIncCenFromStart"), Key("bInIncCenFromEnd")},
    {Key("bRadCWArcPosIsShort"), Key("bRadCWArcPosIsLong")},
    {Key("bRadCCWArcPosIsShort"), Key("bRadCCWArcPosIsLong")},
    {Key("bSubArcPosCW"), Key("bSubArcPosCCW")},
    {Key("bRotAxisInDegrees"), Key("bRotAxisPLinear")},
    {Key("bSubsInAbs"), Key("bSubsInInc")},
    {Key("bOutputSubsFirst"), Key("bOutputSubsAfter")},
    {Key("bStartSubsAtCen"), Key("bStartSubsAtLine")},
    {Key("bEndSubsAtCen"), Key("bEndSubsAtLine")},
    {Key("SubNum_bUseSequence"), Key("SubNum_bUseBlockNum"), Key("SubNum_bUseFormula")},
    {Key("Speed_b1"), Key("Speed_b4"), Key("Speed_b2")},
    {Key("Speed_bNearest2"), Key("Speed_bNearest1")},
    {Key("Speed_b2Params"), Key("Speed_b1Param")},
    {Key("Speed_bAsValue"), Key("Speed_bAsExpress")},
    {Key("ToolRot_bPosIsCW"), Key("ToolRot_bPosIsCCW")},
    {Key("Fly_bForFollowing"), Key("Fly_bForPreceeding")},
};

// The keys of the choice that a key is one of, itself included; none if it is of no choice.
constexpr std::span<const KeyRef> ChoiceOf(std::string_view key) {
    for (const KeyChoice& choice : kKeyChoices) {
        for (const KeyRef one : choice.keys()) {
            if (one->name == key) return choice.keys();
        }
    }
    return {};
}

}  // namespace brindle
