// The questions that a tuning answers about axes, units and tools.
#include "tuning/options.h"

#include <gtest/gtest.h>

#include <cmath>

namespace brindle {
namespace {

using Lines = std::vector<std::string>;
using Mode = CRunTimeDataDef::ReadMode;

struct Tuning {
    explicit Tuning(const Lines& lines) {
        for (const std::string& line : lines) opts.ReadLine(line, Mode::kTuning);
    }
    CBrindleOpts opts;
};

TEST(Options, ToolKeyPrefix) {
    const Lines tools = {"INT nNumOfTools 4",
                         "BOOL T2_bToolUnused true",
                         "INT T2_nPhysicalTool 1",
                         "BOOL T3_bToolSubordinate true",
                         "INT T3_nPhysicalTool 2",
                         "BOOL T4_bToolSubordinate true",
                         "BOOL T5_bToolSubordinate true"};
    const struct {
        Lines more;
        int32_t tool;
        const char* own;     // without following a subordinate tool to its master
        const char* master;  // following it
    } rows[] = {
        {{}, 1, "T1_", "T1_"},
        {{}, 0, "", ""},
        {{}, -1, "", ""},
        {{}, 5, "", ""},
        {{}, 2, "", ""},
        {{"BOOL bDefaultTool true"}, 0, "T_", "T_"},
        {{"BOOL bDefaultTool true"}, -7, "T_", "T_"},
        {{"BOOL bDefaultTool true"}, 5, "T_", "T_"},
        {{"BOOL bDefaultTool true"}, 2, "T_", "T_"},
        {{"BOOL bDefaultTool true"}, 4, "T4_", "T4_"},
        // A master's own flags don't count, and there is no second step.
        {{}, 3, "T3_", "T2_"},
        {{}, 4, "T4_", "T4_"},
        {{"INT T4_nPhysicalTool 0"}, 4, "T4_", "T4_"},
        {{"INT T4_nPhysicalTool 3"}, 4, "T4_", "T3_"},
        {{"INT T4_nPhysicalTool 99"}, 4, "T4_", "T99_"},
        {{"INT T4_nPhysicalTool -1"}, 4, "T4_", "T_"},
        {{"REAL T4_nPhysicalTool 1"}, 4, "T4_", "T4_"},
        {{"INT nNumOfTools 0"}, 1, "", ""},
        {{"INT nNumOfTools -1"}, 1, "", ""},
    };
    for (const auto& row : rows) {
        Tuning tuning(tools);
        for (const std::string& line : row.more) tuning.opts.ReadLine(line, Mode::kTuning);
        SCOPED_TRACE("tool " + std::to_string(row.tool) + (row.more.empty() ? "" : ", " + row.more[0]));
        EXPECT_EQ(tuning.opts.ToolKeyPrefix(row.tool, false), row.own);
        EXPECT_EQ(tuning.opts.ToolKeyPrefix(row.tool, true), row.master);
    }
    EXPECT_EQ(CBrindleOpts().ToolKeyPrefix(1, true), "");
    EXPECT_EQ(ToolPrefixText(0), "T0_");
    EXPECT_EQ(ToolPrefixText(-1), "T_");
}

TEST(Options, MirrorAndRotations) {
    const struct {
        Lines lines;
        bool mirror;
        bool rotations;
    } rows[] = {
        {{}, false, false},
        {{"BOOL bUseMirror true"}, true, false},
        {{"BOOL bUseRotations true"}, false, false},
        {{"BOOL bUseMirror true", "BOOL bUseRotations true"}, true, true},
        {{"BOOL bUseMirror true", "BOOL bUseRotations true", "BOOL bUseSubs false"}, false, false},
    };
    const Lines offset = {"BOOL T1_ToolOff_bUse true", "REAL T1_ToolOff_rAxis1MM 1.5", "REAL T1_ToolOff_rAxis2MM -2",
                          "REAL T2_ToolOff_rAxis1MM 7"};
    for (const auto& row : rows) {
        Tuning tuning(row.lines);
        EXPECT_EQ(tuning.opts.MirrorInUse(), row.mirror);
        EXPECT_EQ(tuning.opts.RotationsInUse(), row.rotations);
        // Where the controller mirrors, it has to know the offset itself.
        for (const std::string& line : offset) tuning.opts.ReadLine(line, Mode::kTuning);
        EXPECT_EQ(tuning.opts.GetToolOffset("T1_").axis1, row.mirror ? 0.0 : 1.5);
        EXPECT_EQ(tuning.opts.GetToolOffset("T1_").axis2, row.mirror ? 0.0 : -2.0);
        EXPECT_EQ(tuning.opts.GetToolOffset("T2_").axis1, 0.0);
        EXPECT_EQ(tuning.opts.GetToolOffset("").axis1, 0.0);
    }
}

TEST(Options, Tangential) {
    Tuning tuning({"BOOL T1_bTangential true", "BOOL T2_bTangential true", "BOOL T2_b180Symmetry true",
                   "BOOL T3_b180Symmetry true", "BOOL bTangential true", "INT T4_bTangential 1"});
    const struct {
        const char* prefix;
        bool tangential;
        bool symmetric;
    } rows[] = {{"T1_", true, false},  {"T2_", true, true},  {"T3_", false, false},
                {"T4_", false, false}, {"T_", false, false}, {"", true, false}};
    for (const auto& row : rows) {
        EXPECT_EQ(tuning.opts.IsTangential(row.prefix), row.tangential) << row.prefix;
        EXPECT_EQ(tuning.opts.IsSym180(row.prefix), row.symmetric) << row.prefix;
    }
}

TEST(Options, AxesByUnit) {
    const CBrindleOpts empty;
    EXPECT_EQ(empty.Axis1Decimals(false), 2);
    EXPECT_EQ(empty.Axis2Decimals(false), 2);
    EXPECT_EQ(empty.Axis1Decimals(true), 3);
    EXPECT_EQ(empty.Axis2Decimals(true), 3);
    EXPECT_EQ(empty.Axis1Factor(false), 1.0);
    EXPECT_EQ(empty.Axis2Factor(true), 1.0);
    EXPECT_TRUE(empty.IsAxis1Linear());

    Tuning tuning({"INT MM_AX1_nNDec 1", "INT MM_AX2_nNDec 4545", "INT IN_AX2_nNDec 4", "REAL MM_AX1_rFactor 10",
                   "REAL MM_AX2_rFactor 20", "REAL IN_AX1_rFactor 30"});
    EXPECT_EQ(tuning.opts.Axis1Decimals(false), 1);
    EXPECT_EQ(tuning.opts.Axis1Decimals(true), 3);  // what is told for millimetres says nothing about inches
    EXPECT_EQ(tuning.opts.Axis2Decimals(true), 4);
    EXPECT_EQ(tuning.opts.Axis1Factor(true), 30.0);
    EXPECT_EQ(tuning.opts.Axis2Factor(true), 1.0);
    EXPECT_EQ(tuning.opts.LinearDecimals(false), 1);
    EXPECT_EQ(tuning.opts.LinearFactor(false), 10.0);
    tuning.opts.SetBool("bAx1IsRot", 1);
    EXPECT_FALSE(tuning.opts.IsAxis1Linear());
    EXPECT_EQ(tuning.opts.LinearDecimals(false), 4545);
    EXPECT_EQ(tuning.opts.LinearFactor(false), 20.0);
    EXPECT_EQ(tuning.opts.LinearDecimals(true), 4);
}

TEST(Options, Steps) {
    const struct {
        int32_t decimals;
        double step;
    } rows[] = {{4545, 1.0}, {0, 1.0}, {1, 0.1}, {4, 0.0001}, {9, 1e-9}, {-2, 100.0}, {2147483647, 0.0}};
    for (const auto& row : rows) {
        CBrindleOpts opts;
        opts.SetInt("MM_AX1_nNDec", row.decimals);
        opts.SetInt("IN_AX2_nNDec", row.decimals);
        EXPECT_EQ(opts.Axis1Step(false), row.step) << row.decimals;
        EXPECT_EQ(opts.LinearStep(false), row.step) << row.decimals;
        EXPECT_EQ(opts.Axis2Step(true), row.step) << row.decimals;
        EXPECT_EQ(opts.Axis2Step(false), 0.01);
    }
}

TEST(Options, ReadsFallBackToTheCatalogue) {
    Tuning tuning({"INT Speed_nNDec 1", "INT T1_bTangential 1", "BOOL nNumOfTools true", "TEXT sNWordAddr !#EMPTY#!",
                   "R_EXPR sAx1Addr X+1"});
    EXPECT_TRUE(tuning.opts.ReadBool(Key("bUseSubs")));
    EXPECT_TRUE(tuning.opts.ReadBool(Key("bTerminiate"), "Line_"));
    EXPECT_FALSE(tuning.opts.ReadBool(Key("bTangential"), "T1_"));
    EXPECT_EQ(tuning.opts.ReadInt(Key("Speed_nNDec")), 1);
    EXPECT_EQ(tuning.opts.ReadInt(Key("nNumOfTools")), 0);
    EXPECT_EQ(tuning.opts.ReadReal(Key("SubRot_rFactor")), 1.0);
    EXPECT_EQ(tuning.opts.ReadText(Key("sNWordAddr")), "");
    EXPECT_EQ(tuning.opts.ReadText(Key("sAx1Addr")), "X+1");
}

TEST(Options, DefinitionAndItemsShareOneText) {
    const Lines lines = {"TEXT zLast z",
                         "ROW TEXT Top",
                         "DATASETDEF Steel",
                         "DSD Steel TEXT RTD(1) 5",
                         "INT nNumOfTools 2",
                         "UPD 2024_03_01_10_00_00",
                         "ROW",
                         "COL TEXT",
                         "TEXT Steel x"};
    Tuning tuning(lines);
    Lines written;
    tuning.opts.WriteToList(written);
    // The definition comes first and keeps its order; the items stand before the first greater word.
    EXPECT_EQ(written, (Lines{"UPD 2024_03_01_10_00_00", "INT  nNumOfTools 2 ", "TEXT Steel x ", "ROW TEXT Top ",
                              "DATASETDEF Steel", "DSD Steel TEXT RTD(1) 5 ", "TEXT zLast z "}));
    Tuning back(written);
    Lines again;
    back.opts.WriteToList(again);
    EXPECT_EQ(again, written);

    tuning.opts.ClearItems();
    EXPECT_EQ(tuning.opts.items().size(), 0U);
    EXPECT_EQ(tuning.opts.definition().rows().size(), 1U);
    back.opts.Clear();
    again.clear();
    back.opts.WriteToList(again);
    EXPECT_EQ(again, Lines{"UPD 2024_03_01_10_00_00"});
}

TEST(Options, IgnoredDefinitionLinesAreNoItems) {
    CBrindleOpts opts;
    for (const char* line : {"ROW TEXT Top", "MSG TEXT a", "DATASETDEF Steel", "DSD Steel TEXT RTD(1) 5", "TEXT a b"}) {
        opts.ReadLine(line, Mode::kIgnore);
    }
    Lines written;
    opts.WriteToList(written);
    ASSERT_EQ(written.size(), 3U);
    EXPECT_EQ(written[1], "TEXT a b ");
    EXPECT_EQ(written[2], "DATASETDEF Steel");
}

}  // namespace
}  // namespace brindle
