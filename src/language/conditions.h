// When a run reads what a tuning holds.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brindle {

// A question to the options of a tuning, some of them to those of a tool. A name says what makes it true.
// clang-format off
enum class Condition : uint8_t {
    kAlways, kInches, kMillimetres, kFixedUnits, kStartOnBlock, kStartApart, kArcByRadius, kArcBySubtended,
    kArcByCentre, kSubs, kMirror, kNoMirror, kRotations, kNumberByBlock, kNotInSequence, kSubsAbsolute,
    kSubsIncremental, kAbsoluteMain, kIncrementalMain, kText, kSegments, kErrorComments, kOwnDelimiter, kPrimaryTool,
    kRotaryAxis, kToolCodes, kCommonCodes, kFly, kFlyAfter, kTwoParameters, kSpeedFactor, kSpeedByDirection,
    kFourSpeeds, kSpeedExpression, kSpeedsAreNumbers,
    // At least one tool that a run can reach is or does so.
    kAnyTool, kTangential, kSmallRadii, kFlyTools, kRotationWords,
    // The tool that is asked about does so.
    kToolArcSpeed, kToolTangential, kToolOffset, kToolFacets, kToolOwnCodes,
};
// clang-format on
inline constexpr size_t kConditions = static_cast<size_t>(Condition::kToolOwnCodes) + 1;

}  // namespace brindle
