// The exports as any host may call them: in any order, with nulls and odd values, to the end of the process.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <random>

#include "unit/host_session.h"
#include "unit/odd_calls.h"
#include "unit/temp_folder.h"

namespace brindle {
namespace {

class CRandomChoices : public CChoices {
public:
    size_t Below(size_t count) override { return random_() % count; }
    std::wstring Text() override {
        std::wstring text(Below(50) == 0 ? 100000 : Below(30), L'x');
        for (wchar_t& character : text) character = static_cast<wchar_t>(Below(256));
        return text;
    }

private:
    std::mt19937 random_{11};
};

// The host changes the locale between calls.
TEST(ExportsTest, SurviveAnyOrderAndGiveZero) {
    const std::vector<OddCall> exports = AllExports();
    ASSERT_EQ(exports.size(), 46U);
    CRandomChoices random;
    COddArguments arguments(random);
    for (int i = 0; i < 40000; ++i) {
        std::setlocale(LC_ALL, random.Below(2) == 0 ? "de_DE.UTF-8" : "C");
        const size_t chosen = random.Below(exports.size() + 20);
        // The geometry more often than the rest, and the session's end seldom, so that there is something to run.
        const size_t one = chosen < exports.size() ? chosen : 25 + chosen % 6;
        if (one == 0 && random.Below(8) != 0) continue;
        ASSERT_EQ(exports[one](arguments), 0) << one;
        arguments.FreeTexts();
    }
    std::setlocale(LC_ALL, "C");
    GBrn_Clear();
}

TEST(ExportsTest, BeginWithASessionThatHoldsNothing) {
    CHostSession session({"TEXT sAx1Addr X"});
    GBrn_SetTileToOutput(-1);
    short tile = 5, count = 5;
    GBrn_GetTileToOutput(&tile);
    EXPECT_EQ(tile, -1);
    GBrn_AddToTunelineBuffer(L"TEXT sMainProgNum ");
    for (int clears = 0; clears < 2; ++clears) GBrn_Clear();
    int more = 5;
    wchar_t* text = nullptr;
    GBrn_GetTileToOutput(&tile);
    GBrn_GetNumOfBuffers(&count);
    GBrn_CurBufferHasMoreData(&more);
    GBrn_GetOutputBuffer(&text);
    EXPECT_EQ(tile, 0);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(more, 0);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(Taken(text), "");
    session.Tune("12");  // after the piece that was kept over the end of the session
    session.Tune("13 14 15");
    wchar_t* next = nullptr;
    GBrn_GetNextTuneLine(L"sMainProgNum", &text, &next);
    EXPECT_EQ(Taken(text), "TEXT sMainProgNum 12 ");
    EXPECT_EQ(Taken(next), "");
    GBrn_GetIODwellStr(&text);
    EXPECT_EQ(Taken(text), "IODWELL");
    SysFreeString(nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
}

TEST(ExportsTest, GiveTextsWithAnyCharacter) {
    CHostSession session(
        {"MULTI FileStart_tTmpl NNUL Achr(0)\xC3\xA9"
         "chr(233)chr(195)chr(169)"});
    GBrn_End();
    wchar_t* text = nullptr;
    GBrn_GetOutputBuffer(&text);
    EXPECT_EQ(std::wstring(text, SysStringLen(text)), std::wstring(L"A\0\xE9\xE9\xE9\r\n", 7));
    SysFreeString(text);
}

TEST(ExportsTest, TakeWhatNobodyWantsAwayAllTheSame) {
    CTempFolder folder;
    CHostSession session({"MULTI FileStart_tTmpl NNUL A NNUL B"});
    GBrn_End();
    const size_t pieces = session.RunForPieces()[0].size();
    ASSERT_GT(pieces, 1U);
    GBrn_End();
    GBrn_GetOutputBuffer(nullptr);
    size_t left = 0;
    for (int more = 0; GBrn_CurBufferHasMoreData(&more), more != 0; ++left) GBrn_GetOutputBuffer(nullptr);
    EXPECT_EQ(left, pieces - 1);

    const std::string definition = "DATASETDEF D\nDSD D R_EXPR RTD(1) a\nDSD D T_EXPR RTD(2) b\n";
    GBrn_ReadRTDDefFromFile(NarrowToWide(folder.Put("d.rtd", definition)).c_str());
    int is_text = 5;
    GBrn_GetNextRTDExpr(nullptr, &is_text);
    EXPECT_EQ(is_text, 0);
    wchar_t* expression = nullptr;
    GBrn_GetNextRTDExpr(&expression, nullptr);
    EXPECT_EQ(Taken(expression), "b");
    GBrn_GetNextRTDExpr(&expression, nullptr);
    EXPECT_EQ(Taken(expression), "");
}

void CallAtExit() {
    GBrn_ReadTuneLine(L" true");
    GBrn_StartMain(L"M", 0.0, 0.0, 1, 1);
    GBrn_End();
    GBrn_Clear();
}

TEST(ExportsDeathTest, CanBeCalledWhileTheHostExits) {
    const auto host = [] {
        std::atexit(CallAtExit);
        GBrn_ReadTuneLine(L"MULTI FileStart_tTmpl NNUL <@Date>");
        GBrn_End();
        GBrn_AddToTunelineBuffer(std::wstring(1000, L'x').c_str());
        std::exit(0);
    };
    EXPECT_EXIT(host(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace brindle
