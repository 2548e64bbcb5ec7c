#include "host/reference/directive_examples.h"

#include <algorithm>

#include "text/words.h"

namespace brindle::host {
namespace {

using Kind = ExampleRecord::Kind;

constexpr std::string_view kTuning =
    "INT nNumOfTools 1\n"
    "INT MM_AX1_nNDec 3\n"
    "INT MM_AX2_nNDec 3\n"
    "TEXT sAx1Addr X\n"
    "TEXT sAx2Addr Y\n"
    "TEXT sCenAx1Addr I\n"
    "TEXT sCenAx2Addr J\n"
    "TEXT sRadArcAddr R\n"
    "TEXT sSubArcAddr A\n"
    "TEXT sRTCode G0\n"
    "TEXT sLTCode G1\n"
    "TEXT sCWCode G2\n"
    "TEXT sCCWCode G3\n"
    "TEXT sAbsCode G90\n"
    "TEXT sIncCode G91\n"
    "TEXT sInchCode G20\n"
    "TEXT sMetricCode G21\n"
    "TEXT sNWordAddr N\n"
    "TEXT sMainProgNum 100\n"
    "TEXT ToolRot_sAddr C\n"
    "TEXT Speed_sParam1Addr F\n"
    "BOOL Speed_b1 true\n"
    "BOOL Speed_bAsValue true\n"
    "INT Speed_nNDec 4545\n"
    "TEXT T1_Speed_P1_sV1 1200";

constexpr ExampleJob kJob = {L"2026-03-01", L"10:30",   L"box.cf2", L"box.nc",      L"oak.mat",
                             L"laser.tun",  L"Laser 2", L"Oak",     {400.0, 300.0}, 150.0};

constexpr ExampleRecord kLine[] = {{.kind = Kind::kLine, .start = {10, 20}, .end = {40, 60}}};
constexpr ExampleRecord kCorner[] = {{.kind = Kind::kLine, .start = {0, 0}, .end = {40, 0}},
                                     {.kind = Kind::kLine, .start = {40, 0}, .end = {40, 30}}};
constexpr ExampleRecord kStraight[] = {{.kind = Kind::kLine, .start = {0, 0}, .end = {40, 0}},
                                       {.kind = Kind::kLine, .start = {40, 0}, .end = {80, 0}}};
constexpr ExampleRecord kArc[] = {
    {.kind = Kind::kArc, .start = {50, 0}, .end = {0, 50}, .center = {0, 0}, .radius = -50}};
constexpr ExampleRecord kLongArc[] = {
    {.kind = Kind::kArc, .start = {50, 0}, .end = {0, 50}, .center = {0, 0}, .radius = 50}};
constexpr ExampleRecord kText[] = {
    {.kind = Kind::kText, .start = {20, 30}, .degrees = 90, .height = 5, .name = "BOX 7"}};
constexpr ExampleRecord kPart[] = {{.kind = Kind::kLine, .start = {0, 0}, .end = {20, 0}}};
constexpr ExampleRecord kCall[] = {{.kind = Kind::kCall, .start = {100, 50}, .name = "PART"}};
constexpr ExampleRecord kTurnedCalls[] = {
    {.kind = Kind::kCall, .start = {100, 50}, .degrees = 90, .mirror_x = true, .name = "PART"},
    {.kind = Kind::kCall, .start = {200, 50}, .name = "PART"}};

constexpr ExampleDrawing kDrawings[] = {
    {"line", kLine, {}},         {"corner", kCorner, {}},
    {"straight", kStraight, {}}, {"arc", kArc, {}},
    {"long arc", kLongArc, {}},  {"text", kText, {}},
    {"call", kCall, kPart},      {"turned calls", kTurnedCalls, kPart},
};

constexpr std::string_view kTangential = "BOOL T1_bTangential true";
constexpr std::string_view kTexts =
    "BOOL bUseText true\nTEXT TextData_sAddr LB\nTEXT TextRot_sAddr A\nTEXT TextHgt_sAddr H";
constexpr std::string_view kMirrors = "BOOL bUseMirror true\nTEXT sMirrorX M21\nTEXT sMirrorReset M23";
constexpr std::string_view kMirrorsWithCall =
    "BOOL bUseMirror true\nTEXT sMirrorX M21\nTEXT sMirrorReset M23\nMULTI SubCall_tTmpl NNUL <@IncludeMirCode>M98";
constexpr std::string_view kRotations =
    "BOOL bUseMirror true\nBOOL bUseRotations true\nTEXT SubRot_sAddr R\nTEXT SubRot_sCode G68\nTEXT SubRot_sResetCode "
    "G69";
constexpr std::string_view kRotationsWithCall =
    "BOOL bUseMirror true\nBOOL bUseRotations true\nTEXT SubRot_sAddr R\nTEXT SubRot_sCode G68\nTEXT SubRot_sResetCode "
    "G69\n"
    "MULTI SubCall_tTmpl NNUL <@IncludeRotWord>M98";
constexpr std::string_view kFlyMode =
    "BOOL Fly_bSupport true\nTEXT Fly_sOnCode G64\nTEXT Fly_sOffCode G60\nBOOL T1_Fly_bUse true";

// clang-format off
constexpr DirectiveExample kExamples[] = {
    {"", "Line_", "G1<@EndPtWords>! to the end", "line", "G1X40.000Y60.000", {},
     "Text and words; a ! begins a comment."},
    {"", "FileStart_", "(FOR <RTD(1)>)", "line", "(FOR SMITH)", "MSG TEXT Customer\nDATASETDEF Oak\nDSD Oak TEXT RTD(1) SMITH",
     "A value of run-time data."},
    {"", "Line_", "<@InterpCode>", "line", "G1 M1", "TEXT sLTCode G1!#SP#!M<@ToolId>",
     "Texts of options hold words too."},
    {"", "Line_", "<@EndPtWords[a1, data]> <@EndPtWords[A2 DATA]>", "line", "40.000 60.000", {},
     "Keywords are written between brackets, in any case, with commas or blanks between them."},

    {"@InterpCode", "Line_", "<@InterpCode><@EndPtWords>", "corner", "G1X40.000Y0.000\nY30.000", {},
     "The code is left out while it stays the same."},
    {"@InterpCode", "Arc_", "<@InterpCode[NONMODAL]><@EndPtWords>", "arc", "G3X0.000Y50.000"},
    {"@StartPtWords", "Move_", "G0<@StartPtWords>", "line", "G0X10.000Y20.000"},
    {"@StartPtWords", "Move_", "PU<@StartPtWords[A1,DATA]>,<@StartPtWords[A2,DATA]>", "line", "PU10.000,20.000"},
    {"@EndPtWords", "Line_", "G1<@EndPtWords>", "corner", "G1X40.000Y0.000\nG1Y30.000", {},
     "An axis word is left out while the position stays the same."},
    {"@EndPtWords", "Line_", "G91 G1<@EndPtWords[INC,NONMODAL]>", "corner", "G91 G1X40.000Y0.000\nG91 G1X0.000Y30.000"},
    {"@EndPtWords", "Line_", "<@EndPtWords[INC,MOVETO]> <@MidPtWords[INC]>", "line", "X30.000Y40.000 X-15.000Y-20.000", {},
     "MOVETO makes the end the point from which the middle is measured."},
    {"@CenPtWords", "Arc_", "G3<@EndPtWords><@CenPtWords>", "arc", "G3X0.000Y50.000I-50.000", {},
     "The centre is measured from the start; J is left out because it is 0."},
    {"@CenPtWords", "Arc_", "<@CenPtWords[NONMODAL]>", "arc", "I0.000J0.000", "BOOL bInAbsCenFromStart false\nBOOL bInAbsCenIsAbs true"},
    {"@MidPtWords", "Line_", "<@MidPtWords>", "line", "X25.000Y40.000"},
    {"@MidPtWords", "Arc_", "<@MidPtWords>", "arc", "X35.355Y35.355"},
    {"@ArcDataWords", "Arc_", "<@EndPtWords><@ArcDataWords>", "arc", "X0.000Y50.000I-50.000"},
    {"@ArcDataWords", "Arc_", "<@EndPtWords><@ArcDataWords>", "long arc", "X0.000Y50.000R-50.000", "BOOL bArcByRad true"},
    {"@Radius", "Arc_", "<@Radius>", "long arc", "R-50.000", {}, "A negative radius means an arc of more than half a turn."},
    {"@Radius", "Arc_", "<@Radius[ABS]>", "long arc", "R50.000"},
    {"@Subtended", "Arc_", "<@Subtended>", "arc", "A-90.00", {}, "Clockwise arcs are positive."},
    {"@ArcSign", "Arc_", "<@ArcSign>1", "arc", "-1"},

    {"@SetToolDir", "Line_", "<@SetToolDir[SETTO(90)]><@AtAngle[INC]>", "line", "C-36.870", kTangential,
     "The line leads to 53.13 degrees; the tool is set to point to 90."},
    {"@AtAngle", "Line_", "<@AtAngle>", "corner", "C0.000\nC90.000", kTangential},
    {"@AtAngle", "Line_", "<@AtAngle[INC]><@EndPtWords>", "corner", "X40.000Y0.000\nC90.000Y30.000", kTangential,
     "The move to the first line brings the tool to its direction, so the first turn is 0 and left out."},
    {"@AtAngle", "Line_", "<@AtAngle[SILENT]><@EndPtWords>", "corner", "X40.000Y0.000\nY30.000", kTangential},
    {"@AtAngle", "Arc_", "<@AtAngle[RADIAL]>", "arc", "C0.000", kTangential, "From the centre to the start of the arc."},
    {"@FinAngle", "Arc_", "<@EndPtWords><@FinAngle[INC]>", "arc", "X0.000Y50.000C90.000", kTangential},
    {"@TangAuxCode1", "T1_ToolSel_", "<@TangAuxCode1>", "line", "M31", "BOOL T1_bTangential true\nTEXT sTangAuxCode1 M31"},
    {"@TangAuxCode2", "T1_ToolSel_", "<@TangAuxCode2>", "line", "M32", "BOOL T1_bTangential true\nTEXT sTangAuxCode2 M32"},

    {"@ToolId", "T1_ToolSel_", "T<@ToolId>", "line", "T1"},
    {"@LineType", "Line_", "(TYPE <@LineType>)", "line", "(TYPE 1)"},
    {"@CutWidth", "Line_", "D<@CutWidth>", "line", "D2.000"},
    {"@CutWidth", "Line_", "D<@CutWidth[NDEC(1),FACTOR(0.5)]>", "line", "D1.0", {}, "The radius of the cut."},
    {"@BridgeWidth", "Line_", "B<@BridgeWidth>", "line", "B5.000"},
    {"@BridgeNum", "Line_", "K<@BridgeNum>", "line", "K3"},
    {"@SpeedWords", "Line_", "<@EndPtWords><@SpeedWords>", "corner", "X40.000Y0.000F1200\nY30.000"},
    {"@SpeedWords", "Line_", "<@EndPtWords><@SpeedWords>", "corner", "X40.000Y0.000F1200\nY30.000F800",
     "BOOL Speed_b1 false\nTEXT T1_Speed_P1_sV2 800", "One speed along each axis."},
    {"@FlyModeCode", "Line_", "<@FlyModeCode><@EndPtWords>", "straight", "G64X40.000Y0.000\nG60X80.000", kFlyMode},

    {"@TextDataWord", "Text_", "<@TextDataWord>", "text", "LBBOX 7", kTexts},
    {"@TextDataWord", "Text_", "(<@TextDataWord[DATA]>)", "text", "(BOX_7)",
     "BOOL bUseText true\nTEXT TextData_sFROM_1 !#SP#!\nTEXT TextData_sTO_1 _"},
    {"@TextRotWord", "Text_", "<@TextRotWord>", "text", "A90.00", kTexts},
    {"@TextRotWord", "Text_", "DI<@TextRotWord[COS,DATA]>,<@TextRotWord[SIN,DATA]>", "text", "DI0.00,1.00", kTexts},
    {"@TextHgtWord", "Text_", "<@TextHgtWord>", "text", "H5.000", kTexts},

    {"@MainProgNum", "FileStart_", "O<@MainProgNum>", "line", "O100"},
    {"@CurProgName", "SubInit_", "(<@CurProgName>)", "call", "(PART)"},
    {"@IncludeNum", "SubCall_", "M98 P<@IncludeNum>", "call", "M98 P101"},
    {"@IncludeName", "SubCall_", "(<@IncludeName>)", "call", "(PART)"},
    {"@CurProgNum", "SubInit_", "O<@CurProgNum>", "call", "O101"},
    {"@NumOfSubs", "FileStart_", "(SUBS: <@NumOfSubs>)", "call", "(SUBS: 1)"},
    {"@MarkAsSub", "SubInit_", "<@NBlockOn><@MarkAsSub>(<@CurProgName>)", "call", "N10(PART)\nN20G22 P10",
     "BOOL SubNum_bUseBlockNum true\nMULTI SubCall_tTmpl NNUL G22!#SP#!P<@IncludeNum>",
     "The call reads the block number back."},

    {"@IncludePtWords", "MoveToIncludePt_", "G0<@IncludePtWords>", "call", "G0X100.000Y50.000"},
    {"@IncludeMirCode", "SubCall_", "<@IncludeMirCode>M98", "turned calls", "M21M98\nM23M98", kMirrors,
     "The second call is not mirrored, so mirroring ends."},
    {"@IncludeMirResetCode", "SubReset_", "<@IncludeMirResetCode>", "turned calls", "M21M98\nM23\nM98", kMirrorsWithCall},
    {"@IncludeRotWord", "SubCall_", "<@IncludeRotWord>M98", "turned calls", "G68R90.00M98\nG69M98", kRotations},
    {"@IncludeRotResetWord", "SubReset_", "<@IncludeRotResetWord>", "turned calls", "G68R90.00M98\nG69\nM98", kRotationsWithCall},

    {"@Date", "FileStart_", "(<@Date>)", "line", "(2026-03-01)"},
    {"@Time", "FileStart_", "(<@Time>)", "line", "(10:30)"},
    {"@CADFile", "FileStart_", "(<@CADFile>)", "line", "(box.cf2)"},
    {"@OutputFile", "FileStart_", "(<@OutputFile>)", "line", "(box.nc)"},
    {"@MaterialFile", "FileStart_", "(<@MaterialFile>)", "line", "(oak.mat)"},
    {"@DataSetName", "FileStart_", "(<@DataSetName>)", "line", "(Oak)", "DATASETDEF Oak",
     "One that the tuning does not define becomes its first, or none."},
    {"@TuneFile", "FileStart_", "(<@TuneFile>)", "line", "(laser.tun)"},
    {"@TuneMenuPick", "FileStart_", "(<@TuneMenuPick>)", "line", "(Laser 2)"},
    {"@DrvVersion", "FileStart_", "(BRINDLE <@DrvVersion>)", "line", "(BRINDLE 1.0)"},

    {"@AbsIncCode", "MainInit_", "<@AbsIncCode>", "line", "G90"},
    {"@AbsIncCode", "MainInit_", "<@AbsIncCode>", "line", "G91", "BOOL bOutModeAbs false"},
    {"@UnitsCode", "MainInit_", "<@UnitsCode>", "line", "G21"},
    {"@UnitsCode", "MainInit_", "<@UnitsCode>", "line", "G20", "BOOL bOutUnitsInches true"},
    {"@GrainCode", "MainInit_", "<@GrainCode>", "line", "M81", "TEXT sHorizCode M81\nTEXT sVertCode M82"},
    {"@SideCode", "MainInit_", "<@SideCode>", "line", "M83", "TEXT sInsideCode M83\nTEXT sOutsideCode M84"},

    {"@BlankX", "FileStart_", "(<@BlankX> BY <@BlankY>)", "line", "(400 BY 300)"},
    {"@BlankX", "FileStart_", "(<@BlankX[NDEC(1)]> IN)", "line", "(15.7 IN)", "BOOL bOutUnitsInches true"},
    {"@BlankY", "FileStart_", "(<@BlankY[FACTOR(0.1)]> CM)", "line", "(30 CM)"},
    {"@OverallSize", "FileStart_", "<@OverallSize>", "line", "X400.000Y300.000"},
    {"@LowerLeft", "FileStart_", "<@LowerLeft>", "line", "X0.000Y0.000"},
    {"@UpperRight", "FileStart_", "<@UpperRight[A2]>", "line", "Y300.000"},
    {"@RotaryRadius", "FileStart_", "R<@RotaryRadius>", "line", "R150.000"},

    {"@NBlockOff", "Line_", "<@NBlockOn>G1<@EndPtWords>\n<@NBlockOff>M0", "line", "N10G1X40.000Y60.000\nM0"},
    {"@NBlockOn", "Line_", "<@NBlockOn>G1<@EndPtWords>", "corner", "N10G1X40.000Y0.000\nN20G1Y30.000"},
    {"@NBlockOn", "Line_", "<@NBlockOn[SPECIAL]>G1<@EndPtWords>", "corner", "N1G1X40.000Y0.000\nN2G1Y30.000"},
    {"@NBlockOn", "FileStart_", "<@NBlockOn[SETTO(100),INCBY(5)]>%\nG17", "line", "N100%\nN105G17"},
    {"@IODwell", "T1_ToolOn_", "M3\n<@IODwell[1.5]>\nM4", "line", "M3\nIODWELL 1.5 ]\nM4", {},
     "The host gets the dwell as a piece of its own; brindle drops it from NC files."},
};
// clang-format on

}  // namespace

std::string_view ExampleTuning() { return kTuning; }

const ExampleJob& TheExampleJob() { return kJob; }

std::span<const ExampleDrawing> ExampleDrawings() { return kDrawings; }

const ExampleDrawing& FindExampleDrawing(std::string_view name) {
    const auto found = std::find_if(std::begin(kDrawings), std::end(kDrawings),
                                    [name](const ExampleDrawing& drawing) { return drawing.name == name; });
    return found == std::end(kDrawings) ? kDrawings[0] : *found;
}

std::span<const DirectiveExample> DirectiveExamples() { return kExamples; }

std::string TemplateLineOf(const DirectiveExample& example) {
    std::string line = std::string("MULTI ").append(example.event).append("tTmpl");
    for (size_t begin = 0; begin <= example.lines.size();) {
        const size_t end = std::min(example.lines.find('\n', begin), example.lines.size());
        line.append(" NNUL ").append(EscapeWord(example.lines.substr(begin, end - begin)));
        begin = end + 1;
    }
    return line;
}

}  // namespace brindle::host
