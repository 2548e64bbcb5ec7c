// The bound controls of the editor, on a page that has one of each kind.
#include <gtest/gtest.h>

#include "api/brindle_mgr.h"
#include "editor/kv_combos.h"
#include "editor/kv_item_button.h"
#include "editor/kv_number_edits.h"
#include "editor/kv_text_edit.h"
#include "editor/messages.h"
#include "editor/params_sheet.h"
#include "editor/per_tool_list_box.h"
#include "editor/units_static.h"
#include "unit/editor_user.h"

namespace brindle {
namespace {

// Every key that the page binds, with the default that it has there.
class CTestPage : public CNCParamsPage {
public:
    explicit CTestPage(const PageContext& context) : CNCParamsPage(context, "Test", Mark::kAtChange) {}

    void UpdateControlStates() override { ++rule_runs; }
    void OnBoundButtonClicked(CKVItemButton& control) override {
        clicked = &control;
        rule_runs_at_click = rule_runs;
    }

    int rule_runs = 0;
    int rule_runs_at_click = 0;
    const CKVItemButton* clicked = nullptr;

protected:
    struct Controls {
        explicit Controls(const ControlPlace& place)
            : check(place, KeySpec(ControlKind::kCheck, "bUseSubs", "&Support subprograms")),
              first(place, KeySpec(ControlKind::kRadio, "bArcByCen", "By &center", "Arcs")),
              second(place, KeySpec(ControlKind::kRadio, "bArcByRad", "By &radius", "Arcs")),
              third(place, KeySpec(ControlKind::kRadio, "bArcBySub", "By &sub angle", "Arcs")),
              length(place, KeySpec(ControlKind::kReal, "rFacetTolMM", "Facet &tolerance:")),
              unit(place),
              factor(place, KeySpec(ControlKind::kReal, "IN_AX1_rFactor", "&Factor by:")),
              places(place, KeySpec(ControlKind::kReal, "rSubArcFactor", "Factor by:")),
              whole(place, KeySpec(ControlKind::kInteger, "nMaxBytes", "&Maximum # bytes per file:")),
              nonzero(place, KeySpec(ControlKind::kInteger, "SubNum_nMainFactor", "main factor")),
              text(place, KeySpec(ControlKind::kText, "sNWordAddr", "&Address:")),
              decimals(place, KeySpec(ControlKind::kDecimals, "nSubArcNDec", "&Round to:")),
              entries(place, PlainSpec(ControlKind::kEntries, "measured &by:")),
              tools(place.form.AddList(PlainSpec(ControlKind::kList))),
              lift(place, KeySpec(ControlKind::kReal, "rLiftAngDEG", "&Lift angle:")) {}

        CKVItemButton check, first, second, third;
        CKVRealEdit length;
        CUnitsStatic unit;
        CKVRealEdit factor, places;
        CKVUintEdit whole, nonzero;
        CKVTextEdit text;
        CNDecCombo decimals;
        CKVItemCombo entries;
        CPerToolListBox tools;
        CKVRealEdit lift;
    };

    void CreateControls() override {
        controls_ = std::make_unique<Controls>(Place());
        controls_->nonzero.RefuseZero();
        controls_->tools.LeaveOutSubordinates();
        controls_->tools.control().selected.Set([this] { BindTool(); });
    }

