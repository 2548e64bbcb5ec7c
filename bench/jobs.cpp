#include "jobs.h"

#include <cmath>

namespace brindle::bench {
namespace {

using Lines = std::vector<std::string>;

// What all jobs have in common: `N10 G1 X1.000 Y2.000 F1200` and the like.
const Lines kCommon = {
    "INT nNumOfTools 1",
    "BOOL bUseSpace true",
    "TEXT sNWordAddr N",
    "TEXT sAx1Addr X",
    "TEXT sAx2Addr Y",
    "TEXT sCenAx1Addr I",
    "TEXT sCenAx2Addr J",
    "TEXT sRTCode G0",
    "TEXT sLTCode G1",
    "TEXT sCWCode G2",
    "TEXT sCCWCode G3",
    "INT MM_AX1_nNDec 3",
    "INT MM_AX2_nNDec 3",
    "BOOL Speed_b1 true",
    "TEXT Speed_sParam1Addr F",
    "TEXT T1_Speed_P1_sV1 1200",
    "MULTI FileStart_tTmpl NNUL <@NBlockOn>",
    "MULTI Move_tTmpl NNUL <@InterpCode><@StartPtWords>",
    "MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords><@SpeedWords>",
    "MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@CenPtWords><@SpeedWords>",
};

Lines With(std::initializer_list<const char*> more) {
    Lines lines = kCommon;
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

Lines LineTuning() { return kCommon; }

Lines TangentialTuning() {
    return With({"BOOL T1_bTangential true", "REAL T1_rLiftAngDEG 360", "TEXT ToolRot_sAddr C",
                 "BOOL ToolRot_bUseSign false",
                 "MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords><@AtAngle><@SpeedWords>"});
}

Lines CallTuning() { return With({"BOOL bUseSubs false"}); }

Lines ToolTuning(int keys) {
    Lines lines = With({"INT nNumOfTools 30"});
    for (int tool = 1; tool <= 30; ++tool) {
        lines.push_back("TEXT T" + std::to_string(tool) + "_Speed_P1_sV1 " + std::to_string(1000 + tool));
    }
    while (static_cast<int>(lines.size()) < keys) lines.push_back("INT nUnused" + std::to_string(lines.size()) + " 1");
    return lines;
}

Lines ManyKeys() { return ToolTuning(5000); }
Lines FewKeys() { return ToolTuning(50); }

CutAttributes Cut(int32_t tool) { return {.line_type = tool, .tool_id = tool, .cut_width = 0.7}; }

void AddLines(JobRecords records, int64_t count) {
    records.StartMain("MAIN", {}, true, true);
    for (int64_t i = 0; i < count; ++i) records.AddLine(Cut(1), PathPoint(i), PathPoint(i + 1));
}

// A half circle over the line between two points.
void AddArc(JobRecords& records, Point start, Point end) {
    const Point center{(start.x + end.x) / 2.0, (start.y + end.y) / 2.0};
    records.AddArc(Cut(1), start, end, center, Distance(start, center));
}

void AddLinesAndArcs(JobRecords records, int64_t count) {
    records.StartMain("MAIN", {}, true, true);
    for (int64_t i = 0; i < count; ++i) {
        if (i % 3 == 2) {
            AddArc(records, PathPoint(i), PathPoint(i + 1));
        } else {
            records.AddLine(Cut(1), PathPoint(i), PathPoint(i + 1));
        }
    }
}

void AddCalls(JobRecords records, int64_t count) {
    records.StartMain("MAIN", {}, true, true);
    for (int64_t i = 0; i < kCallCount; ++i) records.AddInclude(CallOf(i));
    records.StartSub("PART", {}, true, true);
    for (int64_t i = 0; i < count / kCallCount; ++i) records.AddLine(Cut(1), PathPoint(i), PathPoint(i + 1));
}

void AddToolLines(JobRecords records, int64_t count) {
    records.StartMain("MAIN", {}, true, true);
    for (int64_t i = 0; i < count; ++i) records.AddLine(Cut(ToolOf(i)), PathPoint(i), PathPoint(i + 1));
}

}  // namespace

const Job kLines{"lines", LineTuning, AddLines};
const Job kArcs{"lines_and_arcs", LineTuning, AddLinesAndArcs};
const Job kTangential{"tangential", TangentialTuning, AddLines};
const Job kCalls{"expanded_calls", CallTuning, AddCalls};
const Job kManyTools{"tools_5000_keys", ManyKeys, AddToolLines};
const Job kManyToolsFewKeys{"tools_50_keys", FewKeys, AddToolLines};

Point PathPoint(int64_t i) {
    const auto x = static_cast<double>(i * 7919 % 500009);
    const auto y = static_cast<double>((i * 104729 + i * i * 37 % 1009) % 350003);
    return {x / 500.0, y / 500.0};
}

CNCIncludeData::Fields CallOf(int64_t i) {
    return {.name = "PART", .place = PathPoint(3 * i), .center = {}, .rotation = 0.5 + 0.0005 * static_cast<double>(i)};
}

int32_t ToolOf(int64_t i) { return static_cast<int32_t>(1 + i / 10 % 30); }

void Load(const Job& job, int64_t records, CSession& session) {
    for (const std::string& line : job.tuning()) session.tuning.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning);
    job.add_records(session.Records(), records);
}

std::string FetchAll(CSession& session) {
    std::string all;
    for (int32_t number = 1; session.buffers.SetCurBuffer(number); ++number) {
        while (session.buffers.CurBufferHasMoreData()) all += session.buffers.GetOutputBuffer();
    }
    return all;
}

}  // namespace brindle::bench
