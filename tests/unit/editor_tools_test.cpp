// The pages of tools: what each control is bound to, how it shows it, and what no transcript can show.
#include <gtest/gtest.h>

#include "api/brindle_mgr.h"
#include "editor/params_sheet.h"
#include "editor/params_tool_data.h"
#include "editor/params_tool_rot.h"
#include "editor/redef_tool_dlg.h"
#include "editor/view_tool_opt_dlg.h"
#include "unit/editor_user.h"

namespace brindle {
namespace {

using enum ControlKind;

enum Unit { kNoUnit, kSheetUnit };

struct BoundRow {
    const char* label;
    const char* key;
    ControlKind kind;
    const char* stored;  // the default, as a line of the tuning has it
    const char* shown_mm;
    const char* shown_inch;
    Unit unit = kNoUnit;
};

constexpr BoundRow kToolRows[] = {
    {"&Tool down/on after tool selection", "bOnAfterSelect", kCheck, "false", "0", "0"},
    {"&Up/off required before deselection", "bOffReqBeforeDesel", kCheck, "true", "1", "1"},
    {"&Tangential tool", "bTangential", kCheck, "false", "0", "0"},
    {"180 &Symmetry", "b180Symmetry", kCheck, "false", "0", "0"},
    {"&Lift angle:", "rLiftAngDEG", kReal, "0.000000000", "0.00", "0.000"},
    {"&Facet small radii", "SmFacet_bUse", kCheck, "false", "0", "0"},
    {"&Less than:", "SmFacet_rMaxRadiusMM", kReal, "0.000000000", "0.00", "0.000", kSheetUnit},
    {"&Deviation angle:", "SmFacet_rLiftAngleDEG", kReal, "0.000000000", "0.00", "0.000"},
    {"Minimum move &distance for: tool up/off:", "rMinMoveMM", kReal, "0.000000000", "0.00", "0.000", kSheetUnit},
    {"Tool &offset done by software", "ToolOff_bUse", kCheck, "false", "0", "0"},
    {"Axis &1:", "ToolOff_rAxis1MM", kReal, "0.000000000", "0.00", "0.000", kSheetUnit},
    {"Axis &2:", "ToolOff_rAxis2MM", kReal, "0.000000000", "0.00", "0.000", kSheetUnit},
    {"&Use fly mode", "Fly_bUse", kCheck, "false", "0", "0"},
    {"For &devation angle <=", "Fly_rDEG_MaxAngDeviation", kReal, "10.000000000", "10.00", "10.000"},
    {"Param 1", "Speed_P1_sV1", kText, "!#EMPTY#!", "", ""},
    {"Param 1", "Speed_P1_sV2", kText, "!#EMPTY#!", "", ""},
    {"Param 1", "Speed_P1_sV3", kText, "!#EMPTY#!", "", ""},
    {"Param 1", "Speed_P1_sV4", kText, "!#EMPTY#!", "", ""},
    {"Param 2", "Speed_P2_sV1", kText, "!#EMPTY#!", "", ""},
    {"Param 2", "Speed_P2_sV2", kText, "!#EMPTY#!", "", ""},
    {"Param 2", "Speed_P2_sV3", kText, "!#EMPTY#!", "", ""},
    {"Param 2", "Speed_P2_sV4", kText, "!#EMPTY#!", "", ""},
    {"&Use separate speed for arcs", "Speed_bSepForArcs", kCheck, "false", "0", "0"},
    {"Param 1", "Speed_sForArcs_P1", kText, "!#EMPTY#!", "", ""},
    {"Param 2", "Speed_sForArcs_P2", kText, "!#EMPTY#!", "", ""},
    {"&Use small radii factor formula", "Speed_bUseSmallRadiiFormula", kCheck, "false", "0", "0"},
};

constexpr BoundRow kRotationRows[] = {
    {"&Address:", "ToolRot_sAddr", kText, "!#EMPTY#!", "", ""},
    {"&Factor by:", "ToolRot_rFactor", kReal, "1.000000000", "1.000000", "1.000000"},
    {"&Round to:", "ToolRot_nNDec", kDecimals, "2", "3 .2", "3 .2"},
    {"Modal", "ToolRot_bModal", kCheck, "false", "0", "0"},
    {"&CW", "ToolRot_bPosIsCW", kRadio, "false", "0", "0"},
    {"CC&W", "ToolRot_bPosIsCCW", kRadio, "true", "1", "1"},
    {"&Measure angles from:", "ToolRot_rDEG_Offset", kReal, "0.000000000", "0.00", "0.000"},
    {"Always &absolute", "ToolRot_bAlwaysAbs", kCheck, "false", "0", "0"},
    {"Sign indicates &direction of travel", "ToolRot_bUseSign", kCheck, "false", "0", "0"},
    {"Aux. Code 1:", "sTangAuxCode1", kText, "!#EMPTY#!", "", ""},
    {"Aux. Code 2:", "sTangAuxCode2", kText, "!#EMPTY#!", "", ""},
};

constexpr BoundRow kToolRotationRows[] = {
    {"&Tangential tool", "bTangential", kCheck, "false", "0", "0"},
    {"180 &Symmetry", "b180Symmetry", kCheck, "false", "0", "0"},
    {"&Lift angle:", "rLiftAngDEG", kReal, "0.000000000", "0.000000", "0.000000"},
};

struct ToolCase {
    const char* prefix;
    const char* tuning;
    bool inches;
};

constexpr ToolCase kToolCases[] = {
    {"T1_", "INT nNumOfTools 1", false},
    {"T1_", "INT nNumOfTools 1", true},
    {"T_", "BOOL bDefaultTool true", false},
    {"T_", "BOOL bDefaultTool true", true},
};

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
    // Opens a sheet that has this page alone, and lets the user act.
    template <typename Page>
    void OnPage(bool inches, std::function<void(Page&)> acts, bool has_session = true) {
        CNCParamsSheet sheet(toolkit_, has_session ? &parts_ : nullptr, inches, "Sheet");
        Page& page = sheet.AddPage<Page>();
        user_.acts.emplace_back([&acts, &page] { acts(page); });
        sheet.RunModal();
    }
    void ExpectRows(std::span<const BoundRow> rows, const std::string& prefix, bool inches) const {
        for (const BoundRow& row : rows) {
            const CHeadlessControl* const control = toolkit_.Find(row.key);
            ASSERT_NE(control, nullptr) << row.key;
            EXPECT_EQ(control->Label(), row.label) << row.key;
            EXPECT_EQ(control->spec().kind, row.kind) << row.key;
            EXPECT_EQ(control->Value(), inches ? row.shown_inch : row.shown_mm) << row.key;
            EXPECT_EQ(Stored(prefix + row.key), row.stored) << prefix << row.key;
        }
    }
    size_t CountOfBoundControls() const {
        return static_cast<size_t>(std::ranges::count_if(
            toolkit_.Top()->Controls(), [](const auto& control) { return !control->spec().name.empty(); }));
    }
    size_t CountOfEntries(std::string_view list) const { return toolkit_.Find(list)->Rows().size(); }

