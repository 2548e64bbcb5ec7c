// Definitions of run-time data: their lines, their datasets and the expressions that the host computes.
#include "tuning/run_time_data_def.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

#include "platform/local_time.h"

namespace brindle {
namespace {

using Lines = std::vector<std::string>;
using Mode = CRunTimeDataDef::ReadMode;

struct Definition {
    explicit Definition(const Lines& lines, Mode mode = Mode::kTuning) { Read(lines, mode); }
    void Read(const Lines& lines, Mode mode) {
        for (const std::string& line : lines) def.ReadLine(line, mode);
    }
    // Its lines without the first, which dates it.
    Lines Written() const {
        Lines list;
        def.WriteToList(list);
        EXPECT_TRUE(list[0].starts_with("UPD "));
        list.erase(list.begin());
        return list;
    }
    CRunTimeDataDef def;
};

Lines Dump(const CKVItemContainer& container) {
    Lines dump;
    for (const auto& [key, item] : container.items()) dump.push_back(container.FormatItem(key, item.get()));
    return dump;
}

TEST(RunTimeDataDef, WorkedExample) {
    const Lines lines = {"UPD 2024_03_01_10_00_00",          "ROW TEXT Top ",    "COL TEXT Left ",
                         "MSG TEXT Customer!#SP#!name HIDE", "DATASETDEF Steel", "DSD Steel T_EXPR RTD(1) Customer ",
                         "DSD Steel TEXT RTD(1,1) 12.5 "};
    Definition definition(lines);
    Lines written;
    definition.def.WriteToList(written);
    EXPECT_EQ(written, lines);
    EXPECT_EQ(definition.def.messages()[0].name, "Customer name");
    EXPECT_EQ(definition.def.FirstDatasetName(), "Steel");
}

TEST(RunTimeDataDef, LinesOneByOne) {
    const struct {
        const char* line;
        bool is_definition_line;
        Lines written;  // in all modes but kIgnore
        Lines ignoring;
    } rows[] = {{"", false, {}, {}},
                {"ROW", false, {}, {}},
                {"UPD ", false, {}, {}},
                {"row TEXT Top", false, {}, {}},
                {"TEXT ROW Top", false, {}, {}},
                {"\"ROW\" TEXT Top", false, {}, {}},
                {"ROW TEXT", true, {}, {}},
                {"ROW TEXT Top", true, {"ROW TEXT Top "}, {}},
                {" \tROW\tanything Top", true, {"ROW TEXT Top "}, {}},
                {"COL TEXT a!#SP#!b", true, {"COL TEXT a!#SP#!b "}, {}},
                {"COL TEXT !#EMPTY#!", true, {"COL TEXT !#EMPTY#! "}, {}},
                {"MSG TEXT Top HIDE", true, {"MSG TEXT Top HIDE"}, {}},
                {"MSG TEXT Top hide", true, {"MSG TEXT Top "}, {}},
                {"MSG TEXT Top x HIDE", true, {"MSG TEXT Top "}, {}},
                {"MSG TEXT \"Top left\" HIDE", true, {"MSG TEXT \"Top!#SP#!left\" HIDE"}, {}},
                {"MSG TEXT 'open", true, {"MSG TEXT 'open!#SP#!' "}, {}},
                {"DATASETDEF Steel", true, {"DATASETDEF Steel"}, {"DATASETDEF Steel"}},
                {"DATASETDEF a!#SP#!b", true, {"DATASETDEF a b"}, {"DATASETDEF a b"}},
                {"DSD Steel TEXT RTD(1,1) 5", true, {}, {}},
                {"DSD x", true, {}, {}}};
    for (const auto& row : rows) {
        for (const Mode mode : {Mode::kCollect, Mode::kResolve, Mode::kTuning, Mode::kIgnore}) {
            SCOPED_TRACE(std::string(row.line) + " in mode " + std::to_string(static_cast<int>(mode)));
            Definition definition({});
            EXPECT_EQ(definition.def.ReadLine(row.line, mode), row.is_definition_line);
            EXPECT_EQ(definition.Written(), mode == Mode::kIgnore ? row.ignoring : row.written);
        }
    }
}

TEST(RunTimeDataDef, DatasetLines) {
    const struct {
        const char* line;
        Mode mode;
        const char* value;    // the line of the dataset, empty if there is none
        const char* pending;  // the line of the pending expression, empty if there is none
    } rows[] = {{"DSD S TEXT RTD(1) 12.5", Mode::kTuning, "TEXT RTD(1) 12.5 ", ""},
                {"DSD S text RTD(1) a!#SP#!b more", Mode::kCollect, "TEXT RTD(1) a!#SP#!b ", ""},
                {"DSD S INT RTD(1) 5", Mode::kResolve, "TEXT RTD(1) 5 ", ""},
                {"DSD S TEXT RTD(1) !#EMPTY#!", Mode::kTuning, "TEXT RTD(1) !#EMPTY#! ", ""},
                {"DSD S TEXT RTD(1) \"a b\"", Mode::kTuning, "TEXT RTD(1) \"a!#SP#!b\" ", ""},
                {"DSD S TEXT RTD(1)", Mode::kTuning, "", ""},
                {"DSD S R_EXPR RTD(1)", Mode::kCollect, "", ""},
                {"DSD S TEXT RTD(1) 5", Mode::kIgnore, "", ""},
                {"DSD s TEXT RTD(1) 5", Mode::kTuning, "", ""},
                // Not computed yet.
                {"DSD S R_EXPR RTD(1) a!#SP#!b", Mode::kCollect, "T_EXPR RTD(1) !#EMPTY#! ", "REAL a b 0.000000000 "},
                {"DSD S t_expr RTD(1) ab", Mode::kCollect, "T_EXPR RTD(1) !#EMPTY#! ", "TEXT ab !#EMPTY#! "},
                {"DSD S R_EXPR RTD(1) !#EMPTY#!", Mode::kCollect, "T_EXPR RTD(1) !#EMPTY#! ", ""},
                {"DSD S R_EXPR RTD(1) a!#SP#!b", Mode::kResolve, "T_EXPR RTD(1) !#EMPTY#! ", ""},
                {"DSD S T_EXPR RTD(1) ab", Mode::kResolve, "T_EXPR RTD(1) !#EMPTY#! ", ""},
                {"DSD S r_expr RTD(1) a!#SP#!b", Mode::kTuning, "R_EXPR RTD(1) a!#SP#!b ", ""},
                {"DSD S T_EXPR RTD(1) ab", Mode::kTuning, "T_EXPR RTD(1) ab ", ""},
                // Computed.
                {"DSD S R_EXPR RTD(1) known!#SP#!one", Mode::kResolve, "T_EXPR RTD(1) 4!#SP#!2 ", ""},
                {"DSD S T_EXPR RTD(1) known!#SP#!one", Mode::kResolve, "T_EXPR RTD(1) 4!#SP#!2 ", ""},
                {"DSD S R_EXPR RTD(1) known!#SP#!one", Mode::kTuning, "T_EXPR RTD(1) 4!#SP#!2 ", ""},
                {"DSD S R_EXPR RTD(1) void", Mode::kTuning, "T_EXPR RTD(1) !#EMPTY#! ", ""},
                {"DSD S R_EXPR RTD(1) known!#SP#!one", Mode::kCollect, "T_EXPR RTD(1) !#EMPTY#! ",
                 "REAL known one 0.000000000 "},
                {"DSD S TEXT RTD(1) void", Mode::kResolve, "TEXT RTD(1) void ", ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.line) + " in mode " + std::to_string(static_cast<int>(row.mode)));
        Definition definition({"DATASETDEF S"});
        definition.def.expression_values().SetText("known one", "4 2", TextKind::kPlain);
        definition.def.expression_values().SetText("void", "", TextKind::kPlain);
        EXPECT_TRUE(definition.def.ReadLine(row.line, row.mode));
        EXPECT_EQ(Dump(*definition.def.datasets().ValuesAt(0)), *row.value ? Lines{row.value} : Lines{});
        EXPECT_EQ(Dump(definition.def.pending_expressions()), *row.pending ? Lines{row.pending} : Lines{});
    }
}

TEST(RunTimeDataDef, ValuesNeedTheirDatasetFirst) {
    Definition definition({"DSD X TEXT RTD(1,1) 5", "DATASETDEF X", "DSD X TEXT RTD(1,1) 6", "DATASETDEF X"});
    EXPECT_EQ(definition.Written(), (Lines{"DATASETDEF X", "DSD X TEXT RTD(1,1) 6 "}));
}

TEST(RunTimeDataDef, AnExpressionOfTwoKindsIsPendingOnceWithTheLater) {
    Definition definition({"DATASETDEF X", "DSD X R_EXPR RTD(1) a", "DSD X T_EXPR RTD(2) b", "DSD X T_EXPR RTD(3) a",
                           "DSD X R_EXPR RTD(4) b"},
                          Mode::kCollect);
    EXPECT_EQ(Dump(definition.def.pending_expressions()), (Lines{"TEXT a !#EMPTY#! ", "REAL b 0.000000000 "}));
}

TEST(RunTimeDataDef, TimeOfLastUpdate) {
    Definition definition({"UPD 2024_03_01_10_00_00"}, Mode::kIgnore);
    const int64_t time = definition.def.last_update();
    EXPECT_EQ(FormatTimeStamp(time), "2024_03_01_10_00_00");
    definition.Read({"UPD", "ROW TEXT a"}, Mode::kTuning);
    definition.def.Clear();
    EXPECT_EQ(definition.def.last_update(), time);
    definition.Read({"UPD 2024_13_01_10_00_00"}, Mode::kTuning);
    EXPECT_EQ(definition.def.last_update(), 0);

    Lines written;
    definition.def.WriteToList(written);
    EXPECT_EQ(written, Lines{"UPD " + FormatTimeStamp(0)});
    EXPECT_EQ(written[0].size(), std::string("UPD 1970_01_01_00_00_00").size());
}

TEST(RunTimeDataDef, Hidden) {
    Definition definition({"MSG TEXT m1", "MSG TEXT m2 HIDE", "ROW TEXT r1", "ROW TEXT r2 HIDE", "COL TEXT c1",
                           "COL TEXT c2 HIDE", "COL TEXT c3"});
    for (const char* word :
         {"RTD(2)", "RTD(1,2)", "RTD(2,1)", "RTD(2,2)", "RTD2", "xyz_2", "RTD(1_2)", "RTD( 2 )", "RTD(2x)"})
        EXPECT_TRUE(definition.def.IsHidden(word)) << word;
    for (const char* word : {"RTD(1)",
                             "RTD(3)",
                             "RTD(0)",
                             "RTD(-2)",
                             "RTD(1,1)",
                             "RTD(1,3)",
                             "RTD(2,4)",
                             "RTD(3,2)",
                             "RTD(0,2)",
                             "RTD(2,0)",
                             "RTD(2,-1)",
                             "RTD",
                             "",
                             "RT2",
                             "RTD()",
                             "RTD(2,1,1)",
                             "RTD(x)",
                             "RTD(\"2\")",
                             "RTD(99999999999)",
                             "RTD(2147483648,2)"})
        EXPECT_FALSE(definition.def.IsHidden(word)) << word;
}

TEST(RunTimeDataDef, ReadsFiles) {
    const std::string path = testing::TempDir() + "brindle_run_time_data_def_test.tun";
    std::ofstream(path, std::ios::binary) << "DATASETDEF X\r\nDSD X R_EXPR RTD(1) a\nTEXT b c\nMSG TEXT m";

    Definition definition({"ROW TEXT old", "DATASETDEF old"});
    definition.def.expression_values().SetText("a", "1", TextKind::kPlain);
    definition.def.pending_expressions().SetReal("old", 0);
    EXPECT_TRUE(definition.def.ReadFromFile("", Mode::kCollect));
    EXPECT_EQ(definition.Written(), (Lines{"ROW TEXT old ", "DATASETDEF old"}));

    EXPECT_TRUE(definition.def.ReadFromFile(path, Mode::kResolve));
    EXPECT_EQ(definition.Written(), (Lines{"MSG TEXT m ", "DATASETDEF X", "DSD X T_EXPR RTD(1) 1 "}));
    EXPECT_EQ(definition.def.pending_expressions().items().size(), 0U);

    EXPECT_TRUE(definition.def.ReadFromFile(path, Mode::kCollect));
    EXPECT_EQ(definition.Written(), (Lines{"MSG TEXT m ", "DATASETDEF X", "DSD X T_EXPR RTD(1) !#EMPTY#! "}));
    EXPECT_EQ(Dump(definition.def.pending_expressions()), Lines{"REAL a 0.000000000 "});
    EXPECT_EQ(definition.def.expression_values().items().size(), 0U);

    // A file that is no UTF-8: the host will ask for the dataset with the character that it was given.
    std::ofstream(path, std::ios::binary) << "DATASETDEF Gr\xFCn";
    EXPECT_TRUE(definition.def.ReadFromFile(path, Mode::kCollect));
    EXPECT_EQ(definition.Written(), Lines{"DATASETDEF Gr\xC3\xBCn"});

    // The first row is row 1, whatever mark an editor has put before it.
    std::ofstream(path, std::ios::binary) << "\xEF\xBB\xBFROW TEXT Cut\nROW TEXT Crease\n";
    EXPECT_TRUE(definition.def.ReadFromFile(path, Mode::kCollect));
    EXPECT_EQ(definition.Written(), (Lines{"ROW TEXT Cut ", "ROW TEXT Crease "}));

    std::remove(path.c_str());
    EXPECT_FALSE(definition.def.ReadFromFile(path, Mode::kCollect));
    EXPECT_EQ(definition.Written(), Lines{});
    EXPECT_EQ(definition.def.pending_expressions().items().size(), 0U);
}

TEST(RunTimeDataDef, AssignCopiesAll) {
    Definition original({"UPD 2024_03_01_10_00_00", "ROW TEXT r HIDE", "COL TEXT c", "MSG TEXT m", "DATASETDEF X",
                         "DSD X R_EXPR RTD(1) a"},
                        Mode::kCollect);
    original.def.expression_values().SetText("a", "1", TextKind::kPlain);
    const Lines lines = original.Written();
    Definition copy({"ROW TEXT lost", "DATASETDEF Lost"});
    copy.def.Assign(original.def);
    copy.def.Assign(copy.def);
    original.def.Clear();
    EXPECT_EQ(original.Written(), Lines{});
    EXPECT_EQ(copy.Written(), lines);
    EXPECT_EQ(copy.def.last_update(), original.def.last_update());
    EXPECT_EQ(Dump(copy.def.pending_expressions()), Lines{"REAL a 0.000000000 "});
    EXPECT_EQ(Dump(copy.def.expression_values()), Lines{"TEXT a 1 "});
}

TEST(RunTimeDataDef, EmptyNamesAddNothing) {
    CRunTimeDataDef definition;
    for (const char* name : {"", " "}) definition.AddMessage(name, true);
    definition.AddRow("", false);
    definition.AddColumn("", true);
    EXPECT_TRUE(definition.rows().empty() && definition.columns().empty());
    EXPECT_EQ(definition.messages().size(), 1U);
}

TEST(DataSets, AreKeptInOrder) {
    CDataSetContainer sets;
    for (const char* name : {"b", "a", "B"}) EXPECT_TRUE(sets.Add(name));
    EXPECT_FALSE(sets.Add("a"));
    sets.ValuesOf("a")->SetText("RTD(1)", "x", TextKind::kPlain);
    EXPECT_TRUE(sets.Remove("b"));
    EXPECT_FALSE(sets.Remove("b"));
    EXPECT_TRUE(sets.NameAt(0) == "a" && sets.NameAt(1) == "B" && sets.NameAt(2).empty());
    EXPECT_TRUE(!sets.ValuesAt(2) && !sets.ValuesOf("b") && !sets.Exists("b"));
    EXPECT_TRUE(sets.Add("b"));
    EXPECT_EQ(sets.NameAt(2), "b");

    CDataSetContainer copy;
    copy.Add("lost");
    copy.Assign(sets);
    sets.Clear();
    EXPECT_FALSE(sets.Exists("a"));
    EXPECT_FALSE(copy.Exists("lost"));
    ASSERT_EQ(copy.size(), 3U);
    EXPECT_EQ(Dump(*copy.ValuesAt(0)), Lines{"TEXT RTD(1) x "});
    EXPECT_EQ(copy.Find("B")->name, "B");
}

TEST(RunTimeDataDef, ManyDatasets) {
    constexpr int kCount = 100000;
    CRunTimeDataDef definition;
    for (int i = 0; i < kCount; ++i) {
        const std::string number = std::to_string(i);
        definition.ReadLine("DATASETDEF S" + number, Mode::kTuning);
        definition.ReadLine("DSD S" + number + " TEXT RTD(1) " + number, Mode::kTuning);
    }
    Lines lines;
    definition.WriteToList(lines);
    ASSERT_EQ(lines.size(), size_t{1 + 2 * kCount});
    EXPECT_EQ(lines.back(), "DSD S99999 TEXT RTD(1) 99999 ");
}

}  // namespace
}  // namespace brindle
