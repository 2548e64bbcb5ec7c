// What the pages of the editor show of an empty tuning, and what they put into it.
#include <array>
#include <cstdio>
#include <set>

#include "editor/messages.h"
#include "editor/page_table.h"
#include "platform/text_file.h"
#include "text/words.h"
#include "tuning/key_catalogue.h"
#include "unit/editor_session.h"
#include "unit/host_session.h"

namespace brindle {
namespace {

enum class Kind {
    kCheck,
    kRadio,
    kText,
    kInteger,
    kDecimals,
    kEntry,      // `key` is a Boolean; `label` that of the drop-down list; `text` the entry
    kFactor,     // six decimals
    kLength,     // in the sheet's unit, with its decimals
    kSixLength,  // in the sheet's unit, with six decimals
    kPlaces,     // the same number in all sheets, with the sheet's decimals
};
using enum Kind;

struct Expected {
    const char* page;
    const char* label;
    const char* key;  // with the prefix of tool 1 where there is one
    Kind kind;
    const char* by_default = "";
    const char* in_inch_sheet = nullptr;  // the default, where it is another
};

constexpr Expected kExpected[] = {
    {"General", "&Inches", "bOutUnitsInches", kRadio, "0"},
    {"General", "&Millimeters", "bOutUnitsMetric", kRadio, "0"},
    {"General", "&Current units", "bOutUnitsAuto", kRadio, "1"},
    {"General", "&Absolute", "bOutModeAbs", kRadio, "1"},
    {"General", "&Incremental", "bOutModeInc", kRadio, "0"},
    {"General", "&Program number:", "sMainProgNum", kText, "1"},
    {"General", "&Use file segmenting", "bUseFileSeg", kCheck, "0"},
    {"General", "&Maximum # bytes per file:", "nMaxBytes", kInteger, "100000"},
    {"General", "Windows newline (ASCII13 ASCII10)", "bBlockDelimStd", kRadio, "1"},
    {"General", "&Custom", "bBlockDelimCus", kRadio, "0"},
    {"General", "", "sBlockDelim", kText, "chr(13)chr(10)"},
    {"General", "&[ ... ]", "bParenSquare", kRadio, "1"},
    {"General", "&( ... )", "bParenRound", kRadio, "0"},
    {"General", "&{  ... }", "bParenCurly", kRadio, "0"},
    {"General", "&Output errors as comments", "bErrorsAsComments", kCheck, "0"},
    {"General", "&Open comment id:", "sOpenComment", kText},
    {"General", "&Close comment id:", "sCloseComment", kText},
    {"General", "&Space after words and codes", "bUseSpace", kCheck, "0"},
    {"General", "&Trim trailing zeros from data", "bTrimZeros", kCheck, "0"},
    {"General", "Trim trailing decimal &point", "bTrimDPoint", kCheck, "0"},
    {"General", "&Address:", "sNWordAddr", kText},
    {"General", "&Initial value:", "nNWordInitVal", kInteger, "0"},
    {"General", "&Normal increment:", "nNWordBigInc", kInteger, "10"},
    {"General", "&Special increment:", "nNWordSmInc", kInteger, "1"},
    {"General", "Define reference tool", "bUsePrimaryTool", kCheck, "0"},
    {"General", "Tool to use for final move:", "nPrimaryTool", kInteger, "1"},
    {"General", "Output tool ON/Down code", "bPrimaryToolUseToolOn", kCheck, "0"},

    {"Subs", "&Support subprograms", "bUseSubs", kCheck, "0"},
    {"Subs", "&Absolute", "bSubsInAbs", kRadio, "0"},
    {"Subs", "&Incremental", "bSubsInInc", kRadio, "1"},
    {"Subs", "&Main followed by Subs", "bOutputSubsAfter", kRadio, "1"},
    {"Subs", "&Subs followed by Main", "bOutputSubsFirst", kRadio, "0"},
    {"Subs", "By &formula", "SubNum_bUseFormula", kRadio, "1"},
    {"Subs", "Use &sequence starting at @MainProgNum", "SubNum_bUseSequence", kRadio, "0"},
    {"Subs", "Use &block numbers", "SubNum_bUseBlockNum", kRadio, "0"},
    {"Subs", "", "SubNum_nMainOffset", kInteger, "0"},
    {"Subs", "", "SubNum_nMainFactor", kInteger, "1"},
    {"Subs", "", "SubNum_nSubOffset", kInteger, "0"},
    {"Subs", "", "SubNum_nSubFactor", kInteger, "1"},
    {"Subs", "", "SubNum_nTotalOffset", kInteger, "0"},
    {"Subs", "&Mirroring supported", "bUseMirror", kCheck, "0"},
    {"Subs", "Mirror in &X:", "sMirrorX", kText},
    {"Subs", "Mirror in &Y:", "sMirrorY", kText},
    {"Subs", "Mirror in X &and Y:", "sMirrorXY", kText},
    {"Subs", "Mirror &reset:", "sMirrorReset", kText},
    {"Subs", "&Rotations supported", "bUseRotations", kCheck, "0"},
    {"Subs", "&Address:", "SubRot_sAddr", kText},
    {"Subs", "&Factor by:", "SubRot_rFactor", kFactor, "1.0"},
    {"Subs", "&Round to:", "SubRot_nNDec", kDecimals, "3"},
    {"Subs", "&Rotation code:", "SubRot_sCode", kText},
    {"Subs", "&Reset code:", "SubRot_sResetCode", kText},
    {"Subs", "&Center of design", "bStartSubsAtCen", kRadio, "1"},
    {"Subs", "First line", "bStartSubsAtLine", kRadio, "0"},
    {"Subs", "&Center of design", "bEndSubsAtCen", kRadio, "1"},
    {"Subs", "Last line", "bEndSubsAtLine", kRadio, "0"},

    {"Codes", "&Inches code:", "sInchCode", kText},
    {"Codes", "&Metric code:", "sMetricCode", kText},
    {"Codes", "&Modal", "bUCodeModal", kCheck, "0"},
    {"Codes", "&Absolute code:", "sAbsCode", kText},
    {"Codes", "&Incremental code:", "sIncCode", kText},
    {"Codes", "&Modal", "bMCodeModal", kCheck, "0"},
    {"Codes", "&Codes are tool dependent", "bToolDependInterp", kCheck, "0"},
    {"Codes", "&Modal", "bICodesModal", kCheck, "0"},
    {"Codes", "&Rapid Traverse:", "sRTCode", kText},
    {"Codes", "&Linear:", "sLTCode", kText},
    {"Codes", "&Clockwise (CW):", "sCWCode", kText},
    {"Codes", "&Counter Clockwise (CCW):", "sCCWCode", kText},
    {"Codes", "Minimum move distance for &rapid traverse:", "rMinRapidMoveMM", kLength, "0.0"},
    {"Codes", "&Horizontal code:", "sHorizCode", kText},
    {"Codes", "&Vertical code:", "sVertCode", kText},
    {"Codes", "&Inside code:", "sInsideCode", kText},
    {"Codes", "&Outside code:", "sOutsideCode", kText},
    {"Codes", "&Support fly mode", "Fly_bSupport", kCheck, "0"},
    {"Codes", "Fly mode O&N code:", "Fly_sOnCode", kText},
    {"Codes", "Fly mode O&FF code:", "Fly_sOffCode", kText},
    {"Codes", "&Preceding block", "Fly_bForPreceeding", kRadio, "0"},
    {"Codes", "&Following block", "Fly_bForFollowing", kRadio, "1"},
    {"Codes", "Use &fly mode", "T1_Fly_bUse", kCheck, "0"},
    {"Codes", "for &devation angle <=", "T1_Fly_rDEG_MaxAngDeviation", kPlaces, "10.0"},
    {"Codes", "Min &radius:", "Fly_rMM_Threshold", kLength, "1.0", "0.25"},

    {"AxisData", "Is &rotary axis", "bAx1IsRot", kCheck, "0"},
    {"AxisData", "Is &rotary axis", "bAx2IsRot", kCheck, "0"},
    {"AxisData", "In &degrees", "bRotAxisInDegrees", kRadio, "0"},
    {"AxisData", "In &degrees", "bRotAxisInDegrees#2", kRadio, "0"},
    {"AxisData", "Pseudo &linear", "bRotAxisPLinear", kRadio, "1"},
    {"AxisData", "Pseudo &linear", "bRotAxisPLinear#2", kRadio, "1"},
    {"AxisData", "&Factor by:", "IN_AX1_rFactor", kFactor, "1.0"},
    {"AxisData", "&Round to:", "IN_AX1_nNDec", kDecimals, "3"},
    {"AxisData", "&Factor by:", "MM_AX1_rFactor", kFactor, "1.0"},
    {"AxisData", "&Round to:", "MM_AX1_nNDec", kDecimals, "2"},
    {"AxisData", "&Factor by:", "IN_AX2_rFactor", kFactor, "1.0"},
    {"AxisData", "&Round to:", "IN_AX2_nNDec", kDecimals, "3"},
    {"AxisData", "&Factor by:", "MM_AX2_rFactor", kFactor, "1.0"},
    {"AxisData", "&Round to:", "MM_AX2_nNDec", kDecimals, "2"},
    {"AxisData", "&Modal", "bAxisDataModal", kCheck, "0"},
    {"AxisData", "Use &separate address for start data", "bStartEndOnBlock", kCheck, "0"},
    {"AxisData", "Axis &1:", "sAx1Addr", kText},
    {"AxisData", "Axis &2:", "sAx2Addr", kText},
    {"AxisData", "Axis &1:", "sAx1AddrStart", kText},
    {"AxisData", "Axis &2:", "sAx2AddrStart", kText},
    {"AxisData", "Default effective radius:", "rDefRotRadiusMM", kSixLength, "0.0"},

    {"ArcData", "By &center", "bArcByCen", kRadio, "1"},
    {"ArcData", "By &radius", "bArcByRad", kRadio, "0"},
    {"ArcData", "By &sub angle", "bArcBySub", kRadio, "0"},
    {"ArcData", "&Modal", "bArcDataModal", kCheck, "0"},
    {"ArcData", "In absolute mode, center point measured &by:", "bInAbsCenFromStart", kEntry, "1"},
    {"ArcData", "In absolute mode, center point measured &by:", "bInAbsCenFromEnd", kEntry, "0"},
    {"ArcData", "In absolute mode, center point measured &by:", "bInAbsCenIsAbs", kEntry, "0"},
    {"ArcData", "In incremental mode, center point measured &by:", "bInIncCenFromStart", kEntry, "1"},
    {"ArcData", "In incremental mode, center point measured &by:", "bInIncCenFromEnd", kEntry, "0"},
    {"ArcData", "Axis &1:", "sCenAx1Addr", kText},
    {"ArcData", "Axis &2:", "sCenAx2Addr", kText},
    {"ArcData", "&Short arc", "bRadCWArcPosIsShort", kRadio, "1"},
    {"ArcData", "&Long arc", "bRadCWArcPosIsLong", kRadio, "0"},
    {"ArcData", "&Short arc", "bRadCCWArcPosIsShort", kRadio, "1"},
    {"ArcData", "&Long arc", "bRadCCWArcPosIsLong", kRadio, "0"},
    {"ArcData", "&Address for radius:", "sRadArcAddr", kText},
    {"ArcData", "Address for subtended angle:", "sSubArcAddr", kText},
    {"ArcData", "&CW", "bSubArcPosCW", kRadio, "1"},
    {"ArcData", "&CCW", "bSubArcPosCCW", kRadio, "0"},
    {"ArcData", "Factor by:", "rSubArcFactor", kFactor, "1.0"},
    {"ArcData", "&Round to:", "nSubArcNDec", kDecimals, "2"},
    {"ArcData", "Facet &tolerance:", "rFacetTolMM", kLength, "0.01"},
    {"ArcData", "&Inch data <", "rMaxOrdMM", kPlaces, "1000000.0"},
    {"ArcData", "&Metric data <", "rMaxOrdIN", kPlaces, "100000.0"},
    {"ArcData", "&Facet small radii", "T1_SmFacet_bUse", kCheck, "0"},
    {"ArcData", "&Less than:", "T1_SmFacet_rMaxRadiusMM", kLength, "0.0"},
    {"ArcData", "&Deviation angle:", "T1_SmFacet_rLiftAngleDEG", kPlaces, "0.0"},

    {"Speed", "&Value", "Speed_bAsValue", kRadio, "0"},
    {"Speed", "&Expression", "Speed_bAsExpress", kRadio, "1"},
    {"Speed", "&Modal", "Speed_bModal", kCheck, "1"},
    {"Speed", "&Factor speed by", "Speed_bFactor", kCheck, "0"},
    {"Speed", "", "Speed_sFactor", kText},
    {"Speed", "&Round to:", "Speed_nNDec", kDecimals, "3"},
    {"Speed", "&Single value", "Speed_b1", kRadio, "1"},
    {"Speed", "&One value per axis", "Speed_b2", kRadio, "0"},
    {"Speed", "&Two values per axis", "Speed_b4", kRadio, "0"},
    {"Speed", "&Nearest axis value", "Speed_bNearest1", kRadio, "1"},
    {"Speed", "&Pro rata between axes", "Speed_bNearest2", kRadio, "0"},
    {"Speed", "&1", "Speed_b1Param", kRadio, "1"},
    {"Speed", "&2", "Speed_b2Params", kRadio, "0"},
    {"Speed", "Parameter &1:", "Speed_sParam1Addr", kText},
    {"Speed", "Parameter &2:", "Speed_sParam2Addr", kText},
    {"Speed", "<=", "SRF_rThreshold5MM", kLength, "0.0"},
    {"Speed", "<=", "SRF_rThreshold25MM", kLength, "0.0"},
    {"Speed", "<=", "SRF_rThreshold50MM", kLength, "0.0"},
    {"Speed", "<=", "SRF_rThreshold100MM", kLength, "0.0"},
    {"Speed", "Param 1", "T1_Speed_P1_sV1", kText},
    {"Speed", "Param 1", "T1_Speed_P1_sV2", kText},
    {"Speed", "Param 1", "T1_Speed_P1_sV3", kText},
    {"Speed", "Param 1", "T1_Speed_P1_sV4", kText},
    {"Speed", "Param 2", "T1_Speed_P2_sV1", kText},
    {"Speed", "Param 2", "T1_Speed_P2_sV2", kText},
    {"Speed", "Param 2", "T1_Speed_P2_sV3", kText},
    {"Speed", "Param 2", "T1_Speed_P2_sV4", kText},
    {"Speed", "&Use separate speed for arcs", "T1_Speed_bSepForArcs", kCheck, "0"},
    {"Speed", "Param 1", "T1_Speed_sForArcs_P1", kText},
    {"Speed", "Param 2", "T1_Speed_sForArcs_P2", kText},
    {"Speed", "Use small radii factor &formula", "T1_Speed_bUseSmallRadiiFormula", kCheck, "0"},

    {"Text", "&Support text", "bUseText", kCheck, "0"},
    {"Text", "&Address:", "TextData_sAddr", kText},
    {"Text", "&Replace:", "TextData_sFROM_1", kText},
    {"Text", "&With:", "TextData_sTO_1", kText},
    {"Text", "&Address:", "TextRot_sAddr", kText},
    {"Text", "&Factor by:", "TextRot_rFactor", kFactor, "1.0"},
    {"Text", "&Round to:", "TextRot_nNDec", kDecimals, "2", "3"},
    {"Text", "&Modal", "TextRot_bModal", kCheck, "1"},
    {"Text", "&Address:", "TextHgt_sAddr", kText},
    {"Text", "&Modal", "TextHgt_bModal", kCheck, "1"},
    {"Text", "Output in text &points", "TextHgt_bOutInPts", kCheck, "0"},
    {"Text", "&Factor by:", "TextHgt_rFactor_in", kFactor, "1.0"},
    {"Text", "&Round to:", "TextHgt_nNDec_in", kDecimals, "3"},
    {"Text", "&Factor by:", "TextHgt_rFactor_mm", kFactor, "1.0"},
    {"Text", "&Round to:", "TextHgt_nNDec_mm", kDecimals, "2"},
};

// What stands above the controls; a heading within another stands behind a bar.
struct Heading {
    const char* page;
    const char* heading;
    const char* keys;
};

constexpr Heading kHeadings[] = {
    {"General", "Output units", "bOutUnitsInches bOutUnitsMetric bOutUnitsAuto"},
    {"General", "Output mode for main program", "bOutModeAbs bOutModeInc"},
    {"General", "Main program number    (@MainProgNum)", "sMainProgNum"},
    {"General", "", "bUseFileSeg nMaxBytes bUsePrimaryTool nPrimaryTool bPrimaryToolUseToolOn"},
    {"General", "Block end delimiter", "bBlockDelimStd bBlockDelimCus sBlockDelim"},
    {"General", "Expression parentheses", "bParenSquare bParenRound bParenCurly"},
    {"General", "Comment indicators", "bErrorsAsComments sOpenComment sCloseComment"},
    {"General", "Readability", "bUseSpace bTrimZeros bTrimDPoint"},
    {"General", "Block numbering", "sNWordAddr nNWordInitVal nNWordBigInc nNWordSmInc"},

    {"Subs", "", "bUseSubs"},
    {"Subs", "Output mode for subs", "bSubsInAbs bSubsInInc"},
    {"Subs", "Output subs", "bOutputSubsAfter bOutputSubsFirst"},
    {"Subs", "Subprogram numbering scheme    (@CurProgNum)",
     "SubNum_bUseFormula SubNum_bUseSequence SubNum_bUseBlockNum SubNum_nMainOffset SubNum_nMainFactor "
     "SubNum_nSubOffset SubNum_nSubFactor SubNum_nTotalOffset"},
    {"Subs", "Subprogram mirroring    (@IncludeMirCode, @IncludeMirResetCode)",
     "bUseMirror sMirrorX sMirrorY sMirrorXY sMirrorReset"},
    {"Subs", "Subprogram rotation    (@IncludeRotWord, @IncludeRotResetWord)",
     "bUseRotations SubRot_sAddr SubRot_rFactor SubRot_nNDec SubRot_sCode SubRot_sResetCode"},
    {"Subs", "Start subprograms at", "bStartSubsAtCen bStartSubsAtLine"},
    {"Subs", "End subprograms at", "bEndSubsAtCen bEndSubsAtLine"},

    {"Codes", "Units    (@UnitsCode)", "sInchCode sMetricCode bUCodeModal"},
    {"Codes", "Abs/Inc Mode    (@AbsIncCode)", "sAbsCode sIncCode bMCodeModal"},
    {"Codes", "Interpolation Code    (@InterpCode)",
     "bToolDependInterp bICodesModal sRTCode sLTCode sCWCode sCCWCode rMinRapidMoveMM"},
    {"Codes", "Flute/Grain Code    (@FluteCode)", "sHorizCode sVertCode"},
    {"Codes", "Design Side Code    (@SideCode)", "sInsideCode sOutsideCode"},
    {"Codes", "Fly Mode   (@FlyModeCode)", "Fly_bSupport Fly_sOnCode Fly_sOffCode Fly_rMM_Threshold"},
    {"Codes", "Fly Mode   (@FlyModeCode)|Fly mode OFF code applies to:", "Fly_bForPreceeding Fly_bForFollowing"},
    {"Codes", "Fly Mode   (@FlyModeCode)|Per tool", "Fly_bUse Fly_rDEG_MaxAngDeviation"},

    {"AxisData", "Axis 1", "bAx1IsRot"},
    {"AxisData", "Axis 1|Output:", "bRotAxisInDegrees bRotAxisPLinear"},
    {"AxisData", "Axis 1|Format for inch", "IN_AX1_rFactor IN_AX1_nNDec"},
    {"AxisData", "Axis 1|Format for mm", "MM_AX1_rFactor MM_AX1_nNDec"},
    {"AxisData", "Axis 2", "bAx2IsRot"},
    {"AxisData", "Axis 2|Output:", "bRotAxisInDegrees#2 bRotAxisPLinear#2"},
    {"AxisData", "Axis 2|Format for inch", "IN_AX2_rFactor IN_AX2_nNDec"},
    {"AxisData", "Axis 2|Format for mm", "MM_AX2_rFactor MM_AX2_nNDec"},
    {"AxisData", "Addresses", "bAxisDataModal bStartEndOnBlock"},
    {"AxisData", "Addresses|Address for axis data", "sAx1Addr sAx2Addr"},
    {"AxisData", "Addresses|Address for start point data", "sAx1AddrStart sAx2AddrStart"},
    {"AxisData", "Rotary Radius", "rDefRotRadiusMM"},

    {"ArcData", "Arcs defined by:", "bArcByCen bArcByRad bArcBySub"},
    {"ArcData", "", "bArcDataModal sRadArcAddr sSubArcAddr rSubArcFactor nSubArcNDec"},
    {"ArcData", "&Addresses...", "sCenAx1Addr sCenAx2Addr"},
    {"ArcData", "For CW arcs, positive radius indicates:", "bRadCWArcPosIsShort bRadCWArcPosIsLong"},
    {"ArcData", "For CCW arcs, positive radius indicates:", "bRadCCWArcPosIsShort bRadCCWArcPosIsLong"},
    {"ArcData", "&Positive angle is:", "bSubArcPosCW bSubArcPosCCW"},
    {"ArcData", "Faceting for Large Radii", "rFacetTolMM"},
    {"ArcData", "Maximum ordinate", "rMaxOrdMM rMaxOrdIN"},
    {"ArcData", "Faceting for Small Radii", "SmFacet_bUse SmFacet_rMaxRadiusMM SmFacet_rLiftAngleDEG"},

    {"Speed", "Format", "Speed_bModal Speed_bFactor Speed_sFactor Speed_nNDec"},
    {"Speed", "Format|Output speed as:", "Speed_bAsValue Speed_bAsExpress"},
    {"Speed", "Number of speed values", "Speed_b1 Speed_b2 Speed_b4"},
    {"Speed", "Use of speed values", "Speed_bNearest1 Speed_bNearest2"},
    {"Speed", "Speed parameters", "Speed_sParam1Addr Speed_sParam2Addr"},
    {"Speed", "Speed parameters|# of parameters:", "Speed_b1Param Speed_b2Params"},
    {"Speed", "Small radius factor formula",
     "SRF_rThreshold5MM SRF_rThreshold25MM SRF_rThreshold50MM SRF_rThreshold100MM"},
    {"Speed", "Per tool|Speed values|Param 1", "Speed_P1_sV1 Speed_P1_sV2 Speed_P1_sV3 Speed_P1_sV4"},
    {"Speed", "Per tool|Speed values|Param 2", "Speed_P2_sV1 Speed_P2_sV2 Speed_P2_sV3 Speed_P2_sV4"},
    {"Speed", "Per tool|Arcs", "Speed_bSepForArcs Speed_sForArcs_P1 Speed_sForArcs_P2 Speed_bUseSmallRadiiFormula"},

    {"Text", "", "bUseText"},
    {"Text", "Text data   (@TextDataWord)", "TextData_sAddr TextData_sFROM_1 TextData_sTO_1"},
    {"Text", "Text rotation   (@TextRotWord)", "TextRot_sAddr TextRot_rFactor TextRot_nNDec TextRot_bModal"},
    {"Text", "Text height   (@TextHgtWord)", "TextHgt_sAddr TextHgt_bModal TextHgt_bOutInPts"},
    {"Text", "Text height   (@TextHgtWord)|Format for inch", "TextHgt_rFactor_in TextHgt_nNDec_in"},
    {"Text", "Text height   (@TextHgtWord)|Format for metric", "TextHgt_rFactor_mm TextHgt_nNDec_mm"},
};

// Keys of which exactly one is true: radio buttons, or entries of a drop-down list.
struct Choice {
    const char* page;
    const char* keys;
    const char* list = nullptr;  // the label of the drop-down list
};

constexpr Choice kChoices[] = {
    {"General", "bOutUnitsInches bOutUnitsMetric bOutUnitsAuto"},
    {"General", "bOutModeAbs bOutModeInc"},
    {"General", "bBlockDelimStd bBlockDelimCus"},
    {"General", "bParenSquare bParenRound bParenCurly"},
    {"Subs", "bSubsInAbs bSubsInInc"},
    {"Subs", "bOutputSubsAfter bOutputSubsFirst"},
    {"Subs", "SubNum_bUseFormula SubNum_bUseSequence SubNum_bUseBlockNum"},
    {"Subs", "bStartSubsAtCen bStartSubsAtLine"},
    {"Subs", "bEndSubsAtCen bEndSubsAtLine"},
    {"Codes", "Fly_bForPreceeding Fly_bForFollowing"},
    {"AxisData", "bRotAxisInDegrees bRotAxisPLinear"},
    {"AxisData", "bRotAxisInDegrees#2 bRotAxisPLinear#2"},
    {"ArcData", "bArcByCen bArcByRad bArcBySub"},
    {"ArcData", "bInAbsCenFromStart bInAbsCenFromEnd bInAbsCenIsAbs", "In absolute mode, center point measured &by:"},
    {"ArcData", "bInIncCenFromStart bInIncCenFromEnd", "In incremental mode, center point measured &by:"},
    {"ArcData", "bRadCWArcPosIsShort bRadCWArcPosIsLong"},
    {"ArcData", "bRadCCWArcPosIsShort bRadCCWArcPosIsLong"},
    {"ArcData", "bSubArcPosCW bSubArcPosCCW"},
    {"Speed", "Speed_bAsValue Speed_bAsExpress"},
    {"Speed", "Speed_b1 Speed_b2 Speed_b4"},
    {"Speed", "Speed_bNearest1 Speed_bNearest2"},
    {"Speed", "Speed_b1Param Speed_b2Params"},
    {"ToolRot", "ToolRot_bPosIsCW ToolRot_bPosIsCCW"},
};

std::vector<std::string_view> KeysOf(std::string_view words) {
    std::vector<std::string_view> keys;
    SplitWords(words, keys);
    return keys;
}

std::string WithoutPlace(std::string_view control) { return std::string(control.substr(0, control.find('#'))); }

std::string TrueKeys(const CEditorSession& editor, const std::vector<std::string_view>& keys) {
    std::string found;
    for (const std::string_view key : keys) {
        if (IsTrue(&editor.tuning(), WithoutPlace(key))) found.append(found.empty() ? "" : " ").append(key);
    }
    return found;
}

std::string Printed(double value, int decimals) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

class EditorPages : public testing::TestWithParam<bool> {
protected:
    bool inches() const { return GetParam(); }
    const char* Default(const Expected& row) const {
        return inches() && row.in_inch_sheet != nullptr ? row.in_inch_sheet : row.by_default;
    }
    std::string Word(const Expected& row) const {
        switch (row.kind) {
            case kCheck: return "check";
            case kRadio: return "radio";
            case kText: return "text";
            case kInteger: return "integer";
            case kDecimals: return "decimals";
            case kEntry: return "entries";
            default: return "real";
        }
    }
    std::string Shown(const Expected& row) const {
        const std::string value = Default(row);
        const int places = inches() ? 3 : 2;
        const double unit = inches() ? 25.4 : 1.0;
        switch (row.kind) {
            case kDecimals: return Printed(std::stod(value) + 1, 0) + " ." + value;
            case kEntry: return "0 From START point";
            case kFactor: return Printed(std::stod(value), 6);
            case kLength: return Printed(std::stod(value) / unit, places);
            case kSixLength: return Printed(std::stod(value) / unit, 6);
            case kPlaces: return Printed(std::stod(value), places);
            default: return value;
        }
    }
    std::string Stored(const Expected& row) const {
        const std::string key = KeyOf(row);
        const std::string value = Default(row);
        switch (row.kind) {
            case kText: return "TEXT " + key + ' ' + (value.empty() ? "!#EMPTY#!" : value);
            case kInteger:
            case kDecimals: return "INT  " + key + ' ' + value;
            case kCheck:
            case kRadio:
            case kEntry: return "BOOL " + key + (value == "1" ? " true" : " false");
            default: return "REAL " + key + ' ' + Printed(std::stod(value), 9);
        }
    }
    static std::string KeyOf(const Expected& row) { return WithoutPlace(row.key); }
    static std::string NameOf(const Expected& row) {
        const std::string key = row.key;
        if (row.kind == kEntry) return row.label;
        return key.starts_with("T1_") ? key.substr(3) : key;
    }
};

INSTANTIATE_TEST_SUITE_P(Sheets, EditorPages, testing::Bool());

TEST_P(EditorPages, ShowAndStoreTheirDefaults) {
    CEditorSession empty{"INT nNumOfTools 1"};
    CEditorSession of_other_kinds{"INT nNumOfTools 1"};
    for (const Expected& row : kExpected) of_other_kinds.Tune("MULTI " + KeyOf(row) + " NNUL 1");
    const auto check = [&](CEditorSession& editor, const Expected& row) {
        SCOPED_TRACE(std::string(row.page) + ' ' + row.key);
        ASSERT_EQ(editor.toolkit.GoToPage(row.page), "");
        const CHeadlessControl* const control = editor.toolkit.Find(NameOf(row));
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(ClassWord(control->spec().kind), Word(row));
        EXPECT_EQ(control->Label(), row.label);
        EXPECT_EQ(control->Value(), Shown(row));
        EXPECT_EQ(editor.Line(KeyOf(row)), Stored(row));
    };
    for (CEditorSession* const editor : {&empty, &of_other_kinds}) {
        editor->Play({[&] {
                         for (const Expected& row : kExpected) check(*editor, row);
                     }},
                     inches());
    }
}

// Without a session nothing is bound, and so nothing is refused; the two messages warn of a choice.
TEST_P(EditorPages, WithoutATuningTakeAnything) {
    CListUser user;
    CHeadlessToolkit toolkit{user};
    const auto use = [&](const Expected& row) {
        SCOPED_TRACE(std::string(row.page) + ' ' + row.key);
        ASSERT_EQ(toolkit.GoToPage(row.page), "");
        CHeadlessControl* const control = toolkit.Find(NameOf(row));
        ASSERT_NE(control, nullptr);
        const bool is_edit = row.kind == kText || row.kind == kInteger || row.kind >= kFactor;
        EXPECT_EQ(is_edit ? control->Value() : "", "");
        EXPECT_EQ(control->Click(), row.kind == kCheck || row.kind == kRadio);
        control->Type("0");
        control->LoseFocus();
        EXPECT_FALSE(control->Pick(0));
    };
    user.acts.emplace_back([&] {
        for (const Expected& row : kExpected) use(row);
        toolkit.GoToPage("Subs");
        EXPECT_TRUE(toolkit.Find("bSubsInAbs")->enabled());  // as with an absolute main program
        toolkit.GoToPage("Speed");
        EXPECT_TRUE(toolkit.Find("Speed_sParam2Addr")->enabled());  // as with two parameters
    });
    CNCParamsSheet sheet(toolkit, nullptr, inches(), "");
    sheet.AddPages();
    EXPECT_FALSE(sheet.RunModal());
    EXPECT_EQ(user.messages, std::vector<std::string>(2, std::string(messages::kNoOffsetWithMirrorOrRotation)));
}

// Factors can't be zero, and those of axes can't be negative.
TEST_P(EditorPages, RefuseNumbersThatMakeNoSense) {
    CEditorSession editor{"INT nNumOfTools 1"};
    const auto check = [&](const Expected& row) {
        const std::string key = KeyOf(row);
        const bool no_zero = row.kind == kFactor || key == "SubNum_nMainFactor" || key == "SubNum_nSubFactor";
        const bool no_negative = row.kind == kFactor && std::string_view(row.page) == "AxisData";
        std::vector<std::string> expected;
        if (no_negative) expected.emplace_back("Negative values are not allowed.");
        if (no_zero) expected.emplace_back("Zero value not allowed");
        ASSERT_EQ(editor.toolkit.GoToPage(row.page), "");
        CHeadlessControl* const control = editor.toolkit.Find(NameOf(row));
        ASSERT_NE(control, nullptr);
        for (const char* const typed : {"-1", "0"}) {
            control->Type(typed);
            control->LoseFocus();
        }
        EXPECT_EQ(editor.user.messages, expected) << key;
        editor.user.messages.clear();
    };
    editor.Play({[&] {
                    for (const Expected& row : kExpected) {
                        if (row.kind >= kFactor || row.kind == kInteger) check(row);
                    }
                }},
                inches());
}

// The headings above a control from the outside in; those without text only keep controls side by side.
std::string HeadingOf(const CHeadlessControl& control) {
    std::string heading;
    std::string_view rest = control.spec().group;
    while (!rest.empty()) {
        const std::string_view part = rest.substr(0, rest.find('|'));
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        if (!part.empty()) heading.append(heading.empty() ? "" : "|").append(part);
    }
    return heading;
}

TEST(EditorHeadings, StandAboveTheirControls) {
    CEditorSession editor;
    editor.Play({[&] {
        for (const Heading& row : kHeadings) {
            ASSERT_EQ(editor.toolkit.GoToPage(row.page), "");
            for (const std::string_view key : KeysOf(row.keys)) {
                const CHeadlessControl* const control = editor.toolkit.Find(key);
                ASSERT_NE(control, nullptr) << key;
                EXPECT_EQ(HeadingOf(*control), row.heading) << key;
            }
        }
    }});
}

TEST(EditorChoices, LeaveOneKeyTrue) {
    CEditorSession editor;
    editor.Play({[&] {
        for (const Choice& choice : kChoices) {
            ASSERT_EQ(editor.toolkit.GoToPage(choice.page), "");
            int entry = 0;
            for (const std::string_view key : KeysOf(choice.keys)) {
                CHeadlessControl* const control = editor.toolkit.Find(choice.list != nullptr ? choice.list : key);
                ASSERT_NE(control, nullptr) << key;
                EXPECT_TRUE(choice.list != nullptr ? control->Pick(entry++) : control->Click());
                EXPECT_EQ(TrueKeys(editor, KeysOf(choice.keys)), key);
            }
        }
    }});
}

TEST(EditorMarks, AreSetAtOnceOnSomePages) {
    CEditorSession editor;
    editor.Play({[&] {
        for (const std::string_view page :
             {"General", "Subs", "Codes", "AxisData", "ArcData", "Speed", "Tools", "ToolRot", "Text"}) {
            ASSERT_EQ(editor.toolkit.GoToPage(page), "");
            const bool waits_for_a_change = page == "Speed" || page == "ToolRot" || page == "Text";
            EXPECT_EQ(editor.toolkit.PressApply().empty(), !waits_for_a_change) << page;
        }
        EXPECT_EQ(editor.toolkit.Click("bUseText"), "");
        EXPECT_EQ(editor.toolkit.PressApply(), "");
    }});
}

// The default that the editor has for a key, as a line of the tuning; empty if it adds no such key.
std::string DefaultLine(const KeyInfo& info, const std::string& key, bool inches) {
    const KeyDefault& value = info.editor_default;
    if (!value.HasValue() || info.scope == KeyScope::kEvent) return {};
    CKVItemContainer one;
    switch (info.kind) {
        case KeyKind::kBool: one.SetBool(key, value.Bool() ? 1 : 0); break;
        case KeyKind::kInt: one.SetInt(key, inches && key == "TextRot_nNDec" ? 3 : value.Int()); break;
        case KeyKind::kReal: one.SetReal(key, inches && key == "Fly_rMM_Threshold" ? 0.25 : value.Real()); break;
        default: one.SetText(key, std::string(value.Text()), TextKind::kPlain); break;
    }
    std::string line = one.FormatItem(key, one.items().Find(key));
    line.pop_back();
    return line;
}

TEST_P(EditorPages, TogetherAddExactlyTheDefaultsOfTheCatalogue) {
    CEditorSession editor{"INT nNumOfTools 1"};
    editor.VisitAllPages(inches());
    size_t count = 1;
    for (const KeyInfo& info : KeyCatalogue()) {
        const std::string key = (info.scope == KeyScope::kTool ? "T1_" : "") + std::string(info.name);
        std::string expected = DefaultLine(info, key, inches());
        if (key.starts_with("T1_s")) expected.clear();  // codes of interpolation: there are some for all tools
        if (expected.empty()) continue;
        EXPECT_EQ(editor.Line(key), expected);
        ++count;
    }
    EXPECT_EQ(editor.tuning().items().size(), count);
}

// What the editor adds to an example by looking at it changes nothing.
class EditedExamples : public testing::TestWithParam<const char*> {};

std::vector<std::string> LinesOfExample(const std::string& name) {
    std::vector<std::string> lines;
    const std::string text = ReadWholeFile("examples/" + name + '/' + name + ".tun").value_or("");
    for (const std::string_view line : SplitLines(text)) {
        if (!line.starts_with("UPD")) lines.emplace_back(line);
    }
    return lines;
}

std::vector<std::string> WithoutClock(std::vector<std::string> lines) {
    for (std::string& line : lines) {
        for (const std::string_view clock : {"<@Date>", "<@Time>"}) {
            if (const size_t place = line.find(clock); place != std::string::npos) line.erase(place, clock.size());
        }
    }
    return lines;
}

std::string Posted(const std::vector<std::string>& tuning, const wchar_t* drawing) {
    CHostSession session(WithoutClock(tuning));
    GBrn_OpenCF2File(drawing);
    return session.Run();
}

// Opens all pages, and each tool.
void LookAtEverything(CEditorSession& editor) {
    editor.VisitAllPages();
    editor.Play({[&] {
        ASSERT_EQ(editor.toolkit.GoToPage("Tools"), "");
        const size_t tools = editor.toolkit.Find("Data for &tool:")->Rows().size();
        for (size_t i = 0; i < tools; ++i) {
            EXPECT_EQ(editor.toolkit.Pick("Data for &tool:", static_cast<int>(i)), "");
            EXPECT_EQ(editor.toolkit.Find("entries")->Value(), "0 Tool");
        }
    }});
}

TEST_P(EditedExamples, PostTheSameAfterTheEditorHasSeenThem) {
    const std::vector<std::string> before = LinesOfExample(GetParam());
    ASSERT_FALSE(before.empty());
    CEditorSession editor;
    for (const std::string& line : before) editor.Tune(line);
    std::set<std::string> keys;
    for (const auto& [key, item] : editor.tuning().items()) keys.insert(key);
    LookAtEverything(editor);

    std::vector<std::string> after = before;
    for (const auto& [key, item] : editor.tuning().items()) {
        if (!keys.contains(key)) after.push_back(editor.tuning().FormatItem(key, item.get()));
    }
    EXPECT_GT(after.size(), before.size());
    for (const wchar_t* const drawing :
         {L"examples/drawings/plate.cf2", L"examples/drawings/folding_box.cf2", L"examples/drawings/knife_sheet.cf2",
          L"examples/drawings/engraving.cf2", L"examples/drawings/nested_sheet.cf2"}) {
        const std::string expected = Posted(before, drawing);
        EXPECT_FALSE(expected.empty());
        EXPECT_EQ(Posted(after, drawing), expected) << WideToNarrow(drawing);
    }
}

// What a run takes for a key of the tuning, present or not.
bool IsTrueToARun(const CEditorSession& editor, std::string_view key) {
    return IsTrue(&editor.tuning(), key, MatchKey(key).info->read_default.Bool());
}

TEST_P(EditedExamples, ShowOneOfEachChoiceAndTheOneThatARunTakes) {
    CEditorSession before;
    CEditorSession after;
    for (const std::string& line : LinesOfExample(GetParam())) {
        before.Tune(line);
        after.Tune(line);
    }
    LookAtEverything(after);
    for (const Choice& choice : kChoices) {
        const std::vector<std::string_view> keys = KeysOf(choice.keys);
        EXPECT_EQ(KeysOf(TrueKeys(after, keys)).size(), 1U) << choice.keys;
        for (const std::string_view place : keys) {
            const std::string key = WithoutPlace(place);
            if (!MatchKey(key).info->read_default.HasValue()) continue;  // the editor's alone
            EXPECT_EQ(IsTrueToARun(after, key), IsTrueToARun(before, key)) << key;
        }
    }
    int32_t tools = 0;
    after.tuning().GetInt("nNumOfTools", tools);
    for (int32_t tool = 1; tool <= tools; ++tool) {
        const std::string prefix = "T" + std::to_string(tool) + '_';
        const std::string kinds = prefix + "bToolTool " + prefix + "bToolSubordinate " + prefix + "bToolUnused";
        for (const std::string_view key : KeysOf(kinds)) EXPECT_NE(before.Line(key), "") << key;
        EXPECT_EQ(TrueKeys(after, KeysOf(kinds)), prefix + "bToolTool");
    }
}

INSTANTIATE_TEST_SUITE_P(All, EditedExamples,
                         testing::Values("engraver_text", "knife_tangential", "laser_inc_radius", "laser_mm",
                                         "plotter_hpgl", "speed_by_material", "subs_mirror"));

TEST(EditorPagesOfNoTool, BindNothingAndLetGoOfAToolThatIsGone) {
    CEditorSession editor{"INT nNumOfTools 1", "TEXT T1_Speed_P1_sV1 500", "REAL T1_SmFacet_rMaxRadiusMM 2",
                          "BOOL T1_SmFacet_bUse true"};
    editor.Play({[&] {
        editor.toolkit.GoToPage("ArcData");
        EXPECT_EQ(editor.toolkit.Find("SmFacet_rMaxRadiusMM")->Value(), "2.00");
        editor.toolkit.GoToPage("Speed");
        EXPECT_EQ(editor.toolkit.Find("Speed_P1_sV1")->Value(), "500");
        editor.toolkit.GoToPage("Codes");
        EXPECT_EQ(editor.toolkit.Find("Fly_rDEG_MaxAngDeviation")->Value(), "10.00");
        editor.Tune("INT nNumOfTools 0");
        editor.toolkit.GoToPage("ArcData");
        EXPECT_EQ(editor.toolkit.Find("SmFacet_rMaxRadiusMM")->Value(), "");
        EXPECT_EQ(editor.toolkit.Find("SmFacet_bUse")->Value(), "0");
        EXPECT_FALSE(editor.toolkit.Find("SmFacet_rMaxRadiusMM")->enabled());
        EXPECT_EQ(editor.toolkit.Click("SmFacet_bUse"), "");
        editor.toolkit.GoToPage("Speed");
        EXPECT_EQ(editor.toolkit.Type("Speed_P1_sV1", "600"), "");
        editor.toolkit.GoToPage("Codes");
        EXPECT_EQ(editor.toolkit.Find("Fly_rDEG_MaxAngDeviation")->Value(), "");
    }});
    EXPECT_EQ(editor.Line("T1_SmFacet_bUse"), "BOOL T1_SmFacet_bUse true");
    EXPECT_EQ(editor.Line("T1_Speed_P1_sV1"), "TEXT T1_Speed_P1_sV1 500");
    EXPECT_EQ(editor.Line("_Speed_P1_sV1") + editor.Line("Speed_P1_sV1"), "");
}

// Lists keep the default tool whatever its kind.
TEST(EditorPagesOfNoTool, LeaveADefaultToolAloneThatIsNone) {
    CEditorSession editor{"BOOL bDefaultTool true", "BOOL T_bToolSubordinate true", "BOOL T_bToolUnused true",
                          "BOOL bToolDependInterp true", "BOOL T_Fly_bUse true"};
    editor.Play({[&] {
        editor.toolkit.GoToPage("Codes");
        EXPECT_EQ(editor.toolkit.Find("list")->Value(), "0 T");
        EXPECT_EQ(editor.toolkit.Find("Fly_bUse")->Value(), "0");
        EXPECT_EQ(editor.toolkit.Find("Fly_rDEG_MaxAngDeviation")->Value(), "");
        EXPECT_EQ(editor.toolkit.Find("&Per tool:")->Value(), "0 T");
        EXPECT_FALSE(editor.toolkit.Find("sRTCode")->enabled());
    }});
    EXPECT_EQ(editor.Line("T_sRTCode") + editor.Line("T_Fly_rDEG_MaxAngDeviation"), "");
}

TEST(EditorPagesOfNoTool, HaveNoInterpolationCodesToEdit) {
    CEditorSession editor{"TEXT sRTCode G0", "BOOL bToolDependInterp true"};
    editor.Play({[&] {
        editor.toolkit.GoToPage("Codes");
        EXPECT_FALSE(editor.toolkit.Find("sRTCode")->enabled());
        EXPECT_FALSE(editor.toolkit.Find("sCCWCode")->enabled());
        EXPECT_EQ(editor.Line("sLTCode"), "");  // a run takes none of these
        EXPECT_EQ(editor.toolkit.Click("bToolDependInterp"), "");
        EXPECT_TRUE(editor.toolkit.Find("sRTCode")->enabled());
        EXPECT_EQ(editor.toolkit.Find("sRTCode")->Value(), "G0");
        EXPECT_EQ(editor.toolkit.Click("bToolDependInterp"), "");
        EXPECT_FALSE(editor.toolkit.Find("sLTCode")->enabled());
    }});
}

}  // namespace
}  // namespace brindle