    void BindControls() override {
        Controls& c = *controls_;
        CBrindleOpts* const tuning = GetOptions();
        c.check.Bind(tuning, "bUseSubs", false);
        c.first.Bind(tuning, "bArcByCen", true);
        c.second.Bind(tuning, "bArcByRad", false);
        c.third.Bind(tuning, "bArcBySub", false);
        for (CKVItemButton* const one : {&c.first, &c.second, &c.third}) {
            for (CKVItemButton* const other : {&c.first, &c.second, &c.third}) {
                if (one != other) one->AddSibling(*other);
            }
        }
        c.length.SetDecimals(GetUnitPlaces());
        c.length.Bind(tuning, "rFacetTolMM", 0.01, {.in_inches = IsInches()});
        c.unit.SetUnits(IsInches());
        c.factor.SetDecimals(6);
        c.factor.Bind(tuning, "IN_AX1_rFactor", 1.0, {.allow_negative = false, .allow_zero = false});
        c.places.SetDecimals(2);
        c.places.Bind(tuning, "rSubArcFactor", 1.0, {.allow_zero = false});
        c.whole.Bind(tuning, "nMaxBytes", 100000);
        c.nonzero.Bind(tuning, "SubNum_nMainFactor", 1);
        c.text.Bind(tuning, "sNWordAddr", "");
        c.decimals.Bind(tuning, "nSubArcNDec", 2);
        c.entries.Reset();
        c.entries.AddEntry(tuning, "bInAbsCenFromStart", "From START point", true);
        c.entries.AddEntry(tuning, "bInAbsCenFromEnd", "From END point", false);
        c.entries.AddEntry(tuning, "bInAbsCenIsAbs", "In absolute", false);
        c.tools.Fill(tuning);
        BindTool();
    }

private:
    void BindTool() {
        const std::string prefix = controls_->tools.GetToolPrefix();
        if (!prefix.empty()) controls_->lift.Bind(GetOptions(), prefix + "rLiftAngDEG", 0.0, {});
    }

    std::unique_ptr<Controls> controls_;
};

class COtherPage : public CNCParamsPage {
public:
    explicit COtherPage(const PageContext& context) : CNCParamsPage(context, "Other", Mark::kAtChange) {}
};

class EditorControls : public testing::Test {
protected:
    void Tune(std::string_view line) { session_.tuning.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning); }

    // Opens the sheet on the test page and lets the user do `acts`, then leave with Cancel.
    void Play(std::vector<std::function<void()>> acts, bool inches = false) {
        user_.acts.assign(acts.begin(), acts.end());
        user_.acts.emplace_back([this] { toolkit_.PressCancel(); });
        CNCParamsSheet sheet(toolkit_, &parts_, inches, "");
        page_ = &sheet.AddPage<CTestPage>();
        sheet.AddPage<COtherPage>();
        EXPECT_FALSE(sheet.RunModal());
        EXPECT_TRUE(user_.acts.empty());
    }
    // The line that the tuning has for `key`, without the blank at its end.
    std::string Line(std::string_view key) const {
        std::string line = session_.tuning.FormatItem(key, session_.tuning.items().Find(key));
        if (!line.empty()) line.pop_back();
        return line;
    }
    std::string Value(std::string_view control) const { return toolkit_.Find(control)->Value(); }
    std::function<void()> TypeAndLeave(std::string control, std::string text) {
        return [this, control, text] {
            EXPECT_EQ(toolkit_.Type(control, text), "");
            toolkit_.Leave();
        };
    }

