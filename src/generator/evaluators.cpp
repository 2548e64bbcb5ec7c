#include "generator/evaluators.h"

#include <iterator>

namespace brindle {
namespace {

using D = DirectiveId;

struct Row {
    DirectiveId id;
    Evaluator& evaluate;
};

// clang-format off
constexpr Row kRows[] = {
    {D::kInterpCode, InterpCode}, {D::kStartPtWords, StartPtWords}, {D::kEndPtWords, EndPtWords},
    {D::kCenPtWords, CenPtWords}, {D::kMidPtWords, MidPtWords}, {D::kArcDataWords, ArcDataWords},
    {D::kRadius, Radius}, {D::kSubtended, Subtended}, {D::kArcSign, ArcSign},
    {D::kSetToolDir, SetToolDir}, {D::kAtAngle, AtAngle}, {D::kFinAngle, FinAngle},
    {D::kTangAuxCode1, TangAuxCode1}, {D::kTangAuxCode2, TangAuxCode2},
    {D::kToolId, ToolId}, {D::kLineType, LineType}, {D::kCutWidth, CutWidth}, {D::kBridgeWidth, BridgeWidth},
    {D::kBridgeNum, BridgeNum}, {D::kSpeedWords, SpeedWords}, {D::kFlyModeCode, FlyModeCode},
    {D::kTextDataWord, TextDataWord}, {D::kTextRotWord, TextRotWord}, {D::kTextHgtWord, TextHgtWord},
    {D::kMainProgNum, MainProgNum}, {D::kCurProgName, CurProgName}, {D::kIncludeNum, IncludeNum},
    {D::kIncludeName, IncludeName}, {D::kCurProgNum, CurProgNum}, {D::kNumOfSubs, NumOfSubs},
    {D::kMarkAsSub, MarkAsSub},
    {D::kIncludePtWords, StartPtWords}, {D::kIncludeMirCode, IncludeMirCode},
    {D::kIncludeMirResetCode, IncludeMirResetCode}, {D::kIncludeRotWord, IncludeRotWord},
    {D::kIncludeRotResetWord, IncludeRotResetWord},
    {D::kDate, Date}, {D::kTime, Time}, {D::kCADFile, CADFile}, {D::kOutputFile, OutputFile},
    {D::kMaterialFile, MaterialFile}, {D::kDataSetName, DataSetName}, {D::kTuneFile, TuneFile},
    {D::kTuneMenuPick, TuneMenuPick}, {D::kDrvVersion, DrvVersion},
    {D::kAbsIncCode, AbsIncCode}, {D::kUnitsCode, UnitsCode}, {D::kGrainCode, GrainCode}, {D::kSideCode, SideCode},
    {D::kBlankX, BlankX}, {D::kBlankY, BlankY}, {D::kOverallSize, OverallSize}, {D::kLowerLeft, LowerLeft},
    {D::kUpperRight, UpperRight}, {D::kRotaryRadius, RotaryRadius},
    {D::kNBlockOff, NothingToWrite}, {D::kNBlockOn, NothingToWrite},
    {D::kIODwell, IODwell},
};
// clang-format on

// Of a table with a row too few, too many or out of place there is no value.
consteval EvaluatorTable InOrder() {
    static_assert(std::size(kRows) == kDirectiveCount);
    EvaluatorTable table{};
    for (size_t i = 0; i < kDirectiveCount; ++i) {
        if (kRows[i].id != static_cast<DirectiveId>(i)) throw "row out of place";
        table[i] = &kRows[i].evaluate;
    }
    return table;
}

}  // namespace

constexpr EvaluatorTable kEvaluators = InOrder();

}  // namespace brindle
