// When a run reads what a tuning holds: conditions on options, and the tables that tie keys and templates to them.
#pragma once

#include <string_view>

#include "check/tuning/checked_tuning.h"

namespace brindle {

// A question to a tuning. `prefix` is that of the tool that is asked about, empty for what is no tool's.
struct Condition {
    bool (*holds)(const CCheckedTuning& tuning, std::string_view prefix);
    std::string_view otherwise;  // why it does not hold, as the end of a sentence
};

extern const Condition kAlways;
extern const Condition kInches, kMillimetres;
extern const Condition kStartOnBlock, kStartApart;
extern const Condition kArcByRadius, kArcBySubtended, kArcByCentre;
extern const Condition kSubs, kMirror, kRotations, kNumberByBlock;
extern const Condition kAnyTool, kTangential, kToolCodes, kCommonCodes, kFly, kText;
extern const Condition kTwoParameters, kSpeedFactor, kSpeedsAreNumbers;
extern const Condition kAbsoluteMain, kIncrementalMain, kSubsAbsolute, kSubsIncremental;
extern const Condition kSegments;

// Why no run reads this key under the options of the tuning; empty if one does, or if the key is unknown or the
// editor's own.
std::string_view WhyUnread(const CCheckedTuning& tuning, const KeyMatch& match);

// Whether a run reads this text: its tool is in use and its key is read.
bool IsRead(const CCheckedTuning& tuning, const CheckedText& text);

}  // namespace brindle
