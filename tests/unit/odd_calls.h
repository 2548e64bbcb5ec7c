// The exports as any host may call them: with nulls, odd numbers and odd texts. What is called with what is chosen from
// outside, by a random number or by the bytes of a fuzzer.
#pragma once

#include <deque>
#include <functional>
#include <limits>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "brindle/brindle.h"

namespace brindle {

class CChoices {
public:
    virtual ~CChoices() = default;
    // Below `count`, which is not 0.
    virtual size_t Below(size_t count) = 0;
    // A text that is in no list.
    virtual std::wstring Text() = 0;
};

// Arguments of any kind; what an export gives is taken over at the end of the call.
class COddArguments {
public:
    explicit COddArguments(CChoices& choices) : choices_(choices) {}

    template <typename T>
    T Take() {
        if constexpr (std::is_same_v<T, const wchar_t*>) {
            const T text = Pick<T>({kOwnText,
                                    nullptr,
                                    L"",
                                    L"M",
                                    L"S",
                                    L"BOOL bUseSubs false",
                                    L"INT nNumOfTools 2",
                                    L"REAL MM_AX1_rFactor 0",
                                    L"MULTI Line_tTmpl NNUL <@EndPtWords>",
                                    L"TEXT sAx1Addr X<@ToolId>",
                                    L"MULTI Arc_tTmpl NSM <@ArcDataWords>",
                                    L"MULTI SubCall_tTmpl NNUL <@IncludeNum><RTD(1)>",
                                    L"BOOL T1_bTangential true",
                                    L"INT nMaxBytes 9",
                                    L"BOOL bUseFileSeg true",
                                    L"INT MM_AX2_nNDec -1",
                                    L"DATASETDEF S",
                                    L"DSD S R_EXPR RTD(1) M",
                                    L"\xD800\x110000\xE9",
                                    L"tests/jobs",
                                    L"tests/jobs/small_drawing/drawing.cf2",
                                    L"tests/editor/rtd_file.rtd",
                                    L"no such file"});
            return text == kOwnText ? own_texts_.emplace_back(choices_.Text()).c_str() : text;
        } else if constexpr (std::is_same_v<T, double>) {
            constexpr double kInfinite = std::numeric_limits<double>::infinity();
            constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
            return Pick({0.0, 1.0, -10.0, 0.0004, 25.4, 5e-324, 1e-300, 1e15, -1e308, 3.14159, kInfinite, -kInfinite,
                         kNotANumber});
        } else if constexpr (std::is_same_v<T, wchar_t**>) {
            given_texts_.push_back(nullptr);
            return Pick({true, false}) ? &given_texts_.back() : nullptr;
        } else if constexpr (std::is_pointer_v<T>) {
            return Pick({static_cast<T>(nullptr), &std::get<std::remove_pointer_t<T>>(numbers_)});
        } else {
            return static_cast<T>(Pick({0, 1, 2, -1, 3, 32767, -32768, 70000}));
        }
    }
    void FreeTexts() {
        for (wchar_t* const text : given_texts_) SysFreeString(text);
        given_texts_.clear();
        own_texts_.clear();
    }

private:
    static constexpr const wchar_t* kOwnText = L"own";

    template <typename T>
    T Pick(std::initializer_list<T> values) {
        return values.begin()[choices_.Below(values.size())];
    }

    CChoices& choices_;
    std::deque<std::wstring> own_texts_;
    std::deque<wchar_t*> given_texts_;
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

// All 46. The first ends the session.
inline std::vector<OddCall> AllExports() {
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

}  // namespace brindle
