// The bound controls of the editor: when they write, what they convert, round and refuse, on pages that have them.
#include "editor/controls/kv_item_button.h"
#include "editor/controls/kv_number_edits.h"
#include "editor/controls/kv_text_edit.h"
#include "editor/controls/per_tool_list_box.h"
#include "unit/editor_session.h"

namespace brindle {
namespace {

class EditorControls : public testing::Test {
protected:
    // Lets the user act on a page, and leave with Cancel.
    void OnPage(std::string_view page, const std::function<void()>& acts, bool inches = false) {
        editor_.Play({[&] {
                         ASSERT_EQ(toolkit_.GoToPage(page), "");
                         acts();
                     }},
                     inches);
    }
    void Tune(std::string_view line) { editor_.Tune(line); }
    std::string Line(std::string_view key) const { return editor_.Line(key); }
    std::string Value(std::string_view control) const { return toolkit_.Find(control)->Value(); }
    void TypeAndLeave(std::string_view control, std::string_view text) {
        EXPECT_EQ(toolkit_.Type(control, text), "");
        toolkit_.Leave();
    }

    CEditorSession editor_;
    CHeadlessToolkit& toolkit_ = editor_.toolkit;
    std::vector<std::string>& messages_ = editor_.user.messages;
};

TEST_F(EditorControls, AKeyOfAnotherKindIsReplacedByTheDefault) {
    for (const char* const line :
         {"INT bArcByCen 7", "TEXT nMaxBytes 5", "BOOL rFacetTolMM true", "REAL sNWordAddr 1"}) {
        Tune(line);
    }
    editor_.VisitAllPages();
    EXPECT_EQ(Line("bArcByCen"), "BOOL bArcByCen true");
    EXPECT_EQ(Line("nMaxBytes"), "INT  nMaxBytes 100000");
    EXPECT_EQ(Line("rFacetTolMM"), "REAL rFacetTolMM 0.010000000");
    EXPECT_EQ(Line("sNWordAddr"), "TEXT sNWordAddr !#EMPTY#!");
}

TEST_F(EditorControls, AClickRewritesTheKeysOfTheWholeGroup) {
    Tune("BOOL bArcByCen true");
    Tune("BOOL bArcBySub true");  // two of a group, as only a file can have it
    OnPage("ArcData", [this] {
        EXPECT_EQ(Value("bArcByCen") + Value("bArcByRad") + Value("bArcBySub"), "101");
        for (int clicks = 0; clicks < 2; ++clicks) {  // a marked radio button stays marked
            EXPECT_EQ(toolkit_.Click("bArcByRad"), "");
            EXPECT_EQ(Line("bArcByCen"), "BOOL bArcByCen false");
            EXPECT_EQ(Line("bArcByRad"), "BOOL bArcByRad true");
            EXPECT_EQ(Line("bArcBySub"), "BOOL bArcBySub false");
        }
        EXPECT_FALSE(toolkit_.Find("bArcDataModal")->shown());
    });
}

// The name of a case is that of its test.
constexpr auto kNameOfCase = [](const auto& test) { return std::string(test.param.name); };

struct RealCase {
    const char* name;
    const char* stored;
    bool inches;
    const char* shown;
    const char* typed;
    const char* stored_then;
    const char* shown_then;

