#include "language/directives.h"

#include <algorithm>
#include <array>

#include "generator/arc_words.h"
#include "generator/axis_words.h"
#include "generator/code_words.h"
#include "generator/job_words.h"
#include "generator/line_words.h"
#include "generator/program_words.h"
#include "generator/rotation_words.h"
#include "generator/speed_words.h"
#include "generator/text_words.h"

namespace brindle {
namespace {

using K = Keyword;
using N = RecordNeed;

constexpr KeywordSet kNoKeywords;
constexpr KeywordSet kAddress(K::kWord, K::kData);
constexpr KeywordSet kModal(K::kModal, K::kNonModal);
constexpr KeywordSet kAxes(K::kA1, K::kA2);
constexpr KeywordSet kMode(K::kAbs, K::kInc);
constexpr KeywordSet kPlainPoint = kMode | kAddress | kAxes;
constexpr KeywordSet kPoint = kPlainPoint | KeywordSet(K::kMoveTo) | kModal;
constexpr KeywordSet kCentre = kPlainPoint | kModal;
constexpr KeywordSet kNumber(K::kNDec, K::kFactor);
constexpr KeywordSet kRotation = kAddress | kMode | kModal | KeywordSet(K::kRadial, K::kSilent);

constexpr std::string_view kAxisDefaults = "output mode, WORD, both axes, bAxisDataModal";
constexpr std::string_view kModeDefaults = "output mode, WORD, both axes";

// One row a line, however long.
// clang-format off
constexpr DirectiveInfo kTable[] = {
    {20201, "@InterpCode", "Geometry", kModal, "bICodesModal", N::kAny, "interpolation code: rapid, linear, clockwise or counter-clockwise", InterpCode},
    {20202, "@StartPtWords", "Geometry", kPoint, kAxisDefaults, N::kAny, "axis words of the record's start point", StartPtWords},
    {20203, "@EndPtWords", "Geometry", kPoint, kAxisDefaults, N::kAny, "axis words of the record's end point", EndPtWords},
    {20204, "@CenPtWords", "Geometry", kCentre, "output mode, WORD, both axes, bArcDataModal", N::kArc, "centre words of an arc", CenPtWords},
    {20205, "@MidPtWords", "Geometry", kPlainPoint, kModeDefaults, N::kArcOrLine, "axis words of the middle of an arc or a line; never modal", MidPtWords},
    {20206, "@ArcDataWords", "Geometry", kCentre, "output mode, WORD, both axes, bArcDataModal; NONMODAL in the radius and subtended forms", N::kArc, "an arc in the tuning's form: radius, subtended angle or centre", ArcDataWords},
    {20207, "@Radius", "Geometry", KeywordSet(K::kAbs) | kAddress | kModal, "signed, WORD, NONMODAL", N::kArc, "radius word of an arc; a negative radius tells a long arc", Radius},
    {20208, "@Subtended", "Geometry", kAddress | kModal, "WORD, NONMODAL", N::kArc, "subtended angle word of an arc, in degrees", Subtended},
    {20209, "@ArcSign", "Geometry", kNoKeywords, "", N::kArc, "a minus sign if the arc turns against the positive sense of subtended angles", ArcSign},

    {20221, "@SetToolDir", "Tool direction", KeywordSet(K::kSetTo), "SETTO(0)", N::kAny, "nothing; tells where the tool points, in degrees", SetToolDir},
    {20222, "@AtAngle", "Tool direction", kRotation, "output mode, WORD, ToolRot_bModal", N::kAny, "rotation word that brings a tangential tool to the direction at the record's start", AtAngle},
    {20223, "@FinAngle", "Tool direction", kRotation, "output mode, WORD, ToolRot_bModal", N::kAny, "rotation word for the direction at the record's end", FinAngle},
    {20224, "@TangAuxCode1", "Tool direction", kNoKeywords, "", N::kAny, "first auxiliary code, if the selected tool is tangential", TangAuxCode1},
    {20225, "@TangAuxCode2", "Tool direction", kNoKeywords, "", N::kAny, "second auxiliary code, if the selected tool is tangential", TangAuxCode2},

    {20231, "@ToolId", "Line data", kNoKeywords, "", N::kAny, "number of the selected tool", ToolId},
    {20232, "@LineType", "Line data", kNoKeywords, "", N::kAny, "line type of the record", LineType},
    {20233, "@CutWidth", "Line data", kNumber, "NDEC(linear decimals), FACTOR(1)", N::kAny, "cut width of the record", CutWidth},
    {20234, "@BridgeWidth", "Line data", kNoKeywords, "", N::kAny, "bridge width of the record, in the format of axis 1", BridgeWidth},
    {20235, "@BridgeNum", "Line data", kNoKeywords, "", N::kAny, "number of bridges of the record", BridgeNum},
    {20236, "@SpeedWords", "Line data", kAxes | kModal, "both parameters, Speed_bModal", N::kAny, "speed words; A1 keeps only parameter 1, A2 only parameter 2", SpeedWords},
    {20237, "@FlyModeCode", "Line data", kNoKeywords, "", N::kAny, "fly mode code: on or off", FlyModeCode},

    {20240, "@TextDataWord", "Text", kAddress, "WORD", N::kText, "text of a text record", TextDataWord},
    {20241, "@TextRotWord", "Text", kAddress | kNumber | KeywordSet(K::kCos, K::kSin) | kModal, "WORD, NDEC(TextRot_nNDec), FACTOR(1), TextRot_bModal", N::kAny, "rotation of a text in degrees, or its cosine or sine", TextRotWord},
    {20242, "@TextHgtWord", "Text", kAddress | kNumber | kModal, "WORD, NDEC(TextHgt_nNDec), FACTOR(1), TextHgt_bModal", N::kAny, "height of a text", TextHgtWord},

    {20250, "@MainProgNum", "Programs", kNoKeywords, "", N::kAny, "number of the main program, as the tuning has it", MainProgNum},
    {20251, "@CurProgName", "Programs", kNoKeywords, "", N::kAny, "name of the program being written", CurProgName},
    {20252, "@IncludeNum", "Programs", kNoKeywords, "", N::kInclude, "number of the called sub-program", IncludeNum},
    {20253, "@IncludeName", "Programs", kNoKeywords, "", N::kInclude, "name of the called sub-program", IncludeName},
    {20254, "@CurProgNum", "Programs", KeywordSet(K::kIncBy), "INCBY(0)", N::kAny, "number of the program being written", CurProgNum},
    {20255, "@NumOfSubs", "Programs", kNoKeywords, "", N::kAny, "number of distinct sub-programs", NumOfSubs},
    {20256, "@MarkAsSub", "Programs", kNoKeywords, "", N::kAny, "nothing; records the block number as the number of the sub-program being written", MarkAsSub},

    {20258, "@IncludePtWords", "Calls", kPoint, kAxisDefaults, N::kAny, "axis words of the point of a call", StartPtWords},
    {20259, "@IncludeMirCode", "Calls", kModal, "MODAL", N::kInclude, "mirror code of a call", IncludeMirCode},
    {20260, "@IncludeMirResetCode", "Calls", kModal, "MODAL", N::kAny, "code that ends mirroring", IncludeMirResetCode},
    {20261, "@IncludeRotWord", "Calls", kModal, "MODAL", N::kInclude, "rotation code and word of a call, in degrees", IncludeRotWord},
    {20262, "@IncludeRotResetWord", "Calls", kModal, "MODAL", N::kAny, "code that ends rotation", IncludeRotResetWord},

    {20270, "@Date", "Job", kNoKeywords, "", N::kAny, "date of the job", Date},
    {20271, "@Time", "Job", kNoKeywords, "", N::kAny, "time of the job", Time},
    {20272, "@CADFile", "Job", kNoKeywords, "", N::kAny, "name of the drawing", CADFile},
    {20273, "@OutputFile", "Job", kNoKeywords, "", N::kAny, "name of the NC file", OutputFile},
    {20274, "@MaterialFile", "Job", kNoKeywords, "", N::kAny, "name of the material file", MaterialFile},
    {20275, "@DataSetName", "Job", kNoKeywords, "", N::kAny, "dataset of run-time data", DataSetName},
    {20276, "@TuneFile", "Job", kNoKeywords, "", N::kAny, "name of the tuning file", TuneFile},
    {20277, "@TuneMenuPick", "Job", kNoKeywords, "", N::kAny, "name under which the tuning was picked", TuneMenuPick},
    {20278, "@DrvVersion", "Job", kNoKeywords, "", N::kAny, "version of the library", DrvVersion},

    {20280, "@AbsIncCode", "Codes", kModal, "bMCodeModal", N::kAny, "code of absolute or incremental mode", AbsIncCode},
    {20281, "@UnitsCode", "Codes", kModal, "bUCodeModal", N::kAny, "code of inches or millimetres", UnitsCode},
    {20282, "@GrainCode", "Codes", kNoKeywords, "", N::kAny, "code of horizontal or vertical grain", GrainCode},
    {20283, "@SideCode", "Codes", kNoKeywords, "", N::kAny, "code of the inside or outside of the material", SideCode},

    {20289, "@BlankX", "Blank", kNumber, "NDEC(2), in inches NDEC(3); FACTOR(1)", N::kAny, "size of the blank in X, always trimmed", BlankX},
    {20290, "@BlankY", "Blank", kNumber, "NDEC(2), in inches NDEC(3); FACTOR(1)", N::kAny, "size of the blank in Y, always trimmed", BlankY},
    {20291, "@OverallSize", "Blank", kPlainPoint, kModeDefaults, N::kAny, "axis words of the blank's size", OverallSize},
    {20292, "@LowerLeft", "Blank", kPlainPoint | KeywordSet(K::kMoveTo), kModeDefaults, N::kAny, "axis words of the job's lower left corner", LowerLeft},
    {20293, "@UpperRight", "Blank", kPlainPoint | KeywordSet(K::kMoveTo), kModeDefaults, N::kAny, "axis words of the job's upper right corner", UpperRight},
    {20294, "@RotaryRadius", "Blank", KeywordSet(K::kFactor), "FACTOR(1)", N::kAny, "effective radius of the rotary axis", RotaryRadius},

    {20301, "@NBlockOff", "Block numbers", kNoKeywords, "", N::kAny, "nothing; blocks from this one on get no number", NothingToWrite, Numbering::kOff},
    {20302, "@NBlockOn", "Block numbers", KeywordSet(K::kNormal, K::kSpecial, K::kIncBy, K::kSetTo), "the increment in force", N::kAny, "nothing; blocks from this one on get numbers", NothingToWrite, Numbering::kOn},
    {20304, "@IODwell", "Dwell", kNoKeywords, "", N::kAny, "a dwell for the host, with all that stands between the brackets", IODwell},
};
// clang-format on

static_assert(std::is_sorted(std::begin(kTable), std::end(kTable),
                             [](const DirectiveInfo& a, const DirectiveInfo& b) { return a.number < b.number; }));

constexpr std::string_view NameOf(const DirectiveInfo* directive) { return directive->name; }

// In the order of their names. Not on the heap: the last run of a host may come from its exit, and a host may unload
// the library.
constexpr auto kByName = [] {
    std::array<const DirectiveInfo*, std::size(kTable)> sorted{};
    std::transform(std::begin(kTable), std::end(kTable), sorted.begin(), [](const DirectiveInfo& one) { return &one; });
    std::ranges::sort(sorted, {}, NameOf);
    return sorted;
}();

}  // namespace

std::span<const DirectiveInfo> DirectiveTable() { return kTable; }

const DirectiveInfo* FindDirective(std::string_view name) {
    const auto found = std::ranges::lower_bound(kByName, name, {}, NameOf);
    return found == kByName.end() || NameOf(*found) != name ? nullptr : *found;
}

}  // namespace brindle
