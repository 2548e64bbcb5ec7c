#include "check/tuning/conditions.h"

#include <algorithm>

namespace brindle {
namespace {

using Tuning = CPlacedTuning;
using Prefix = std::string_view;

bool Bool(const Tuning& tuning, KeyRef key, Prefix prefix = {}) { return tuning.options().ReadBool(key, prefix); }

bool SubsAreAbsolute(const Tuning& tuning) {
    return Bool(tuning, Key("bUseSubs")) && Bool(tuning, Key("bSubsInAbs")) && Bool(tuning, Key("bOutModeAbs"));
}

bool WritesRadialWords(const Tuning& tuning) {
    return std::any_of(tuning.directives().begin(), tuning.directives().end(),
                       [](const DirectiveUse& use) { return use.keywords.Has(Keyword::kRadial); });
}

struct ConditionRow {
    Condition condition;
    bool (*holds)(const Tuning& tuning, Prefix prefix);
    std::string_view otherwise;  // why it does not hold, as the end of a sentence
};

// clang-format off
constexpr ConditionRow kRows[] = {
    {Condition::kAlways, [](const Tuning&, Prefix) { return true; }, ""},
    {Condition::kInches, [](const Tuning& t, Prefix) { return Bool(t, Key("bOutUnitsAuto")) || Bool(t, Key("bOutUnitsInches")); },
     "the output is never in inches"},
    {Condition::kMillimetres, [](const Tuning& t, Prefix) { return Bool(t, Key("bOutUnitsAuto")) || !Bool(t, Key("bOutUnitsInches")); },
     "the output is always in inches"},
    {Condition::kFixedUnits, [](const Tuning& t, Prefix) { return !Bool(t, Key("bOutUnitsAuto")); }, "bOutUnitsAuto is true"},
    {Condition::kStartOnBlock, [](const Tuning& t, Prefix) { return Bool(t, Key("bStartEndOnBlock")); }, "bStartEndOnBlock is false"},
    {Condition::kStartApart, [](const Tuning& t, Prefix) { return !Bool(t, Key("bStartEndOnBlock")); }, "bStartEndOnBlock is true"},
    {Condition::kArcByRadius, [](const Tuning& t, Prefix) { return Bool(t, Key("bArcByRad")); }, "bArcByRad is false"},
    {Condition::kArcBySubtended, [](const Tuning& t, Prefix) { return Bool(t, Key("bArcBySub")) && !Bool(t, Key("bArcByRad")); },
     "arcs are not written by the angle that they subtend"},
    {Condition::kArcByCentre, [](const Tuning& t, Prefix) { return !Bool(t, Key("bArcBySub")) && !Bool(t, Key("bArcByRad")); },
     "arcs are not written by their centre"},
    {Condition::kSubs, [](const Tuning& t, Prefix) { return Bool(t, Key("bUseSubs")); }, "bUseSubs is false"},
    {Condition::kMirror, [](const Tuning& t, Prefix) { return t.options().MirrorInUse(); },
     "bUseSubs and bUseMirror are not both true"},
    {Condition::kNoMirror, [](const Tuning& t, Prefix) { return !t.options().MirrorInUse(); },
     "the controller mirrors sub-programs"},
    {Condition::kRotations, [](const Tuning& t, Prefix) { return t.options().RotationsInUse(); },
     "bUseSubs, bUseMirror and bUseRotations are not all true"},
    {Condition::kNumberByBlock, [](const Tuning& t, Prefix) {
     return Bool(t, Key("SubNum_bUseBlockNum")) && !Bool(t, Key("SubNum_bUseSequence"));
     }, "sub-programs are not numbered by their blocks"},
    {Condition::kNotInSequence, [](const Tuning& t, Prefix) { return !Bool(t, Key("SubNum_bUseSequence")); },
     "SubNum_bUseSequence is true"},
    {Condition::kSubsAbsolute, [](const Tuning& t, Prefix) { return SubsAreAbsolute(t); },
     "sub-programs are not in absolute coordinates"},
    {Condition::kSubsIncremental, [](const Tuning& t, Prefix) { return Bool(t, Key("bUseSubs")) && !SubsAreAbsolute(t); },
     "sub-programs are not in incremental coordinates"},
    {Condition::kAbsoluteMain, [](const Tuning& t, Prefix) { return Bool(t, Key("bOutModeAbs")); }, "bOutModeAbs is false"},
    {Condition::kIncrementalMain, [](const Tuning& t, Prefix) { return !Bool(t, Key("bOutModeAbs")); }, "bOutModeAbs is true"},
    {Condition::kText, [](const Tuning& t, Prefix) { return Bool(t, Key("bUseText")); }, "bUseText is false"},
    {Condition::kSegments, [](const Tuning& t, Prefix) { return Bool(t, Key("bUseFileSeg")); }, "bUseFileSeg is false"},
    {Condition::kErrorComments, [](const Tuning& t, Prefix) { return Bool(t, Key("bErrorsAsComments")); },
     "bErrorsAsComments is false"},
    {Condition::kOwnDelimiter, [](const Tuning& t, Prefix) { return !Bool(t, Key("bBlockDelimStd")); }, "bBlockDelimStd is true"},
    {Condition::kPrimaryTool, [](const Tuning& t, Prefix) { return Bool(t, Key("bUsePrimaryTool")); }, "bUsePrimaryTool is false"},
    {Condition::kRotaryAxis, [](const Tuning& t, Prefix) { return Bool(t, Key("bAx1IsRot")) || Bool(t, Key("bAx2IsRot")); },
     "no axis is rotary"},
    {Condition::kToolCodes, [](const Tuning& t, Prefix) { return Bool(t, Key("bToolDependInterp")); }, "bToolDependInterp is false"},
    {Condition::kCommonCodes, [](const Tuning& t, Prefix) { return !Bool(t, Key("bToolDependInterp")); }, "bToolDependInterp is true"},
    {Condition::kFly, [](const Tuning& t, Prefix) { return Bool(t, Key("Fly_bSupport")); }, "Fly_bSupport is false"},
    {Condition::kFlyAfter, [](const Tuning& t, Prefix) { return !Bool(t, Key("Fly_bForFollowing")) || Bool(t, Key("bUseFileSeg")); },
     "Fly_bForFollowing is true"},
    {Condition::kTwoParameters, [](const Tuning& t, Prefix) { return Bool(t, Key("Speed_b2Params")); }, "Speed_b2Params is false"},
    {Condition::kSpeedFactor, [](const Tuning& t, Prefix) { return Bool(t, Key("Speed_bFactor")); }, "Speed_bFactor is false"},
    {Condition::kSpeedByDirection, [](const Tuning& t, Prefix) { return !Bool(t, Key("Speed_b1")); }, "Speed_b1 is true"},
    {Condition::kFourSpeeds, [](const Tuning& t, Prefix) { return Bool(t, Key("Speed_b4")); }, "Speed_b4 is false"},
    {Condition::kSpeedExpression, [](const Tuning& t, Prefix) { return !Bool(t, Key("Speed_bAsValue")); },
     "Speed_bAsValue is true"},
    {Condition::kSpeedsAreNumbers, [](const Tuning& t, Prefix) { return Bool(t, Key("Speed_bAsValue")) || t.abilities().bare_speeds; },
     "speeds are no bare numbers"},
    {Condition::kAnyTool, [](const Tuning& t, Prefix) { return t.abilities().any; }, "the tuning has no tool"},
    {Condition::kTangential, [](const Tuning& t, Prefix) { return t.abilities().tangential; }, "no tool in use is tangential"},
    {Condition::kSmallRadii, [](const Tuning& t, Prefix) { return t.abilities().small_radii; },
     "no tool in use has Speed_bSepForArcs and Speed_bUseSmallRadiiFormula"},
    {Condition::kFlyTools, [](const Tuning& t, Prefix) { return t.abilities().fly; }, "no tool in use has Fly_bUse"},
    {Condition::kRotationWords, [](const Tuning& t, Prefix) { return t.abilities().tangential || WritesRadialWords(t); },
     "no tool in use is tangential"},
    {Condition::kToolArcSpeed, [](const Tuning& t, Prefix p) { return Bool(t, Key("Speed_bSepForArcs"), p); },
     "the tool's Speed_bSepForArcs is false"},
    {Condition::kToolTangential, [](const Tuning& t, Prefix p) { return t.options().IsTangential(p); },
     "the tool's bTangential is false"},
    {Condition::kToolOffset, [](const Tuning& t, Prefix p) { return Bool(t, Key("ToolOff_bUse"), p); },
     "the tool's ToolOff_bUse is false"},
    {Condition::kToolFacets, [](const Tuning& t, Prefix p) { return Bool(t, Key("SmFacet_bUse"), p); },
     "the tool's SmFacet_bUse is false"},
    {Condition::kToolOwnCodes, [](const Tuning& t, Prefix p) { return p.empty() || Bool(t, Key("bToolDependInterp")); },
     "bToolDependInterp is false"},
};

static_assert([] {
    for (size_t i = 0; i < std::size(kRows); ++i) {
        if (static_cast<size_t>(kRows[i].condition) != i) return false;
    }
    return std::size(kRows) == kConditions;
}());

// What ties keys to a condition. All rows of a key must hold.
struct KeyCondition {
    KeyPattern keys;
    Condition condition;
};

constexpr KeyCondition kKeyConditions[] = {
    {"IN_AX*", Condition::kInches}, {"MM_AX*", Condition::kMillimetres}, {"rMaxOrdMM", Condition::kInches}, {"rMaxOrdIN", Condition::kMillimetres},
    {"sInchCode", Condition::kInches}, {"sMetricCode", Condition::kMillimetres}, {"bOutUnitsInches", Condition::kFixedUnits},
    {"nMaxBytes", Condition::kSegments}, {"sOpenComment", Condition::kErrorComments}, {"sCloseComment", Condition::kErrorComments},
    {"sBlockDelim", Condition::kOwnDelimiter}, {"nPrimaryTool", Condition::kPrimaryTool}, {"bPrimaryToolUseToolOn", Condition::kPrimaryTool},
    {"sAx1AddrStart", Condition::kStartOnBlock}, {"sAx2AddrStart", Condition::kStartOnBlock}, {"bRotAxisInDegrees", Condition::kRotaryAxis},
    {"sRTCode", Condition::kToolOwnCodes}, {"sLTCode", Condition::kToolOwnCodes}, {"sCWCode", Condition::kToolOwnCodes}, {"sCCWCode", Condition::kToolOwnCodes},

    {"bSubsInAbs", Condition::kSubs}, {"bSubsInAbs", Condition::kAbsoluteMain}, {"bOutputSubsFirst", Condition::kSubs}, {"bStartSubsAtCen", Condition::kSubs},
    {"bEndSubsAtCen", Condition::kSubs}, {"bEndSubsAtCen", Condition::kAbsoluteMain}, {"bUseMirror", Condition::kSubs}, {"sMirror*", Condition::kMirror},
    {"bUseRotations", Condition::kMirror}, {"SubRot_*", Condition::kRotations}, {"SubNum_*", Condition::kSubs},
    {"SubNum_nMainOffset", Condition::kNotInSequence}, {"SubNum_nMainFactor", Condition::kNotInSequence},

    {"Speed_b4", Condition::kSpeedByDirection}, {"Speed_bNearest2", Condition::kSpeedByDirection}, {"Speed_sFactor", Condition::kSpeedFactor},
    {"Speed_sParam2Addr", Condition::kTwoParameters}, {"Speed_P2_*", Condition::kTwoParameters}, {"Speed_sForArcs_P2", Condition::kTwoParameters},
    {"Speed_P1_sV2", Condition::kSpeedByDirection}, {"Speed_P1_sV3", Condition::kSpeedByDirection}, {"Speed_P1_sV4", Condition::kSpeedByDirection},
    {"Speed_P2_sV2", Condition::kSpeedByDirection}, {"Speed_P2_sV3", Condition::kSpeedByDirection}, {"Speed_P2_sV4", Condition::kSpeedByDirection},
    {"Speed_P1_sV3", Condition::kFourSpeeds}, {"Speed_P1_sV4", Condition::kFourSpeeds}, {"Speed_P2_sV3", Condition::kFourSpeeds}, {"Speed_P2_sV4", Condition::kFourSpeeds},
    {"Speed_sForArcs_*", Condition::kToolArcSpeed}, {"Speed_bUseSmallRadiiFormula", Condition::kToolArcSpeed}, {"SRF_*", Condition::kSmallRadii},
    {"bParen*", Condition::kSpeedExpression},

    {"Fly_b*", Condition::kFly}, {"Fly_r*", Condition::kFly}, {"Fly_sOnCode", Condition::kFly}, {"Fly_sOnCode", Condition::kFlyTools}, {"Fly_bForFollowing", Condition::kFlyTools}, {"Fly_rMM_Threshold", Condition::kFlyTools},
    {"ToolRot_*", Condition::kRotationWords}, {"sTangAuxCode*", Condition::kTangential},
    {"b180Symmetry", Condition::kToolTangential}, {"rLiftAngDEG", Condition::kToolTangential},
    {"ToolOff_*", Condition::kNoMirror}, {"ToolOff_r*", Condition::kToolOffset}, {"SmFacet_r*", Condition::kToolFacets},
    {"Text*", Condition::kText}, {"TextHgt_rFactor_in", Condition::kInches}, {"TextHgt_nNDec_in", Condition::kInches},
    {"TextHgt_rFactor_mm", Condition::kMillimetres}, {"TextHgt_nNDec_mm", Condition::kMillimetres},
};

struct EventCondition {
    EventRef event;
    Condition condition;
};

constexpr EventCondition kEventConditions[] = {
    {Event("Text_"), Condition::kText}, {Event("Text_"), Condition::kAbsoluteMain},
    {Event("SubInit_"), Condition::kSubs}, {Event("SubTerm_"), Condition::kSubs}, {Event("SubCall_"), Condition::kSubs}, {Event("SubReset_"), Condition::kSubs}, {Event("MoveToIncludePt_"), Condition::kSubs},
    {Event("MoveToIncludePt_"), Condition::kStartApart},
    {Event("OriTransSet_"), Condition::kSubsAbsolute}, {Event("OriTransReset_"), Condition::kSubsAbsolute},
    {Event("OriTransSet_"), Condition::kStartApart}, {Event("OriTransReset_"), Condition::kStartApart},
    {Event("Fly_PreCheck_"), Condition::kFly}, {Event("Fly_PostCheck_"), Condition::kFly}, {Event("Fly_PreCheck_"), Condition::kFlyTools}, {Event("Fly_PostCheck_"), Condition::kFlyTools},
    {Event("Fly_PostCheck_"), Condition::kFlyAfter},
};
// clang-format on

// What a subordinate tool has of its own; all else is its master's.
bool IsOwnOfSubordinate(const KeyMatch& match) {
    constexpr KeyRef kOwn[] = {Key("bToolSubordinate"), Key("nPhysicalTool"), Key("bToolUnused")};
    return match.event != nullptr || match.info->group == Key("Speed_P1_sV1")->group ||
           std::any_of(std::begin(kOwn), std::end(kOwn), [&match](KeyRef key) { return &key.Info() == match.info; });
}

// The other side of a pair of radio buttons, of which a run reads one.
bool IsEditorsOwn(const KeyInfo& info) { return info.kind == KeyKind::kBool && !info.read_default.HasValue(); }

std::string_view WhyToolUnread(const ToolUse& tool, const KeyMatch& match) {
    if (!tool.own && !tool.physical) return "the tool is not in use";
    const bool own = IsOwnOfSubordinate(match);
    if (!own && !tool.physical) return "the tool is subordinate and takes this from its master";
    if (own && match.event == nullptr && !tool.own) return "the tool is not in use but as a master";
    return {};
}

}  // namespace

std::string_view WhyUnread(const CPlacedTuning& tuning, const KeyMatch& match) {
    if (match.info == nullptr || IsEditorsOwn(*match.info)) return {};
    const ToolUse* const tool = tuning.Tool(match.tool_prefix);
    if (tool != nullptr) {
        const std::string_view why = WhyToolUnread(*tool, match);
        if (!why.empty()) return why;
    }
    for (const EventCondition& row : kEventConditions) {
        if (row.event.Is(match.event) && !Holds(row.condition, tuning)) return WhyNot(row.condition);
    }
    for (const KeyCondition& row : kKeyConditions) {
        if (match.event != nullptr || !row.keys.Covers(*match.info)) continue;
        if (!Holds(row.condition, tuning, match.tool_prefix)) return WhyNot(row.condition);
    }
    return {};
}

bool Holds(Condition condition, const CPlacedTuning& tuning, std::string_view prefix) {
    return kRows[static_cast<size_t>(condition)].holds(tuning, prefix);
}

std::string_view WhyNot(Condition condition) { return kRows[static_cast<size_t>(condition)].otherwise; }

bool Applies(const DirectiveRead& read, const DirectiveUse& use, const CPlacedTuning& tuning) {
    return read.directive == use.directive->id && read.IsWanted(use.keywords) &&
           (read.events.IsEmpty() || read.events.Has(use.text->item->match.event)) && Holds(read.condition, tuning);
}

bool IsRead(const CPlacedTuning& tuning, const PlacedText& text) { return WhyUnread(tuning, text.item->match).empty(); }

}  // namespace brindle
