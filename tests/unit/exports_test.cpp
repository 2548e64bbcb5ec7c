// The exports as any host may call them: in any order, with nulls and odd values, to the end of the process.
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <functional>
#include <limits>
#include <random>
#include <tuple>

#include "unit/host_session.h"

namespace brindle {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

// Arguments of any kind; what an export gives is taken over at the end of the call.
class COddArguments {
public:
    explicit COddArguments(std::mt19937& random) : random_(random) {}

    template <typename T>
    T Take() {
        if constexpr (std::is_same_v<T, const wchar_t*>) {
            return Pick<T>({nullptr, L"", L"M", L"S", L"BOOL bUseSubs false", L"INT nNumOfTools 2",
                            L"REAL MM_AX1_rFactor 0", L"MULTI Line_tTmpl NNUL <@EndPtWords>",
                            L"TEXT sAx1Addr X<@ToolId>", L"MULTI Arc_tTmpl NSM <@ArcDataWords>",
                            L"MULTI SubCall_tTmpl NNUL <@IncludeNum>", L"BOOL T1_bTangential true", L"INT nMaxBytes 9",
                            L"BOOL bUseFileSeg true", L"INT MM_AX2_nNDec -1", L"\xD800\x110000\xE9", L"tests/jobs",
                            L"tests/jobs/small_drawing/drawing.cf2", L"no such file"});
        } else if constexpr (std::is_same_v<T, double>) {
            return Pick(
                {0.0, 1.0, -10.0, 0.0004, 25.4, 1e-300, 1e15, -1e308, 3.14159, kInfinite, -kInfinite, kNotANumber});
        } else if constexpr (std::is_same_v<T, wchar_t**>) {
            texts_.push_back(nullptr);
            return Pick({true, false}) ? &texts_.back() : nullptr;
        } else if constexpr (std::is_pointer_v<T>) {
            return Pick({static_cast<T>(nullptr), &std::get<std::remove_pointer_t<T>>(numbers_)});
        } else {
            return static_cast<T>(Pick({0, 1, 2, -1, 3, 32767, -32768, 70000}));
        }
    }
    void FreeTexts() {
        for (wchar_t* const text : texts_) SysFreeString(text);
        texts_.clear();
    }

private:
    template <typename T>
    T Pick(std::initializer_list<T> values) {
        return values.begin()[random_() % values.size()];
    }

    std::mt19937& random_;
    std::deque<wchar_t*> texts_;
    std::tuple<short, int> numbers_;
};

using OddCall = std::function<int(COddArguments&)>;

template <typename... A>
OddCall Odd(int (*function)(A...)) {
    return [function](COddArguments& arguments) {
        const std::tuple<A...> values{arguments.Take<A>()...};
        return std::apply(function, values);
    };
}

template <typename... Functions>
std::vector<OddCall> OddCalls(Functions... functions) {
    return {Odd(functions)...};
}

std::vector<OddCall> AllExports() {
    return OddCalls(GBrn_Clear, GBrn_SetTuningFileName, GBrn_ClearTuning, GBrn_AddToTunelineBuffer, GBrn_ReadTuneLine,
                    GBrn_ReadTuneLineIgnoreRTDDefs, GBrn_GetStartKey, GBrn_GetNextTuneLine, GBrn_GetTuning,
                    GBrn_DisplayTuningDialog, GBrn_SetDate, GBrn_SetTime, GBrn_SetDateTime, GBrn_SetBlankSize,
                    GBrn_SetAutoUnitsToInches, GBrn_SetRotaryRadius, GBrn_SetFinalPosition, GBrn_SetNullFinalPos,
                    GBrn_SetTileToOutput, GBrn_GetTileToOutput, GBrn_SetOutputName, GBrn_SetFileName,
                    GBrn_SetMaterialFile, GBrn_SetDataSetName, GBrn_SetTuneMenuPick, GBrn_StartMain, GBrn_StartSub,
                    GBrn_AddLine, GBrn_AddArc, GBrn_AddText, GBrn_AddInclude, GBrn_OpenCF2File, GBrn_ReadRTDDefFromFile,
                    GBrn_GetNextRTDExpr, GBrn_SetRTDExprValue, GBrn_UpdateDefaultValuesForExpressions,
                    GBrn_GetNameTuneFileForRTDDef, GBrn_ClearRunTimeData, GBrn_DisplayRTDataDlg, GBrn_End,
                    GBrn_GetNumOfBuffers, GBrn_SetCurBuffer, GBrn_CurBufferHasMoreData, GBrn_GetOutputBuffer,
                    GBrn_GetIODwellStr, GBrn_DisplayLoadSegmentDialog);
}

TEST(ExportsTest, SurviveAnyOrderAndGiveZero) {
    const std::vector<OddCall> exports = AllExports();
    ASSERT_EQ(exports.size(), 46U);
    std::mt19937 random(11);
    COddArguments arguments(random);
    for (int i = 0; i < 40000; ++i) {
        const size_t chosen = random() % (exports.size() + 20);
        // The geometry more often than the rest, and the session's end seldom, so that there is something to run.
        const size_t one = chosen < exports.size() ? chosen : 25 + chosen % 6;
        if (one == 0 && random() % 8 != 0) continue;
        ASSERT_EQ(exports[one](arguments), 0) << one;
        arguments.FreeTexts();
    }
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
    session.Tune("12");  // behind the piece that was kept over the end of the session
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
