// The path of a run against the geometry of its job and against its own text.
#include "generator/tool_path.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "generator/path_recorder.h"
#include "scene/scene_of_path.h"
#include "session/session.h"

namespace brindle {
namespace {

using Lines = std::vector<std::string>;

constexpr char kTools[] = "INT nNumOfTools 2";
constexpr CutAttributes kTool1{.line_type = 1, .tool_id = 1};
constexpr CutAttributes kTool2{.line_type = 2, .tool_id = 2};

// One session with one run. What no template writes is no part of a path.
struct Job {
    Job() {
        Tune({"MULTI Move_tTmpl NNUL <@StartPtWords>", "MULTI MoveToIncludePt_tTmpl NNUL <@IncludePtWords>",
              "MULTI Line_tTmpl NNUL <@EndPtWords>", "MULTI Arc_tTmpl NNUL <@EndPtWords><@ArcDataWords>",
              "MULTI SubCall_tTmpl NNUL call"});
    }
    void Tune(const Lines& tuning) {
        for (const std::string& line : tuning) session.tuning.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning);
    }
    const ToolPath& Go() {
        CPathRecorder recorder;
        RunJob(session, &recorder);
        path = recorder.TakePath();
        return path;
    }
    CSession session;
    ToolPath path;
};

CNCIncludeData::Fields Call(const char* name, Point place, double degrees, bool mirror_x, bool mirror_y) {
    return {name, place, {}, degrees * kRadiansPerDegree, mirror_x, mirror_y};
}

// Lines, arcs in both directions, a long arc, a circle, two tools, gaps, and calls of all kinds.
void AddJob(JobRecords records) {
    records.StartMain("MAIN", {100, 100}, true, true);
    records.AddInclude(Call("PART", {20, 30}, 30, false, false));
    records.AddLine(kTool1, {0, 0}, {200, 0});
    records.AddInclude(Call("PART", {80, 30}, 0, true, false));
    records.AddLine(kTool2, {200, 0}, {200, 120});
    records.AddInclude(Call("PART", {120, 30}, 90, false, false));
    records.AddInclude(Call("PART", {60, 90}, 30, true, false));
    records.AddInclude(Call("PART", {150, 90}, 45, true, true));
    records.AddLine(kTool1, {200, 120}, {0, 120});
    records.StartSub("PART", {6, 4}, true, true);
    records.AddLine(kTool1, {1, 2}, {11, 2});
    records.AddArc(kTool1, {11, 2}, {13, 4}, {11, 4}, -2);
    records.AddArc(kTool1, {13, 4}, {11, 6}, {13, 6}, 2);
    records.AddArc(kTool2, {5, 5}, {4, 4}, {4, 5}, -1);
    records.AddArc(kTool2, {8, 5}, {8, 5}, {7, 5}, 1);
}

struct Cut {
    int32_t tool;
    Point start, middle, end;
};

// In the plane in which both axes measure the same, by place.
std::vector<Cut> CutsOf(const ToolPath& path) {
    const PathScene scene = MakeScene(path);
    std::vector<Cut> cuts;
    for (const PathStroke& stroke : scene.strokes) {
        if (stroke.kind != StrokeKind::kCut) continue;
        const int32_t tool = scene.tools[static_cast<size_t>(stroke.tool)];
        cuts.push_back({tool, stroke.start, stroke.At(0.5), stroke.end});
    }
    return cuts;
}

// Each cut of `wanted` is among `cuts`, within `tolerance`, and nothing else is.
void ExpectSameCuts(std::vector<Cut> cuts, const std::vector<Cut>& wanted, double tolerance) {
    EXPECT_EQ(cuts.size(), wanted.size());
    for (const Cut& cut : wanted) {
        const auto found = std::find_if(cuts.begin(), cuts.end(), [&](const Cut& other) {
            return other.tool == cut.tool && Distance(other.start, cut.start) < tolerance &&
                   Distance(other.middle, cut.middle) < tolerance && Distance(other.end, cut.end) < tolerance;
        });
        if (found == cuts.end()) {
            ADD_FAILURE() << "no cut from " << cut.start.x << "," << cut.start.y << " by " << cut.middle.x << ","
                          << cut.middle.y << " to " << cut.end.x << "," << cut.end.y;
        } else {
            cuts.erase(found);
        }
    }
}

// Each rapid move and each cut begins where the tool is.
void ExpectUnbroken(const ToolPath& path) {
    Point tool;
    for (const PathElement& piece : path.elements) {
        EXPECT_LT(Distance(piece.start, tool), 0.02) << piece.start.x << "," << piece.start.y;
        tool = piece.end;
    }
}

TEST(ToolPathTest, CallsCutWhatTheExpandedJobCuts) {
    const Lines expanded{"BOOL bUseSubs false"};
    const Lines both{"BOOL bUseMirror true", "BOOL bUseRotations true"};
    struct Row {
        const char* what;
        Lines subs;
        Lines common;
    };
    const Row rows[] = {
        {"in the sub-program's coordinates", {}, {}},
        {"absolute", {"BOOL bSubsInAbs true"}, {}},
        {"incremental throughout", {}, {"BOOL bOutModeAbs false"}},
        {"turned and mirrored at the call", both, {}},
        {"the same, absolute", {both[0], both[1], "BOOL bSubsInAbs true"}, {}},
        {"the same, incremental", both, {"BOOL bOutModeAbs false"}},
        {"mirrored at the call", {both[0], "BOOL bSubsInAbs true"}, {}},
        {"sub-programs first, from centre to centre", {"BOOL bOutputSubsFirst true"}, {"BOOL bStartSubsAtCen true"}},
        {"ending at the centre", {"BOOL bEndSubsAtCen true", both[0], both[1]}, {}},
        {"start and end in a block", both, {"BOOL bStartEndOnBlock true"}},
        {"inches", both, {"BOOL bOutUnitsInches true", "INT IN_AX1_nNDec 4", "INT IN_AX2_nNDec 4"}},
        {"an axis with a factor", both, {"REAL MM_AX2_rFactor 2.5"}},
        {"an axis that runs the other way", both, {"REAL MM_AX2_rFactor -1"}},
        {"a rotary axis", both, {"BOOL bAx1IsRot true", "REAL rDefRotRadiusMM 40", "INT MM_AX1_nNDec 5"}},
        {"by radius", {}, {"BOOL bArcByRad true"}},
        {"facets", both, {"REAL rMaxOrdIN 0.5"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const Lines usual{kTools, "BOOL bOutUnitsInches false", "INT MM_AX1_nNDec 4", "INT MM_AX2_nNDec 4"};
        Job with_calls;
        Job plain;
        for (Job* run : {&with_calls, &plain}) {
            run->Tune(usual);
            run->Tune(row.common);
            run->Tune(run == &plain ? expanded : row.subs);
            AddJob(run->session.Records());
        }
        ExpectUnbroken(with_calls.Go());
        ExpectUnbroken(plain.Go());
        ExpectSameCuts(CutsOf(with_calls.path), CutsOf(plain.path), 0.03);
        EXPECT_TRUE(with_calls.path.complete);
    }
}

TEST(ToolPathTest, LiesWhereTheGeometryLies) {
    Job run;
    run.Tune({kTools, "BOOL bUseMirror true", "BOOL bUseRotations true"});
    AddJob(run.session.Records());
    const std::vector<Cut> cuts = CutsOf(run.Go());
    ASSERT_EQ(cuts.size(), 28U);
    // The third call turns the part by a quarter: (x, y) becomes (120 - y, 30 + x).
    const std::vector<Cut> third(cuts.begin() + 12, cuts.begin() + 17);
    const double r = std::sqrt(0.5);
    ExpectSameCuts(third,
                   {{1, {118, 31}, {118, 36}, {118, 41}},
                    {1, {118, 41}, {116 + 2 * r, 41 + 2 * r}, {116, 43}},
                    {1, {116, 43}, {114 + 2 * r, 43 - 2 * r}, {114, 41}},
                    {2, {115, 35}, {115 - r, 34 - r}, {116, 34}},
                    {2, {115, 38}, {115, 36}, {115, 38}}},
                   0.02);
}

// A call within a sub-program goes through the placing of both.
TEST(ToolPathTest, FollowsCallsWithinCalls) {
    Job run;
    run.Tune({kTools, "BOOL bUseMirror true", "BOOL bUseRotations true", "BOOL bSubsInAbs true"});
    JobRecords records = run.session.Records();
    records.StartMain("MAIN", {}, true, true);
    records.AddInclude(Call("OUTER", {100, 0}, 90, false, false));
    records.StartSub("OUTER", {}, true, true);
    records.AddLine(kTool1, {0, 0}, {5, 0});
    records.AddInclude(Call("INNER", {10, 0}, 0, true, false));
    records.AddInclude(Call("OUTER", {0, 0}, 0, false, false));
    records.StartSub("INNER", {}, true, true);
    records.AddLine(kTool1, {1, 1}, {3, 1});
    const ToolPath& path = run.Go();
    ExpectSameCuts(CutsOf(path), {{1, {100, 0}, {100, 2.5}, {100, 5}}, {1, {99, 9}, {99, 8}, {99, 7}}}, 0.001);
    EXPECT_FALSE(path.complete);  // OUTER calls itself
}

TEST(ToolPathTest, StaysBoundedWhereCallsMultiply) {
    Job run;
    run.Tune({kTools});
    JobRecords records = run.session.Records();
    records.StartMain("L0", {}, true, true);
    for (int level = 0; level < 40; ++level) {
        const std::string next = "L" + std::to_string(level + 1);
        for (int i = 0; i < 3; ++i) records.AddInclude(Call(next.c_str(), {1, 1}, 0, false, false));
        records.StartSub(next, {}, true, true);
    }
    records.AddLine(kTool1, {0, 0}, {1, 0});
    EXPECT_FALSE(run.Go().complete);
    EXPECT_LE(run.path.elements.size(), 2000001U);
}

// A tool that is beside the axes' position cuts where the drawing wants it.
TEST(ToolPathTest, TakesTheOffsetOfAToolOutOfTheWords) {
    Job run;
    run.Tune({kTools, "BOOL T1_ToolOff_bUse true", "REAL T1_ToolOff_rAxis1MM 30", "REAL T1_ToolOff_rAxis2MM -7"});
    JobRecords records = run.session.Records();
    records.StartMain("MAIN", {}, true, true);
    records.AddLine(kTool1, {10, 10}, {20, 10});
    records.AddLine(kTool2, {20, 10}, {20, 20});
    ExpectSameCuts(CutsOf(run.Go()), {{1, {10, 10}, {15, 10}, {20, 10}}, {2, {20, 10}, {20, 15}, {20, 20}}}, 0.001);
}

// The radius that a drawing gives as 1, for the direction alone, goes out as half the chord.
TEST(ToolPathTest, FollowsTheWordsOfAnArcByRadius) {
    Job run;
    run.Tune({kTools, "BOOL bArcByRad true"});
    JobRecords records = run.session.Records();
    records.StartMain("MAIN", {}, true, true);
    records.AddArc(kTool1, {10, 0}, {0, 10}, {0, 0}, -1);
    const std::vector<Cut> cuts = CutsOf(run.Go());
    ASSERT_EQ(cuts.size(), 1U);
    EXPECT_LT(Distance(cuts[0].middle, {10, 10}), 0.5);
}

// ---- Blocks ----

const char* Name(PathKind kind) {
    constexpr const char* kNames[] = {"rapid", "line", "arc", "text"};
    return kNames[static_cast<size_t>(kind)];
}

// Each block, and the last points of the pieces that it leads to, a line each.
std::string BlocksAndPieces(const Job& job) {
    std::string lines = "\n";
    for (size_t i = 0; i < job.session.trace.GetCount(); ++i) {
        const CNCDebugInfo record = job.session.trace.Get(i);
        if (record.kind != TraceKind::kBlock) continue;
        lines += record.text;
        const int32_t number = job.path.NumberOfBlock(i);
        for (const PathElement& piece : job.path.elements) {
            if (piece.number != number) continue;
            lines += std::string(" | ") + Name(piece.kind) + " " + std::to_string(std::lround(piece.end.x)) + "," +
                     std::to_string(std::lround(piece.end.y));
        }
        lines += "\n";
    }
    return lines;
}

const Lines kWords{kTools,
                   "TEXT sAx1Addr X",
                   "TEXT sAx2Addr Y",
                   "INT MM_AX1_nNDec 4545",
                   "INT MM_AX2_nNDec 4545",
                   "MULTI FileStart_tTmpl NNUL %",
                   "MULTI T1_ToolOn_tTmpl NNUL M3",
                   "MULTI T1_ToolOff_tTmpl NNUL M5",
                   "MULTI Move_tTmpl NNUL G0<@StartPtWords>",
                   "MULTI Line_tTmpl NNUL G1<@EndPtWords>",
                   "MULTI Arc_tTmpl NNUL G2<@EndPtWords>",
                   "MULTI Text_tTmpl NNUL TX<@TextDataWord>",
                   "MULTI MoveToIncludePt_tTmpl NNUL TO<@StartPtWords>",
                   "MULTI SubCall_tTmpl NNUL CALL NNUL GO",
                   "MULTI SubInit_tTmpl NNUL SUB"};

TEST(ToolPathTest, BlocksLeadToWhatTheirWordsSay) {
    struct Row {
        const char* what;
        Lines tuning;
        const char* blocks;
    };
    const Row rows[] = {
        {"one block each", {"BOOL bUseText true", "BOOL bDefaultTool true"}, R"(
%
G0X0Y0 | rapid 0,0
M3
G1X10 | line 10,0
G2Y10 | arc 10,10
M5 | rapid 52,50
TOX52Y50 | rapid 52,50
CALL | rapid 52,50
GO | rapid 52,50
M5
G0X10Y20 | rapid 10,20
M3
G1X20 | line 20,20
M5
G0X90Y90 | rapid 90,90
TXHello | text 90,90
SUB
G0 | rapid 52,50
M3
G1X2 | line 54,50
M5
)"},
        {"a move and its cut in one block, messages, two blocks for a line",
         {"BOOL Move_bTerminiate false", "MULTI Line_tTmpl NNUL G1<@EndPtWords>,<@Nonesuch> NNUL ALSO",
          "MULTI T1_ToolOn_tTmpl NNUL", "BOOL bUseSubs false", "BOOL bErrorsAsComments true", "TEXT sOpenComment ("},
         R"(
%
(Could not evaluate: @Nonesuch
G0X0Y0G1X10, | line 10,0
ALSO | line 10,0
G2Y10 | arc 10,10
M5
(Could not evaluate: @Nonesuch
G0X52Y50G1X54, | line 54,50
ALSO | line 54,50
M5
(Could not evaluate: @Nonesuch
G0X10Y20G1X20, | line 20,20
ALSO | line 20,20
(WARNING: Text is not supported.
M5
)"},
        {"lines whose words wait for another template", {"BOOL Line_bTerminiate false", "BOOL bUseSubs false"}, R"(
%
G0X0Y0 | rapid 0,0
M3
G1X10G2Y10 | arc 10,10
M5
G0X52Y50 | rapid 52,50
M3
G1X54M5 | line 54,50
G0X10Y20 | rapid 10,20
M3
G1X20M5 | line 20,20
)"},
        {"start and end in a block",
         {"BOOL bStartEndOnBlock true", "TEXT sAx1AddrStart U", "TEXT sAx2AddrStart V",
          "MULTI Line_tTmpl NNUL L<@StartPtWords><@EndPtWords>", "BOOL bUseSubs false"},
         R"(
%
M3
LU0V0X10 | line 10,0
G2Y10 | arc 10,10
LU52V50X54 | rapid 52,50 | line 54,50
LU10V20X20 | rapid 10,20 | line 20,20
M5
)"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Job run;
        run.Tune(kWords);
        run.Tune(row.tuning);
        JobRecords records = run.session.Records();
        records.StartMain("MAIN", {}, true, true);
        records.AddLine(kTool1, {0, 0}, {10, 0});
        records.AddArc(kTool1, {10, 0}, {10, 10}, {10, 5}, -5);
        records.AddInclude(Call("SUB", {50, 50}, 0, false, false));
        records.AddLine(kTool1, {10, 20}, {20, 20});
        CNCTextData::Fields text;
        text.start = {90, 90};
        text.text = "Hello";
        records.AddText(text);
        records.StartSub("SUB", {}, true, true);
        records.AddLine(kTool1, {2, 0}, {4, 0});
        run.Go();
        EXPECT_EQ(BlocksAndPieces(run), row.blocks);
    }
}

// ---- What a run is without it ----

TEST(ToolPathTest, ARunIsTheSameWithAndWithoutIt) {
    Job with;
    Job without;
    std::string texts[2];
    for (Job* run : {&with, &without}) {
        run->Tune(kWords);
        run->Tune({"BOOL bUseMirror true", "BOOL bUseFileSeg true", "INT nMaxBytes 200"});
        AddJob(run->session.Records());
        if (run == &with) {
            run->Go();
        } else {
            RunJob(run->session);
        }
        std::string& text = texts[run == &with ? 0 : 1];
        for (int32_t i = 1; run->session.buffers.SetCurBuffer(i); ++i) {
            while (run->session.buffers.CurBufferHasMoreData()) text += run->session.buffers.GetOutputBuffer();
        }
    }
    EXPECT_EQ(texts[0], texts[1]);
    EXPECT_FALSE(texts[0].empty());
}

}  // namespace
}  // namespace brindle
