// The job whose tuning the fuzzers of the editor edit.
#pragma once

#include "brindle/brindle.h"

inline void LoadEditorJob() {
    constexpr const wchar_t* kTuning[] = {L"INT nNumOfTools 3",
                                          L"BOOL bUseFileSeg true",
                                          L"INT nMaxBytes 50",
                                          L"TEXT sAx1Addr X",
                                          L"MULTI FileStart_tTmpl NNUL %",
                                          L"MULTI Line_tTmpl NNUL G1<@EndPtWords> NBIG <RTD(1,1)>",
                                          L"MULTI T1_ToolOn_tTmpl NNUL M3<@SpeedWords>",
                                          L"ROW TEXT Cut",
                                          L"COL TEXT Feed",
                                          L"MSG TEXT Note HIDE",
                                          L"DATASETDEF Steel",
                                          L"DSD Steel R_EXPR RTD(1,1) 2*TOOLS",
                                          L"DSD Steel TEXT RTD(1) some!#SP#!text"};
    GBrn_ReadTuneLine(L"");  // takes what is left of an earlier line
    GBrn_Clear();
    for (const wchar_t* const line : kTuning) GBrn_ReadTuneLine(line);
    GBrn_StartMain(L"M", 0.0, 0.0, 1, 1);
    GBrn_AddLine(1, 1, 0.5, 0.0, 0.0, 10.0, 0.0, 0.0, 0);
    GBrn_AddArc(2, 1, 0.5, 10.0, 0.0, 20.0, 0.0, 15.0, 0.0, 5.0, 0.0, 0);
}
