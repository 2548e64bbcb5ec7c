// Run-time data on the command line: settings, expressions, and how they reach a run.
#include "host/post/run_data.h"

#include <gtest/gtest.h>

#include <locale>

#include "host/post/given_values.h"
#include "unit/temp_folder.h"

namespace brindle::host {
namespace {

TEST(HostExpressions, Values) {
    const JobValues job{.blank_x = 300, .blank_y = 200, .tools = 2, .lines = 12};
    const NamedNumbers given{{"THICK", 1.5}, {"ARCS", 7}};
    const std::pair<const char*, double> good[] = {
        {"BLANK_X/BLANK_Y", 1.5}, {"LINES + 2*TOOLS", 16},
        {"THICK*2", 3},           {"ARCS", 7},  // the user's number stands for the job's
        {"2^3 - 1e1", -2},        {"LINES > 10 ? 5 : 6", 5},
        {"min(THICK, 1)", 1},     {"12.5", 12.5},
    };
    for (const auto& [text, value] : good) {
        const Computed computed = ComputeExpression(text, job, given);
        EXPECT_TRUE(computed.good) << text << ": " << computed.reason;
        EXPECT_DOUBLE_EQ(computed.value, value) << text;
    }
    const std::string deep = std::string(100000, '(') + "1" + std::string(100000, ')');
    for (const std::string& bad :
         {std::string(), std::string("CUSTOMER"), std::string("1/0"), std::string("0/0"), std::string("sqrt(-1)"),
          std::string("2 +"), std::string("1,5"), std::string("LINES = 3"), std::string("\xC3\xA4"), deep}) {
        const Computed computed = ComputeExpression(bad, job, given);
        EXPECT_FALSE(computed.good) << bad.substr(0, 20);
        EXPECT_NE(computed.reason, "") << bad.substr(0, 20);
    }
}

struct CommaPoint : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(HostExpressions, TheLocaleMakesNoDifference) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPoint));
    const Computed computed = ComputeExpression("0.5*3 + 1000", {}, {});
    std::locale::global(before);
    EXPECT_TRUE(computed.good);
    EXPECT_DOUBLE_EQ(computed.value, 1001.5);
}

TEST(HostSettings, Forms) {
    struct Case {
        const char *text, *word, *value;
    };
    const Case cases[] = {{"RTD(1,2)=12.5", "RTD(1,2)", "12.5"},
                          {"rtd( 1, 2 ) =x = y ", "RTD(1,2)", "x = y "},
                          {"RTD(10)=", "RTD(10)", ""}};
    for (const Case& c : cases) {
        const std::optional<RunDataSetting> setting = ParseSetting(c.text);
        ASSERT_TRUE(setting) << c.text;
        EXPECT_EQ(setting->word, c.word);
        EXPECT_EQ(setting->value, c.value);
    }
    for (const char* const bad : {"", "=", "RTD(1,2)", "RTD()=1", "RTD(1,)=1", "RTD(1,2,3)=1", "RTD(a)=1", "RTD1=1",
                                  "RTD(-1)=1", "XRTD(1)=1"}) {
        EXPECT_FALSE(ParseSetting(bad)) << bad;
    }
}

// Tunings and definitions in a folder of their own, with a store of their own.
class HostRunData : public testing::Test {
protected:
    std::string File(const std::string& name, const std::string& text) const { return folder_.Put(name, text); }

    // The first piece that a run with this tuning writes; empty if an expression has no value.
    static std::string Run(const LoadedTuning& tuning, const RunDataRequest& request, const JobValues& job = {}) {
        ExpressionValues values;
        if (!CheckGivenValues(tuning, request) || !SettleExpressions(tuning, request, job, values)) return {};
        CSession session;
        SetTuning(session, tuning, values);
        ApplySettings(request, session.tuning.definition().datasets());
        session.Job().dataset_name = request.dataset;
        CBufferMgr& buffers = RunJob(session).buffers;
        return buffers.SetCurBuffer(1) ? std::string(buffers.GetOutputBuffer()) : std::string();
    }

    CDataHome folder_;
};

constexpr char kDefinition[] =
    "ROW TEXT Cut\nROW TEXT Crease\nCOL TEXT Feed\nMSG TEXT Customer\nDATASETDEF Steel\nDATASETDEF Card\n"
    "DSD Steel TEXT RTD(1,1) 1200\nDSD Steel R_EXPR RTD(2,1) LINES*2+THICK\nDSD Steel T_EXPR RTD(1) "
    "Customer!#SP#!name\n"
    "DSD Card TEXT RTD(1,1) 4000\nDSD Card T_EXPR RTD(1) 17\n";
constexpr char kItems[] =
    "MULTI FileStart_tTmpl NNUL F<RTD(1,1)>!#SP#!G<RTD(2,1)>!#SP#!<RTD(1)>\nTEXT sAbsCode <RTD(7)>\n";

