// What the command says of a drawing, and what it counts, before the library reads it; and that the counts are those
// of the library's own store.
#include <gtest/gtest.h>

#include <vector>

#include "check/drawing/survey.h"
#include "session/session.h"

namespace brindle::host {
namespace {

using Texts = std::vector<std::string>;

Texts TextsOf(CDiagnostics diagnostics) {
    Texts texts;
    for (const Diagnostic& one : diagnostics.Sorted()) {
        texts.push_back(std::to_string(one.place.line) + ": " + one.message);
    }
    return texts;
}

DrawingSurvey Survey(std::string_view drawing) {
    CDiagnostics diagnostics;
    return SurveyDrawing(drawing, diagnostics);
}

Texts FaultsOf(std::string_view drawing) {
    CDiagnostics diagnostics;
    SurveyDrawing(drawing, diagnostics);
    return TextsOf(diagnostics);
}

Texts MisfitsOf(const DrawingSurvey& survey, const CBrindleOpts& tuning) {
    CDiagnostics diagnostics;
    CheckPairing(survey, tuning, diagnostics);
    return TextsOf(diagnostics);
}

TEST(HostDrawing, Findings) {
    struct Case {
        const char* drawing;
        Texts findings;
    };
    const Case cases[] = {
        {"MAIN,A\nUM\nUR,9,9\nL,1,1,0,0,0,1,1,0,0\nT,0,0,0,1,2,0,3,0\nUR of text\nEND\n", {}},
        {"$BOF\nUR,9,9\nL,1,1,0,0,0,1,1,0,0\n$EOF\n", {}},
        {"$BOF\nUR,9,9\n", {"0: no $EOF at the end: the drawing seems cut off"}},
        {"MAIN,A\nUR,9,9\nEND\nSUB,B\nL,1,1,0,0,0,1,1,0,0\n",
         {"0: no END after its last program: the drawing seems cut off"}},
        {"L,1,1,0,0,0,1,1,0,0\nUR,9,9\n", {"1: record before the UR record: dropped"}},
        {"L,1,1,0,0,0,1,1,0,0\n",
         {"0: no UR record: nothing of the drawing is used", "1: record before the UR record: dropped"}},
        {"SUB,B\nL,1,1,0,0,0,1,1,0,0\n", {"0: no UR record: the first sub-program is taken as the main program"}},
        {"SUB,B\nUR,9,9\n", {"2: UR record: it discards the programs before it"}},
        {"UR,9,9\nMAIN,A\n", {"2: MAIN record after the UR record: the main program keeps its name"}},
        {"UR,9,9\nL,1,1,0,0,0,1,1\nA,1\nL\n",
         {"2: L record with 8 of 10 words: dropped", "3: A record with 2 of 13 words: dropped",
          "4: L record without further words: dropped"}},
        {"UR,9,9\nL,1,1,0,0,0,10mm,1,0,0\nL,1,1.5,0,nan,0,1,1,0,0\nL,1,70000,0,0,1e999,1,1,0,0\n",
         {"2: '10mm' is no number that can be read: it counts as 10",
          "3: '1.5' is not a whole number, as this word must be: it counts as 1",
          "3: 'nan' is no number that can be read: it counts as 0",
          "4: '70000' is beyond the range of this word: it counts as 4464",
          "4: '1e999' is no number that can be read: it counts as 0"}},
        {"UI,1\nUR,9,9\nL,1,1,0,1e308,0,1,1,0,0\nA,1,1,0,0,0,1,1,1e308,0,1,0,0\n",
         {"3: a number is not finite in millimetres: record dropped",
          "4: a number is not finite in millimetres: record dropped"}},
        {"UR,9,9\nC,B,0,0,0,0,0\nC,A,0,0,0,0,0\nC,B,1,0,0,0,0\nSUB,A\nSUB,A\n",
         {"2: call of program 'B', which is not in the drawing: ignored, like 1 further call",
          "6: program 'A' is there already, from line 5: calls go to that one"}},
        {"UR,9,9\nSUB,A\nT,0,0,0,1,2,0,3,0\ntext\n", {"3: text in a sub-program: dropped"}},
        {"UR,9,9\nT,0,0,0,1,2,0,3,0\nL,1,1,0,0,0,1,1,0,0\n",
         {"2: the next line, which looks like a record, is taken as the text of this one"}},
        {"UR,9,9\nT,0,0,0,1,2,0,3,0\n", {"2: T record at the end, without a line of text: dropped"}},
        {"UI\nUR,9,9\nur,1,2\n",
         {"1: UI has no effect without a second word: lengths stay millimetres; for inches write UI,1",
          "3: record type 'ur' is not in upper case: line ignored"}},
        {"UI,x\nUM\nUR,9,9\n",
         {"2: UM has no effect without a second word: lengths stay inches; for millimetres write UM,1"}},
        {"\xEF\xBB\xBF$BOF\nV2\nORDER\nX,1\nEND\nMAIN,A\nUM\nLL,0,0\nUR,9,9\nSCL,1,1\nEND\n$EOF\n", {}},
        {"UR,9,9\nSCL,1,1.0\nscale,1,1\nSCL,2,2\nSCL,0.5\nScale,1,-1\n",
         {"4: SCL is not read: lengths count as written, like 1 further line",
          "6: SCALE is not read: lengths count as written"}},
        {"UR,9,9\nA,1,1,0,1e300,0,0,1e300,0,0,1e300,0,0\n", {}},
    };
    for (const Case& c : cases) EXPECT_EQ(FaultsOf(c.drawing), c.findings) << c.drawing;
}

TEST(HostDrawing, FindingsOfAKindAreLimited) {
    std::string drawing = "UR,9,9\n";
    for (int i = 0; i < 1000; ++i) drawing += "L,1\n";
    drawing += "C,NOWHERE,0,0,0,0,0\n";
    const Texts findings = FaultsOf(drawing);
    ASSERT_EQ(findings.size(), 22U);
    EXPECT_EQ(findings[19], "21: L record with 2 of 10 words: dropped");
    EXPECT_EQ(findings[20], "21: and 980 more of this kind after this line");
    EXPECT_EQ(findings[21].substr(0, 6), "1002: ");
}

TEST(HostDrawing, WhatIsNoDrawing) {
    for (const char* const text : {"", "\n\n", "Dear Sir\n", "V2\nORDER\nEND\n", "L,1\n"}) {
        EXPECT_FALSE(Survey(text).has_records) << text;
    }
    EXPECT_EQ(FaultsOf(std::string_view("UR,1,1\nL\0", 9)),
              Texts{"2: the line holds a NUL byte: this is no CFF2 drawing"});
}

TEST(HostDrawing, UnknownToolsAreToldOnceEach) {
    CBrindleOpts tuning;
    tuning.SetInt("nNumOfTools", 3);
    tuning.SetBool("T2_bToolUnused", 1);
    const DrawingSurvey survey = Survey(
        "UR,9,9\nL,1,9,0,0,0,1,1,0,0\nL,1,1,0,0,0,1,1,0,0\nA,1,2,0,0,0,1,1,0,0,1,0,0\nL,1,9,0,0,0,1,1,0,0\n"
        "L,1,0,0,0,0,1,1,0,0\n");
    EXPECT_EQ(MisfitsOf(survey, tuning), (Texts{"2: tool 9 is not in the tuning: 2 records ignored",
                                                "6: tool 0 is not in the tuning: 1 record ignored"}));
    tuning.SetBool("bDefaultTool", 1);
    EXPECT_TRUE(MisfitsOf(survey, tuning).empty());
}

// Radius words that a whole drawing writes in a way of its own are reported where the radius counts, once.
TEST(HostDrawing, RadiusWordsThatAreNoRadius) {
    const std::string line = "A,1,1,0,10,0,0,10,0,0,";
    const std::string directions = "UR,9,9\n" + line + "-1,0,0\n" + line + "10,0,0\n" + line + "1,0,0\n";
    const std::string inches = "UI,1\nUR,9,9\n" + line + "-10,0,0\n" + line + "10,0,0\n";
    const std::string millimetres = "UI,1\nUR,9,9\n" + line + "-254,0,0\n";
    const Texts direction_faults = {
        "2: the radius word gives only a direction, but this tuning uses the radius, like 1 further arc"};
    const Texts inch_faults = {
        "3: the radius word is in inches, but counts as millimetres, and this tuning uses the radius, like 1 further "
        "arc"};
    for (const char* const use : {"", "BOOL bArcByRad true", "BOOL T1_SmFacet_bUse true", "BOOL T2_SmFacet_bUse true",
                                  "MULTI T_Arc_tTmpl NNUL <@Radius>"}) {
        CBrindleOpts tuning;
        tuning.SetInt("nNumOfTools", 2);
        tuning.ParseLine(use);
        const bool counts = *use != '\0' && std::string_view(use).find("T2") == std::string_view::npos;
        EXPECT_EQ(MisfitsOf(Survey(directions), tuning), counts ? direction_faults : Texts{}) << use;
        EXPECT_EQ(MisfitsOf(Survey(inches), tuning), counts ? inch_faults : Texts{}) << use;
        EXPECT_TRUE(MisfitsOf(Survey(millimetres), tuning).empty()) << use;
    }
    EXPECT_TRUE(FaultsOf(directions).empty());
    EXPECT_TRUE(FaultsOf(inches).empty());
}

// The survey follows the reader without being it: whatever it counts must have reached the store.
TEST(HostDrawing, CountsAreThoseOfTheStore) {
    const char* const drawings[] = {
        "MAIN,A\nUI,x\nUR,10,5\nL,1,1,0,0,0,1,1,0,0\nL,1,7,0,0,0,1e308,1,0,0\nA,1,2,0,0,0,1,1,0,0,1,0,0\nC,B,0,0,0,0,"
        "0\n"
        "T,0,0,0,1,2,0,3,0\nL,1,1,0,0,0,1,1,0,0\nSUB,B\nL,1,3,0,0,0,1,1,0,0\nT,0,0,0,1,2,0,3,0\ntext\nT,0\nSUB,C\n"
        "C,B,1e308,0,0,0,0\nL,1,4,0,0,0,1,1,0,0\n",
        "L,1,1,0,0,0,1,1,0,0\nSUB,B\nT,0,0,0,1,2,0,3,0\ntext\nL,1,1,0,0,0,1,1,0,0\nSUB,C\nT,0,0,0,1,2,0,3,0\ntext\n",
        "SUB,B\nL,1,1,0,0,0,1,1,0,0\nUR,1,1\nL,1,2,0,0,0,1,1,0,0\nUR,2,2\nSUB,B\nSUB,B\nA,1,2,0,0,0,1,1,0,0,1,0,0\n",
        "UI,x\nUR,1e308,5\nL,1,1,0,0,0,1,1,0,0\nUM,x\nUR,1,5\nC,B,0,0,0,0,0\nT,0,0,0,1,2,0,3,0\n",
    };
    for (const char* const drawing : drawings) {
        const DrawingSurvey survey = Survey(drawing);
        CSession session;
        session.TakeDrawing(drawing);
        const CNCGeomMgr& store = session.geometry;
        DrawingSurvey counted;
        for (int32_t program = 0; program < store.program_count(); ++program) {
            if (program > 0) ++counted.subs;
            for (int32_t i = 0; i < store.GetRecordCount(program); ++i) {
                const CNCData& record = *store.GetRecord(program, i);
                counted.lines += record.IsLine();
                counted.arcs += record.IsArc();
                counted.texts += record.IsText();
                counted.calls += record.IsInclude();
                if (record.IsLine() || record.IsArc()) counted.tools[record.GetToolId()].Add(1);
            }
        }
        EXPECT_EQ(survey.lines, counted.lines) << drawing;
        EXPECT_EQ(survey.arcs, counted.arcs) << drawing;
        EXPECT_EQ(survey.texts, counted.texts) << drawing;
        EXPECT_EQ(survey.calls, counted.calls) << drawing;
        EXPECT_EQ(survey.subs, counted.subs) << drawing;
        EXPECT_EQ(survey.inches, session.controller.job.auto_inches) << drawing;
        ASSERT_EQ(survey.tools.size(), counted.tools.size()) << drawing;
        for (const auto& [tool, use] : counted.tools) EXPECT_EQ(survey.tools.at(tool).count, use.count) << drawing;
    }
}

}  // namespace
}  // namespace brindle::host
