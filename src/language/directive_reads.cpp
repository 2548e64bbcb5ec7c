#include "language/directive_reads.h"

namespace brindle {
namespace {

using C = Condition;
using D = DirectiveId;
using Part = DirectiveRead::Part;
using When = WhenEmpty;

constexpr EventSet kMoveEvents{Event("Move_"), Event("MoveToIncludePt_")};
constexpr EventSet kMainEvents{Event("FileStart_"), Event("MainInit_"), Event("MainTerm_")};
constexpr EventSet kSubEvents{Event("SubInit_"), Event("SubTerm_")};

// clang-format off
constexpr DirectiveRead kReads[] = {
    {D::kInterpCode, Key("sRTCode"), Part::kAll, When::kFine},
    {D::kInterpCode, Key("sLTCode"), Part::kAll, When::kFine},
    {D::kInterpCode, Key("sCWCode"), Part::kAll, When::kFine},
    {D::kInterpCode, Key("sCCWCode"), Part::kAll, When::kFine},
    {D::kInterpCode, Key("sRTCode"), Part::kAll, When::kNothing, C::kCommonCodes, false, kMoveEvents},
    {D::kInterpCode, Key("sLTCode"), Part::kAll, When::kNothing, C::kCommonCodes, false, {Event("Line_")}},
    {D::kInterpCode, Key("sCWCode"), Part::kAll, When::kNothing, C::kCommonCodes, false, {Event("Arc_")}},
    {D::kInterpCode, Key("sCCWCode"), Part::kAll, When::kNothing, C::kCommonCodes, false, {Event("Arc_")}},
    {D::kInterpCode, Key("sRTCode"), Part::kAll, When::kNothing, C::kToolCodes, true, kMoveEvents},
    {D::kInterpCode, Key("sLTCode"), Part::kAll, When::kNothing, C::kToolCodes, true, {Event("Line_")}},
    {D::kInterpCode, Key("sCWCode"), Part::kAll, When::kNothing, C::kToolCodes, true, {Event("Arc_")}},
    {D::kInterpCode, Key("sCCWCode"), Part::kAll, When::kNothing, C::kToolCodes, true, {Event("Arc_")}},

    {D::kStartPtWords, Key("sAx1Addr"), Part::kAddress1, When::kBareWord, C::kStartApart},
    {D::kStartPtWords, Key("sAx2Addr"), Part::kAddress2, When::kBareWord, C::kStartApart},
    {D::kStartPtWords, Key("sAx1AddrStart"), Part::kAddress1, When::kBareWord, C::kStartOnBlock},
    {D::kStartPtWords, Key("sAx2AddrStart"), Part::kAddress2, When::kBareWord, C::kStartOnBlock},
    {D::kIncludePtWords, Key("sAx1Addr"), Part::kAddress1, When::kBareWord, C::kStartApart},
    {D::kIncludePtWords, Key("sAx2Addr"), Part::kAddress2, When::kBareWord, C::kStartApart},
    {D::kIncludePtWords, Key("sAx1AddrStart"), Part::kAddress1, When::kBareWord, C::kStartOnBlock},
    {D::kIncludePtWords, Key("sAx2AddrStart"), Part::kAddress2, When::kBareWord, C::kStartOnBlock},
    {D::kEndPtWords, Key("sAx1Addr"), Part::kAddress1, When::kBareWord},
    {D::kEndPtWords, Key("sAx2Addr"), Part::kAddress2, When::kBareWord},
    {D::kMidPtWords, Key("sAx1Addr"), Part::kAddress1, When::kBareWord},
    {D::kMidPtWords, Key("sAx2Addr"), Part::kAddress2, When::kBareWord},
    {D::kLowerLeft, Key("sAx1Addr"), Part::kAddress1, When::kBareWord},
    {D::kLowerLeft, Key("sAx2Addr"), Part::kAddress2, When::kBareWord},
    {D::kUpperRight, Key("sAx1Addr"), Part::kAddress1, When::kBareWord},
    {D::kUpperRight, Key("sAx2Addr"), Part::kAddress2, When::kBareWord},
    {D::kOverallSize, Key("sAx1Addr"), Part::kAddress1, When::kBareWord},
    {D::kOverallSize, Key("sAx2Addr"), Part::kAddress2, When::kBareWord},

    {D::kCenPtWords, Key("sCenAx1Addr"), Part::kAddress1, When::kBareWord},
    {D::kCenPtWords, Key("sCenAx2Addr"), Part::kAddress2, When::kBareWord},
    {D::kArcDataWords, Key("sCenAx1Addr"), Part::kAddress1, When::kBareWord, C::kArcByCentre},
    {D::kArcDataWords, Key("sCenAx2Addr"), Part::kAddress2, When::kBareWord, C::kArcByCentre},
    {D::kArcDataWords, Key("sRadArcAddr"), Part::kAddress, When::kBareWord, C::kArcByRadius},
    {D::kArcDataWords, Key("sSubArcAddr"), Part::kAddress, When::kBareWord, C::kArcBySubtended},
    {D::kArcDataWords, Key("bSubArcPosCW"), Part::kAll, When::kFine, C::kArcBySubtended},
    {D::kArcDataWords, Key("rSubArcFactor"), Part::kAll, When::kFine, C::kArcBySubtended},
    {D::kArcDataWords, Key("nSubArcNDec"), Part::kAll, When::kFine, C::kArcBySubtended},
    {D::kRadius, Key("sRadArcAddr"), Part::kAddress, When::kBareWord},
    {D::kSubtended, Key("sSubArcAddr"), Part::kAddress, When::kBareWord},
    {D::kSubtended, Key("bSubArcPosCW"), Part::kAll, When::kFine},
    {D::kSubtended, Key("rSubArcFactor"), Part::kAll, When::kFine},
    {D::kSubtended, Key("nSubArcNDec"), Part::kAll, When::kFine},
    {D::kArcSign, Key("bSubArcPosCW"), Part::kAll, When::kFine},

    {D::kAtAngle, Key("ToolRot_sAddr"), Part::kAddress, When::kBareWord, C::kTangential},
    {D::kFinAngle, Key("ToolRot_sAddr"), Part::kAddress, When::kBareWord, C::kTangential},
    {D::kTangAuxCode1, Key("sTangAuxCode1"), Part::kAll, When::kNothing, C::kTangential},
    {D::kTangAuxCode2, Key("sTangAuxCode2"), Part::kAll, When::kNothing, C::kTangential},

    {D::kSpeedWords, Key("Speed_sParam1Addr"), Part::kAxis1, When::kFine},
    {D::kSpeedWords, Key("Speed_sParam2Addr"), Part::kAxis2, When::kFine, C::kTwoParameters},
    {D::kSpeedWords, Key("Speed_sParam1Addr"), Part::kAxis1, When::kBareWord, C::kSpeedsAreNumbers},
    {D::kSpeedWords, Key("Speed_sFactor"), Part::kAll, When::kFine, C::kSpeedFactor},
    {D::kSpeedWords, Key("Speed_P1_sV1"), Part::kAxis1, When::kFine, C::kAlways, true},
    {D::kSpeedWords, Key("Speed_P1_sV2"), Part::kAxis1, When::kFine, C::kAlways, true},
    {D::kSpeedWords, Key("Speed_P1_sV3"), Part::kAxis1, When::kFine, C::kAlways, true},
    {D::kSpeedWords, Key("Speed_P1_sV4"), Part::kAxis1, When::kFine, C::kAlways, true},
    {D::kSpeedWords, Key("Speed_sForArcs_P1"), Part::kAxis1, When::kFine, C::kAlways, true},
    {D::kSpeedWords, Key("Speed_P2_sV1"), Part::kAxis2, When::kFine, C::kTwoParameters, true},
    {D::kSpeedWords, Key("Speed_P2_sV2"), Part::kAxis2, When::kFine, C::kTwoParameters, true},
    {D::kSpeedWords, Key("Speed_P2_sV3"), Part::kAxis2, When::kFine, C::kTwoParameters, true},
    {D::kSpeedWords, Key("Speed_P2_sV4"), Part::kAxis2, When::kFine, C::kTwoParameters, true},
    {D::kSpeedWords, Key("Speed_sForArcs_P2"), Part::kAxis2, When::kFine, C::kTwoParameters, true},
    {D::kFlyModeCode, Key("Fly_sOnCode"), Part::kAll, When::kNothing, C::kFly},
    {D::kFlyModeCode, Key("Fly_sOffCode"), Part::kAll, When::kFine},  // written without fly mode too
    {D::kFlyModeCode, Key("Fly_sOffCode"), Part::kAll, When::kNothing, C::kFly},

    {D::kTextDataWord, Key("TextData_sAddr"), Part::kAddress, When::kBareWord, C::kText},
    {D::kTextDataWord, Key("TextData_sFROM_1"), Part::kAll, When::kFine},
    {D::kTextDataWord, Key("TextData_sTO_1"), Part::kAll, When::kFine},
    {D::kTextRotWord, Key("TextRot_sAddr"), Part::kAddress, When::kBareWord, C::kText},
    {D::kTextHgtWord, Key("TextHgt_sAddr"), Part::kAddress, When::kBareWord, C::kText},

    {D::kMainProgNum, Key("sMainProgNum"), Part::kAll, When::kNothing},
    {D::kCurProgNum, Key("sMainProgNum"), Part::kAll, When::kFine},
    {D::kCurProgNum, Key("sMainProgNum"), Part::kAll, When::kNothing, C::kAlways, false, kMainEvents},
    {D::kIncludeNum, Key("sMainProgNum"), Part::kAll, When::kFine},
    {D::kIncludeMirCode, Key("sMirrorX"), Part::kAll, When::kNothing, C::kMirror},
    {D::kIncludeMirCode, Key("sMirrorY"), Part::kAll, When::kNothing, C::kMirror},
    {D::kIncludeMirCode, Key("sMirrorXY"), Part::kAll, When::kNothing, C::kMirror},
    {D::kIncludeMirCode, Key("sMirrorReset"), Part::kAll, When::kFine, C::kMirror},
    {D::kIncludeMirResetCode, Key("sMirrorReset"), Part::kAll, When::kNothing, C::kMirror},
    {D::kIncludeRotWord, Key("SubRot_sAddr"), Part::kAll, When::kNoWord, C::kRotations},
    {D::kIncludeRotWord, Key("SubRot_sCode"), Part::kAll, When::kFine, C::kRotations},
    {D::kIncludeRotWord, Key("SubRot_sResetCode"), Part::kAll, When::kFine, C::kRotations},
    {D::kIncludeRotResetWord, Key("SubRot_sResetCode"), Part::kAll, When::kNothing, C::kRotations},

    {D::kAbsIncCode, Key("sAbsCode"), Part::kAll, When::kFine},
    {D::kAbsIncCode, Key("sIncCode"), Part::kAll, When::kFine},
    {D::kAbsIncCode, Key("sAbsCode"), Part::kAll, When::kNothing, C::kAbsoluteMain, false, kMainEvents},
    {D::kAbsIncCode, Key("sIncCode"), Part::kAll, When::kNothing, C::kIncrementalMain, false, kMainEvents},
    {D::kAbsIncCode, Key("sAbsCode"), Part::kAll, When::kNothing, C::kSubsAbsolute, false, kSubEvents},
    {D::kAbsIncCode, Key("sIncCode"), Part::kAll, When::kNothing, C::kSubsIncremental, false, kSubEvents},
    {D::kUnitsCode, Key("sInchCode"), Part::kAll, When::kNothing, C::kInches},
    {D::kUnitsCode, Key("sMetricCode"), Part::kAll, When::kNothing, C::kMillimetres},
    {D::kGrainCode, Key("sHorizCode"), Part::kAll, When::kNothing},
    {D::kGrainCode, Key("sVertCode"), Part::kAll, When::kNothing},
    {D::kSideCode, Key("sInsideCode"), Part::kAll, When::kNothing},
    {D::kSideCode, Key("sOutsideCode"), Part::kAll, When::kNothing},

    {D::kNBlockOn, Key("sNWordAddr"), Part::kAll, When::kBareWord},
    {D::kNBlockOn, Key("nNWordBigInc"), Part::kAll, When::kFine},
    {D::kNBlockOn, Key("nNWordSmInc"), Part::kAll, When::kFine},
    {D::kNBlockOn, Key("nNWordInitVal"), Part::kAll, When::kFine},
};
// clang-format on

struct OptionNeed {
    DirectiveId directive;
    Condition condition;
};

constexpr OptionNeed kOptionNeeds[] = {
    {D::kTextDataWord, C::kText},
    {D::kTextRotWord, C::kText},
    {D::kTextHgtWord, C::kText},
    {D::kAtAngle, C::kTangential},
    {D::kFinAngle, C::kTangential},
    {D::kTangAuxCode1, C::kTangential},
    {D::kTangAuxCode2, C::kTangential},
    {D::kSpeedWords, C::kAnyTool},
    {D::kToolId, C::kAnyTool},
    {D::kIncludeMirCode, C::kMirror},
    {D::kIncludeMirResetCode, C::kMirror},
    {D::kIncludeRotWord, C::kRotations},
    {D::kIncludeRotResetWord, C::kRotations},
    {D::kMarkAsSub, C::kNumberByBlock},
};

}  // namespace

Condition NeededCondition(DirectiveId directive) {
    for (const OptionNeed& need : kOptionNeeds) {
        if (need.directive == directive) return need.condition;
    }
    return Condition::kAlways;
}

std::span<const DirectiveRead> DirectiveReads() { return kReads; }

bool DirectiveRead::IsWanted(KeywordSet keywords) const {
    const bool is_address = part == Part::kAddress || part == Part::kAddress1 || part == Part::kAddress2;
    if (is_address && keywords.Has(Keyword::kData) && !keywords.Has(Keyword::kWord)) return false;
    if (part == Part::kAxis1 || part == Part::kAddress1) return !keywords.Has(Keyword::kA2);
    if (part == Part::kAxis2 || part == Part::kAddress2) return !keywords.Has(Keyword::kA1);
    return true;
}

}  // namespace brindle
