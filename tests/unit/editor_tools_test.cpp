// What of the pages of tools no transcript can show.
#include <gtest/gtest.h>

#include "editor/pages/params_sheet.h"
#include "editor/pages/params_tool_data.h"
#include "editor/pages/redef_tool_dlg.h"
#include "editor/pages/view_tool_opt_dlg.h"
#include "session/session.h"
#include "unit/editor_user.h"

namespace brindle {
namespace {

class EditorTools : public testing::Test {
protected:
    void Tune(std::string_view line) { session_.tuning.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning); }
    // The value of a key, as a line of the tuning has it.
    std::string Stored(const std::string& key) const {
        const std::string line = session_.tuning.FormatItem(key, session_.tuning.items().Find(key));
        const size_t value = line.find(key + ' ');
        return value == std::string::npos ? ""
                                          : line.substr(value + key.size() + 1, line.size() - value - key.size() - 2);
    }
    // Opens a sheet that has the page of tools alone, and lets the user act.
    void OnPage(bool inches, const std::function<void(CNCParamsToolData&)>& acts, bool has_session = true) {
        CNCParamsSheet sheet(toolkit_, has_session ? &session_ : nullptr, inches, "Sheet");
        auto& page = dynamic_cast<CNCParamsToolData&>(
            sheet.AddPage([](const PageContext& context) { return std::make_unique<CNCParamsToolData>(context); }));
        user_.acts.emplace_back([&acts, &page] { acts(page); });
        sheet.RunModal();
    }
    size_t CountOfEntries(std::string_view list) const { return toolkit_.Find(list)->Rows().size(); }

