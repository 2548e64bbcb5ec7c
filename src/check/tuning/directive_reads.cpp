#include "check/tuning/directive_reads.h"

namespace brindle {
namespace {

using For = DirectiveRead::For;
using When = WhenEmpty;

constexpr std::string_view kMoveEvents = "Move_ MoveToIncludePt_ ";
constexpr std::string_view kMainEvents = "FileStart_ MainInit_ MainTerm_ ";
constexpr std::string_view kSubEvents = "SubInit_ SubTerm_ ";

// clang-format off
constexpr DirectiveRead kReads[] = {
    {"@InterpCode", "sRTCode", For::kAll, When::kFine},
    {"@InterpCode", "sLTCode", For::kAll, When::kFine},
    {"@InterpCode", "sCWCode", For::kAll, When::kFine},
    {"@InterpCode", "sCCWCode", For::kAll, When::kFine},
    {"@InterpCode", "sRTCode", For::kAll, When::kNothing, &kCommonCodes, false, kMoveEvents},
    {"@InterpCode", "sLTCode", For::kAll, When::kNothing, &kCommonCodes, false, "Line_ "},
    {"@InterpCode", "sCWCode", For::kAll, When::kNothing, &kCommonCodes, false, "Arc_ "},
    {"@InterpCode", "sCCWCode", For::kAll, When::kNothing, &kCommonCodes, false, "Arc_ "},
    {"@InterpCode", "sRTCode", For::kAll, When::kNothing, &kToolCodes, true, kMoveEvents},
    {"@InterpCode", "sLTCode", For::kAll, When::kNothing, &kToolCodes, true, "Line_ "},
    {"@InterpCode", "sCWCode", For::kAll, When::kNothing, &kToolCodes, true, "Arc_ "},
    {"@InterpCode", "sCCWCode", For::kAll, When::kNothing, &kToolCodes, true, "Arc_ "},

    {"@StartPtWords", "sAx1Addr", For::kAddress1, When::kBareWord, &kStartApart},
    {"@StartPtWords", "sAx2Addr", For::kAddress2, When::kBareWord, &kStartApart},
    {"@StartPtWords", "sAx1AddrStart", For::kAddress1, When::kBareWord, &kStartOnBlock},
    {"@StartPtWords", "sAx2AddrStart", For::kAddress2, When::kBareWord, &kStartOnBlock},
    {"@IncludePtWords", "sAx1Addr", For::kAddress1, When::kBareWord, &kStartApart},
    {"@IncludePtWords", "sAx2Addr", For::kAddress2, When::kBareWord, &kStartApart},
    {"@IncludePtWords", "sAx1AddrStart", For::kAddress1, When::kBareWord, &kStartOnBlock},
    {"@IncludePtWords", "sAx2AddrStart", For::kAddress2, When::kBareWord, &kStartOnBlock},
    {"@EndPtWords", "sAx1Addr", For::kAddress1, When::kBareWord},
    {"@EndPtWords", "sAx2Addr", For::kAddress2, When::kBareWord},
    {"@MidPtWords", "sAx1Addr", For::kAddress1, When::kBareWord},
    {"@MidPtWords", "sAx2Addr", For::kAddress2, When::kBareWord},
    {"@LowerLeft", "sAx1Addr", For::kAddress1, When::kBareWord},
    {"@LowerLeft", "sAx2Addr", For::kAddress2, When::kBareWord},
    {"@UpperRight", "sAx1Addr", For::kAddress1, When::kBareWord},
    {"@UpperRight", "sAx2Addr", For::kAddress2, When::kBareWord},
    {"@OverallSize", "sAx1Addr", For::kAddress1, When::kBareWord},
    {"@OverallSize", "sAx2Addr", For::kAddress2, When::kBareWord},

    {"@CenPtWords", "sCenAx1Addr", For::kAddress1, When::kBareWord},
    {"@CenPtWords", "sCenAx2Addr", For::kAddress2, When::kBareWord},
    {"@ArcDataWords", "sCenAx1Addr", For::kAddress1, When::kBareWord, &kArcByCentre},
    {"@ArcDataWords", "sCenAx2Addr", For::kAddress2, When::kBareWord, &kArcByCentre},
    {"@ArcDataWords", "sRadArcAddr", For::kAddress, When::kBareWord, &kArcByRadius},
    {"@ArcDataWords", "sSubArcAddr", For::kAddress, When::kBareWord, &kArcBySubtended},
    {"@ArcDataWords", "bSubArcPosCW", For::kAll, When::kFine, &kArcBySubtended},
    {"@ArcDataWords", "rSubArcFactor", For::kAll, When::kFine, &kArcBySubtended},
    {"@ArcDataWords", "nSubArcNDec", For::kAll, When::kFine, &kArcBySubtended},
    {"@Radius", "sRadArcAddr", For::kAddress, When::kBareWord},
    {"@Subtended", "sSubArcAddr", For::kAddress, When::kBareWord},
    {"@Subtended", "bSubArcPosCW", For::kAll, When::kFine},
    {"@Subtended", "rSubArcFactor", For::kAll, When::kFine},
    {"@Subtended", "nSubArcNDec", For::kAll, When::kFine},
    {"@ArcSign", "bSubArcPosCW", For::kAll, When::kFine},

    {"@AtAngle", "ToolRot_sAddr", For::kAddress, When::kBareWord, &kTangential},
    {"@FinAngle", "ToolRot_sAddr", For::kAddress, When::kBareWord, &kTangential},
    {"@TangAuxCode1", "sTangAuxCode1", For::kAll, When::kNothing, &kTangential},
    {"@TangAuxCode2", "sTangAuxCode2", For::kAll, When::kNothing, &kTangential},

    {"@SpeedWords", "Speed_sParam1Addr", For::kAxis1, When::kFine},
    {"@SpeedWords", "Speed_sParam2Addr", For::kAxis2, When::kFine, &kTwoParameters},
    {"@SpeedWords", "Speed_sParam1Addr", For::kAxis1, When::kBareWord, &kSpeedsAreNumbers},
    {"@SpeedWords", "Speed_sFactor", For::kAll, When::kFine, &kSpeedFactor},
    {"@SpeedWords", "Speed_P1_sV1", For::kAxis1, When::kFine, &kAlways, true},
    {"@SpeedWords", "Speed_P1_sV2", For::kAxis1, When::kFine, &kAlways, true},
    {"@SpeedWords", "Speed_P1_sV3", For::kAxis1, When::kFine, &kAlways, true},
    {"@SpeedWords", "Speed_P1_sV4", For::kAxis1, When::kFine, &kAlways, true},
    {"@SpeedWords", "Speed_sForArcs_P1", For::kAxis1, When::kFine, &kAlways, true},
    {"@SpeedWords", "Speed_P2_sV1", For::kAxis2, When::kFine, &kTwoParameters, true},
    {"@SpeedWords", "Speed_P2_sV2", For::kAxis2, When::kFine, &kTwoParameters, true},
    {"@SpeedWords", "Speed_P2_sV3", For::kAxis2, When::kFine, &kTwoParameters, true},
    {"@SpeedWords", "Speed_P2_sV4", For::kAxis2, When::kFine, &kTwoParameters, true},
    {"@SpeedWords", "Speed_sForArcs_P2", For::kAxis2, When::kFine, &kTwoParameters, true},
    {"@FlyModeCode", "Fly_sOnCode", For::kAll, When::kNothing, &kFly},
    {"@FlyModeCode", "Fly_sOffCode", For::kAll, When::kNothing, &kFly},

    {"@TextDataWord", "TextData_sAddr", For::kAddress, When::kBareWord, &kText},
    {"@TextDataWord", "TextData_sFROM_1", For::kAll, When::kFine},
    {"@TextDataWord", "TextData_sTO_1", For::kAll, When::kFine},
    {"@TextRotWord", "TextRot_sAddr", For::kAddress, When::kBareWord, &kText},
    {"@TextHgtWord", "TextHgt_sAddr", For::kAddress, When::kBareWord, &kText},

    {"@MainProgNum", "sMainProgNum", For::kAll, When::kNothing},
    {"@CurProgNum", "sMainProgNum", For::kAll, When::kFine},
    {"@CurProgNum", "sMainProgNum", For::kAll, When::kNothing, &kAlways, false, kMainEvents},
    {"@IncludeNum", "sMainProgNum", For::kAll, When::kFine},
    {"@IncludeMirCode", "sMirrorX", For::kAll, When::kNothing, &kMirror},
    {"@IncludeMirCode", "sMirrorY", For::kAll, When::kNothing, &kMirror},
    {"@IncludeMirCode", "sMirrorXY", For::kAll, When::kNothing, &kMirror},
    {"@IncludeMirCode", "sMirrorReset", For::kAll, When::kFine, &kMirror},
    {"@IncludeMirResetCode", "sMirrorReset", For::kAll, When::kNothing, &kMirror},
    {"@IncludeRotWord", "SubRot_sAddr", For::kAll, When::kNoWord, &kRotations},
    {"@IncludeRotWord", "SubRot_sCode", For::kAll, When::kFine, &kRotations},
    {"@IncludeRotWord", "SubRot_sResetCode", For::kAll, When::kFine, &kRotations},
    {"@IncludeRotResetWord", "SubRot_sResetCode", For::kAll, When::kNothing, &kRotations},

    {"@AbsIncCode", "sAbsCode", For::kAll, When::kFine},
    {"@AbsIncCode", "sIncCode", For::kAll, When::kFine},
    {"@AbsIncCode", "sAbsCode", For::kAll, When::kNothing, &kAbsoluteMain, false, kMainEvents},
    {"@AbsIncCode", "sIncCode", For::kAll, When::kNothing, &kIncrementalMain, false, kMainEvents},
    {"@AbsIncCode", "sAbsCode", For::kAll, When::kNothing, &kSubsAbsolute, false, kSubEvents},
    {"@AbsIncCode", "sIncCode", For::kAll, When::kNothing, &kSubsIncremental, false, kSubEvents},
    {"@UnitsCode", "sInchCode", For::kAll, When::kNothing, &kInches},
    {"@UnitsCode", "sMetricCode", For::kAll, When::kNothing, &kMillimetres},
    {"@GrainCode", "sHorizCode", For::kAll, When::kNothing},
    {"@GrainCode", "sVertCode", For::kAll, When::kNothing},
    {"@SideCode", "sInsideCode", For::kAll, When::kNothing},
    {"@SideCode", "sOutsideCode", For::kAll, When::kNothing},

    {"@NBlockOn", "sNWordAddr", For::kAll, When::kBareWord},
    {"@NBlockOn", "nNWordBigInc", For::kAll, When::kFine},
    {"@NBlockOn", "nNWordSmInc", For::kAll, When::kFine},
    {"@NBlockOn", "nNWordInitVal", For::kAll, When::kFine},
};
// clang-format on

bool WantsPart(For part, KeywordSet keywords) {
    const bool is_address = part == For::kAddress || part == For::kAddress1 || part == For::kAddress2;
    if (is_address && keywords.Has(Keyword::kData) && !keywords.Has(Keyword::kWord)) return false;
    if (part == For::kAxis1 || part == For::kAddress1) return !keywords.Has(Keyword::kA2);
    if (part == For::kAxis2 || part == For::kAddress2) return !keywords.Has(Keyword::kA1);
    return true;
}

bool IsEventOf(const DirectiveRead& read, const DirectiveUse& use) {
    if (read.events.empty()) return true;
    const EventInfo* const event = use.text->item->match.event;
    return event != nullptr && read.events.find(std::string(event->prefix) + ' ') != std::string_view::npos;
}

}  // namespace

std::span<const DirectiveRead> DirectiveReads() { return kReads; }

bool Applies(const DirectiveRead& read, const DirectiveUse& use, const CCheckedTuning& tuning) {
    return read.directive == use.directive->name && WantsPart(read.part, use.keywords) && IsEventOf(read, use) &&
           read.condition->holds(tuning, {});
}

}  // namespace brindle
