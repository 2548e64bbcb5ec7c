// Drawings, good and bad, by what comes out of them.
#include <gtest/gtest.h>

#include "unit/host_session.h"
#include "unit/temp_folder.h"

namespace brindle {
namespace {

namespace fs = std::filesystem;

class CFF2Test : public testing::Test {
protected:
    void Open(const std::string& drawing) { GBrn_OpenCF2File(NarrowToWide(folder_.Put("a.cf2", drawing)).c_str()); }
    // What the records of `drawing` give, a block each, blocks divided by `|`.
    std::string Records(const std::string& drawing) {
        GBrn_SetAutoUnitsToInches(0);
        Open(drawing);
        return session_.Run();
    }

    CTempFolder folder_;
    CHostSession session_{
        {"BOOL bDefaultTool true", "BOOL bUseText true", "BOOL bUseSubs false", "BOOL bOutUnitsAuto true",
         "BOOL bBlockDelimStd false", "TEXT sBlockDelim |", "BOOL bUseSpace true", "BOOL bTrimZeros true",
         "BOOL bTrimDPoint true", "BOOL bAxisDataModal false", "INT IN_AX1_nNDec 2", "INT IN_AX2_nNDec 2",
         "MULTI FileStart_tTmpl NNUL <@CurProgName>:<@LowerLeft><@UnitsCode>", "TEXT sInchCode in",
         "MULTI Line_tTmpl NNUL "
         "L<@LineType>!#SP#!w<@CutWidth>!#SP#!<@StartPtWords><@EndPtWords>b<@BridgeNum>x<@BridgeWidth>",
         "MULTI Arc_tTmpl NNUL "
         "A<@LineType>!#SP#!w<@CutWidth>!#SP#!<@StartPtWords><@EndPtWords>r<@Radius>b<@BridgeNum>x<@BridgeWidth>",
         "MULTI Text_tTmpl NNUL T<@LineType>!#SP#!<@StartPtWords>h<@TextHgtWord>r<@TextRotWord><@TextDataWord>"}};
};

TEST_F(CFF2Test, TakesTheRecordsThatAJobCanHold) {
    const std::string line = "L,0.5,3,0,0,0,10,0,2,1.5\n";
    const std::string line_text = "L3 w0.5 0 0 10 0 b2x1.5|";
    const struct {
        std::string drawing, text;
    } kCases[] = {
        {"", ":0 0  |"},
        {"MAIN,X\nUR,100,50\n" + line, "X:50 25  |" + line_text},
        {"main\tX\r\nUR 100\t,50\r\nL 0.5,,3\t0 0 0 10 0 2 1.5 and more\r\n", "X:50 25  |" + line_text},
        {"\xEF\xBB\xBFMAIN,X\nUR,100,50\n" + line, "X:50 25  |" + line_text},
        {"\xEF\xBB\xBFUR,100,50\r\n" + line, ":50 25  |" + line_text},
        {"MAIN,X\nur,100,50\n" + line, ":0 0  |"},
        {line + "UR,10,10\n", ":5 5  |"},  // before the main program there is nothing to add to
        {"UR,10,10\nSUB,S\n" + line + "UR,20,10\n" + line, ":10 5  |" + line_text},
        {"UI\nUR,10,10\n" + line, ":5 5  |" + line_text},  // too few words
        {"UI,x\nUR,10,10\nL,1,3,0,0,0,10,0,2,1.5\n", ":5 5 in |L3 w1 0 0 10 0 b2x1.5|"},
        {"UI,x\nUM,x\nUR,10,10\n" + line, ":5 5  |" + line_text},
        {"UR,10,10\nl,0.5,3,0,0,0,10,0,2,1.5\nV,1\nEND\n\n,\n", ":5 5  |"},
        {"UR,10,10\nL,0.5,3,0,0,0,10,0,2\nL,1\nA,1,2,3,4,5,6,7,8,9,10,11\nC,S,0,0,0,0\n", ":5 5  |"},
        {"UR,10,10\nA,1,2,0,0,0,4,0,2,0,1,0.5,7\n", ":5 5  |A2 w1 0 0 4 0 r2.01 b7x0.5|"},
        {"UR,10,10\nA,1,2,0,0,0,4,0,2,0,-1,0.5,7\n", ":5 5  |A2 w1 0 0 4 0 r2.01 b7x0.5|"},
        {"UR,10,10\nT,0,0,0,3,4,1.5,2.9,8,9\nL,not,a,line\n", ":5 5  |T0 3 4 h2 r85.94 L,not,a,line|"},
        {"UR,10,10\nT,short\n" + line + line, ":5 5  |" + line_text},  // a short text uses up the next line too
        {"UR,10,10\nT\n" + line, ":5 5  |" + line_text},
        {"UR,10,10\nT,0,0,0,3,4,1.5,2,8", ":5 5  |"},
        {"UR,10,10\nSUB,S\nT,0,0,0,3,4,1.5,2,8\nin a sub\n" + line + "UR,x,y\n", ":0 0  |"},
        {"UR,10,10\nL,0.5,65539,0,0,0,10,0,65538,1.5\n", ":5 5  |" + line_text},   // 16 bits
        {"UR,10,10\nL,0.5,3,0,0x10,1e999,10,nan,2,1.5\n", ":5 5  |" + line_text},  // no numbers give 0
        {"UI,x\nUR,10,10\nL,0.5,3,0,0,0,1e308,0,2,1.5\n", ":5 5 in |"},            // infinite in millimetres
        {"UR,10,10\nC,S,1,2,0,0,0\nSUB,S\n" + line, ":5 5  |L3 w0.5 1 2 11 2 b2x1.5|"},
        {"UR,10,10\nC,S,1,2,0,1,0\nSUB,S\n" + line, ":5 5  |L3 w0.5 1 2 -9 2 b2x1.5|"},
    };
    for (const auto& [drawing, text] : kCases) EXPECT_EQ(Records(drawing), text) << drawing;
}

TEST_F(CFF2Test, LeavesTheJobAloneIfItCantBeRead) {
    const std::string text = Records("UR,10,10\nL,0.5,3,0,0,0,10,0,2,1.5\n");
    for (const wchar_t* path : {L"", L"tests", L"tests/jobs/none.cf2", L"\x110000"}) GBrn_OpenCF2File(path);
    GBrn_OpenCF2File(nullptr);
    EXPECT_EQ(session_.Run(), text);
}

TEST_F(CFF2Test, ReadsRubbish) {
    std::string rubbish;
    for (uint32_t i = 0, state = 1; i < 300'000; ++i, state = state * 1664525 + 1013904223) {
        rubbish += static_cast<char>(state >> 24);
        if (i % 50 == 0) rubbish += "\nL,1,2,3,4,5,6,7,8,9\nUR,";
    }
    Records(rubbish);
    EXPECT_EQ(
        Records("UR,10,10\nL," + std::string(10'000'000, 'x') + ",\nT,0,0,0,3,4,0,2,8\n" + std::string(1'000'000, 'y'))
            .size(),
        1'000'000 + std::string(":5 5  |T0 3 4 h2 r0 |").size());
    EXPECT_EQ(Records(std::string(2'000'000, ',') + "\n" + std::string(2'000'000, '\n') + "UR,10,10"), ":5 5  |");
}

}  // namespace
}  // namespace brindle
