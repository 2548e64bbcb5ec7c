#include "host/reference/rule_examples.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "platform/text_file.h"
#include "text/words.h"

namespace brindle::host {
namespace {

using enum Rule;
using namespace std::string_view_literals;

constexpr ExampleMachine kMachines[] = {
    {"mill", "Two tools, a spindle, and words with addresses.", "",
     "BOOL bOutModeAbs true\n"
     "BOOL bUseSubs false\n"
     "TEXT sAx1Addr X\n"
     "TEXT sAx2Addr Y\n"
     "INT MM_AX1_nNDec 3\n"
     "INT MM_AX2_nNDec 3\n"
     "TEXT sCenAx1Addr I\n"
     "TEXT sCenAx2Addr J\n"
     "BOOL bArcByCen true\n"
     "TEXT sRadArcAddr R\n"
     "TEXT sRTCode G0\n"
     "TEXT sLTCode G1\n"
     "TEXT sCWCode G2\n"
     "TEXT sCCWCode G3\n"
     "TEXT sAbsCode G90\n"
     "TEXT sIncCode G91\n"
     "TEXT sMetricCode G21\n"
     "TEXT sInchCode G20\n"
     "INT nNumOfTools 2\n"
     "MULTI T1_ToolSel_tTmpl NNUL T1M6\n"
     "MULTI T2_ToolSel_tTmpl NNUL T2M6\n"
     "MULTI T1_ToolOn_tTmpl NNUL M3S100\n"
     "MULTI T2_ToolOn_tTmpl NNUL M3S200\n"
     "MULTI T1_ToolOff_tTmpl NNUL M5\n"
     "MULTI T2_ToolOff_tTmpl NNUL M5\n"
     "BOOL T1_bOffReqBeforeDesel true\n"
     "BOOL T2_bOffReqBeforeDesel true\n"
     "MULTI MainInit_tTmpl NNUL <@UnitsCode><@AbsIncCode>F500\n"
     "MULTI Move_tTmpl NNUL <@InterpCode><@StartPtWords>\n"
     "MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords>\n"
     "MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@ArcDataWords>\n"
     "MULTI FileEnd_tTmpl NNUL M2"},
    {"speeds", "The mill with a speed for each tool.", "mill",
     "BOOL Speed_b1 true\n"
     "BOOL Speed_bAsValue true\n"
     "INT Speed_nNDec 4545\n"
     "TEXT Speed_sParam1Addr F\n"
     "TEXT T1_Speed_P1_sV1 1200\n"
     "TEXT T2_Speed_P1_sV1 900\n"
     "MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords><@SpeedWords>\n"
     "MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@ArcDataWords><@SpeedWords>"},
    {"calls", "The mill with sub-programs: O words, increments from the centre of each.", "mill",
     "BOOL bUseSubs true\n"
     "BOOL bSubsInInc true\n"
     "BOOL bStartSubsAtCen true\n"
     "BOOL bEndSubsAtCen true\n"
     "BOOL bOutputSubsFirst true\n"
     "BOOL SubNum_bUseSequence true\n"
     "TEXT sMainProgNum 100\n"
     "MULTI SubInit_tTmpl NNUL o<@CurProgNum>!#SP#!sub NNUL <@AbsIncCode>\n"
     "MULTI SubTerm_tTmpl NNUL o<@CurProgNum>!#SP#!endsub\n"
     "MULTI MoveToIncludePt_tTmpl NNUL <@InterpCode><@IncludePtWords>\n"
     "MULTI SubCall_tTmpl NNUL o<@IncludeNum>!#SP#!call\n"
     "MULTI SubReset_tTmpl NNUL <@AbsIncCode[NONMODAL]>\n"
     "MULTI T1_ToolOn_tTmpl NNUL T1M6 NNUL M3S100\n"
     "MULTI T2_ToolOn_tTmpl NNUL T2M6 NNUL M3S200"},
    {"knife", "The mill with a knife about an axis C as tool 1, which is turned while it is up.", "mill",
     "TEXT ToolRot_sAddr C\n"
     "BOOL ToolRot_bAlwaysAbs true\n"
     "BOOL ToolRot_bUseSign true\n"
     "INT ToolRot_nNDec 2\n"
     "BOOL ToolRot_bModal true\n"
     "BOOL T1_bTangential true\n"
     "REAL T1_rLiftAngDEG 15\n"
     "MULTI T1_ToolOn_tTmpl NNUL <@AtAngle> NNUL M3\n"
     "MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@ArcDataWords><@FinAngle[NONMODAL]>"},
    {"data", "The mill with a table of run-time data.", "mill",
     "ROW TEXT Board\n"
     "COL TEXT Speed\n"
     "MSG TEXT Customer\n"
     "DATASETDEF Oak\n"
     "DSD Oak TEXT RTD(1,1) 1200\n"
     "DSD Oak TEXT RTD(1) SMITH"},
    {"plotter", "Two pens, and words without addresses.", "",
     "BOOL bOutModeAbs true\n"
     "BOOL bUseSubs false\n"
     "BOOL bBlockDelimStd false\n"
     "BOOL bBlockDelimCus true\n"
     "TEXT sBlockDelim ;chr(10)\n"
     "INT MM_AX1_nNDec 4545\n"
     "INT MM_AX2_nNDec 4545\n"
     "REAL MM_AX1_rFactor 40\n"
     "REAL MM_AX2_rFactor 40\n"
     "BOOL bAxisDataModal false\n"
     "BOOL bArcByCen false\n"
     "BOOL bArcBySub true\n"
     "BOOL bArcDataModal false\n"
     "BOOL bInAbsCenFromStart false\n"
     "BOOL bInAbsCenIsAbs true\n"
     "BOOL bSubArcPosCW false\n"
     "INT nSubArcNDec 2\n"
     "INT nNumOfTools 2\n"
     "MULTI T1_ToolSel_tTmpl NNUL SP1\n"
     "MULTI T2_ToolSel_tTmpl NNUL SP2\n"
     "MULTI T1_ToolOn_tTmpl NNUL PD\n"
     "MULTI T2_ToolOn_tTmpl NNUL PD\n"
     "MULTI T1_ToolOff_tTmpl NNUL PU\n"
     "MULTI T2_ToolOff_tTmpl NNUL PU\n"
     "BOOL T1_bOffReqBeforeDesel true\n"
     "BOOL T2_bOffReqBeforeDesel true\n"
     "MULTI Move_tTmpl NNUL PA<@StartPtWords[A1,DATA]>,<@StartPtWords[A2,DATA]>\n"
     "MULTI Line_tTmpl NNUL PA<@EndPtWords[A1,DATA]>,<@EndPtWords[A2,DATA]>\n"
     "MULTI Arc_tTmpl NNUL AA<@CenPtWords[A1,DATA]>,<@CenPtWords[A2,DATA]>,<@Subtended[DATA]>"},
};

constexpr std::string_view kDrawing =
    "MAIN,JOB\n"
    "UR,100,100\n"
    "L,1,1,0,10,10,60,10,0,0\n"
    "L,1,1,0,60,10,60,60,0,0\n"
    "A,1,1,0,50,40,50,40,40,40,-10,0,0\n"
    "END";

// A record of each tool, the second where the first ends.
constexpr std::string_view kTwoTools = "MAIN,JOB\nUR,100,100\nL,1,1,0,10,10,60,10,0,0\nL,1,2,0,60,10,60,60,0,0\nEND";
constexpr std::string_view kCallOfS =
    "MAIN,JOB\nUR,100,100\nC,S,20,20,0,0,0\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nL,1,1,0,9,0,9,9,0,0\nEND";
// A turned call, and a line after it.
constexpr std::string_view kTurnedCallAndLine =
    "MAIN,JOB\nUR,100,100\nC,S,20,20,0.5,0,0\nL,1,1,0,60,10,60,60,0,0\nEND\n"
    "SUB,S\nL,1,1,0,0,0,9,0,0,0\nL,1,1,0,9,0,9,9,0,0\nEND";
// Two sub-programs.
constexpr std::string_view kCallsOfTwo =
    "MAIN,JOB\nUR,100,100\nC,S,20,20,0,0,0\nC,T,40,40,0,0,0\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nL,1,1,0,9,0,9,9,0,0\n"
    "END\nSUB,T\nL,1,1,0,0,0,5,0,0,0\nL,1,1,0,5,0,5,5,0,0\nEND";

// clang-format off
constexpr RuleExample kRuleExamples[] = {
    {kDroppedLine, {"BOOL bUseSpace"}, {"BOOL bUseSpace true"}},
    {kNulByte, {"TEXT sNWordAddr N\0"sv}, {"TEXT sNWordAddr N"}},
    {kNotUtf8, {"MULTI FileStart_tTmpl NNUL (10!#SP#!\x80)"}, {"MULTI FileStart_tTmpl NNUL (10!#SP#!EUR)"}},
    {kComment, {"; the end\nMULTI FileEnd_tTmpl NNUL M2"}, {"MULTI FileEnd_tTmpl NNUL M2!the!#SP#!end"}},
    {kUnknownType, {"STRING sAx1Addr X"}, {"TEXT sAx1Addr X"}},
    {kEmptyTemplate, {"MULTI MainTerm_tTmpl"}, {"MULTI MainTerm_tTmpl NNUL M9"}},
    {kRepeatedKey, {"TEXT sAx1Addr X\nTEXT sAx1Addr U"}, {"TEXT sAx1Addr U"}},
    {kUnknownKey, {"TEXT sAx1Adr U"}, {"TEXT sAx1Addr U"}},
    {kWrongType, {"REAL nNumOfTools 2"}, {"INT nNumOfTools 2"}},
    {kBadBool, {"BOOL bUseSpace yes"}, {"BOOL bUseSpace true"}},
    {kBadNumber, {"REAL rMinRapidMoveMM 0,5"}, {"REAL rMinRapidMoveMM 0.5"}},
    {kNotWhole, {"INT MM_AX1_nNDec 2.5"}, {"INT MM_AX1_nNDec 2"}},
    {kMisplacedExpression, {"R_EXPR sAx1Addr A+B"}, {"TEXT sAx1Addr U"}},
    {kExtraWords, {"BOOL bUseSpace true for codes"}, {"BOOL bUseSpace true"}},
    {kCutText, {"TEXT sLTCode G1 G64"}, {"TEXT sLTCode G1!#SP#!G64"}},
    {kBadNWord, {"MULTI FileEnd_tTmpl M2"}, {"MULTI FileEnd_tTmpl NNUL M2"}},
    {kMissingText, {"MULTI FileEnd_tTmpl NNUL M2 NNUL"}, {"MULTI FileEnd_tTmpl NNUL M2"}},

    {kBadTime, {"UPD yesterday"}, {"UPD 2026_03_01_10_00_00"}, "data"},
    {kRepeatedDataset, {"DATASETDEF Elm\nDATASETDEF Elm"}, {"DATASETDEF Elm"}, "data"},
    {kUnknownDataset, {"DSD Elm TEXT RTD(1,1) 900"}, {"DATASETDEF Elm\nDSD Elm TEXT RTD(1,1) 900"}, "data"},
    {kNamelessEntry, {"ROW TEXT"}, {"ROW TEXT Plywood"}, "data"},
    {kSkippedWord, {"MSG Order Number"}, {"MSG TEXT Order"}, "data"},
    {kShortValueLine, {"DATASETDEF Elm\nDSD Elm TEXT RTD(1,1)"}, {"DATASETDEF Elm\nDSD Elm TEXT RTD(1,1) 900"}, "data"},
    {kBadValueType, {"DATASETDEF Elm\nDSD Elm NUMBER RTD(1,1) 900"}, {"DATASETDEF Elm\nDSD Elm TEXT RTD(1,1) 900"}, "data"},
    {kRepeatedValue, {"DSD Oak TEXT RTD(1) SMITH\nDSD Oak TEXT RTD(1) MILLER"}, {"DATASETDEF Elm\nDSD Elm TEXT RTD(1) MILLER"}, "data"},
    {kBadRunTimeWord, {"MULTI FileStart_tTmpl NNUL (<RTD(1!#SP#!)>)"}, {"MULTI FileStart_tTmpl NNUL (<RTD(1)>)"}, "data"},
    {kUndefinedRunTimeWord, {"MULTI FileStart_tTmpl NNUL (<RTD(2)>)"}, {"MULTI FileStart_tTmpl NNUL (<RTD(1)>)"}, "data"},
    {kMissingValue, {"DATASETDEF Elm\nMULTI FileStart_tTmpl NNUL (<RTD(1)>)"},
     {"DATASETDEF Elm\nDSD Elm TEXT RTD(1) MILLER\nMULTI FileStart_tTmpl NNUL (<RTD(1)>)"}, "data"},

    {kBadDecimals, {"INT MM_AX1_nNDec 7"}, {"INT MM_AX1_nNDec 4"}},
    {kNoDecimals, {"without MM_AX1_nNDec"}, {"INT MM_AX1_nNDec 3"}},
    {kZeroFactor, {"REAL MM_AX1_rFactor 0"}, {"REAL MM_AX1_rFactor 1.5"}},
    {kZeroStep, {"TEXT sNWordAddr N\nINT nNWordBigInc 0\nMULTI FileStart_tTmpl NNUL <@NBlockOn>G17"},
     {"TEXT sNWordAddr N\nINT nNWordBigInc 10\nMULTI FileStart_tTmpl NNUL <@NBlockOn>G17"}},
    {kSmallTolerance, {"REAL rFacetTolMM 0"}, {"REAL rFacetTolMM 0.01"}},
    {kNoCommentText, {"BOOL bErrorsAsComments true"}, {"BOOL bErrorsAsComments true\nTEXT sOpenComment (\nTEXT sCloseComment )"}},
    {kNoBlockEnd, {"BOOL bBlockDelimStd false"}, {"BOOL bBlockDelimStd false\nTEXT sBlockDelim chr(10)"}},
    {kNoSegmentLimit, {"BOOL bUseFileSeg true\nINT nMaxBytes -1"}, {"BOOL bUseFileSeg true\nINT nMaxBytes 100000"}},
    {kSmallSegments, {"BOOL bUseFileSeg true\nINT nMaxBytes 10"}, {"BOOL bUseFileSeg true\nINT nMaxBytes 100000"}},
    {kTextWithoutTool, {"BOOL bUseText true\nMULTI Text_tTmpl NNUL (<@TextDataWord[DATA]>)"},
     {"BOOL bUseText true\nBOOL bDefaultTool true\nMULTI Text_tTmpl NNUL (<@TextDataWord[DATA]>)"}},
    {kNoPrimaryTool, {"BOOL bUsePrimaryTool true\nINT nPrimaryTool 7"}, {"BOOL bUsePrimaryTool true\nINT nPrimaryTool 1"}},
    {kNoCentreMode, {"BOOL bInAbsCenFromStart false"}, {"BOOL bInAbsCenFromStart false\nBOOL bInAbsCenFromEnd true"}},
    {kNoSpeedFactor, {"BOOL Speed_bFactor true"}, {"BOOL Speed_bFactor true\nTEXT Speed_sFactor 0.5"}, "speeds"},
    {kNoTemplates, {"without T1_ToolSel_tTmpl\nwithout T2_ToolSel_tTmpl\nwithout T1_ToolOn_tTmpl\nwithout T2_ToolOn_tTmpl\n"
                    "without T1_ToolOff_tTmpl\nwithout T2_ToolOff_tTmpl\nwithout MainInit_tTmpl\nwithout Move_tTmpl\n"
                    "without Line_tTmpl\nwithout Arc_tTmpl\nwithout FileEnd_tTmpl"}, {}},
    {kMissingTemplate, {"BOOL bUseSubs true"}, {"BOOL bUseSubs false"}},
    {kSeveralChosen, {"BOOL bOutModeInc true"}, {"BOOL bOutModeAbs false\nBOOL bOutModeInc true"}},
    {kNoneChosen, {"BOOL bOutModeAbs false\nBOOL bOutModeInc false"}, {"BOOL bOutModeAbs false\nBOOL bOutModeInc true"}},
    {kBadSpeed, {"TEXT T1_Speed_P1_sV1 12,5"}, {"TEXT T1_Speed_P1_sV1 12.5"}, "speeds"},
    {kSmallSpeedFactor, {"BOOL Speed_bFactor true\nTEXT Speed_sFactor 0.05\nINT Speed_nNDec 1"},
     {"BOOL Speed_bFactor true\nTEXT Speed_sFactor 0.05\nINT Speed_nNDec 2"}, "speeds"},
    {kNoSecondSpeed, {"BOOL Speed_b2Params true\nTEXT Speed_sParam2Addr S"},
     {"BOOL Speed_b2Params true\nTEXT Speed_sParam2Addr S\nTEXT T1_Speed_P2_sV1 300\nTEXT T2_Speed_P2_sV1 400"}, "speeds"},
    {kToolWithoutSpeed, {"without T2_Speed_P1_sV1"}, {"TEXT T2_Speed_P1_sV1 900"}, "speeds"},
    {kMissingSpeed, {"BOOL Speed_b1 false"}, {"BOOL Speed_b1 false\nTEXT T1_Speed_P1_sV2 800\nTEXT T2_Speed_P1_sV2 600"}, "speeds"},

    {kNoMirrorCode, {"BOOL bUseMirror true"},
     {"BOOL bUseMirror true\nTEXT sMirrorX M21\nTEXT sMirrorY M22\nTEXT sMirrorXY M23\nTEXT sMirrorReset M24\n"
      "MULTI SubCall_tTmpl NNUL <@IncludeMirCode> NNUL o<@IncludeNum>!#SP#!call"}, "calls"},
    {kNoRotationWord, {"BOOL bUseMirror true\nBOOL bUseRotations true\nTEXT sMirrorX M21\nTEXT sMirrorY M22\n"
                       "TEXT sMirrorXY M23\nTEXT sMirrorReset M24\n"
                       "MULTI SubCall_tTmpl NNUL <@IncludeMirCode> NNUL o<@IncludeNum>!#SP#!call"},
     {"BOOL bUseMirror true\nBOOL bUseRotations true\nTEXT sMirrorX M21\nTEXT sMirrorY M22\nTEXT sMirrorXY M23\n"
      "TEXT sMirrorReset M24\nTEXT SubRot_sAddr R\n"
      "MULTI SubCall_tTmpl NNUL <@IncludeMirCode><@IncludeRotWord> NNUL o<@IncludeNum>!#SP#!call"}, "calls"},
    {kNoFlyCode, {"BOOL Fly_bSupport true\nBOOL T1_Fly_bUse true"},
     {"BOOL Fly_bSupport true\nBOOL T1_Fly_bUse true\nTEXT Fly_sOnCode G64\nTEXT Fly_sOffCode G61\n"
      "MULTI Fly_PreCheck_tTmpl NNUL <@FlyModeCode>\nMULTI Fly_PostCheck_tTmpl NNUL <@FlyModeCode>"}},
    {kNoToolRotation, {"MULTI T1_ToolOn_tTmpl NNUL M3\nMULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@ArcDataWords>"}, {}, "knife"},
    {kNoEntryAngle, {"MULTI T1_ToolOn_tTmpl NNUL M3\nMULTI Line_tTmpl NNUL <@AtAngle> NNUL <@InterpCode><@EndPtWords>"},
     {"MULTI T1_ToolOn_tTmpl NNUL <@AtAngle> NNUL M3\nMULTI Line_tTmpl NNUL <@AtAngle> NNUL <@InterpCode><@EndPtWords>"}, "knife"},
    {kNoCallPosition, {"MULTI MoveToIncludePt_tTmpl NNUL M9"}, {}, "calls"},
    {kNoModeOfSubs, {"MULTI SubInit_tTmpl NNUL o<@CurProgNum>!#SP#!sub\nMULTI SubReset_tTmpl NNUL M9"}, {}, "calls"},
    {kMainNumberText, {"TEXT sMainProgNum O100"}, {"TEXT sMainProgNum 100"}, "calls"},

    {kToolOutOfRange, {"BOOL T3_bTangential true"}, {"INT nNumOfTools 3\nMULTI T3_ToolSel_tTmpl NNUL T3M6"}},
    {kUnusedTool, {"BOOL T2_bToolUnused true"}, {"BOOL T2_bToolUnused false"}},
    {kBadMaster, {"BOOL T2_bToolSubordinate true\nINT T2_nPhysicalTool 9"}, {"BOOL T2_bToolSubordinate true\nINT T2_nPhysicalTool 1"}},
    {kToolStaysOn, {"without T1_ToolOff_tTmpl"}, {}},
    {kChangeWhileOn, {"BOOL T1_bOffReqBeforeDesel false"}, {"BOOL T1_bOffReqBeforeDesel true"}},
    {kNoFacetLimit, {"BOOL T1_SmFacet_bUse true"},
     {"BOOL T1_SmFacet_bUse true\nREAL T1_SmFacet_rMaxRadiusMM 2\nREAL T1_SmFacet_rLiftAngleDEG 10"}},
    {kToolWithoutTemplates, {"INT nNumOfTools 3"}, {"INT nNumOfTools 3\nBOOL T3_bToolUnused true"}},

    {kUnclosedWord, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords"}, {}},
    {kWordAsText, {"MULTI Line_tTmpl NNUL <@InterpCode><EndPtWords>"}, {}},
    {kUnclosedCharacter, {"MULTI FileEnd_tTmpl NNUL M2chr(3"}, {"MULTI FileEnd_tTmpl NNUL M2chr(3)"}},
    {kBadCharacter, {"MULTI FileEnd_tTmpl NNUL M2chr(x)"}, {"MULTI FileEnd_tTmpl NNUL M2chr(3)"}},
    {kCharacterRange, {"MULTI FileEnd_tTmpl NNUL M2chr(300)"}, {"MULTI FileEnd_tTmpl NNUL M2chr(3)"}},
    {kUnknownDirective, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWord>"}, {}},
    {kUnclosedArguments, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords[ABS>"}, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords[ABS]>"}},
    {kUnknownKeyword, {"MULTI Line_tTmpl NNUL <@InterpCode[NONMODEL]><@EndPtWords>"}, {"MULTI Line_tTmpl NNUL <@InterpCode[NONMODAL]><@EndPtWords>"}},
    {kIgnoredKeyword, {"MULTI Line_tTmpl NNUL <@InterpCode[ABS]><@EndPtWords>"}, {}},
    {kContradiction, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords[ABS,INC]>"}, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords[ABS]>"}},
    {kNoKeywordValue, {"MULTI FileStart_tTmpl NNUL (<@BlankX[NDEC]>)"}, {"MULTI FileStart_tTmpl NNUL (<@BlankX[NDEC(1)]>)"}},
    {kExtraKeywordValue, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords[ABS(1)]>"}, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords[ABS]>"}},
    {kUnclosedValue, {"MULTI FileStart_tTmpl NNUL (<@BlankX[NDEC(1]>)"}, {"MULTI FileStart_tTmpl NNUL (<@BlankX[NDEC(1)]>)"}},
    {kBadKeywordValue, {"MULTI FileStart_tTmpl NNUL (<@BlankX[FACTOR(0,1)]>)"}, {"MULTI FileStart_tTmpl NNUL (<@BlankX[FACTOR(0.1)]>)"}},

    {kOutsideTemplate, {"TEXT sMetricCode G21<@NBlockOn>"}, {"TEXT sNWordAddr N\nMULTI FileStart_tTmpl NNUL <@NBlockOn>G17"}},
    {kNeedsOption, {"MULTI Line_tTmpl NNUL <@AtAngle><@InterpCode><@EndPtWords>"}, {}},
    {kNeedsRecord, {"MULTI FileStart_tTmpl NNUL G17<@CenPtWords>"}, {"MULTI FileStart_tTmpl NNUL G17"}},
    {kNeedsTool, {"MULTI FileStart_tTmpl NNUL (TOOL!#SP#!<@ToolId>)"}, {"MULTI T1_ToolSel_tTmpl NNUL T<@ToolId>M6"}},
    {kMarkOutsideSub, {"BOOL SubNum_bUseSequence false\nBOOL SubNum_bUseBlockNum true\nMULTI MainInit_tTmpl NNUL <@MarkAsSub>G21"},
     {"BOOL SubNum_bUseSequence false\nBOOL SubNum_bUseBlockNum true\nTEXT sNWordAddr N\n"
      "MULTI SubInit_tTmpl NNUL <@NBlockOn><@MarkAsSub><@AbsIncCode>\nMULTI SubTerm_tTmpl NNUL M99"}, "calls"},
    {kNumberNotKnown, {"BOOL SubNum_bUseSequence false\nBOOL SubNum_bUseBlockNum true"},
     {"BOOL SubNum_bUseSequence false\nBOOL SubNum_bUseBlockNum true\nTEXT sNWordAddr N\n"
      "MULTI SubInit_tTmpl NNUL <@NBlockOn><@MarkAsSub><@AbsIncCode>\nMULTI SubTerm_tTmpl NNUL M99"}, "calls"},
    {kEmptyAddress, {"without sAx1Addr"}, {"TEXT sAx1Addr X"}},
    {kEmptyCode, {"without sMetricCode"}, {"TEXT sMetricCode G21"}},
    {kEqualAddresses, {"TEXT sAx2Addr X"}, {"TEXT sAx2Addr Y"}},
    {kNoInterpolation, {"MULTI Line_tTmpl NNUL <@EndPtWords>"}, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords>"}},
    {kNoArcData, {"MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords>"}, {}},
    {kLiteralMotion, {"MULTI Move_tTmpl NNUL G0<@StartPtWords>"}, {"MULTI Move_tTmpl NNUL G0<@StartPtWords>\nBOOL Move_bClearInterp true"}},
    {kLiteralMode, {"MULTI T1_ToolSel_tTmpl NNUL G91G28Z0 NNUL T1M6"}, {"MULTI T1_ToolSel_tTmpl NNUL G91G28Z0 NNUL G90T1M6"}},
    {kLiteralSpeed, {"MULTI T1_ToolOn_tTmpl NNUL M3S100 NNUL G1Z-2F200\nBOOL T1_ToolOn_bClearInterp true"},
     {"MULTI T1_ToolOn_tTmpl NNUL M3S100 NNUL G1Z-2F200\nBOOL T1_ToolOn_bClearInterp true\nBOOL T1_ToolOn_bClearSpeed true"}, "speeds"},
    {kModalData, {"BOOL bAxisDataModal true"}, {"BOOL bAxisDataModal false"}, "plotter"},
    {kCycle, {"TEXT sMetricCode G21<@UnitsCode>"}, {"TEXT sMetricCode G21<@AbsIncCode>\nMULTI MainInit_tTmpl NNUL <@UnitsCode>F500"}},
    {kUnreadKey, {"REAL T1_rLiftAngDEG 15"}, {"BOOL T1_bTangential true\nREAL T1_rLiftAngDEG 15"}, "plotter"},
    {kUnusedKey, {"TEXT sMetricCode MM"}, {"TEXT sMetricCode MM\nMULTI FileStart_tTmpl NNUL <@UnitsCode>"}, "plotter"},

    {kNameInComment, {"MULTI FileStart_tTmpl NNUL (<@CADFile>)", "", "card (2).cf2"},
     {"MULTI FileStart_tTmpl NNUL (<@CADFile>)", "", "card 2.cf2"}},
    {kNameWithControl, {"MULTI FileStart_tTmpl NNUL (<@CADFile>)", "", "card\a2.cf2"},
     {"MULTI FileStart_tTmpl NNUL (<@CADFile>)", "", "card 2.cf2"}},

    {kUnknownTool, {"", "MAIN,JOB\nUR,100,100\nL,1,7,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kRadiusAsDirection, {"BOOL bArcByCen false\nBOOL bArcByRad true", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,40,50,40,40,-1,0,0\nEND"},
     {"BOOL bArcByCen false\nBOOL bArcByRad true", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,40,50,40,40,-10,0,0\nEND"}},
    {kRadiusInInches, {"BOOL bArcByCen false\nBOOL bArcByRad true", "MAIN,JOB\nUI,1\nUR,4,4\nA,1,1,0,2.5,2,2,2.5,2,2,-0.5,0,0\nEND"},
     {"BOOL bArcByCen false\nBOOL bArcByRad true", "MAIN,JOB\nUI,1\nUR,4,4\nA,1,1,0,2.5,2,2,2.5,2,2,-12.7,0,0\nEND"}},

    {kNoDrawing, {"", "G21 G90\nG0 X10 Y10\nG1 X60"}, {}},
    {kShortRecord, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0\nL,1,1,0,10,0,20,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nL,1,1,0,10,0,20,0,0,0\nEND"}},
    {kNotFinite, {"", "MAIN,JOB\nUI,1\nUR,4,4\nL,1,1,0,0,0,1e308,0,0,0\nEND"}, {"", "MAIN,JOB\nUI,1\nUR,4,4\nL,1,1,0,0,0,1,0,0,0\nEND"}},
    {kBadWord, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10mm,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kWordRange, {"", "MAIN,JOB\nUR,100,100\nL,1,70000,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kWordNotWhole, {"", "MAIN,JOB\nUR,100,100\nL,0.7,1.5,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,0.7,1,0,0,0,10,0,0,0\nEND"}},
    {kDegrees, {"", "MAIN,JOB\nUR,100,100\nC,S,20,20,90,0,0\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nC,S,20,20,1.570796,0,0\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nEND"}},
    {kMirrorWord, {"", "MAIN,JOB\nUR,100,100\nC,S,20,20,0,-1,0\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nC,S,20,20,0,1,0\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nEND"}},
    {kEmptyWord, {"", "MAIN,JOB\nUR,100,100\nL,1,1,,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kCutName, {"", "MAIN,JOB\nUR,100,100\nC,THE PART,20,20,0,0,0\nEND\nSUB,THE PART\nL,1,1,0,0,0,9,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nC,PART,20,20,0,0,0\nEND\nSUB,PART\nL,1,1,0,0,0,9,0,0,0\nEND"}},
    {kTooManyWords, {"", "MAIN,JOB\nUR,100,100\nL,0,7,1,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,0.7,1,0,0,0,10,0,0,0\nEND"}},
    {kArcCentre, {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,60,50,50,62,50,50,-10,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,60,50,50,60,50,50,-10,0,0\nEND"}},
    {kZeroRadius, {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,60,50,50,60,50,50,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,60,50,50,60,50,50,-10,0,0\nEND"}},
    {kMovedCentre, {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,60,50,59.5106,46.9098,50,50,-1,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,60,50,59.5106,46.9098,50,50,-10,0,0\nEND"}},
    {kRadiusWord, {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,60,50,50,60,50,50,-4,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,60,50,50,60,50,50,-10,0,0\nEND"}},
    {kEarlyRecord, {"", "L,1,1,0,0,0,10,0,0,0\nMAIN,JOB\nUR,100,100\nL,1,1,0,10,0,20,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nL,1,1,0,10,0,20,0,0,0\nEND"}},
    {kNoMain, {"", "MAIN,JOB\nL,1,1,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kDiscardedPrograms, {"", "SUB,S\nL,1,1,0,0,0,9,0,0,0\nEND\nMAIN,JOB\nUR,100,100\nC,S,20,20,0,0,0\nEND"}, {"", kCallOfS}},
    {kCutOff, {"", "$BOF\nV2\nORDER\nMAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0"}, {"", "$BOF\nV2\nORDER\nMAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND\n$EOF"}},
    {kTextWithoutLine, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nT,1,1,0,5,5,0,3,0"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nT,1,1,0,5,5,0,3,0\nBOX 7"}},
    {kTextInSub, {"", "MAIN,JOB\nUR,100,100\nC,S,20,20,0,0,0\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nT,1,1,0,5,5,0,3,0\nBOX 7\nEND"}, {"", "MAIN,JOB\nUR,100,100\nC,S,20,20,0,0,0\nT,1,1,0,25,25,0,3,0\nBOX 7\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nEND"}},
    {kRecordAsText, {"", "MAIN,JOB\nUR,100,100\nT,1,1,0,5,5,0,3,0\nL,1,1,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nT,1,1,0,5,5,0,3,0\nBOX 7\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kUnitsWord, {"", "MAIN,JOB\nUI\nUR,4,4\nL,1,1,0,0,0,1,0,0,0\nEND"}, {"", "MAIN,JOB\nUI,1\nUR,4,4\nL,1,1,0,0,0,1,0,0,0\nEND"}},
    {kRecordCase, {"", "MAIN,JOB\nUR,100,100\nl,1,1,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kUnknownRecord, {"", "MAIN,JOB\nUR,100,100\nLN,1,1,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kLowerLeft, {"", "MAIN,JOB\nLL,5,5\nUR,100,100\nL,1,1,0,5,5,15,5,0,0\nEND"}, {"", "MAIN,JOB\nLL,0,0\nUR,95,95\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kScale, {"", "MAIN,JOB\nUR,100,100\nSCALE,2,2\nL,1,1,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nSCALE,1,1\nL,1,1,0,0,0,20,0,0,0\nEND"}},
    {kSemicolons, {"", "MAIN,JOB\nUR,100,100\nL;1;1;0;0;0;10;0;0;0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kLateMainName, {"", "UR,100,100\nMAIN,JOB\nL,1,1,0,0,0,10,0,0,0\nEND"}, {"", "MAIN,JOB\nUR,100,100\nL,1,1,0,0,0,10,0,0,0\nEND"}},
    {kRepeatedProgram, {"", "MAIN,JOB\nUR,100,100\nC,S,20,20,0,0,0\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nEND\nSUB,S\nL,1,1,0,0,0,5,0,0,0\nEND"},
     {"", "MAIN,JOB\nUR,100,100\nC,S,20,20,0,0,0\nEND\nSUB,S\nL,1,1,0,0,0,9,0,0,0\nEND\nSUB,T\nL,1,1,0,0,0,5,0,0,0\nEND"}},
    {kUnknownProgram, {"", "MAIN,JOB\nUR,100,100\nC,NOBODY,20,20,0,0,0\nL,1,1,0,0,0,10,0,0,0\nEND"}, {"", kCallOfS}},
    {kFurther, {"", "MAIN,JOB\nUR,100,100\nL,x,1,0,0,0,x,x,x,0\nL,x,1,0,0,0,x,x,x,0\nL,x,1,0,0,0,x,x,x,0\nL,x,1,0,0,0,x,x,x,0\nL,x,1,0,0,0,x,x,x,0\nL,x,1,0,0,0,x,x,x,0\nEND"}, {}},

    {kNotCut, {"without Line_tTmpl"}, {}},
    {kCutElsewhere, {"without Move_tTmpl"}, {}},
    {kStrayCut, {"without T1_ToolOff_tTmpl"}, {}, "plotter"},
    {kCutTwice, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords> NNUL <@StartPtWords[NONMODAL]> NNUL <@EndPtWords[NONMODAL]>"},
     {"MULTI Line_tTmpl NNUL <@InterpCode><@StartPtWords[NONMODAL]> NNUL <@EndPtWords[NONMODAL]>"}},
    {kOtherTool, {"MULTI T1_ToolSel_tTmpl NNUL S100\nwithout T2_ToolSel_tTmpl", kTwoTools},
     {"MULTI T1_ToolSel_tTmpl NNUL S100\nMULTI T2_ToolSel_tTmpl NNUL S200", kTwoTools}},
    {kTextLost, {"", "MAIN,JOB\nUR,100,100\nT,1,1,0,5,5,0,3,0\nBOX 7\nEND"},
     {"BOOL bUseText true\nBOOL bDefaultTool true\nMULTI Text_tTmpl NNUL LB<@TextDataWord[DATA]>", "MAIN,JOB\nUR,100,100\nT,1,1,0,5,5,0,3,0\nBOX 7\nEND"}},
    {kRapidWhileOn, {"TEXT sLTCode G0"}, {"TEXT sLTCode G1"}},
    {kChangedWhileOn, {"BOOL T1_bOffReqBeforeDesel false", kTwoTools}, {"BOOL T1_bOffReqBeforeDesel true", kTwoTools}},
    {kPowerChange, {"BOOL T1_bOffReqBeforeDesel false\nMULTI T1_ToolSel_tTmpl NNUL S100\nMULTI T2_ToolSel_tTmpl NNUL S200", kTwoTools},
     {"BOOL T1_bOffReqBeforeDesel true\nMULTI T1_ToolSel_tTmpl NNUL S100\nMULTI T2_ToolSel_tTmpl NNUL S200", kTwoTools}},
    {kEndWhileOn, {"without T1_ToolOff_tTmpl"}, {}},
    {kUnresolvedValue, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords><@Nonsense>"}, {}},
    {kToolDirection, {"MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@ArcDataWords>", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,40,50,40,40,-10,0,0\nEND"},
     {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,40,50,40,40,-10,0,0\nEND"}, "knife"},
    {kTurnInMaterial, {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,40,30,40,40,-10,0,0\nEND"},
     {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,40,50,40,40,-10,0,0\nEND"}, "knife"},
    {kTurnPastZero, {"BOOL ToolRot_bUseSign false\nMULTI Line_tTmpl NNUL <@AtAngle> NNUL <@InterpCode><@EndPtWords>", "MAIN,JOB\nUR,100,100\nL,1,1,0,10,10,40,12,0,0\nL,1,1,0,40,12,70,10,0,0\nEND"},
     {"BOOL ToolRot_bUseSign true\nMULTI Line_tTmpl NNUL <@AtAngle> NNUL <@InterpCode><@EndPtWords>", "MAIN,JOB\nUR,100,100\nL,1,1,0,10,10,40,12,0,0\nL,1,1,0,40,12,70,10,0,0\nEND"}, "knife"},
    {kNoMotionCode, {"MULTI Move_tTmpl NNUL <@StartPtWords>"}, {}},
    {kRepeatedWord, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords><@EndPtWords[NONMODAL]>"}, {}},
    {kNoArcCentre, {"MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords>"}, {}},
    {kHalfCentre, {"BOOL bInAbsCenFromStart false\nBOOL bInAbsCenIsAbs true\nMULTI MainInit_tTmpl NNUL G21G90G90.1F500", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,50,40,40,40,-10,0,0\nA,1,1,0,50,80,50,80,40,80,-10,0,0\nEND"},
     {"BOOL bInAbsCenFromStart false\nBOOL bInAbsCenIsAbs true\nMULTI MainInit_tTmpl NNUL G21G90G90.1F500\nBOOL bArcDataModal false", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,50,40,40,40,-10,0,0\nA,1,1,0,50,80,50,80,40,80,-10,0,0\nEND"}},
    {kRadiusTooSmall, {"MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords>R9", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,30,40,40,40,-10,0,0\nEND"},
     {"MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@Radius>", "MAIN,JOB\nUR,100,100\nA,1,1,0,50,40,30,40,40,40,-10,0,0\nEND"}},
    {kCircleByRadius, {"MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords[NONMODAL]><@Radius>"}, {}},
    {kZeroRadiusArc, {"MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords>I0J0"}, {}},
    {kUnequalRadii, {"INT MM_AX1_nNDec 1\nINT MM_AX2_nNDec 1", "MAIN,JOB\nUR,100,100\nA,1,1,0,48.0098,42.8473,-3.1561,64.2366,22.0304,52.5936,-27.7474,0,0\nEND"},
     {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,48.0098,42.8473,-3.1561,64.2366,22.0304,52.5936,-27.7474,0,0\nEND"}},
    {kUnlikeRadii, {"INT MM_AX1_nNDec 2\nINT MM_AX2_nNDec 2", "MAIN,JOB\nUR,100,100\nA,1,1,0,59.2122,59.1865,62.3773,71.7188,61.6165,65.2451,-6.5182,0,0\nEND"},
     {"", "MAIN,JOB\nUR,100,100\nA,1,1,0,59.2122,59.1865,62.3773,71.7188,61.6165,65.2451,-6.5182,0,0\nEND"}},
    {kNoFeed, {"MULTI MainInit_tTmpl NNUL <@UnitsCode><@AbsIncCode>"}, {}},
    {kAssumedCentres, {"BOOL bInAbsCenFromStart false\nBOOL bInAbsCenIsAbs true\nBOOL bArcDataModal false"},
     {"BOOL bInAbsCenFromStart false\nBOOL bInAbsCenIsAbs true\nBOOL bArcDataModal false\nMULTI MainInit_tTmpl NNUL G21G90G90.1F500"}},
    {kNoSubStart, {"MULTI SubInit_tTmpl NNUL <@AbsIncCode>", kCallOfS}, {"", kCallOfS}, "calls"},
    {kUnknownLabel, {"MULTI SubInit_tTmpl NNUL <@AbsIncCode>\nMULTI SubTerm_tTmpl NNUL M99", kCallOfS}, {"", kCallOfS}, "calls"},
    {kOtherLabel, {"MULTI SubCall_tTmpl NNUL o<@CurProgNum>!#SP#!call", kCallOfS}, {"", kCallOfS}, "calls"},
    {kRepeatedLabel, {"MULTI SubInit_tTmpl NNUL o100!#SP#!sub NNUL <@AbsIncCode>\nMULTI SubTerm_tTmpl NNUL o100!#SP#!endsub", kCallsOfTwo}, {"", kCallsOfTwo}, "calls"},
    {kNoSubEnd, {"without SubTerm_tTmpl", kCallOfS}, {"", kCallOfS}, "calls"},
    {kNoEnd, {"BOOL bOutputSubsFirst false", kCallOfS}, {"BOOL bOutputSubsFirst false\nMULTI MainTerm_tTmpl NNUL M2\nwithout FileEnd_tTmpl", kCallOfS}, "calls"},
    {kNoEndCode, {"MULTI FileStart_tTmpl NNUL %\nwithout FileEnd_tTmpl"}, {"MULTI FileStart_tTmpl NNUL %"}},
    {kTornSubs, {"BOOL bUseFileSeg true\nINT nMaxBytes 100", kCallsOfTwo}, {"BOOL bUseFileSeg true\nINT nMaxBytes 100000", kCallsOfTwo}, "calls"},
    {kTurnedAfterCall, {"BOOL bUseMirror true\nBOOL bUseRotations true\nTEXT SubRot_sCode G68\nTEXT SubRot_sAddr R\n"
                        "MULTI SubCall_tTmpl NNUL <@IncludeRotWord> NNUL o<@IncludeNum>!#SP#!call", kTurnedCallAndLine},
     {"BOOL bUseMirror true\nBOOL bUseRotations true\nTEXT SubRot_sCode G68\nTEXT SubRot_sAddr R\nTEXT SubRot_sResetCode G69\n"
      "MULTI SubCall_tTmpl NNUL <@IncludeRotWord> NNUL o<@IncludeNum>!#SP#!call\n"
      "MULTI SubReset_tTmpl NNUL <@IncludeRotResetWord><@AbsIncCode[NONMODAL]>", kTurnedCallAndLine}, "calls"},
    {kUnusedWord, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords>I0J0"}, {}},
    {kBadComment, {"MULTI FileEnd_tTmpl NNUL (THE!#SP#!END!#SP#!(OF!#SP#!ALL)) NNUL M2"}, {"MULTI FileEnd_tTmpl NNUL (THE!#SP#!END!#SP#!OF!#SP#!ALL) NNUL M2"}},
    {kLongLine, {"MULTI FileStart_tTmpl NNUL (" "--------------------------------------------------------------------------------" "--------------------------------------------------------------------------------" "--------------------------------------------------------------------------------" "----------------)"},
     {"MULTI FileStart_tTmpl NNUL (--------)"}},
    {kBadCall, {"BOOL SubCall_bTerminiate false\nMULTI SubReset_tTmpl NNUL G90", kCallOfS}, {"MULTI SubReset_tTmpl NNUL G90", kCallOfS}, "calls"},
    {kBadMachinePosition, {"MULTI FileEnd_tTmpl NNUL G91 NNUL G53G0X0 NNUL M2"}, {"MULTI FileEnd_tTmpl NNUL G53G0X0 NNUL M2"}},
    {kAxisWithoutLetter, {"without sAx2Addr"}, {}},
    {kUnknownCode, {"MULTI MainInit_tTmpl NNUL <@UnitsCode><@AbsIncCode>G123F500"}, {"MULTI MainInit_tTmpl NNUL <@UnitsCode><@AbsIncCode>G64F500"}},
    {kNoUnitCode, {"BOOL bOutUnitsInches true\nMULTI MainInit_tTmpl NNUL <@AbsIncCode>F20"}, {"BOOL bOutUnitsInches true\nMULTI MainInit_tTmpl NNUL <@UnitsCode><@AbsIncCode>F20"}},
    {kUnreadText, {"MULTI FileStart_tTmpl NNUL BEGIN"}, {"MULTI FileStart_tTmpl NNUL (BEGIN)"}},
    {kNotJudged, {"MULTI FileStart_tTmpl NNUL BEGIN"}, {"MULTI FileStart_tTmpl NNUL (BEGIN)"}},
};
// clang-format on

static_assert(std::size(kRuleExamples) == std::size(Rules()));
static_assert([] {
    for (size_t i = 0; i < std::size(kRuleExamples); ++i) {
        if (static_cast<size_t>(kRuleExamples[i].rule) != i) return false;
    }
    return true;
}());

const ExampleMachine& FindMachine(std::string_view name) {
    return *std::find_if(std::begin(kMachines), std::end(kMachines) - 1,
                         [name](const ExampleMachine& machine) { return machine.name == name; });
}

// What a line of a tuning is known by; empty for one that others do not replace.
std::string_view KeyOfLine(std::string_view line) {
    std::vector<std::string_view> words;
    SplitWords(line, words);
    const bool is_data = !words.empty() && (words[0] == "ROW" || words[0] == "COL" || words[0] == "MSG" ||
                                            words[0] == "DATASETDEF" || words[0] == "DSD");
    return words.size() < 2 || is_data ? std::string_view() : words[1];
}

// `lines` and then `more`, where the lines of a key in `more` take the place of those before.
std::vector<std::string> Replaced(const std::vector<std::string>& lines, std::string_view more) {
    std::set<std::string_view> keys;
    const std::vector<std::string_view> added = SplitLines(more);
    for (const std::string_view line : added) keys.insert(KeyOfLine(line));
    keys.erase(std::string_view());
    std::vector<std::string> all;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(all),
                 [&keys](const std::string& line) { return !keys.contains(KeyOfLine(line)); });
    for (const std::string_view line : added) {
        if (!line.empty() && !line.starts_with("without ")) all.emplace_back(line);
    }
    return all;
}

}  // namespace

std::span<const ExampleMachine> ExampleMachines() { return kMachines; }

std::string_view CommonExampleDrawing() { return kDrawing; }

std::span<const RuleExample> RuleExamples() { return kRuleExamples; }

const RuleExample& ExampleOf(Rule rule) { return kRuleExamples[static_cast<size_t>(rule)]; }

std::vector<std::string> MachineLines(std::string_view name) {
    if (name.empty()) return {};
    const ExampleMachine& machine = FindMachine(name);
    return Replaced(MachineLines(machine.base), machine.lines);
}

std::vector<std::string> TuningLinesOf(const RuleExample& example, const ExampleFiles& files) {
    return Replaced(MachineLines(example.machine), files.tuning);
}

std::string DrawingOf(const ExampleFiles& files) {
    return std::string(files.drawing.empty() ? kDrawing : files.drawing) + "\n";
}

}  // namespace brindle::host