    friend void PrintTo(const RealCase& c, std::ostream* out) { *out << c.name; }
};

class RealEdits : public EditorControls, public testing::WithParamInterface<RealCase> {};

TEST_P(RealEdits, ShowRoundAndConvert) {
    const RealCase& c = GetParam();
    if (*c.stored != '\0') Tune(std::string("REAL rFacetTolMM ") + c.stored);
    const auto edit = [&] {
        EXPECT_EQ(Value("rFacetTolMM"), c.shown);
        EXPECT_EQ(Value("units"), c.inches ? "in." : "mm.");
        TypeAndLeave("rFacetTolMM", c.typed);
        EXPECT_EQ(Line("rFacetTolMM"), std::string("REAL rFacetTolMM ") + c.stored_then);
        EXPECT_EQ(Value("rFacetTolMM"), c.shown_then);
    };
    OnPage("ArcData", edit, c.inches);
    EXPECT_EQ(messages_, std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(
    All, RealEdits,
    testing::Values(RealCase{"Inches", "25.4", true, "1.000", "2", "50.800000000", "2.000"},
                    RealCase{"DefaultInInches", "", true, "0.000", "0.0004", "0.000000000", "0.000"},
                    RealCase{"HalfOfAStep", "", false, "0.01", "0.005", "0.010000000", "0.01"},
                    RealCase{"NegativeHalfOfAStep", "-0.125", false, "-0.13", "-0.005", "-0.010000000", "-0.01"},
                    RealCase{"NumberBeforeText", "3", false, "3.00", " +1.5e1mm", "15.000000000", "15.00"},
                    RealCase{"NoNumber", "3", false, "3.00", "abc", "0.000000000", "0.00"},
                    RealCase{"TooLargeInInches", "3", true, "0.118", "1e308", "0.000000000", "0.000"}),
    kNameOfCase);

struct RefusedCase {
    const char* name;
    const char* page;
    const char* control;
    const char* typed;
    const char* message;

    friend void PrintTo(const RefusedCase& c, std::ostream* out) { *out << c.name; }
};

class RefusedNumbers : public EditorControls, public testing::WithParamInterface<RefusedCase> {};

TEST_P(RefusedNumbers, StayOnTheScreenAndOutOfTheTuning) {
    const RefusedCase& c = GetParam();
    for (const char* const line : {"BOOL bUseSubs true", "BOOL bArcByCen false", "BOOL bArcBySub true"}) Tune(line);
    OnPage(c.page, [&] {
        EXPECT_EQ(toolkit_.PressApply(), "");
        const std::string line = Line(c.control);
        TypeAndLeave(c.control, c.typed);
        EXPECT_EQ(Line(c.control), line);
        EXPECT_EQ(Value(c.control), c.typed);
        EXPECT_EQ(toolkit_.PressApply(), "");  // the page is marked all the same
    });
    EXPECT_EQ(messages_, std::vector<std::string>{c.message});
}

constexpr const char* kZero = "Zero value not allowed";

INSTANTIATE_TEST_SUITE_P(
    All, RefusedNumbers,
    testing::Values(RefusedCase{"Zero", "AxisData", "IN_AX1_rFactor", "0", kZero},
                    RefusedCase{"NoNumber", "AxisData", "IN_AX1_rFactor", "abc", kZero},
                    RefusedCase{"Negative", "AxisData", "IN_AX1_rFactor", "-1", "Negative values are not allowed."},
                    RefusedCase{"NegativeThatRoundsToZero", "AxisData", "IN_AX1_rFactor", "-0.0000001", kZero},
                    RefusedCase{"PositiveThatRoundsToZero", "ArcData", "rSubArcFactor", "0.0000004", kZero},
                    RefusedCase{"WholeZero", "Subs", "SubNum_nMainFactor", "0", kZero},
                    RefusedCase{"NoWholeNumber", "Subs", "SubNum_nMainFactor", "x5", kZero}),
    kNameOfCase);

TEST_F(EditorControls, WholeNumbersKeepTheTextThatWasTyped) {
    Tune("BOOL bUseSubs true");
    OnPage("Subs", [this] {
        TypeAndLeave("SubNum_nMainOffset", "-12 and more");
        EXPECT_EQ(Value("SubNum_nMainOffset"), "-12 and more");
        EXPECT_EQ(Line("SubNum_nMainOffset"), "INT  SubNum_nMainOffset -12");
        TypeAndLeave("SubNum_nMainFactor", "-3");
        EXPECT_EQ(Line("SubNum_nMainFactor"), "INT  SubNum_nMainFactor -3");
    });
    EXPECT_EQ(messages_, std::vector<std::string>());
}

TEST_F(EditorControls, NumbersWaitForTheLossOfFocusAndTextsDoNot) {
    OnPage("General", [this] {
        EXPECT_EQ(toolkit_.PressApply(), "");
        toolkit_.Type("sNWordAddr", "N");
        EXPECT_EQ(Line("sNWordAddr"), "TEXT sNWordAddr N");
        EXPECT_EQ(toolkit_.PressApply(), "");  // the text marks the page
        EXPECT_NE(toolkit_.PressApply(), "");  // and Apply has taken the mark
        toolkit_.Type("nNWordInitVal", "7");
        EXPECT_EQ(Line("nNWordInitVal"), "INT  nNWordInitVal 0");
        EXPECT_EQ(toolkit_.Click("bUseSpace"), "");
        EXPECT_EQ(Line("nNWordInitVal"), "INT  nNWordInitVal 7");
        toolkit_.Type("nNWordBigInc", "5");
    });
    EXPECT_EQ(Line("nNWordBigInc"), "INT  nNWordBigInc 5");  // Cancel takes the focus, too
}

TEST_F(EditorControls, LeavingAPageCommitsAndNeverHolds) {
    OnPage("AxisData", [this] {
        toolkit_.Type("IN_AX1_rFactor", "0");
        EXPECT_EQ(toolkit_.GoToPage("Text"), "");
        EXPECT_EQ(messages_.size(), 1U);
        EXPECT_EQ(toolkit_.Find("IN_AX1_rFactor"), nullptr);
        Tune("TEXT sAx1Addr X");
        EXPECT_EQ(toolkit_.GoToPage("AxisData"), "");
        EXPECT_EQ(Value("sAx1Addr"), "X");  // read afresh
        EXPECT_EQ(Value("IN_AX1_rFactor"), "1.000000");
    });
}

TEST_F(EditorControls, AnExpressionThatIsOnlyLookedAtStaysOne) {
    Tune("T_EXPR sNWordAddr Customer");
    editor_.VisitAllPages();
    EXPECT_EQ(Line("sNWordAddr"), "T_EXPR sNWordAddr Customer");
    OnPage("General", [this] { toolkit_.Type("sNWordAddr", "Customer"); });
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
        editor_.user.menu_choice = entry;
        EXPECT_EQ(toolkit_.WantMenu("sNWordAddr"), "");
        return Line("sNWordAddr");
    };
    OnPage("General", [&] {
        toolkit_.Type("sNWordAddr", "N");
        choose("Select All");
        EXPECT_EQ(editor_.user.menu, entries);
        choose("Copy");
        EXPECT_EQ(choose("Cut"), "TEXT sNWordAddr !#EMPTY#!");
        choose("Paste");
        EXPECT_EQ(choose("Paste"), "TEXT sNWordAddr NN");
        EXPECT_EQ(choose("Undo"), "TEXT sNWordAddr N");
        toolkit_.Type("sNWordAddr", "N\tO\n");
        EXPECT_EQ(Line("sNWordAddr"), "TEXT sNWordAddr N!#SP#!O!#SP#!") << "a tuning could not hold such characters";
        toolkit_.Type("sNWordAddr", "N");
        editor_.user.acts.emplace_front([this] {
            EXPECT_EQ(toolkit_.Find("label")->Value(), "N");
            const std::vector<std::string> listed = {"Name", "Top - Left", "Top - Right"};
            EXPECT_EQ(toolkit_.Find("list")->Rows(), listed);
            EXPECT_EQ(toolkit_.Find("list")->Value(), "-1");
            toolkit_.Pick("list", 2);
            toolkit_.PressOk();
        });
        EXPECT_EQ(choose("Reference RunTimeData"), "TEXT sNWordAddr RTD(1,2)");
        EXPECT_EQ(Value("sNWordAddr"), "RTD(1,2)");
    });
}

TEST_F(EditorControls, DropDownListsWriteTheirKeys) {
    for (const char* const line : {"INT ToolRot_nNDec 5", "BOOL bInAbsCenFromEnd true", "BOOL bInAbsCenIsAbs true"}) {
        Tune(line);
    }
    OnPage("ToolRot", [this] {
        EXPECT_EQ(Value("ToolRot_nNDec"), "-1");  // no entry is for 5
        toolkit_.Pick("ToolRot_nNDec", 0);
        EXPECT_EQ(Line("ToolRot_nNDec"), "INT  ToolRot_nNDec 4545");
        toolkit_.PickEntry("ToolRot_nNDec", ".3");
        EXPECT_EQ(Line("ToolRot_nNDec"), "INT  ToolRot_nNDec 3");
    });
    OnPage("ArcData", [this] {
        const std::string list = "In absolute mode, center point measured &by:";
        EXPECT_EQ(Value(list), "2 In absolute");  // the last true key wins
        const std::string keys[] = {"bInAbsCenFromStart", "bInAbsCenFromEnd", "bInAbsCenIsAbs"};
        for (const int entry : {1, 0, 2}) {
            toolkit_.Pick(list, entry);
            for (int i = 0; i < 3; ++i) EXPECT_EQ(Line(keys[i]), "BOOL " + keys[i] + (i == entry ? " true" : " false"));
        }
    });
    EXPECT_EQ(Line("ToolRot_nNDec"), "INT  ToolRot_nNDec 3");
}

TEST_F(EditorControls, APendingValueGoesToTheToolThatItWasTypedFor) {
    for (const char* const line : {"BOOL bDefaultTool true", "INT nNumOfTools 5", "BOOL T2_bToolSubordinate true",
                                   "BOOL T3_bToolUnused true", "BOOL T4_bTangential true"}) {
        Tune(line);
    }
    OnPage("ToolRot", [this] {
        const std::vector<std::string> tools = {"T", "T1", "T4", "T5"};
        EXPECT_EQ(toolkit_.Find("list")->Rows(), tools);
        EXPECT_EQ(Value("list"), "0 T");
        toolkit_.Pick("list", 2);
        toolkit_.Type("rLiftAngDEG", "30");
        toolkit_.Pick("list", 1);
        EXPECT_EQ(Line("T4_rLiftAngDEG"), "REAL T4_rLiftAngDEG 30.000000000");
        EXPECT_EQ(Line("T1_rLiftAngDEG"), "REAL T1_rLiftAngDEG 0.000000000");
        EXPECT_EQ(Value("rLiftAngDEG"), "0.000000");
    });
    EXPECT_EQ(Line("T_rLiftAngDEG"), "REAL T_rLiftAngDEG 0.000000000");
    EXPECT_EQ(Line("T5_rLiftAngDEG"), "");
}

TEST_F(EditorControls, AListOfToolsHoldsThoseInUseAndHasAnEnd) {
    const auto dialog = toolkit_.MakeDialog("Tools");
    CPerToolListBox list(dialog->AddList(PlainSpec(ControlKind::kList)), CPerToolListBox::Subordinates::kListed);
    const CListControl& control = list.control();
    list.Fill(&editor_.tuning());
    EXPECT_EQ(control.GetCount(), 0);
    EXPECT_EQ(list.GetToolPrefix(), "");

    Tune("BOOL bDefaultTool true");
    list.Fill(&editor_.tuning());
    EXPECT_EQ(control.GetCount(), 1);
    EXPECT_EQ(list.GetToolPrefix(), "T_");

    Tune("BOOL bDefaultTool false");
    Tune("INT nNumOfTools 3");
    Tune("BOOL T1_bToolUnused true");
    Tune("BOOL T2_bToolSubordinate true");
    list.Fill(&editor_.tuning());
    EXPECT_EQ(control.GetEntryText(0) + control.GetEntryText(1), "T2T3");
    EXPECT_EQ(list.GetToolPrefix(), "T2_");
    CPerToolListBox masters(list.control(), CPerToolListBox::Subordinates::kLeftOut);
    masters.Fill(&editor_.tuning());
    EXPECT_EQ(control.GetCount(), 1);
    EXPECT_EQ(masters.GetToolPrefix(), "T3_");

    Tune("INT nNumOfTools 2147483647");
    masters.Fill(&editor_.tuning());
    EXPECT_EQ(control.GetCount(), 10000 - 2);
    Tune("INT nNumOfTools -1");
    masters.Fill(&editor_.tuning());
    EXPECT_EQ(control.GetCount(), 0);
    masters.Fill(nullptr);
    EXPECT_EQ(control.GetCount(), 0);
}

// Controls in a dialog write the tuning and have no page to notify; unbound ones write nothing.
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
    editor_.user.acts.emplace_back([this] {
        toolkit_.Click("bound");
        toolkit_.Click("unbound");
        toolkit_.Type("real", "x");
        toolkit_.WantMenu("text");
        toolkit_.PressCancel();
    });
    dialog->RunModal();
    EXPECT_EQ(other.FormatItem("bKey", other.items().Find("bKey")), "BOOL bKey false ");
    EXPECT_EQ(other.items().size(), 2U);
    EXPECT_EQ(editor_.user.menu.front(), "(Reference RunTimeData)");  // these are no options of a tuning
    EXPECT_EQ(editor_.user.messages, std::vector<std::string>());
}

}  // namespace
}  // namespace brindle
