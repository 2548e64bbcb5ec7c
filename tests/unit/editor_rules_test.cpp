// Which controls of the editor's pages are open, greyed or hidden under which keys: all of a page at once.
#include "text/words.h"
#include "unit/editor_session.h"

namespace brindle {
namespace {

struct RuleCase {
    const char* page;
    const char* flags;   // keys that are true; `!` before one that is false
    const char* closed;  // in the order of the page: `!` before a key whose control is greyed, `-` where it is hidden
};

constexpr const char* kMirrorFields = "!sMirrorX !sMirrorY !sMirrorXY !sMirrorReset";
constexpr const char* kRotationFields = "!SubRot_sAddr !SubRot_rFactor !SubRot_nNDec !SubRot_sCode !SubRot_sResetCode";

const RuleCase kCases[] = {
    {"General", "bUseFileSeg bBlockDelimCus bErrorsAsComments bUsePrimaryTool", ""},

    {"Subs", "bUseSubs bUseRotations", kMirrorFields},
    {"Subs", "bUseSubs bUseMirror", kRotationFields},
    {"Subs", "bUseSubs bUseMirror bUseRotations !SubNum_bUseFormula SubNum_bUseSequence",
     "!SubNum_nMainOffset !SubNum_nMainFactor"},
    {"Subs", "bUseSubs bUseMirror bUseRotations !SubNum_bUseFormula SubNum_bUseBlockNum",
     "!bOutputSubsAfter !bOutputSubsFirst !SubNum_nMainOffset !SubNum_nMainFactor !SubNum_nSubOffset "
     "!SubNum_nSubFactor !SubNum_nTotalOffset"},
    {"Subs", "bUseSubs bUseMirror bUseRotations !bOutModeAbs",
     "!bSubsInAbs !bSubsInInc !bEndSubsAtCen !bEndSubsAtLine"},

    {"Codes", "Fly_bSupport", "!Fly_rDEG_MaxAngDeviation"},
    {"Codes", "Fly_bSupport T1_Fly_bUse bToolDependInterp", ""},
    {"Codes", "Fly_bSupport T1_Fly_bUse bToolDependInterp T1_bToolSubordinate",
     "!sRTCode !sLTCode !sCWCode !sCCWCode !Fly_rDEG_MaxAngDeviation"},

    {"AxisData", "bStartEndOnBlock",
     "-bRotAxisInDegrees -bRotAxisPLinear -bRotAxisInDegrees -bRotAxisPLinear !rDefRotRadiusMM"},
    {"AxisData", "bAx1IsRot bOutUnitsInches",
     "!MM_AX1_rFactor !MM_AX1_nNDec !bAx2IsRot -bRotAxisInDegrees -bRotAxisPLinear !MM_AX2_rFactor !MM_AX2_nNDec "
     "!sAx1AddrStart !sAx2AddrStart"},
    {"AxisData", "bAx2IsRot bOutUnitsMetric bStartEndOnBlock",
     "!bAx1IsRot -bRotAxisInDegrees -bRotAxisPLinear !IN_AX1_rFactor !IN_AX1_nNDec !IN_AX2_rFactor !IN_AX2_nNDec"},

    {"ArcData", "bOutUnitsMetric",
     "-bRadCWArcPosIsShort -bRadCWArcPosIsLong -bRadCCWArcPosIsShort -bRadCCWArcPosIsLong -sRadArcAddr -sSubArcAddr "
     "-bSubArcPosCW -bSubArcPosCCW -rSubArcFactor -nSubArcNDec !rMaxOrdMM !SmFacet_rMaxRadiusMM "
     "!SmFacet_rLiftAngleDEG"},
    {"ArcData", "!bArcByCen bArcByRad bOutUnitsInches T1_SmFacet_bUse",
     "-bArcDataModal -sCenAx1Addr -sCenAx2Addr -sSubArcAddr -bSubArcPosCW -bSubArcPosCCW -rSubArcFactor "
     "-nSubArcNDec !rMaxOrdIN"},
    {"ArcData", "!bArcByCen bArcBySub T1_SmFacet_bUse",
     "-bArcDataModal -sCenAx1Addr -sCenAx2Addr -bRadCWArcPosIsShort -bRadCWArcPosIsLong -bRadCCWArcPosIsShort "
     "-bRadCCWArcPosIsLong -sRadArcAddr"},

    {"Speed", "Speed_b2Params Speed_bFactor T1_Speed_bSepForArcs",
     "!Speed_bNearest1 !Speed_bNearest2 -Speed_P1_sV2 -Speed_P1_sV3 -Speed_P1_sV4 -Speed_P2_sV2 -Speed_P2_sV3 "
     "-Speed_P2_sV4"},
    {"Speed", "!Speed_b1 Speed_b2 Speed_b2Params Speed_bFactor T1_Speed_bSepForArcs",
     "-Speed_P1_sV3 -Speed_P1_sV4 -Speed_P2_sV3 -Speed_P2_sV4"},
    {"Speed", "!Speed_b1 Speed_b4 Speed_b2Params",
     "!Speed_sFactor !Speed_sForArcs_P1 !Speed_sForArcs_P2 !Speed_bUseSmallRadiiFormula"},
    {"Speed", "!Speed_b1 Speed_b4 Speed_bFactor T1_Speed_bSepForArcs",
     "!Speed_sParam2Addr -Speed_P2_sV1 -Speed_P2_sV2 -Speed_P2_sV3 -Speed_P2_sV4 !Speed_sForArcs_P2"},

    {"Text", "bUseText", ""},
};

// The controls that are bound to a key and not open.
std::string Closed(const HeadlessControls& controls) {
    std::string closed;
    for (const auto& control : controls) {
        if (control->spec().name.empty() || (control->shown() && control->enabled())) continue;
        closed.append(closed.empty() ? "" : " ").append(control->shown() ? "!" : "-").append(control->spec().name);
    }
    return closed;
}

TEST(EditorRules, OpenWhatTheTuningAsksFor) {
    for (const RuleCase& rule : kCases) {
        SCOPED_TRACE(std::string(rule.page) + ": " + rule.flags);
        CEditorSession editor{"INT nNumOfTools 1"};
        std::vector<std::string_view> flags;
        SplitWords(rule.flags, flags);
        for (const std::string_view flag : flags) {
            const bool is_set = !flag.starts_with('!');
            editor.Tune("BOOL " + std::string(flag.substr(is_set ? 0 : 1)) + (is_set ? " true" : " false"));
        }
        editor.Play({[&] {
            ASSERT_EQ(editor.toolkit.GoToPage(rule.page), "");
            EXPECT_EQ(Closed(editor.toolkit.Top()->Controls()), rule.closed);
        }});
    }
}

}  // namespace
}  // namespace brindle
