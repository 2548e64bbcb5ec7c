// The questions that a tuning answers about axes, units and tools.
#include "tuning/options.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <utility>

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
    // A further line, then tools with their prefix, first of their own, then of the master of a subordinate one.
    const std::pair<std::string, std::vector<std::tuple<int32_t, const char*, const char*>>> rows[] = {
        // A master's own flags don't count, and there is no second step.
        {"",
         {{1, "T1_", "T1_"},
          {0, "", ""},
          {-1, "", ""},
          {5, "", ""},
          {2, "", ""},
          {3, "T3_", "T2_"},
          {4, "T4_", "T4_"}}},
        {"BOOL bDefaultTool true",
         {{0, "T_", "T_"}, {-7, "T_", "T_"}, {5, "T_", "T_"}, {2, "T_", "T_"}, {4, "T4_", "T4_"}}},
        {"INT T4_nPhysicalTool 0", {{4, "T4_", "T4_"}}},
        {"INT T4_nPhysicalTool 3", {{4, "T4_", "T3_"}}},
        {"INT T4_nPhysicalTool 99", {{4, "T4_", "T99_"}}},
        {"INT T4_nPhysicalTool -1", {{4, "T4_", "T_"}}},
        {"REAL T4_nPhysicalTool 1", {{4, "T4_", "T4_"}}},
        {"INT nNumOfTools 0", {{1, "", ""}}},
        {"INT nNumOfTools -1", {{1, "", ""}}}};
    for (const auto& [more, prefixes] : rows) {
        Tuning tuning(tools);
        tuning.opts.ReadLine(more, Mode::kTuning);
        for (const auto& [tool, own, master] : prefixes) {
            EXPECT_EQ(tuning.opts.ToolKeyPrefix(tool, false), own) << more << ", tool " << tool;
            EXPECT_EQ(tuning.opts.ToolKeyPrefix(tool, true), master) << more << ", tool " << tool;
        }
    }
    EXPECT_EQ(CBrindleOpts().ToolKeyPrefix(1, true), "");
    EXPECT_EQ(ToolPrefixText(0), "T0_");
    EXPECT_EQ(ToolPrefixText(-1), "T_");
}

TEST(Options, MirrorAndRotations) {
    const std::tuple<Lines, bool, bool> rows[] = {
        {{}, false, false},
        {{"BOOL bUseMirror true"}, true, false},
        {{"BOOL bUseRotations true"}, false, false},
        {{"BOOL bUseMirror true", "BOOL bUseRotations true"}, true, true},
        {{"BOOL bUseMirror true", "BOOL bUseRotations true", "BOOL bUseSubs false"}, false, false}};
    const Lines offset = {"BOOL T1_ToolOff_bUse true", "REAL T1_ToolOff_rAxis1MM 1.5", "REAL T1_ToolOff_rAxis2MM -2",
                          "REAL T2_ToolOff_rAxis1MM 7"};
    for (const auto& [lines, mirror, rotations] : rows) {
        Tuning tuning(lines);
        EXPECT_EQ(tuning.opts.MirrorInUse(), mirror);
        EXPECT_EQ(tuning.opts.RotationsInUse(), rotations);
        // Where the controller mirrors, it has to know the offset itself.
        for (const std::string& line : offset) tuning.opts.ReadLine(line, Mode::kTuning);
        EXPECT_EQ(tuning.opts.GetToolOffset("T1_").axis1, mirror ? 0.0 : 1.5);
        EXPECT_EQ(tuning.opts.GetToolOffset("T1_").axis2, mirror ? 0.0 : -2.0);
        EXPECT_EQ(tuning.opts.GetToolOffset("T2_").axis1, 0.0);
        EXPECT_EQ(tuning.opts.GetToolOffset("").axis1, 0.0);
    }
}

TEST(Options, Tangential) {
    Tuning tuning({"BOOL T1_bTangential true", "BOOL T2_bTangential true", "BOOL T2_b180Symmetry true",
                   "BOOL T3_b180Symmetry true", "BOOL bTangential true", "INT T4_bTangential 1"});
    const std::tuple<const char*, bool, bool> rows[] = {{"T1_", true, false},  {"T2_", true, true},
                                                        {"T3_", false, false}, {"T4_", false, false},
                                                        {"T_", false, false},  {"", true, false}};
    for (const auto& [prefix, tangential, symmetric] : rows) {
        EXPECT_EQ(tuning.opts.IsTangential(prefix), tangential) << prefix;
        EXPECT_EQ(tuning.opts.IsSym180(prefix), symmetric) << prefix;
    }
}

TEST(Options, AxesByUnit) {
    const CBrindleOpts empty;
    for (const bool inches : {false, true}) {
        EXPECT_EQ(empty.Axis1Decimals(inches), inches ? 3 : 2);
        EXPECT_EQ(empty.Axis2Decimals(inches), inches ? 3 : 2);
        EXPECT_TRUE(empty.Axis1Factor(inches) == 1.0 && empty.Axis2Factor(inches) == 1.0);
    }
    EXPECT_TRUE(empty.IsAxis1Linear());

    Tuning tuning({"INT MM_AX1_nNDec 1", "INT MM_AX2_nNDec 4545", "INT IN_AX2_nNDec 4", "REAL MM_AX1_rFactor 10",
                   "REAL MM_AX2_rFactor 20", "REAL IN_AX1_rFactor 30"});
    EXPECT_EQ(tuning.opts.Axis1Decimals(false), 1);
    EXPECT_EQ(tuning.opts.Axis1Decimals(true), 3);  // what is said for millimetres says nothing about inches
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
    EXPECT_EQ(tuning.opts.Axis1Step(false), 0.1);
    EXPECT_EQ(tuning.opts.LinearStep(false), 1.0);
    EXPECT_EQ(tuning.opts.Axis2Step(true), 0.0001);
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
    // The definition comes first and keeps its order; the items come before the first greater word.
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

}  // namespace
}  // namespace brindle