    CSession session_;
    CListUser user_;
    CHeadlessToolkit toolkit_{user_};
};

TEST_F(EditorTools, LengthsAreInTheUnitOfTheSheetAndAnglesAreNot) {
    const std::string lengths[] = {"SmFacet_rMaxRadiusMM", "rMinMoveMM", "ToolOff_rAxis1MM", "ToolOff_rAxis2MM"};
    const std::string angles[] = {"rLiftAngDEG", "SmFacet_rLiftAngleDEG", "Fly_rDEG_MaxAngDeviation"};
    const auto edit = [this](const std::string& key, const char* shown, const char* stored) {
        EXPECT_EQ(toolkit_.Find(key)->Value(), shown) << key;
        EXPECT_EQ(toolkit_.Type(key, "-2"), "");
        toolkit_.Leave();
        EXPECT_EQ(Stored("T1_" + key), stored);
    };
    for (const bool inches : {false, true}) {
        for (const char* const line :
             {"INT nNumOfTools 1", "BOOL Fly_bSupport true", "BOOL T1_Fly_bUse true", "BOOL T1_bTangential true",
              "BOOL T1_SmFacet_bUse true", "BOOL T1_ToolOff_bUse true"}) {
            Tune(line);
        }
        for (const std::string& key : lengths) Tune("REAL T1_" + key + " 25.4");
        for (const std::string& key : angles) Tune("REAL T1_" + key + " 25.4");
        OnPage(inches, [&](CNCParamsToolData&) {
            for (const std::string& key : lengths) {
                edit(key, inches ? "1.000" : "25.40", inches ? "-50.800000000" : "-2.000000000");
            }
            for (const std::string& key : angles) edit(key, inches ? "25.400" : "25.40", "-2.000000000");
        });
    }
    EXPECT_TRUE(user_.messages.empty());
}

TEST_F(EditorTools, ATuningMayClaimAnyNumberOfTools) {
    Tune("INT nNumOfTools 2000000000");
    Tune("TEXT T2000000000_Speed_P1_sV1 F1");
    OnPage(false, [this](CNCParamsToolData&) {
        EXPECT_EQ(toolkit_.Find("Number of tools:")->Value(), "2000000000");
        EXPECT_EQ(CountOfEntries("Data for &tool:"), 10000U);
        EXPECT_EQ(toolkit_.Click("&Delete Last Tool"), "");
        EXPECT_EQ(toolkit_.Click("Create &New Tool..."), "");
        EXPECT_EQ(toolkit_.Pick("Data for &tool:", 9999), "");
        user_.acts.emplace_back([this] { EXPECT_EQ(CountOfEntries("list"), 10000U); });
        EXPECT_EQ(toolkit_.Click("&Redefine Tool..."), "");
    });
    EXPECT_EQ(user_.messages, std::vector<std::string>{"No more than 30 tools allowed."});
    EXPECT_EQ(Stored("nNumOfTools"), "1999999999");
    EXPECT_EQ(Stored("T2000000000_Speed_P1_sV1"), "");
    CNCParamsSheet sheet(toolkit_, &session_, false, "Sheet");
    sheet.AddPages();
    user_.acts.emplace_back([this] {
        EXPECT_EQ(toolkit_.GoToPage("ToolRot"), "");
        EXPECT_EQ(CountOfEntries("list"), 10000U);
    });
    sheet.RunModal();
}

TEST_F(EditorTools, ANegativeCountIsNoTools) {
    Tune("INT nNumOfTools -3");
    OnPage(false, [this](CNCParamsToolData&) {
        EXPECT_EQ(toolkit_.Find("Number of tools:")->Value(), "0");
        EXPECT_NE(toolkit_.Click("&Delete Last Tool"), "");
        EXPECT_EQ(toolkit_.Click("Create &New Tool..."), "");
    });
    EXPECT_EQ(Stored("nNumOfTools"), "1");
    EXPECT_EQ(Stored("T1_bToolTool"), "true");
}

TEST_F(EditorTools, ADeletedToolLeavesNoKeysAndTakesNoOthers) {
    for (const char* const line : {"INT nNumOfTools 3", "INT nPrimaryTool 3", "INT T1_nPhysicalTool 3",
                                   "TEXT T3_Speed_P1_sV1 F3", "TEXT T33_Speed_P1_sV1 F33", "TEXT T3Other x"}) {
        Tune(line);
    }
    OnPage(false, [this](CNCParamsToolData&) {
        EXPECT_EQ(toolkit_.PickEntry("Data for &tool:", "T3"), "");
        EXPECT_EQ(toolkit_.Type("rMinMoveMM", "5"), "");
        EXPECT_EQ(toolkit_.Click("&Delete Last Tool"), "");
        EXPECT_EQ(toolkit_.Find("Data for &tool:")->Value(), "1 T2");
    });
    for (const auto& [key, item] : session_.tuning.items()) EXPECT_FALSE(key.starts_with("T3_")) << key;
    EXPECT_EQ(Stored("nPrimaryTool"), "3");
    EXPECT_EQ(Stored("T1_nPhysicalTool"), "3");
    EXPECT_EQ(Stored("T33_Speed_P1_sV1"), "F33");
    EXPECT_EQ(Stored("T3Other"), "x");
}

TEST_F(EditorTools, TheMasterIsStoredWhenItIsChosenAndNotBefore) {
    for (const char* const line :
         {"INT nNumOfTools 2", "BOOL T1_bToolTool false", "BOOL T1_bToolSubordinate true", "BOOL T2_bToolTool true"}) {
        Tune(line);
    }
    OnPage(false, [this](CNCParamsToolData&) {
        EXPECT_EQ(Stored("T1_nPhysicalTool"), "");
        EXPECT_EQ(toolkit_.Pick("&Master tool:", 0), "");
        EXPECT_EQ(Stored("T1_nPhysicalTool"), "2");
    });
}

TEST_F(EditorTools, ToolZeroOnlyEmptiesTheTemplates) {
    Tune("INT nNumOfTools 2");
    OnPage(false, [this](CNCParamsToolData& page) {
        EXPECT_EQ(CountOfEntries("table"), 4U);
        page.SelectTool(0);
        EXPECT_EQ(CountOfEntries("table"), 0U);
        EXPECT_EQ(toolkit_.Find("Data for &tool:")->Value(), "0 T1");
        EXPECT_EQ(toolkit_.Type("Speed_P1_sV1", "F1"), "");
    });
    EXPECT_EQ(Stored("T1_Speed_P1_sV1"), "F1");
    EXPECT_EQ(Stored("T0_bToolTool"), "");
}

TEST_F(EditorTools, NoToolIsTakenFromNone) {
    user_.acts.emplace_back([this] { EXPECT_EQ(toolkit_.PressOk(), ""); });
    EXPECT_EQ(ChooseSourceTool(toolkit_, 0, kDefaultTool), std::nullopt);
}

TEST_F(EditorTools, WithoutATuningNothingHappens) {
    OnPage(
        false,
        [this](CNCParamsToolData& page) {
            page.SelectTool(1);
            EXPECT_EQ(toolkit_.Click("bDefaultTool"), "");
            EXPECT_EQ(toolkit_.Pick("Data for &tool:", 0), "");
            EXPECT_EQ(toolkit_.Click("Create &New Tool..."), "");
            EXPECT_EQ(CountOfEntries("table"), 0U);
        },
        false);
    const std::vector<std::string> screen = {"open Sheet", "cancel Sheet"};
    EXPECT_EQ(user_.screen, screen);
}

TEST_F(EditorTools, AllOptionsCanBeListedByToolAndByOption) {
    for (const char* const line :
         {"TEXT T2_sRTCode G0", "TEXT T10_sRTCode G00", "BOOL T_bTangential true",
          "MULTI T2_ToolOn_tTmpl NNUL M3 NNUL G4", "REAL T2_Fly_rDEG_MaxAngDeviation 2.5", "TEXT T1x_a word",
          // No keys of tools: too short, another letter, no bar, no digit.
          "BOOL T_a true", "BOOL T1_ true", "BOOL X1_bTangential true", "BOOL T1bTangential true",
          "BOOL ToolRot_bModal true"}) {
        Tune(line);
    }
    const std::vector<std::string> by_tool = {
        "T10\tsRTCode\tG00",      "T1x\ta\tword",    "T2\tFly_rDEG_MaxAngDeviation\t2.500000",
        "T2\tToolOn_tTmpl\tM3G4", "T2\tsRTCode\tG0", "T\tbTangential\ttrue"};
    const std::vector<std::string> by_option = {"T2\tFly_rDEG_MaxAngDeviation\t2.500000",
                                                "T2\tToolOn_tTmpl\tM3G4",
                                                "T1x\ta\tword",
                                                "T\tbTangential\ttrue",
                                                "T10\tsRTCode\tG00",
                                                "T2\tsRTCode\tG0"};
    user_.acts.emplace_back([&] {
        EXPECT_EQ(toolkit_.Find("&Tool")->Value(), "1");
        EXPECT_EQ(toolkit_.Find("table")->Rows(), by_tool);
        toolkit_.Click("&Option");
        EXPECT_EQ(toolkit_.Find("table")->Rows(), by_option);
        toolkit_.Click("&Tool");
        EXPECT_EQ(toolkit_.Find("table")->Rows(), by_tool);
        toolkit_.PressOk();
    });
    ViewToolOptions(toolkit_, &session_.tuning);
    EXPECT_EQ(user_.screen.front(), "open View Tool Options");
}

}  // namespace
}  // namespace brindle