    CBrindleMgr session_;
    SessionParts parts_ = session_.Parts();
    CListUser user_;
    CHeadlessToolkit toolkit_{user_};
    const CTestPage* page_ = nullptr;
};

TEST_F(EditorControls, LookingAtAPageFillsAnEmptyTuningWithItsDefaults) {
    Play({});
    const char* const expected[] = {
        "BOOL bUseSubs false",
        "BOOL bArcByCen true",
        "BOOL bArcByRad false",
        "REAL rFacetTolMM 0.010000000",
        "REAL IN_AX1_rFactor 1.000000000",
        "INT  nMaxBytes 100000",
        "INT  nSubArcNDec 2",
        "TEXT sNWordAddr !#EMPTY#!",
        "BOOL bInAbsCenFromStart true",
        "BOOL bInAbsCenIsAbs false",
        "INT  SubNum_nMainFactor 1",
    };
    for (const std::string line : expected) {
        const size_t begin = line.find_first_not_of(' ', line.find(' '));
        EXPECT_EQ(Line(line.substr(begin, line.find(' ', begin) - begin)), line);
    }
    EXPECT_EQ(session_.tuning.items().size(), 14U);  // no tool, so no lift angle
}

TEST_F(EditorControls, AKeyOfAnotherKindIsReplacedByTheDefault) {
    Tune("INT bArcByCen 7");
    Tune("TEXT nMaxBytes 5");
    Tune("BOOL rFacetTolMM true");
    Tune("REAL sNWordAddr 1");
    Play({});
    EXPECT_EQ(Line("bArcByCen"), "BOOL bArcByCen true");
    EXPECT_EQ(Line("nMaxBytes"), "INT  nMaxBytes 100000");
    EXPECT_EQ(Line("rFacetTolMM"), "REAL rFacetTolMM 0.010000000");
    EXPECT_EQ(Line("sNWordAddr"), "TEXT sNWordAddr !#EMPTY#!");
}

TEST_F(EditorControls, AClickRewritesTheKeysOfTheWholeGroup) {
    Tune("BOOL bArcByCen true");
    Tune("BOOL bArcBySub true");  // two of a group, as only a file can have it
    Play({[this] {
        EXPECT_EQ(Value("bArcByCen") + Value("bArcByRad") + Value("bArcBySub"), "101");
        const int before = page_->rule_runs;
        EXPECT_EQ(toolkit_.Click("bArcByRad"), "");
        EXPECT_EQ(Line("bArcByCen"), "BOOL bArcByCen false");
        EXPECT_EQ(Line("bArcByRad"), "BOOL bArcByRad true");
        EXPECT_EQ(Line("bArcBySub"), "BOOL bArcBySub false");
        EXPECT_EQ(page_->rule_runs, before + 1);
        EXPECT_EQ(page_->rule_runs_at_click, page_->rule_runs);
        EXPECT_EQ(page_->clicked->control().GetCheck(), true);
        EXPECT_EQ(toolkit_.Click("bArcByRad"), "");  // a marked radio button stays marked
        EXPECT_EQ(Line("bArcByRad"), "BOOL bArcByRad true");
        EXPECT_EQ(toolkit_.Click("bUseSubs"), "");
        EXPECT_EQ(Line("bUseSubs"), "BOOL bUseSubs true");
    }});
}

struct RealCase {
    const char* stored;
    bool inches;
    const char* shown;
    const char* typed;
    const char* stored_then;
    const char* shown_then;
};

class RealEdits : public EditorControls, public testing::WithParamInterface<RealCase> {};

TEST_P(RealEdits, ShowRoundAndConvert) {
    const RealCase& c = GetParam();
    if (*c.stored != '\0') Tune(std::string("REAL rFacetTolMM ") + c.stored);
    Play({[&] {
              EXPECT_EQ(Value("rFacetTolMM"), c.shown);
              EXPECT_EQ(Value("units"), c.inches ? "in." : "mm.");
          },
          TypeAndLeave("rFacetTolMM", c.typed),
          [&] {
              EXPECT_EQ(Line("rFacetTolMM"), std::string("REAL rFacetTolMM ") + c.stored_then);
              EXPECT_EQ(Value("rFacetTolMM"), c.shown_then);
          }},
         c.inches);
    EXPECT_EQ(user_.messages, std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(All, RealEdits,
                         testing::Values(RealCase{"25.4", true, "1.000", "2", "50.800000000", "2.000"},
                                         RealCase{"", true, "0.000", "0.0004", "0.000000000", "0.000"},
                                         RealCase{"", false, "0.01", "0.005", "0.010000000", "0.01"},
                                         RealCase{"-0.125", false, "-0.13", "-0.005", "-0.010000000", "-0.01"},
                                         RealCase{"3", false, "3.00", " +1.5e1mm", "15.000000000", "15.00"},
                                         RealCase{"3", false, "3.00", "abc", "0.000000000", "0.00"},
                                         RealCase{"3", true, "0.118", "1e308", "0.000000000", "0.000"}));

struct RefusedCase {
    const char* control;
    const char* typed;
    std::string_view message;
};

class RefusedNumbers : public EditorControls, public testing::WithParamInterface<RefusedCase> {};

TEST_P(RefusedNumbers, StayOnTheScreenAndOutOfTheTuning) {
    const RefusedCase& c = GetParam();
    Play({[&] {
        const std::string line = Line(c.control);
        const int rule_runs = page_->rule_runs;
        TypeAndLeave(c.control, c.typed)();
        EXPECT_EQ(Line(c.control), line);
        EXPECT_EQ(Value(c.control), c.typed);
        EXPECT_EQ(page_->rule_runs, rule_runs + 1);
        EXPECT_EQ(toolkit_.PressApply(), "");  // the page is marked all the same
    }});
    EXPECT_EQ(user_.messages, std::vector<std::string>{std::string(c.message)});
}

INSTANTIATE_TEST_SUITE_P(All, RefusedNumbers,
                         testing::Values(RefusedCase{"IN_AX1_rFactor", "0", "Zero value not allowed"},
                                         RefusedCase{"IN_AX1_rFactor", "abc", "Zero value not allowed"},
                                         RefusedCase{"IN_AX1_rFactor", "-1", "Negative values are not allowed."},
                                         RefusedCase{"IN_AX1_rFactor", "-0.0000001", "Zero value not allowed"},
                                         RefusedCase{"rSubArcFactor", "0.001", "Zero value not allowed"},
                                         RefusedCase{"SubNum_nMainFactor", "0", "Zero value not allowed"},
                                         RefusedCase{"SubNum_nMainFactor", "x5", "Zero value not allowed"}));

TEST_F(EditorControls, WholeNumbersKeepTheTextThatWasTyped) {
    Play({TypeAndLeave("nMaxBytes", "-12 bytes"), TypeAndLeave("SubNum_nMainFactor", "-3"), [this] {
              EXPECT_EQ(Line("nMaxBytes"), "INT  nMaxBytes -12");
              EXPECT_EQ(Value("nMaxBytes"), "-12 bytes");
              EXPECT_EQ(Line("SubNum_nMainFactor"), "INT  SubNum_nMainFactor -3");
          }});
    EXPECT_EQ(user_.messages, std::vector<std::string>());
}

TEST_F(EditorControls, NumbersWaitForTheLossOfFocusAndTextsDoNot) {
    Play({[this] {
        const int rule_runs = page_->rule_runs;
        toolkit_.Type("sNWordAddr", "N");
        EXPECT_EQ(Line("sNWordAddr"), "TEXT sNWordAddr N");
        EXPECT_EQ(page_->rule_runs, rule_runs);  // a text runs no rule set
        EXPECT_EQ(toolkit_.PressApply(), "");    // but marks the page
        EXPECT_NE(toolkit_.PressApply(), "");    // and Apply has taken the mark
        toolkit_.Type("nMaxBytes", "7");
        EXPECT_EQ(Line("nMaxBytes"), "INT  nMaxBytes 100000");
        EXPECT_EQ(toolkit_.Click("bUseSubs"), "");
        EXPECT_EQ(Line("nMaxBytes"), "INT  nMaxBytes 7");
        toolkit_.Type("rFacetTolMM", "0.5");
    }});
    EXPECT_EQ(Line("rFacetTolMM"), "REAL rFacetTolMM 0.500000000");  // Cancel takes the focus, too
}

TEST_F(EditorControls, LeavingAPageCommitsAndNeverHolds) {
    Play({[this] {
              toolkit_.Type("IN_AX1_rFactor", "0");
              EXPECT_EQ(toolkit_.GoToPage("Other"), "");
              EXPECT_EQ(user_.messages.size(), 1U);
              EXPECT_EQ(toolkit_.Find("IN_AX1_rFactor"), nullptr);
              Tune("INT nMaxBytes 5");
              EXPECT_EQ(toolkit_.GoToPage("Test"), "");
          },
          [this] {
              EXPECT_EQ(Value("nMaxBytes"), "5");  // read afresh
              EXPECT_EQ(Value("IN_AX1_rFactor"), "1.000000");
          }});
}

TEST_F(EditorControls, AnExpressionThatIsOnlyLookedAtStaysOne) {
    Tune("T_EXPR sNWordAddr Customer");
    Play({});
    EXPECT_EQ(Line("sNWordAddr"), "T_EXPR sNWordAddr Customer");
    Play({[this] { toolkit_.Type("sNWordAddr", "Customer"); }});
    EXPECT_EQ(Line("sNWordAddr"), "TEXT sNWordAddr Customer");
}

TEST_F(EditorControls, TheMenuOfATextWorksOnItsText) {
    Tune("MSG TEXT Name HIDE");
    Tune("ROW TEXT Top");
    Tune("COL TEXT Left");
    Tune("COL TEXT Right");
    const std::vector<std::string> entries = {
        "Reference RunTimeData", "", "Undo", "", "Cut", "Copy", "Paste", "", "Select All"};
    const auto choose = [this](const char* entry) {
        user_.menu_choice = entry;
        EXPECT_EQ(toolkit_.WantMenu("sNWordAddr"), "");
        return Line("sNWordAddr");
    };
    Play({[&] {
        toolkit_.Type("sNWordAddr", "N");
        choose("Select All");
        EXPECT_EQ(user_.menu, entries);
        choose("Copy");
        EXPECT_EQ(choose("Cut"), "TEXT sNWordAddr !#EMPTY#!");
        choose("Paste");
        EXPECT_EQ(choose("Paste"), "TEXT sNWordAddr NN");
        EXPECT_EQ(choose("Undo"), "TEXT sNWordAddr N");
        toolkit_.Type("sNWordAddr", "N\tO\n");
        EXPECT_EQ(Line("sNWordAddr"), "TEXT sNWordAddr N!#SP#!O!#SP#!") << "a tuning could not hold such characters";
        toolkit_.Type("sNWordAddr", "N");
        user_.acts.emplace_front([this] {
            EXPECT_EQ(toolkit_.Find("label")->Value(), "N");
            const std::vector<std::string> listed = {"Name", "Top - Left", "Top - Right"};
            EXPECT_EQ(toolkit_.Find("list")->Rows(), listed);
            EXPECT_EQ(toolkit_.Find("list")->Value(), "-1");
            toolkit_.Pick("list", 2);
            toolkit_.PressOk();
        });
        EXPECT_EQ(choose("Reference RunTimeData"), "TEXT sNWordAddr RTD(1,2)");
        EXPECT_EQ(Value("sNWordAddr"), "RTD(1,2)");
    }});
}

TEST_F(EditorControls, DropDownListsWriteTheirKeys) {
    Tune("INT nSubArcNDec 5");
    Tune("BOOL bInAbsCenFromEnd true");
    Tune("BOOL bInAbsCenIsAbs true");
    Play({[this] {
        EXPECT_EQ(Value("nSubArcNDec"), "-1");  // no entry stands for 5
        const std::vector<std::string> decimals = {"0", ".0", ".1", ".2", ".3", ".4"};
        EXPECT_EQ(toolkit_.Find("nSubArcNDec")->Rows(), decimals);
        toolkit_.Pick("nSubArcNDec", 0);
        EXPECT_EQ(Line("nSubArcNDec"), "INT  nSubArcNDec 4545");
        toolkit_.PickEntry("nSubArcNDec", ".3");
        EXPECT_EQ(Line("nSubArcNDec"), "INT  nSubArcNDec 3");

        EXPECT_EQ(Value("measured &by:"), "2 In absolute");  // the last true key wins
        toolkit_.Pick("measured &by:", 1);
        EXPECT_EQ(Line("bInAbsCenFromStart"), "BOOL bInAbsCenFromStart false");
        EXPECT_EQ(Line("bInAbsCenFromEnd"), "BOOL bInAbsCenFromEnd true");
        EXPECT_EQ(Line("bInAbsCenIsAbs"), "BOOL bInAbsCenIsAbs false");
        toolkit_.Pick("measured &by:", 0);
        EXPECT_EQ(Line("bInAbsCenFromStart"), "BOOL bInAbsCenFromStart true");
        EXPECT_EQ(Line("bInAbsCenFromEnd"), "BOOL bInAbsCenFromEnd false");
        EXPECT_EQ(Line("bInAbsCenIsAbs"), "BOOL bInAbsCenIsAbs false");
    }});
    EXPECT_EQ(Line("nSubArcNDec"), "INT  nSubArcNDec 3");
}

TEST_F(EditorControls, APendingValueGoesToTheToolThatItWasTypedFor) {
    Tune("BOOL bDefaultTool true");
    Tune("INT nNumOfTools 5");
    Tune("BOOL T2_bToolSubordinate true");
    Tune("BOOL T3_bToolUnused true");
    Play({[this] {
        const std::vector<std::string> tools = {"T", "T1", "T4", "T5"};
        EXPECT_EQ(toolkit_.Find("list")->Rows(), tools);
        EXPECT_EQ(Value("list"), "0 T");
        toolkit_.Pick("list", 2);
        toolkit_.Type("rLiftAngDEG", "30");
        toolkit_.Pick("list", 1);
        EXPECT_EQ(Line("T4_rLiftAngDEG"), "REAL T4_rLiftAngDEG 30.000000000");
        EXPECT_EQ(Line("T1_rLiftAngDEG"), "REAL T1_rLiftAngDEG 0.000000000");
        EXPECT_EQ(Value("rLiftAngDEG"), "0.000000");
    }});
    EXPECT_EQ(Line("T_rLiftAngDEG"), "REAL T_rLiftAngDEG 0.000000000");
    EXPECT_EQ(Line("T5_rLiftAngDEG"), "");
}

TEST_F(EditorControls, AListOfToolsHoldsThoseInUseAndHasAnEnd) {
    const auto dialog = toolkit_.MakeDialog("Tools");
    CPerToolListBox list(dialog->AddList(PlainSpec(ControlKind::kList)));
    const CListControl& control = list.control();
    list.Fill(&session_.tuning);
    EXPECT_EQ(control.GetCount(), 0);
    EXPECT_EQ(list.GetToolPrefix(), "");

    Tune("BOOL bDefaultTool true");
    list.Fill(&session_.tuning);
    EXPECT_EQ(control.GetCount(), 1);
    EXPECT_EQ(list.GetToolPrefix(), "T_");

    Tune("BOOL bDefaultTool false");
    Tune("INT nNumOfTools 3");
    Tune("BOOL T1_bToolUnused true");
    Tune("BOOL T2_bToolSubordinate true");
    list.Fill(&session_.tuning);
    EXPECT_EQ(control.GetEntryText(0) + control.GetEntryText(1), "T2T3");
    EXPECT_EQ(list.GetToolPrefix(), "T2_");
    list.LeaveOutSubordinates();
    list.Fill(&session_.tuning);
    EXPECT_EQ(control.GetCount(), 1);
    EXPECT_EQ(list.GetToolPrefix(), "T3_");

    Tune("INT nNumOfTools 2147483647");
    list.Fill(&session_.tuning);
    EXPECT_EQ(control.GetCount(), 10000 - 2);
    Tune("INT nNumOfTools -1");
    list.Fill(&session_.tuning);
    EXPECT_EQ(control.GetCount(), 0);
    list.Fill(nullptr);
    EXPECT_EQ(control.GetCount(), 0);
}

// Controls in a dialog write the tuning and have no page to tell; unbound ones write nothing.
TEST_F(EditorControls, WithoutPageOrTuningNothingIsTold) {
    const auto dialog = toolkit_.MakeDialog("Plain");
    const ControlPlace place{toolkit_, *dialog};
    CKVItemButton bound(place, PlainSpec(ControlKind::kCheck, "bound"));
    CKVItemButton unbound(place, PlainSpec(ControlKind::kCheck, "unbound"));
    CKVRealEdit real(place, PlainSpec(ControlKind::kReal, "real"));
    CKVTextEdit text(place, PlainSpec(ControlKind::kText, "text"));
    CKVItemContainer other;
    bound.Bind(&other, "bKey", true);
    text.Bind(&other, "sKey", "");
    user_.acts.emplace_back([this] {
        toolkit_.Click("bound");
        toolkit_.Click("unbound");
        toolkit_.Type("real", "x");
        toolkit_.WantMenu("text");
        toolkit_.PressCancel();
    });
    dialog->RunModal();
    EXPECT_EQ(other.FormatItem("bKey", other.items().Find("bKey")), "BOOL bKey false ");
    EXPECT_EQ(other.items().size(), 2U);
    EXPECT_EQ(user_.menu.front(), "(Reference RunTimeData)");  // these are no options of a tuning
    EXPECT_EQ(user_.messages, std::vector<std::string>());
}

}  // namespace
}  // namespace brindle