TEST_F(HostRunData, ValuesReachTheRunFromTheTuningAndFromADefinitionFile) {
    struct Case {
        RunDataRequest request;
        const char* expected;  // empty: an expression has no value
    };
    const Case cases[] = {
        {{"Steel", {}, {"Customer name=Smith & Co", "THICK=0.5"}}, "F1200 G24.5 Smith & Co\r\n"},
        {{"Steel", {}, {"Customer name=Smith", "LINES*2+THICK=9"}}, "F1200 G9 Smith\r\n"},
        {{"Steel", {{"RTD(1)", "Me"}, {"RTD(1,1)", "5"}}, {"THICK=1"}}, "F5 G25 Me\r\n"},
        {{"Steel", {{"RTD(1)", "!"}, {"RTD(2,1)", "-7.5"}}, {}}, "F1200 G-7.5 !\r\n"},
        {{"Card", {}, {}}, "F4000 G 17\r\n"},
        {{"Steel", {}, {"THICK=1"}}, ""},
        {{"Steel", {}, {"Customer name=Smith"}}, ""},
        {{"Steel", {}, {"Customer name=Smith", "LINES*2+THICK=many"}}, ""},
    };
    const std::string whole = File("whole.tun", std::string(kDefinition) + kItems);
    const std::string items = File("items.tun", std::string("ROW TEXT Other\n") + kItems);
    const std::string definition = File("definition", kDefinition);
    LoadedTuning own, apart;
    ASSERT_TRUE(LoadTuning(whole, "", own) && LoadTuning(items, definition, apart));
    const JobValues job{.lines = 12};
    for (const Case& c : cases) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(Run(own, c.request, job), c.expected);
        EXPECT_EQ(Run(apart, c.request, job), c.expected);
        EXPECT_EQ(testing::internal::GetCapturedStderr().empty(), *c.expected != '\0');
    }
}

TEST_F(HostRunData, SettingsNeedNoDefinition) {
    LoadedTuning tuning;
    ASSERT_TRUE(LoadTuning(File("items.tun", kItems), "", tuning));
    const RunDataRequest request{"", {{"RTD(1)", "Me"}, {"RTD(7)", "G90"}}, {}};
    EXPECT_TRUE(CheckGivenValues(tuning, request));
    EXPECT_EQ(Run(tuning, request), "F G Me\r\n");

    testing::internal::CaptureStderr();
    EXPECT_FALSE(CheckGivenValues(tuning, {"", {{"RTD(8)", "x"}}, {}}));
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

TEST_F(HostRunData, Datasets) {
    LoadedTuning tuning, bare;
    ASSERT_TRUE(LoadTuning(File("whole.tun", kDefinition), "", tuning) && LoadTuning(File("bare", kItems), "", bare));
    std::string dataset;
    EXPECT_TRUE(ChooseDataset(tuning, "", dataset));
    EXPECT_EQ(dataset, "Steel");
    EXPECT_TRUE(ChooseDataset(tuning, "Card", dataset));
    EXPECT_EQ(dataset, "Card");
    EXPECT_TRUE(ChooseDataset(bare, "", dataset));
    EXPECT_EQ(dataset, "");
    testing::internal::CaptureStderr();
    EXPECT_TRUE(ChooseDataset(tuning, "cARD", dataset));
    EXPECT_EQ(dataset, "Card") << "a name in another case would be stored under itself";
    EXPECT_NE(testing::internal::GetCapturedStderr().find("'cARD' is taken as 'Card'"), std::string::npos);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(ChooseDataset(tuning, "cards", dataset));
    EXPECT_FALSE(ChooseDataset(bare, "Card", dataset));
    const std::string messages = testing::internal::GetCapturedStderr();
    EXPECT_NE(messages.find("'Steel', 'Card'"), std::string::npos) << messages;
}

TEST_F(HostRunData, FilesThatAreNoTuningOrDefinition) {
    const std::string folder = folder_.path();
    const std::string good = File("good", kItems);
    const std::string nul = File("nul", std::string("BOOL bUseSubs true\nTEXT s\0\n", 28));
    LoadedTuning tunings[4];
    testing::internal::CaptureStderr();
    EXPECT_FALSE(LoadTuning(folder + "/none", "", tunings[0]));
    EXPECT_FALSE(LoadTuning(folder, "", tunings[1]));
    EXPECT_FALSE(LoadTuning(nul, "", tunings[2]));
    EXPECT_FALSE(LoadTuning(good, good, tunings[3]));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              folder + "/none: error: no such file\n" + folder + ": error: is a folder, not a file\n" + nul +
                  ":2:1: error: the line holds a NUL byte: this is no tuning\n" + good +
                  ": error: holds no definition of run-time data\n");
}

}  // namespace
}  // namespace brindle::host
