#include "language/directives.h"

#include <algorithm>
#include <array>

namespace brindle {
namespace {

using D = DirectiveId;
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
constexpr DirectiveInfo kDirectives[] = {
    {D::kInterpCode, 20201, "@InterpCode", "Geometry", kModal, "bICodesModal", N::kAny, "interpolation code: rapid, linear, clockwise or counter-clockwise"},
    {D::kStartPtWords, 20202, "@StartPtWords", "Geometry", kPoint, kAxisDefaults, N::kAny, "axis words of the record's start point"},
    {D::kEndPtWords, 20203, "@EndPtWords", "Geometry", kPoint, kAxisDefaults, N::kAny, "axis words of the record's end point"},
    {D::kCenPtWords, 20204, "@CenPtWords", "Geometry", kCentre, "output mode, WORD, both axes, bArcDataModal", N::kArc, "centre words of an arc"},
    {D::kMidPtWords, 20205, "@MidPtWords", "Geometry", kPlainPoint, kModeDefaults, N::kArcOrLine, "axis words of the middle of an arc or a line; never modal"},
    {D::kArcDataWords, 20206, "@ArcDataWords", "Geometry", kCentre, "output mode, WORD, both axes, bArcDataModal; NONMODAL in the radius and subtended forms", N::kArc, "an arc in the tuning's form: radius, subtended angle or centre"},
    {D::kRadius, 20207, "@Radius", "Geometry", KeywordSet(K::kAbs) | kAddress | kModal, "signed, WORD, NONMODAL", N::kArc, "radius word of an arc; a negative radius means a long arc"},
    {D::kSubtended, 20208, "@Subtended", "Geometry", kAddress | kModal, "WORD, NONMODAL", N::kArc, "subtended angle word of an arc, in degrees"},
    {D::kArcSign, 20209, "@ArcSign", "Geometry", kNoKeywords, "", N::kArc, "a minus sign if the arc turns against the positive sense of subtended angles"},

    {D::kSetToolDir, 20221, "@SetToolDir", "Tool direction", KeywordSet(K::kSetTo), "SETTO(0)", N::kAny, "nothing; sets where the tool points, in degrees"},
    {D::kAtAngle, 20222, "@AtAngle", "Tool direction", kRotation, "output mode, WORD, ToolRot_bModal", N::kAny, "rotation word that brings a tangential tool to the direction at the record's start"},
    {D::kFinAngle, 20223, "@FinAngle", "Tool direction", kRotation, "output mode, WORD, ToolRot_bModal", N::kAny, "rotation word for the direction at the record's end"},
    {D::kTangAuxCode1, 20224, "@TangAuxCode1", "Tool direction", kNoKeywords, "", N::kAny, "first auxiliary code, if the selected tool is tangential"},
    {D::kTangAuxCode2, 20225, "@TangAuxCode2", "Tool direction", kNoKeywords, "", N::kAny, "second auxiliary code, if the selected tool is tangential"},

    {D::kToolId, 20231, "@ToolId", "Line data", kNoKeywords, "", N::kAny, "number of the selected tool"},
    {D::kLineType, 20232, "@LineType", "Line data", kNoKeywords, "", N::kAny, "line type of the record"},
    {D::kCutWidth, 20233, "@CutWidth", "Line data", kNumber, "NDEC(linear decimals), FACTOR(1)", N::kAny, "cut width of the record"},
    {D::kBridgeWidth, 20234, "@BridgeWidth", "Line data", kNoKeywords, "", N::kAny, "bridge width of the record, in the format of axis 1"},
    {D::kBridgeNum, 20235, "@BridgeNum", "Line data", kNoKeywords, "", N::kAny, "number of bridges of the record"},
    {D::kSpeedWords, 20236, "@SpeedWords", "Line data", kAxes | kModal, "both parameters, Speed_bModal", N::kAny, "speed words; A1 keeps only parameter 1, A2 only parameter 2"},
    {D::kFlyModeCode, 20237, "@FlyModeCode", "Line data", kNoKeywords, "", N::kAny, "fly mode code: on or off"},

    {D::kTextDataWord, 20240, "@TextDataWord", "Text", kAddress, "WORD", N::kText, "text of a text record"},
    {D::kTextRotWord, 20241, "@TextRotWord", "Text", kAddress | kNumber | KeywordSet(K::kCos, K::kSin) | kModal, "WORD, NDEC(TextRot_nNDec), FACTOR(1), TextRot_bModal", N::kAny, "rotation of a text in degrees, or its cosine or sine"},
    {D::kTextHgtWord, 20242, "@TextHgtWord", "Text", kAddress | kNumber | kModal, "WORD, NDEC(TextHgt_nNDec), FACTOR(1), TextHgt_bModal", N::kAny, "height of a text"},

    {D::kMainProgNum, 20250, "@MainProgNum", "Programs", kNoKeywords, "", N::kAny, "number of the main program, as the tuning has it"},
    {D::kCurProgName, 20251, "@CurProgName", "Programs", kNoKeywords, "", N::kAny, "name of the program being written"},
    {D::kIncludeNum, 20252, "@IncludeNum", "Programs", kNoKeywords, "", N::kInclude, "number of the called sub-program"},
    {D::kIncludeName, 20253, "@IncludeName", "Programs", kNoKeywords, "", N::kInclude, "name of the called sub-program"},
    {D::kCurProgNum, 20254, "@CurProgNum", "Programs", KeywordSet(K::kIncBy), "INCBY(0)", N::kAny, "number of the program being written"},
    {D::kNumOfSubs, 20255, "@NumOfSubs", "Programs", kNoKeywords, "", N::kAny, "number of distinct sub-programs"},
    {D::kMarkAsSub, 20256, "@MarkAsSub", "Programs", kNoKeywords, "", N::kAny, "nothing; records the block number as the number of the sub-program being written"},

    {D::kIncludePtWords, 20258, "@IncludePtWords", "Calls", kPoint, kAxisDefaults, N::kAny, "axis words of the point of a call"},
    {D::kIncludeMirCode, 20259, "@IncludeMirCode", "Calls", kModal, "MODAL", N::kInclude, "mirror code of a call"},
    {D::kIncludeMirResetCode, 20260, "@IncludeMirResetCode", "Calls", kModal, "MODAL", N::kAny, "code that ends mirroring"},
    {D::kIncludeRotWord, 20261, "@IncludeRotWord", "Calls", kModal, "MODAL", N::kInclude, "rotation code and word of a call, in degrees"},
    {D::kIncludeRotResetWord, 20262, "@IncludeRotResetWord", "Calls", kModal, "MODAL", N::kAny, "code that ends rotation"},

    {D::kDate, 20270, "@Date", "Job", kNoKeywords, "", N::kAny, "date of the job"},
    {D::kTime, 20271, "@Time", "Job", kNoKeywords, "", N::kAny, "time of the job"},
    {D::kCADFile, 20272, "@CADFile", "Job", kNoKeywords, "", N::kAny, "name of the drawing"},
    {D::kOutputFile, 20273, "@OutputFile", "Job", kNoKeywords, "", N::kAny, "name of the NC file"},
    {D::kMaterialFile, 20274, "@MaterialFile", "Job", kNoKeywords, "", N::kAny, "name of the material file"},
    {D::kDataSetName, 20275, "@DataSetName", "Job", kNoKeywords, "", N::kAny, "dataset of run-time data"},
    {D::kTuneFile, 20276, "@TuneFile", "Job", kNoKeywords, "", N::kAny, "name of the tuning file"},
    {D::kTuneMenuPick, 20277, "@TuneMenuPick", "Job", kNoKeywords, "", N::kAny, "name under which the tuning was picked"},
    {D::kDrvVersion, 20278, "@DrvVersion", "Job", kNoKeywords, "", N::kAny, "version of the library"},

    {D::kAbsIncCode, 20280, "@AbsIncCode", "Codes", kModal, "bMCodeModal", N::kAny, "code of absolute or incremental mode"},
    {D::kUnitsCode, 20281, "@UnitsCode", "Codes", kModal, "bUCodeModal", N::kAny, "code of inches or millimetres"},
    {D::kGrainCode, 20282, "@GrainCode", "Codes", kNoKeywords, "", N::kAny, "code of horizontal or vertical grain"},
    {D::kSideCode, 20283, "@SideCode", "Codes", kNoKeywords, "", N::kAny, "code of the inside or outside of the material"},

    {D::kBlankX, 20289, "@BlankX", "Blank", kNumber, "NDEC(2), in inches NDEC(3); FACTOR(1)", N::kAny, "size of the blank in X, always trimmed"},
    {D::kBlankY, 20290, "@BlankY", "Blank", kNumber, "NDEC(2), in inches NDEC(3); FACTOR(1)", N::kAny, "size of the blank in Y, always trimmed"},
    {D::kOverallSize, 20291, "@OverallSize", "Blank", kPlainPoint, kModeDefaults, N::kAny, "axis words of the blank's size"},
    {D::kLowerLeft, 20292, "@LowerLeft", "Blank", kPlainPoint | KeywordSet(K::kMoveTo), kModeDefaults, N::kAny, "axis words of the job's lower left corner"},
    {D::kUpperRight, 20293, "@UpperRight", "Blank", kPlainPoint | KeywordSet(K::kMoveTo), kModeDefaults, N::kAny, "axis words of the job's upper right corner"},
    {D::kRotaryRadius, 20294, "@RotaryRadius", "Blank", KeywordSet(K::kFactor), "FACTOR(1)", N::kAny, "effective radius of the rotary axis"},

    {D::kNBlockOff, 20301, "@NBlockOff", "Block numbers", kNoKeywords, "", N::kAny, "nothing; blocks from this one on get no number", Numbering::kOff},
    {D::kNBlockOn, 20302, "@NBlockOn", "Block numbers", KeywordSet(K::kNormal, K::kSpecial, K::kIncBy, K::kSetTo), "the increment in force", N::kAny, "nothing; blocks from this one on get numbers", Numbering::kOn},
    {D::kIODwell, 20304, "@IODwell", "Dwell", kNoKeywords, "", N::kAny, "a dwell for the host, with all that is between the brackets"},
};
// clang-format on

static_assert(std::size(kDirectives) == kDirectiveCount);
static_assert([] {
    for (size_t i = 0; i < kDirectiveCount; ++i) {
        if (kDirectives[i].id != static_cast<DirectiveId>(i)) return false;
    }
    return true;
}());
static_assert(std::is_sorted(std::begin(kDirectives), std::end(kDirectives),
                             [](const DirectiveInfo& a, const DirectiveInfo& b) { return a.number < b.number; }));

constexpr std::string_view NameOf(const DirectiveInfo* directive) { return directive->name; }

// In the order of their names. Not on the heap: the last run of a host may come from its exit, and a host may unload
// the library.
constexpr auto kByName = [] {
    std::array<const DirectiveInfo*, std::size(kDirectives)> sorted{};
    std::transform(std::begin(kDirectives), std::end(kDirectives), sorted.begin(),
                   [](const DirectiveInfo& one) { return &one; });
    std::ranges::sort(sorted, {}, NameOf);
    return sorted;
}();

}  // namespace

std::span<const DirectiveInfo> DirectiveTable() { return kDirectives; }

const DirectiveInfo& Info(DirectiveId id) { return kDirectives[static_cast<size_t>(id)]; }

const DirectiveInfo* FindDirective(std::string_view name) {
    const auto found = std::ranges::lower_bound(kByName, name, {}, NameOf);
    return found == kByName.end() || NameOf(*found) != name ? nullptr : *found;
}

}  // namespace brindle
