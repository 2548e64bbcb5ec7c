#include "check/tuning/conditions.h"

#include <algorithm>

namespace brindle {
namespace {

using Tuning = CCheckedTuning;
using Prefix = std::string_view;

bool Bool(const Tuning& tuning, KeyRef key, Prefix prefix = {}) { return tuning.options().ReadBool(key, prefix); }

bool SubsAreAbsolute(const Tuning& tuning) {
    return Bool(tuning, Key("bUseSubs")) && Bool(tuning, Key("bSubsInAbs")) && Bool(tuning, Key("bOutModeAbs"));
}

bool WritesRadialWords(const Tuning& tuning) {
    return std::any_of(tuning.directives().begin(), tuning.directives().end(),
                       [](const DirectiveUse& use) { return use.keywords.Has(Keyword::kRadial); });
}

}  // namespace

// clang-format off
const Condition kAlways{[](const Tuning&, Prefix) { return true; }, ""};
const Condition kInches{[](const Tuning& t, Prefix) { return Bool(t, Key("bOutUnitsAuto")) || Bool(t, Key("bOutUnitsInches")); },
    "the output is never in inches"};
const Condition kMillimetres{[](const Tuning& t, Prefix) { return Bool(t, Key("bOutUnitsAuto")) || !Bool(t, Key("bOutUnitsInches")); },
    "the output is always in inches"};
const Condition kStartOnBlock{[](const Tuning& t, Prefix) { return Bool(t, Key("bStartEndOnBlock")); }, "bStartEndOnBlock is false"};
const Condition kStartApart{[](const Tuning& t, Prefix) { return !Bool(t, Key("bStartEndOnBlock")); }, "bStartEndOnBlock is true"};
const Condition kArcByRadius{[](const Tuning& t, Prefix) { return Bool(t, Key("bArcByRad")); }, "bArcByRad is false"};
const Condition kArcBySubtended{[](const Tuning& t, Prefix) { return Bool(t, Key("bArcBySub")) && !Bool(t, Key("bArcByRad")); },
    "arcs are not written by the angle that they subtend"};
const Condition kArcByCentre{[](const Tuning& t, Prefix) { return !Bool(t, Key("bArcBySub")) && !Bool(t, Key("bArcByRad")); },
    "arcs are not written by their centre"};
const Condition kSubs{[](const Tuning& t, Prefix) { return Bool(t, Key("bUseSubs")); }, "bUseSubs is false"};
const Condition kMirror{[](const Tuning& t, Prefix) { return t.options().MirrorInUse(); },
    "bUseSubs and bUseMirror are not both true"};
const Condition kRotations{[](const Tuning& t, Prefix) { return t.options().RotationsInUse(); },
    "bUseSubs, bUseMirror and bUseRotations are not all true"};
const Condition kNumberByBlock{[](const Tuning& t, Prefix) {
        return Bool(t, Key("SubNum_bUseBlockNum")) && !Bool(t, Key("SubNum_bUseSequence"));
    }, "sub-programs are not numbered by their blocks"};
const Condition kAnyTool{[](const Tuning& t, Prefix) { return t.abilities().any; }, "the tuning has no tool"};
const Condition kTangential{[](const Tuning& t, Prefix) { return t.abilities().tangential; }, "no tool in use is tangential"};
const Condition kToolCodes{[](const Tuning& t, Prefix) { return Bool(t, Key("bToolDependInterp")); }, "bToolDependInterp is false"};
const Condition kCommonCodes{[](const Tuning& t, Prefix) { return !Bool(t, Key("bToolDependInterp")); }, "bToolDependInterp is true"};
const Condition kFly{[](const Tuning& t, Prefix) { return Bool(t, Key("Fly_bSupport")); }, "Fly_bSupport is false"};
const Condition kText{[](const Tuning& t, Prefix) { return Bool(t, Key("bUseText")); }, "bUseText is false"};
const Condition kTwoParameters{[](const Tuning& t, Prefix) { return Bool(t, Key("Speed_b2Params")); }, "Speed_b2Params is false"};
const Condition kSpeedFactor{[](const Tuning& t, Prefix) { return Bool(t, Key("Speed_bFactor")); }, "Speed_bFactor is false"};
const Condition kAbsoluteMain{[](const Tuning& t, Prefix) { return Bool(t, Key("bOutModeAbs")); }, "bOutModeAbs is false"};
const Condition kIncrementalMain{[](const Tuning& t, Prefix) { return !Bool(t, Key("bOutModeAbs")); }, "bOutModeAbs is true"};
const Condition kSubsAbsolute{[](const Tuning& t, Prefix) { return SubsAreAbsolute(t); },
    "sub-programs are not in absolute coordinates"};
const Condition kSubsIncremental{[](const Tuning& t, Prefix) { return Bool(t, Key("bUseSubs")) && !SubsAreAbsolute(t); },
    "sub-programs are not in incremental coordinates"};
const Condition kSpeedsAreNumbers{[](const Tuning& t, Prefix) { return Bool(t, Key("Speed_bAsValue")) || t.abilities().bare_speeds; },
    "speeds are no bare numbers"};
const Condition kSegments{[](const Tuning& t, Prefix) { return Bool(t, Key("bUseFileSeg")); }, "bUseFileSeg is false"};

namespace {

constexpr Condition kFixedUnits{[](const Tuning& t, Prefix) { return !Bool(t, Key("bOutUnitsAuto")); }, "bOutUnitsAuto is true"};
constexpr Condition kErrorComments{[](const Tuning& t, Prefix) { return Bool(t, Key("bErrorsAsComments")); },
    "bErrorsAsComments is false"};
constexpr Condition kOwnDelimiter{[](const Tuning& t, Prefix) { return !Bool(t, Key("bBlockDelimStd")); }, "bBlockDelimStd is true"};
constexpr Condition kPrimaryTool{[](const Tuning& t, Prefix) { return Bool(t, Key("bUsePrimaryTool")); }, "bUsePrimaryTool is false"};
constexpr Condition kRotaryAxis{[](const Tuning& t, Prefix) { return Bool(t, Key("bAx1IsRot")) || Bool(t, Key("bAx2IsRot")); },
    "no axis is rotary"};
constexpr Condition kNotInSequence{[](const Tuning& t, Prefix) { return !Bool(t, Key("SubNum_bUseSequence")); },
    "SubNum_bUseSequence is true"};
constexpr Condition kSpeedByDirection{[](const Tuning& t, Prefix) { return !Bool(t, Key("Speed_b1")); }, "Speed_b1 is true"};
constexpr Condition kFourSpeeds{[](const Tuning& t, Prefix) { return Bool(t, Key("Speed_b4")); }, "Speed_b4 is false"};
constexpr Condition kSpeedExpression{[](const Tuning& t, Prefix) { return !Bool(t, Key("Speed_bAsValue")); },
    "Speed_bAsValue is true"};
constexpr Condition kSmallRadii{[](const Tuning& t, Prefix) { return t.abilities().small_radii; },
    "no tool in use has Speed_bSepForArcs and Speed_bUseSmallRadiiFormula"};
constexpr Condition kFlyTools{[](const Tuning& t, Prefix) { return t.abilities().fly; }, "no tool in use has Fly_bUse"};
constexpr Condition kFlyBehind{[](const Tuning& t, Prefix) { return !Bool(t, Key("Fly_bForFollowing")) || Bool(t, Key("bUseFileSeg")); },
    "Fly_bForFollowing is true"};
constexpr Condition kRotationWords{[](const Tuning& t, Prefix) { return t.abilities().tangential || WritesRadialWords(t); },
    "no tool in use is tangential"};
constexpr Condition kToolArcSpeed{[](const Tuning& t, Prefix p) { return Bool(t, Key("Speed_bSepForArcs"), p); },
    "the tool's Speed_bSepForArcs is false"};
constexpr Condition kToolTangential{[](const Tuning& t, Prefix p) { return t.options().IsTangential(p); },
    "the tool's bTangential is false"};
constexpr Condition kNoMirror{[](const Tuning& t, Prefix) { return !t.options().MirrorInUse(); },
    "the controller mirrors sub-programs"};
constexpr Condition kToolOffset{[](const Tuning& t, Prefix p) { return Bool(t, Key("ToolOff_bUse"), p); },
    "the tool's ToolOff_bUse is false"};
constexpr Condition kToolFacets{[](const Tuning& t, Prefix p) { return Bool(t, Key("SmFacet_bUse"), p); },
    "the tool's SmFacet_bUse is false"};
constexpr Condition kToolOwnCodes{[](const Tuning& t, Prefix p) { return p.empty() || Bool(t, Key("bToolDependInterp")); },
    "bToolDependInterp is false"};

// What ties keys to a condition: a name without prefixes, or the start of names before a `*`. All rows of a key must hold.
struct KeyCondition {
    std::string_view keys;
    const Condition* condition;
};

constexpr KeyCondition kKeyConditions[] = {
    {"IN_AX*", &kInches}, {"MM_AX*", &kMillimetres}, {"rMaxOrdMM", &kInches}, {"rMaxOrdIN", &kMillimetres},
    {"sInchCode", &kInches}, {"sMetricCode", &kMillimetres}, {"bOutUnitsInches", &kFixedUnits},
    {"nMaxBytes", &kSegments}, {"sOpenComment", &kErrorComments}, {"sCloseComment", &kErrorComments},
    {"sBlockDelim", &kOwnDelimiter}, {"nPrimaryTool", &kPrimaryTool}, {"bPrimaryToolUseToolOn", &kPrimaryTool},
    {"sAx1AddrStart", &kStartOnBlock}, {"sAx2AddrStart", &kStartOnBlock}, {"bRotAxisInDegrees", &kRotaryAxis},
    {"sRTCode", &kToolOwnCodes}, {"sLTCode", &kToolOwnCodes}, {"sCWCode", &kToolOwnCodes}, {"sCCWCode", &kToolOwnCodes},

    {"bSubsInAbs", &kSubs}, {"bSubsInAbs", &kAbsoluteMain}, {"bOutputSubsFirst", &kSubs}, {"bStartSubsAtCen", &kSubs},
    {"bEndSubsAtCen", &kSubs}, {"bEndSubsAtCen", &kAbsoluteMain}, {"bUseMirror", &kSubs}, {"sMirror*", &kMirror},
    {"bUseRotations", &kMirror}, {"SubRot_*", &kRotations}, {"SubNum_*", &kSubs},
    {"SubNum_nMainOffset", &kNotInSequence}, {"SubNum_nMainFactor", &kNotInSequence},

    {"Speed_b4", &kSpeedByDirection}, {"Speed_bNearest2", &kSpeedByDirection}, {"Speed_sFactor", &kSpeedFactor},
    {"Speed_sParam2Addr", &kTwoParameters}, {"Speed_P2_*", &kTwoParameters}, {"Speed_sForArcs_P2", &kTwoParameters},
    {"Speed_P1_sV2", &kSpeedByDirection}, {"Speed_P1_sV3", &kSpeedByDirection}, {"Speed_P1_sV4", &kSpeedByDirection},
    {"Speed_P2_sV2", &kSpeedByDirection}, {"Speed_P2_sV3", &kSpeedByDirection}, {"Speed_P2_sV4", &kSpeedByDirection},
    {"Speed_P1_sV3", &kFourSpeeds}, {"Speed_P1_sV4", &kFourSpeeds}, {"Speed_P2_sV3", &kFourSpeeds}, {"Speed_P2_sV4", &kFourSpeeds},
    {"Speed_sForArcs_*", &kToolArcSpeed}, {"Speed_bUseSmallRadiiFormula", &kToolArcSpeed}, {"SRF_*", &kSmallRadii},
    {"bParen*", &kSpeedExpression},

    {"Fly_*", &kFly}, {"Fly_s*", &kFlyTools}, {"Fly_bForFollowing", &kFlyTools}, {"Fly_rMM_Threshold", &kFlyTools},
    {"ToolRot_*", &kRotationWords}, {"sTangAuxCode*", &kTangential},
    {"b180Symmetry", &kToolTangential}, {"rLiftAngDEG", &kToolTangential},
    {"ToolOff_*", &kNoMirror}, {"ToolOff_r*", &kToolOffset}, {"SmFacet_r*", &kToolFacets},
    {"Text*", &kText}, {"TextHgt_rFactor_in", &kInches}, {"TextHgt_nNDec_in", &kInches},
    {"TextHgt_rFactor_mm", &kMillimetres}, {"TextHgt_nNDec_mm", &kMillimetres},
};

constexpr KeyCondition kEventConditions[] = {
    {"Text_", &kText}, {"Text_", &kAbsoluteMain},
    {"SubInit_", &kSubs}, {"SubTerm_", &kSubs}, {"SubCall_", &kSubs}, {"SubReset_", &kSubs}, {"MoveToIncludePt_", &kSubs},
    {"MoveToIncludePt_", &kStartApart},
    {"OriTransSet_", &kSubsAbsolute}, {"OriTransReset_", &kSubsAbsolute},
    {"OriTransSet_", &kStartApart}, {"OriTransReset_", &kStartApart},
    {"Fly_PreCheck_", &kFly}, {"Fly_PostCheck_", &kFly}, {"Fly_PreCheck_", &kFlyTools}, {"Fly_PostCheck_", &kFlyTools},
    {"Fly_PostCheck_", &kFlyBehind},
};
// clang-format on

bool Covers(std::string_view keys, std::string_view name) {
    return keys.ends_with('*') ? name.starts_with(keys.substr(0, keys.size() - 1)) : name == keys;
}

template <size_t kCount>
std::string_view FirstThatFails(const KeyCondition (&table)[kCount], std::string_view name, const Tuning& tuning,
                                Prefix prefix) {
    for (const KeyCondition& row : table) {
        if (Covers(row.keys, name) && !row.condition->holds(tuning, prefix)) return row.condition->otherwise;
    }
    return {};
}

// What a subordinate tool has of its own; all else is its master's.
bool IsOwnOfSubordinate(const KeyMatch& match) {
    return match.event != nullptr || match.info->group == "Speed" || match.info->name == "bToolSubordinate" ||
           match.info->name == "nPhysicalTool" || match.info->name == "bToolUnused";
}

// The other side of a pair of radio buttons, of which a run reads one.
bool IsEditorsOwn(const KeyInfo& info) { return info.kind == KeyKind::kBool && !info.read_default.HasValue(); }

std::string_view WhyToolUnread(const CheckedTool& tool, const KeyMatch& match) {
    if (!tool.own && !tool.physical) return "the tool is not in use";
    const bool own = IsOwnOfSubordinate(match);
    if (!own && !tool.physical) return "the tool is subordinate and takes this from its master";
    if (own && match.event == nullptr && !tool.own) return "the tool is not in use but as a master";
    return {};
}

}  // namespace

std::string_view WhyUnread(const CCheckedTuning& tuning, const KeyMatch& match) {
    if (match.info == nullptr || IsEditorsOwn(*match.info)) return {};
    const CheckedTool* const tool = tuning.Tool(match.tool_prefix);
    if (tool != nullptr) {
        const std::string_view why = WhyToolUnread(*tool, match);
        if (!why.empty()) return why;
    }
    if (match.event != nullptr) return FirstThatFails(kEventConditions, match.event->prefix, tuning, match.tool_prefix);
    return FirstThatFails(kKeyConditions, match.info->name, tuning, match.tool_prefix);
}

bool IsRead(const CCheckedTuning& tuning, const CheckedText& text) {
    return WhyUnread(tuning, text.item->match).empty();
}

}  // namespace brindle