    CBrindleMgr session_;
    SessionParts parts_ = session_.Parts();
    CListUser user_;
    CHeadlessToolkit toolkit_{user_};
};

// ---- Bindings ----

TEST_F(EditorTools, ControlsOfAToolShowAndStoreTheirDefaults) {
    for (const auto& [prefix, tuning, inches] : kToolCases) {
        session_.tuning.ClearItems();
        Tune(tuning);
        OnPage<CNCParamsToolData>(inches, [&](CNCParamsToolData&) {
            ExpectRows(kToolRows, prefix, inches);
            EXPECT_EQ(toolkit_.Find("units")->Value(), inches ? "in." : "mm.");
            EXPECT_EQ(CountOfBoundControls(), std::size(kToolRows) + 1);
        });
        const std::string tool = prefix;
        EXPECT_EQ(Stored(tool + "bToolTool"), "true");
        EXPECT_EQ(Stored(tool + "bToolSubordinate"), "false");
        EXPECT_EQ(Stored(tool + "bToolUnused"), "false");
        EXPECT_EQ(Stored("bDefaultTool"), tool == "T_" ? "true" : "false");
        const size_t counts = tool == "T_" ? 0 : 1;
        EXPECT_EQ(session_.tuning.items().size(), std::size(kToolRows) + 4 + counts);  // and nothing else
    }
}

TEST_F(EditorTools, ControlsOfRotationShowAndStoreTheirDefaults) {
    for (const auto& [prefix, tuning, inches] : kToolCases) {
        session_.tuning.ClearItems();
        Tune(tuning);
        OnPage<CNCParamsToolRot>(inches, [&](CNCParamsToolRot&) {
            ExpectRows(kRotationRows, "", inches);
            ExpectRows(kToolRotationRows, prefix, inches);
            EXPECT_EQ(CountOfBoundControls(), std::size(kRotationRows) + std::size(kToolRotationRows));
        });
        EXPECT_EQ(session_.tuning.items().size(), std::size(kRotationRows) + std::size(kToolRotationRows) + 1);
    }
}

TEST_F(EditorTools, LengthsAreInTheUnitOfTheSheetAndAnglesAreNot) {
    for (const bool inches : {false, true}) {
        session_.tuning.ClearItems();
        for (const char* const line :
             {"INT nNumOfTools 1", "BOOL Fly_bSupport true", "BOOL T1_Fly_bUse true", "BOOL T1_bTangential true",
              "BOOL T1_SmFacet_bUse true", "BOOL T1_ToolOff_bUse true"}) {
            Tune(line);
        }
        for (const BoundRow& row : kToolRows) {
            if (row.kind == kReal) session_.tuning.SetReal(std::string("T1_") + row.key, 25.4);
        }
        OnPage<CNCParamsToolData>(inches, [&](CNCParamsToolData&) {
            for (const BoundRow& row : kToolRows) {
                if (row.kind != kReal) continue;
                const bool converted = inches && row.unit == kSheetUnit;
                EXPECT_EQ(toolkit_.Find(row.key)->Value(), converted ? "1.000"
                                                           : inches  ? "25.400"
                                                                     : "25.40")
                    << row.key;
                EXPECT_EQ(toolkit_.Type(row.key, "-2"), "");
                toolkit_.Leave();
                EXPECT_EQ(Stored(std::string("T1_") + row.key), converted ? "-50.800000000" : "-2.000000000");
            }
        });
    }
    EXPECT_TRUE(user_.messages.empty());
}

// ---- Tools ----

TEST_F(EditorTools, ATuningMayClaimAnyNumberOfTools) {
    Tune("INT nNumOfTools 2000000000");
    Tune("TEXT T2000000000_Speed_P1_sV1 F1");
    OnPage<CNCParamsToolData>(false, [this](CNCParamsToolData&) {
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
    OnPage<CNCParamsToolRot>(false, [this](CNCParamsToolRot&) { EXPECT_EQ(CountOfEntries("list"), 10000U); });
}

TEST_F(EditorTools, ANegativeCountIsNoTools) {
    Tune("INT nNumOfTools -3");
    OnPage<CNCParamsToolData>(false, [this](CNCParamsToolData&) {
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
    OnPage<CNCParamsToolData>(false, [this](CNCParamsToolData&) {
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
    OnPage<CNCParamsToolData>(false, [this](CNCParamsToolData&) {
        EXPECT_EQ(Stored("T1_nPhysicalTool"), "");
        EXPECT_EQ(toolkit_.Pick("&Master tool:", 0), "");
        EXPECT_EQ(Stored("T1_nPhysicalTool"), "2");
    });
}

TEST_F(EditorTools, ToolZeroOnlyEmptiesTheTemplates) {
    Tune("INT nNumOfTools 2");
    OnPage<CNCParamsToolData>(false, [this](CNCParamsToolData& page) {
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
    CRedefToolDlg dialog(toolkit_, 0, kDefaultTool);
    user_.acts.emplace_back([this] { EXPECT_EQ(toolkit_.PressOk(), ""); });
    EXPECT_FALSE(dialog.RunModal());
}

TEST_F(EditorTools, WithoutATuningNothingHappens) {
    OnPage<CNCParamsToolData>(
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

// ---- All options of all tools ----

TEST_F(EditorTools, AllOptionsCanBeListedByToolAndByOption) {
    for (const char* const line :
         {"TEXT T2_sRTCode G0", "TEXT T10_sRTCode G00", "BOOL T_bTangential true",
          "MULTI T2_ToolOn_tTmpl NNUL M3 NNUL G4", "REAL T2_Fly_rDEG_MaxAngDeviation 2.5", "TEXT T1x_a word",
          // No keys of tools: too short, another letter, no bar, no digit.
          "BOOL T_a true", "BOOL T1_ true", "BOOL X1_bTangential true", "BOOL T1bTangential true",
          "BOOL ToolRot_bModal true"}) {
        Tune(line);
    }
    CViewToolOptDlg dialog(toolkit_, &session_.tuning);
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
    EXPECT_TRUE(dialog.RunModal());
    EXPECT_EQ(user_.screen.front(), "open View Tool Options");
}

}  // namespace
}  // namespace brindle
