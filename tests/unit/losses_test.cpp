// Jobs whose NC text loses something, each with a twin that loses nothing: the reasons that are told, and what the
// examples of the rules don't show.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/reference/rule_examples.h"
#include "session/session.h"
#include "text/numbers.h"
#include "verify/job_comparison.h"

namespace brindle {
namespace {

using Lines = std::vector<std::string>;

// The tunings of the rules' examples. Later lines win over earlier ones.
const Lines kMachine = host::MachineLines("mill");
const Lines kPlotter = host::MachineLines("plotter");
const Lines kCalls = host::MachineLines("calls");
const Lines kKnife = host::MachineLines("knife");

// The X axis turns a cylinder of 100 mm.
const Lines kRotary = {"BOOL bAx1IsRot true", "BOOL bRotAxisInDegrees true", "REAL rDefRotRadiusMM 50"};

// A torch that is fired above the material, and a router that goes into it.
const Lines kTorch = {"MULTI FileStart_tTmpl NNUL G0Z10", "MULTI T1_ToolOn_tTmpl NNUL G0Z4 NNUL M3 NNUL G1Z1.5",
                      "MULTI T1_ToolOff_tTmpl NNUL M5 NNUL G0Z10"};
const Lines kRouter = {"MULTI FileStart_tTmpl NNUL G0Z5", "MULTI T1_ToolSel_tTmpl NNUL T1M6 NNUL M3S9000",
                       "MULTI T1_ToolOn_tTmpl NNUL G1Z-2", "MULTI T1_ToolOff_tTmpl NNUL G0Z5"};

// Sub-programs in absolute words, whose origin is moved.
const Lines kAbsoluteCalls = {"BOOL bUseSubs true",
                              "BOOL bSubsInAbs true",
                              "BOOL bOutputSubsFirst true",
                              "BOOL SubNum_bUseSequence true",
                              "MULTI SubInit_tTmpl NNUL o<@CurProgNum>!#SP#!sub",
                              "MULTI SubTerm_tTmpl NNUL o<@CurProgNum>!#SP#!endsub",
                              "MULTI OriTransSet_tTmpl NNUL G52<@IncludePtWords>",
                              "MULTI OriTransReset_tTmpl NNUL G52X0Y0",
                              "MULTI SubCall_tTmpl NNUL o<@IncludeNum>!#SP#!call",
                              "MULTI T1_ToolOn_tTmpl NNUL T1M6 NNUL M3S100"};

// Increments, in files of a few lines.
const Lines kSegments = {"BOOL bOutModeAbs false", "BOOL bUseFileSeg true", "INT nMaxBytes 60"};

std::string Drawing(const Lines& main, const Lines& subs) {
    std::string text = "MAIN,JOB\nUM,x\nUR,100,100\n";
    for (const std::string& line : main) text += line + "\n";
    text += "END\n";
    for (const std::string& line : subs) text += line + "\n";
    return text;
}

// The findings of a job: each its rule and, after a colon, why.
Lines FindingsOf(const Lines& tuning, const std::string& drawing, int32_t tile = 0) {
    CSession session;
    for (const std::string& line : tuning) session.tuning.ReadFileLine(line);
    session.TakeDrawing(drawing);
    session.Job().tile_to_output = tile;
    CJobComparison comparison;
    RunJob(session, &comparison);
    Lines findings;
    for (const Loss& loss : comparison.losses().all()) {
        const std::string_view why = InfoOf(loss.cause).why;
        findings.push_back(std::string(InfoOf(loss.rule).name).append(why.empty() ? "" : ": ").append(why));
    }
    return findings;
}

Lines Joined(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

struct Job {
    Lines tuning, main, subs = {};
    int32_t tile = 0;
};
struct Row {
    const char* name;
    Job lossy;
    Lines findings;
    Job right;
    Lines machine = kMachine;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

// Records of tool 1.
const std::string kLine = "L,1,1,0,10,10,60,10,0,0";
const std::string kSquare = "L,1,1,0,60,10,60,60,0,0";
const std::string kLong = "A,1,1,0,50,40,40,50,40,40,-10,0,0";  // 270.0 and more: three quarters, counter-clockwise
const std::string kCircle = "A,1,1,0,50,40,50,40,40,40,-10,0,0";
const Lines kTwoLines = {kLine, kSquare};
const Lines kToolsInTurns = {kLine, "L,1,2,0,60,10,60,60,0,0", "L,1,2,0,60,70,60,80,0,0", "L,1,2,0,60,90,10,90,0,0"};
const Lines kApart = {kLine, "L,1,1,0,60,20,90,20,0,0"};

// Above 270 degrees, with an end that is on no grid.
const std::string kOffGrid = "A,1,1,0,61.199,111.4973,76.924,84.8925,31.1723,75.8003,-46.6464,0,0";

// A row of lines that are shorter than an increment may be, and a long one.
Lines Steps(int count) {
    Lines lines;
    for (int i = 0; i < count; ++i) {
        lines.push_back("L,1,1,0," + FixedText(0.0004 * i, 4) + ",0," + FixedText(0.0004 * (i + 1), 4) + ",0,0,0");
    }
    lines.push_back("L,1,1,0," + FixedText(0.0004 * count, 4) + ",0," + FixedText(0.0004 * count, 4) + ",50,0,0");
    return lines;
}

const Row kRows[] = {
    // Templates and codes.
    {"NoLineTemplate",
     {{"MULTI Line_tTmpl NNUL"}, kTwoLines},
     {"not-cut: its template is missing or writes nothing"},
     {{}, kTwoLines}},
    {"NoArcTemplate",
     {{"MULTI Arc_tTmpl NNUL (arc)"}, {kCircle}},
     {"not-cut: its template is missing or writes nothing"},
     {{}, {kCircle}}},
    {"NoMoveTemplate",
     {{"MULTI Move_tTmpl NNUL"}, kTwoLines},
     {"cut-elsewhere: no move goes to its start"},
     {{}, kTwoLines}},
    {"ToolNeverOn",
     {{"MULTI T1_ToolOn_tTmpl NNUL (on)"}, kTwoLines},
     {"not-cut: nothing switches the tool on"},
     {{"MULTI T1_ToolOn_tTmpl NNUL (on) NNUL M3"}, kTwoLines}},
    {"ToolNeverOff",
     {{"MULTI T1_ToolOff_tTmpl NNUL"}, {kLine, "L,1,1,0,60,20,90,20,0,0"}},
     {"rapid-while-on: nothing switches the tool off", "end-while-on: nothing switches the tool off"},
     {{}, {kLine, "L,1,1,0,60,20,90,20,0,0"}}},
    {"NoCodeForLines",
     {{"TEXT sLTCode !#SP#!"}, kTwoLines},
     {"rapid-while-on: the tuning has no code for this motion"},
     {{}, kTwoLines}},
    {"NoCodeForRapids",
     {{"TEXT sRTCode !#SP#!"}, {kLine, "L,1,1,0,60,20,90,20,0,0"}},
     {"no-motion-code"},
     {{}, {kLine, "L,1,1,0,60,20,90,20,0,0"}}},
    {"NoMode",
     {{"BOOL bOutModeAbs false", "TEXT sIncCode !#SP#!"}, kTwoLines},
     {"not-cut: the tuning has no code for absolute or incremental words",
      "cut-elsewhere: the tuning has no code for absolute or incremental words"},
     {{"BOOL bOutModeAbs false"}, kTwoLines}},
    {"CentresThatAreOffsetsLeftOutAsRepeats",
     {{"BOOL bInAbsCenIsAbs true"}, {kCircle, "A,1,1,0,50,40,50,40,40,40,10,0,0"}},
     {"no-arc-centre: a centre word was left out as a repeat", "not-cut: a centre word was left out as a repeat"},
     {{"BOOL bInAbsCenIsAbs true", "BOOL bArcDataModal false"}, {kCircle, "A,1,1,0,80,40,80,40,70,40,10,0,0"}}},

    // Calls.
    {"CallOfOneCircle",
     {kCalls, {"C,S,20,20,0,0,0"}, {"SUB,S", kCircle, "END"}},
     {"not-cut: a program whose one record ends where it starts is not called"},
     {kCalls, {"C,S,20,20,0,0,0"}, {"SUB,S", kCircle, kLine, "END"}}},
    {"CallWithoutTemplate",
     {Joined(kCalls, {"MULTI SubCall_tTmpl NNUL"}), {"C,S,20,20,0,0,0"}, {"SUB,S", kLine, kSquare, "END"}},
     {"not-cut: the call is not written"},
     {kCalls, {"C,S,20,20,0,0,0"}, {"SUB,S", kLine, kSquare, "END"}}},
    {"CallThatIsNone",
     {Joined(kCalls, {"MULTI SubCall_tTmpl NNUL M0"}), {"C,S,20,20,0,0,0"}, {"SUB,S", kLine, kSquare, "END"}},
     {"not-cut: the call is not written"},
     {Joined(kCalls, {"BOOL SubCall_bTerminiate false", "MULTI SubReset_tTmpl NNUL chr(10)<@AbsIncCode[NONMODAL]>"}),
      {"C,S,20,20,0,0,0"},
      {"SUB,S", kLine, kSquare, "END"}}},
    {"CallInAnExpandedProgram",
     {{}, {"C,S,20,20,0,0,0"}, {"SUB,S", kLine, "C,T,5,5,0,0,0", "END", "SUB,T", kSquare, kLine, "END"}},
     {"cut-elsewhere: a call within an expanded program is placed as if the main program made it"},
     {{}, {"C,S,20,20,0,0,0"}, {"SUB,S", kLine, kSquare, "END"}}},
    {"CallInATurnedExpandedProgram",
     {{}, {"C,S,20,20,1,0,0"}, {"SUB,S", kLine, "C,T,5,5,0,0,0", "END", "SUB,T", kSquare, kLine, "END"}},
     {"cut-elsewhere: a call within an expanded program is placed as if the main program made it"},
     {{}, {"C,S,20,20,1,0,0"}, {"SUB,S", kLine, kSquare, "END"}}},
    {"SubsWithoutMode",
     {Joined(kCalls, {"MULTI SubInit_tTmpl NNUL o<@CurProgNum>!#SP#!sub"}),
      {"C,S,20,20,0,0,0"},
      {"SUB,S", kLine, kSquare, "END"}},
     {"cut-elsewhere: nothing tells the controller that words are absolute or incremental here"},
     {kCalls, {"C,S,20,20,0,0,0"}, {"SUB,S", kLine, kSquare, "END"}}},
    {"CallersTool",
     {Joined(kCalls, {"MULTI T1_ToolOn_tTmpl NNUL M3S100", "MULTI T2_ToolOn_tTmpl NNUL M3S200"}),
      {kLine, "C,S,20,20,0,0,0", kSquare},
      {"SUB,S", "L,1,2,0,0,0,9,0,0,0", "L,1,2,0,9,0,9,9,0,0", "END"}},
     {"other-tool: a sub-program has changed the tool, and its caller does not know"},
     {kCalls, {kLine, "C,S,20,20,0,0,0", kSquare}, {"SUB,S", "L,1,2,0,0,0,9,0,0,0", "L,1,2,0,9,0,9,9,0,0", "END"}}},

    // Arcs.
    {"RadiusWordsAsDirections",
     {{"BOOL bArcByCen false", "BOOL bArcByRad true"}, {"A,1,1,0,50,40,40,50,40,40,-1,0,0"}},
     {"cut-elsewhere: the drawing's radius word gives a direction alone, but the tuning uses the radius"},
     {{"BOOL bArcByCen false", "BOOL bArcByRad true"}, {"A,1,1,0,50,40,40,50,40,40,-10,0,0"}}},
    {"DirectionsAsFacets",
     {{"REAL rMaxOrdIN 9"}, {"A,1,1,0,50,40,40,50,40,40,-1,0,0"}},
     {"cut-elsewhere: the drawing's radius word gives a direction alone, but the tuning uses the radius"},
     {{"REAL rMaxOrdIN 9"}, {kLong}}},
    {"DirectionsAbove270Degrees",
     {{}, {"A,1,1,0,50,40,46,32,40,40,-1,0,0"}},
     {"cut-elsewhere: the drawing's radius word gives a direction alone, but the tuning uses the radius"},
     {{}, {"A,1,1,0,50,40,46,32,40,40,-10,0,0"}}},
    {"RadiusWordsInInches",
     {{"BOOL bArcByCen false", "BOOL bArcByRad true"}, {"UI,x", "A,1,1,0,5,4,4,5,4,4,-1,0,0"}},
     {"cut-elsewhere: the drawing's radius word is in inches and counts as millimetres"},
     {{}, {"UI,x", "A,1,1,0,5,4,4,5,4,4,-1,0,0"}}},
    {"ClosedArcAfterALongOne",
     {{}, {kOffGrid, "A,1,1,0,76.924,84.8925,76.924,84.8925,69.624,80.7925,-8.3726,0,0"}},
     {"not-cut: a closed arc after an arc above 270 degrees loses its end"},
     {{}, {kOffGrid, "A,1,1,0,20,84.8925,20,84.8925,12.7,80.7925,-8.3726,0,0"}}},
    {"LongArcInIncrements",
     {{"BOOL bOutModeAbs false"}, Lines(60, kOffGrid)},
     {"cut-elsewhere: an arc above 270 degrees ends beside its drawn end, and what follows is measured from there"},
     {{}, Lines(60, kOffGrid)}},
    {"RadiiOfFewDecimals",
     {{"BOOL bArcByCen false", "BOOL bArcByRad true", "INT MM_AX1_nNDec 2", "INT MM_AX2_nNDec 2"},
      {"A,1,1,0,150,0.5,-150,0.3,0,0,-150,0,0"}},
     {"cut-elsewhere: a printed radius can't place the centre well enough"},
     {{"INT MM_AX1_nNDec 2", "INT MM_AX2_nNDec 2"}, {"A,1,1,0,150,0.5,-150,0.3,0,0,-150,0,0"}}},

    {"ChordThatRoundsToNothing",
     {{}, {"A,1,1,0,50,40,49.9999999,40.0003,40,40,-10,0,0", kLine}},
     {"not-cut: the decimals are too few for a curve so small"},
     {{}, {"A,1,1,0,50,40,49.999,40.14,40,40,-10,0,0"}}},
    {"CentreOffsetsBelowAnIncrement",
     {{"INT MM_AX1_nNDec 5", "INT MM_AX2_nNDec 5"}, {kLine, "A,1,1,0,60.0004,10,60,10.0004,60,10,-0.0004,0,0"}},
     {"no-arc-centre"},
     {{"INT MM_AX1_nNDec 5", "INT MM_AX2_nNDec 5"}, {kLine, "A,1,1,0,60.04,10,60,10.04,60,10,-0.04,0,0"}}},
    {"UnequalFactors",
     {{"REAL MM_AX2_rFactor 1.01"}, {kLong}},
     {"unequal-radii"},
     {{"REAL MM_AX1_rFactor 1.01", "REAL MM_AX2_rFactor 1.01"}, {kLong}}},

    // Tools.
    {"MasterNotSwitchedOnAgain",
     {{"BOOL T2_bToolSubordinate true", "INT T2_nPhysicalTool 1", "MULTI T2_ToolOn_tTmpl NNUL",
       "MULTI T2_ToolOff_tTmpl NNUL"},
      {kLine, "L,1,2,0,60,10,60,60,0,0"}},
     {"not-cut: the master tool is not switched on again"},
     {{}, {kLine, "L,1,2,0,60,10,60,60,0,0"}}},
    {"UnknownTool",
     {{}, {kLine, "L,1,7,0,60,10,60,60,0,0"}},
     {"not-cut: the tuning has no such tool"},
     {{"INT nNumOfTools 7", "BOOL T7_bToolUnused true"}, {kLine, "L,1,7,0,60,10,60,60,0,0"}}},

    // Increments.
    {"StepsThatAddUp",
     {{"BOOL bOutModeAbs false", "INT MM_AX1_nNDec 5", "INT MM_AX2_nNDec 5"}, Steps(300)},
     {"not-cut: increments below 0.0005 are left out and add up",
      "cut-elsewhere: increments below 0.0005 are left out and add up"},
     {{"INT MM_AX1_nNDec 5", "INT MM_AX2_nNDec 5"}, Steps(300)}},

    // Texts and values.
    {"TextsThatAreNotWritten",
     {{}, {"T,1,1,0,10,10,0,5,5", "PUMP"}},
     {"text-lost: the tuning writes no texts"},
     {{}, {kLine}}},

    // Knives.
    {"NoTurnBeforeItPlunges",
     {Joined(kKnife, {"MULTI T1_ToolOn_tTmpl NNUL M3"}), {kSquare}},
     {"tool-direction"},
     {kKnife, {kSquare}}},
    {"CircleInOneTurn", {kKnife, {kCircle}}, {"turn-in-material"}, {kKnife, {kLong}}},
    {"GapThatHidesALift",
     {Joined(kKnife, {"REAL T1_rMinMoveMM 5"}), {kLine, "L,1,1,0,61,10,61,60,0,0"}},
     {"tool-direction"},
     {kKnife, {kLine, "L,1,1,0,61,10,61,60,0,0"}}},

    // What is seen by the way of the tool alone.
    {"CutOnTheWay",
     {{"MULTI MainInit_tTmpl NNUL G21G90F500 NNUL M3 NNUL G1X70Y70", "MULTI T1_ToolOn_tTmpl NNUL",
       "MULTI T1_ToolOff_tTmpl NNUL M5"},
      {kLine}},
     {"stray-cut", "changed-while-on", "not-cut: nothing switches the tool on"},
     {{}, {kLine}}},
    {"FlyModeThatMoves",
     {{"BOOL Fly_bSupport true", "BOOL T1_Fly_bUse true", "REAL T1_Fly_rDEG_MaxAngDeviation 100",
       "MULTI Fly_PreCheck_tTmpl NNUL G64 NNUL G1X0Y0"},
      kTwoLines},
     {"cut-elsewhere"},
     {{"BOOL Fly_bSupport true", "BOOL T1_Fly_bUse true", "REAL T1_Fly_rDEG_MaxAngDeviation 100",
       "MULTI Fly_PreCheck_tTmpl NNUL G64"},
      kTwoLines}},
    {"TileWithACallInACall",
     {kCalls, {"C,S,20,20,0,0,0"}, {"SUB,S", kLine, "C,T,5,5,0,0,0", "END", "SUB,T", kSquare, kLine, "END"}, 1},
     {"cut-elsewhere: a call within an expanded program is placed as if the main program made it"},
     {kCalls, {"C,S,20,20,0.5,0,1"}, {"SUB,S", kLine, kSquare, "END"}, 1}},
    {"RotaryAxis",
     {Joined(kRotary, {"MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords[A2]>"}), {kLine}},
     {"not-cut"},
     {kRotary, {kLine, kSquare, "L,1,1,0,60,60,0,0,0,0"}}},
    {"ToolThatNothingSelects",
     {{"MULTI T1_ToolSel_tTmpl NNUL S100", "MULTI T2_ToolSel_tTmpl NNUL"}, {kLine, "L,1,2,0,60,20,60,60,0,0"}},
     {"other-tool: nothing selects the tool"},
     {{"MULTI T1_ToolSel_tTmpl NNUL S100", "MULTI T2_ToolSel_tTmpl NNUL S200"}, {kLine, "L,1,2,0,60,20,60,60,0,0"}}},
    {"TurnedCallWithoutItsWord",
     {Joined(kCalls, {"BOOL bUseMirror true", "BOOL bUseRotations true"}),
      {"C,S,20,20,0.5,0,0"},
      {"SUB,S", kLine, kSquare, "END"}},
     {"cut-elsewhere: no word of the call says that it is turned or mirrored"},
     {kCalls, {"C,S,20,20,0.5,0,0"}, {"SUB,S", kLine, kSquare, "END"}}},

    // What switches tools on and off.
    {"OutputOfAnotherNumber",
     {{"MULTI T1_ToolOn_tTmpl NNUL M62P0", "MULTI T1_ToolOff_tTmpl NNUL M63P1"}, kApart},
     {"rapid-while-on", "end-while-on: nothing switches the tool off"},
     {{"MULTI FileStart_tTmpl NNUL M64P2", "MULTI T1_ToolOn_tTmpl NNUL M62P0", "MULTI T1_ToolOff_tTmpl NNUL M63P0"},
      kApart}},
    {"SpindleWithoutSpeed",
     {{"MULTI T1_ToolOn_tTmpl NNUL M3S0"}, {kLine}},
     {"not-cut: the master tool is not switched on again"},
     {{"MULTI T1_ToolOff_tTmpl NNUL M3S0", "MULTI FileEnd_tTmpl NNUL M5 NNUL M2"}, kApart}},
    {"OnCodeThatIsNone",
     {{"MULTI T1_ToolOn_tTmpl NNUL M5"}, {kLine}},
     {"not-cut: nothing switches the tool on"},
     {{}, {kLine}}},
    {"TorchThatOnlyLifts",
     {Joined(kTorch, {"MULTI T1_ToolOff_tTmpl NNUL G0Z10"}), kApart},
     {"rapid-while-on", "end-while-on: nothing switches the tool off"},
     {kTorch, kApart}},
    {"SpindleStoppedByAChange",
     {Joined(kRouter, {"MULTI FileStart_tTmpl NNUL M3S9000", "MULTI T1_ToolSel_tTmpl NNUL T1M6"}), {kLine}},
     {"not-cut: the master tool is not switched on again"},
     {kRouter, {kLine}}},
    {"LiftInPartOnly",
     {Joined(kRouter, {"MULTI T1_ToolOff_tTmpl NNUL G0Z-1", "MULTI FileEnd_tTmpl NNUL G0Z5 NNUL M2"}), kApart},
     {"rapid-while-on"},
     {kRouter, kApart}},
    {"LiftOnTheWay",
     {Joined(kRouter, {"MULTI T1_ToolOff_tTmpl NNUL", "MULTI Move_tTmpl NNUL <@InterpCode><@StartPtWords>Z5",
                       "MULTI FileEnd_tTmpl NNUL G0Z5 NNUL M2"}),
      kApart},
     {"rapid-while-on: nothing switches the tool off"},
     {Joined(kRouter, {"MULTI T1_ToolOff_tTmpl NNUL G91G28Z0 NNUL G90"}), kApart}},
    {"DeeperEachTime",
     {Joined(kRouter,
             {"BOOL bOutModeAbs false", "MULTI T1_ToolOn_tTmpl NNUL G1Z-7", "MULTI T1_ToolOff_tTmpl NNUL G0Z9"}),
      kApart},
     {"not-cut: the master tool is not switched on again"},
     {Joined(kRouter,
             {"BOOL bOutModeAbs false", "MULTI T1_ToolOn_tTmpl NNUL G1Z-7", "MULTI T1_ToolOff_tTmpl NNUL G0Z7"}),
      kApart}},
    {"ToolsInComments",
     {{"MULTI T1_ToolSel_tTmpl NNUL S1", "MULTI T2_ToolSel_tTmpl NNUL"}, {kLine, "L,1,2,0,60,20,60,60,0,0"}},
     {"other-tool: nothing selects the tool"},
     {{"MULTI T1_ToolSel_tTmpl NNUL M0(CUT1)", "MULTI T2_ToolSel_tTmpl NNUL M0(CUT2)"},
      {kLine, "L,1,2,0,60,20,60,60,0,0"}}},

    // What a controller refuses.
    {"DepthAfterAnArc",
     {Joined(kRouter, {"MULTI T1_ToolOff_tTmpl NNUL Z5"}), {kLong}},
     {"no-arc-centre"},
     {kRouter, {kLong}}},
    {"PlungeWithoutFeed",
     {Joined(kRouter, {"MULTI MainInit_tTmpl NNUL G21G90"}), {kLine}},
     {"no-feed"},
     {kRouter, {kLine}}},
    {"RadiusAndCentre",
     {{"MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@ArcDataWords>R10"}, {kLong}},
     {"repeated-word"},
     {{}, {kLong}}},

    // Lines of a call.
    {"OriginAfterTheCall",
     {Joined(kAbsoluteCalls,
             {"MULTI OriTransSet_tTmpl NNUL", "MULTI SubCall_tTmpl NNUL o<@IncludeNum>!#SP#!call NNUL G52X20Y20"}),
      {"C,S,20,20,0,0,0"},
      {"SUB,S", kLine, kSquare, "END"}},
     {"cut-elsewhere"},
     {kAbsoluteCalls, {"C,S,20,20,0,0,0"}, {"SUB,S", kLine, kSquare, "END"}}},
    {"ModeOfAnEarlierFile",
     {Joined(kSegments, {"MULTI T1_ToolSel_tTmpl NNUL T1M6 NNUL G91", "MULTI MainInit_tTmpl NNUL F500"}),
      kToolsInTurns},
     {"not-cut: the tuning has no code for absolute or incremental words",
      "cut-elsewhere: the tuning has no code for absolute or incremental words"},
     {kSegments, kToolsInTurns}},

    {"CalledTwice",
     {Joined(kCalls, {"MULTI SubCall_tTmpl NNUL o<@IncludeNum>!#SP#!call NNUL o<@IncludeNum>!#SP#!call"}),
      {"C,S,20,20,0,0,0"},
      {"SUB,S", kLine, kSquare, "END"}},
     {"cut-twice"},
     {Joined(kCalls, {"MULTI SubCall_tTmpl NNUL G91 NNUL o<@IncludeNum>!#SP#!call NNUL G90"}),
      {"C,S,20,20,0,0,0", kLine},
      {"SUB,S", kLine, kSquare, "END"}}},

    // A plotter.
    {"AddressesWithAComma",
     {{"TEXT sAx2Addr ,", "MULTI Line_tTmpl NNUL"}, {kLine}},
     {"not-cut: its template is missing or writes nothing"},
     {{"TEXT sAx2Addr ,"}, {kLine}},
     kPlotter},
    {"PenNeverDown",
     {{"MULTI T1_ToolOn_tTmpl NNUL"}, {kLine, kCircle}},
     {"not-cut: nothing switches the tool on"},
     {{}, {kLine, kCircle, "A,1,2,0,50,40,40,30,40,40,10,0,0"}},
     kPlotter},
    {"PenNeverUp",
     {{"MULTI T1_ToolOff_tTmpl NNUL"}, {kLine, kCircle}},
     {"stray-cut: nothing switches the tool off", "end-while-on: nothing switches the tool off"},
     {{}, {kLine, kCircle}},
     kPlotter},
};

class Losses : public testing::TestWithParam<Row> {};

TEST_P(Losses, AreFound) {
    const Row& row = GetParam();
    const auto findings = [&row](const Job& job) {
        return FindingsOf(Joined(row.machine, job.tuning), Drawing(job.main, job.subs), job.tile);
    };
    EXPECT_EQ(findings(row.lossy), row.findings);
    EXPECT_EQ(findings(row.right), Lines());
}

INSTANTIATE_TEST_SUITE_P(Jobs, Losses, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace brindle
