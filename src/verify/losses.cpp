#include "verify/losses.h"

#include <algorithm>
#include <iterator>

namespace brindle {
namespace {

using enum Cause;

// clang-format off
constexpr CauseInfo kCauses[] = {
    {kUnknown, "", ""},
    {kToolOutOfRange, "the tuning has no such tool", "raise nNumOfTools, or set bDefaultTool true"},
    {kNoTool, "its type maps to no tool of the tuning", "give the tool keys, or use another type"},
    {kTextInIncremental, "texts are left out of incremental output", "set bOutModeAbs true"},
    {kTextNotSupported, "the tuning writes no texts", "set bUseText true"},
    {kEmptyCall, "a program whose one record ends where it starts is not called",
     "split the record in two, or draw it without a call"},
    {kUnknownProgram, "there is no program of that name", "add the program, or correct the name"},
    {kCallsItself, "the program calls itself", "take the call out of the program"},
    {kCallsTooDeep, "calls are nested too deep", "nest fewer calls"},
    {kTooManyCalls, "the job has too many calls", "split the job"},
    {kNoTemplate, "its template is missing or writes nothing", "write the template"},
    {kNoToolOn, "nothing switches the tool on", "write T..ToolOn_tTmpl"},
    {kNoToolOff, "nothing switches the tool off", "write T..ToolOff_tTmpl"},
    {kNoMove, "no move goes to its start", "write Move_tTmpl"},
    {kNoCall, "the call is not written", "write SubCall_tTmpl"},
    {kNoLineCode, "the tuning has no code for this motion", "give sRTCode, sLTCode, sCWCode and sCCWCode"},
    {kNoModeCode, "the tuning has no code for absolute or incremental words", "give sAbsCode and sIncCode"},
    {kCalleesTool, "a sub-program has changed the tool, and its caller does not know",
     "select tools in T..ToolOn_tTmpl, or expand calls with bUseSubs false"},
    {kNoSelection, "nothing selects the tool", "write T..ToolSel_tTmpl"},
    {kMasterOff, "the master tool is not switched on again", "give the subordinate tool a ToolOn template of its own"},
    {kRadiusAsDirection, "the drawing's radius word gives a direction alone, but the tuning uses the radius",
     "write centres (bArcByCen), or draw true radii"},
    {kRadiusInInches, "the drawing's radius word is in inches and counts as millimetres",
     "write centres (bArcByCen), or draw radii in the drawing's unit"},
    {kRadiusWord, "a printed radius can't place the centre well enough", "write centres (bArcByCen), or print more decimals"},
    {kNestedExpansion, "a call within an expanded program is placed as if the main program made it",
     "let the controller call sub-programs (bUseSubs), or draw without nested calls"},
    {kCentreRepeat, "a centre word was left out as a repeat", "set bArcDataModal false"},
    {kSmallSteps, "increments below 0.0005 are left out and add up", "write absolute words (bOutModeAbs), or NONMODAL"},
    {kLongArc, "an arc above 270 degrees ends beside its drawn end, and what follows is measured from there",
     "write absolute words (bOutModeAbs), or split the arc"},
    {kClosedAfterLong, "a closed arc after an arc above 270 degrees loses its end", "split the arc before it"},
    {kSubsMode, "nothing tells the controller that words are absolute or incremental here",
     "write <@AbsIncCode> in SubInit_tTmpl and <@AbsIncCode[NONMODAL]> in SubReset_tTmpl"},
    {kUnwrittenTurn, "no word of the call says that it is turned or mirrored",
     "write <@IncludeRotWord> and <@IncludeMirCode> in SubCall_tTmpl, or set bUseRotations and bUseMirror false"},
    {kFewDecimals, "the decimals are too few for a curve so small", "print more decimals"},
    {kUnreadOrigin, "the origin's template can't be read", ""},
};
// clang-format on

consteval bool IsInOrder() {
    for (size_t i = 0; i < std::size(kCauses); ++i) {
        if (kCauses[i].cause != static_cast<Cause>(i)) return false;
    }
    return true;
}
static_assert(IsInOrder());

}  // namespace

const CauseInfo& InfoOf(Cause cause) { return kCauses[static_cast<size_t>(cause)]; }

Cause CauseOf(DropReason reason) {
    switch (reason) {
        case DropReason::kToolOutOfRange: return Cause::kToolOutOfRange;
        case DropReason::kNoTool: return Cause::kNoTool;
        case DropReason::kTextInIncremental: return Cause::kTextInIncremental;
        case DropReason::kTextNotSupported: return Cause::kTextNotSupported;
        case DropReason::kEmptyCall: return Cause::kEmptyCall;
        case DropReason::kUnknownProgram: return Cause::kUnknownProgram;
        case DropReason::kCallsItself: return Cause::kCallsItself;
        case DropReason::kCallsTooDeep: return Cause::kCallsTooDeep;
        case DropReason::kTooManyCalls: return Cause::kTooManyCalls;
    }
    return Cause::kUnknown;
}

void CLosses::Add(Loss loss, const LossPlace& place, double amount, double length) {
    std::string key = std::to_string(static_cast<int>(loss.rule)) + '/' + std::to_string(static_cast<int>(loss.cause)) +
                      '/' + std::to_string(loss.tool) + '/' + loss.template_key + '/' + loss.detail;
    const auto [at, is_new] = known_.try_emplace(std::move(key), all_.size());
    if (is_new) all_.push_back(std::move(loss));
    Loss* const found = &all_[at->second];
    if (found->first.size() < kMostPlaces) found->first.push_back(place);
    ++found->count;
    found->largest = std::max(found->largest, amount);
    found->length += length;
}

}  // namespace brindle
