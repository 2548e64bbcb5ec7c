// The list and the drawing of the preview: what is chosen in the one is marked in the other.
#include <gtest/gtest.h>

#include <algorithm>

#include "editor/output/code_preview.h"
#include "scene/path_scene.h"
#include "session/session.h"
#include "testing/headless/headless_windows.h"
#include "unit/editor_user.h"

namespace brindle {
namespace {

constexpr CutAttributes kTool1{.line_type = 1, .tool_id = 1};

class PreviewTest : public testing::Test {
protected:
    PreviewTest() {
        for (const char* line :
             {"INT nNumOfTools 1", "BOOL bOutUnitsInches false", "INT MM_AX1_nNDec 4545", "INT MM_AX2_nNDec 4545",
              "TEXT sAx1Addr X", "TEXT sAx2Addr Y", "MULTI FileStart_tTmpl NNUL %",
              "MULTI Move_tTmpl NNUL G0<@StartPtWords>", "MULTI Line_tTmpl NNUL <@Nonesuch>G1<@EndPtWords>",
              "MULTI MoveToIncludePt_tTmpl NNUL G0<@StartPtWords>", "MULTI SubCall_tTmpl NNUL CALL",
              "MULTI T1_ToolOn_tTmpl NNUL M3", "MULTI SubInit_tTmpl NNUL SUB"}) {
            session_.tuning.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning);
        }
        JobRecords records = session_.Records();
        records.StartMain("MAIN", {}, true, true);
        records.AddLine(kTool1, {0, 0}, {10, 0});
        for (const double x : {100.0, 200.0}) records.AddInclude({"PART", {x, 0}, {}, 0.0, false, false});
        records.StartSub("PART", {}, true, true);
        records.AddLine(kTool1, {1, 1}, {2, 2});
    }

    CHeadlessDrawing& Drawing() { return *dynamic_cast<CHeadlessModeless&>(*toolkit_.Top()).drawing(); }
    std::vector<std::string> Rows() { return toolkit_.Find("list")->Rows(); }
    int RowOf(const std::string& text) {
        const std::vector<std::string> rows = Rows();
        const auto found = std::find(rows.begin(), rows.end(), text);
        return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
    }
    // How many strokes are marked, and where the last of them ends.
    std::string Marked() {
        size_t count = 0;
        Point end;
        for (const PathStroke& stroke : Drawing().scene()->strokes) {
            if (stroke.element != Drawing().highlighted()) continue;
            ++count;
            end = stroke.end;
        }
        return std::to_string(count) + " to " + std::to_string(static_cast<int>(end.x)) + "," +
               std::to_string(static_cast<int>(end.y));
    }

    CSession session_;
    CListUser user_;
    CHeadlessToolkit toolkit_{user_};
    std::unique_ptr<CSheetWindow> sheet_ = toolkit_.MakeSheet("Sheet");
    CNCCodePreview preview_{toolkit_, *sheet_, [] {}};
};

TEST_F(PreviewTest, ABlockIsMarkedInTheDrawingAndAnElementInTheList) {
    EXPECT_EQ(Drawing().scene(), nullptr);
    preview_.ShowRun(session_);
    ASSERT_EQ(Drawing().scene()->strokes.size(), 8U);
    struct Row {
        const char* block;
        const char* marked;
        const char* first = block;  // of the same element
    };
    const Row blocks[] = {{"%", "0 to 0,0"},
                          {"G0X0Y0", "1 to 0,0"},
                          {"M3", "0 to 0,0"},
                          {"G1X10", "1 to 10,0"},
                          {"CALL", "1 to 101,1", "G0X101Y1"},
                          {"SUB", "0 to 0,0"},
                          {"G1X1Y1", "2 to 202,2"}};
    // Whatever is shown among the blocks.
    for (const char* check : {"", "Show errors", "Show template headers", "Show errors"}) {
        if (*check != '\0') {
            EXPECT_EQ(toolkit_.Click(check), "");
            EXPECT_EQ(Drawing().highlighted(), -1);
        }
        for (const Row& row : blocks) {
            SCOPED_TRACE(std::string(check) + " " + row.block);
            const int index = RowOf(row.block);
            ASSERT_EQ(toolkit_.Pick("list", index), "");
            EXPECT_EQ(Marked(), row.marked);
            const int element = Drawing().highlighted();
            if (element < 0) continue;
            ASSERT_EQ(toolkit_.Pick("list", 0), "");
            Drawing().Pick(element);
            EXPECT_EQ(toolkit_.Find("list")->Value(), std::to_string(RowOf(row.first)) + " " + row.first);
            EXPECT_EQ(Drawing().highlighted(), element);
        }
    }
}

TEST_F(PreviewTest, ANewRunBringsItsOwnPath) {
    preview_.ShowRun(session_);
    EXPECT_EQ(toolkit_.Pick("list", RowOf("G1X10")), "");
    session_.Records().StartMain("NEXT", {}, true, true);
    session_.Records().AddLine(kTool1, {5, 5}, {6, 6});
    preview_.ShowRun(session_);
    EXPECT_EQ(Drawing().scene()->strokes.size(), 2U);
    EXPECT_EQ(Drawing().highlighted(), -1);
    EXPECT_EQ(toolkit_.Pick("list", RowOf("G1X6Y6")), "");
    EXPECT_EQ(Marked(), "1 to 6,6");
    Drawing().Pick(1000000);  // of another drawing
    EXPECT_EQ(toolkit_.Find("list")->Value(), "-1");
}

}  // namespace
}  // namespace brindle
