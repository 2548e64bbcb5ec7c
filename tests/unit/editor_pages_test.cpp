// The pages of the editor together: what they add to a tuning, and what they do without one.
#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

#include "editor/controls/page_table.h"
#include "editor/messages.h"
#include "platform/text_file.h"
#include "text/words.h"
#include "tuning/key_catalogue.h"
#include "tuning/key_choices.h"
#include "unit/editor_session.h"
#include "unit/host_session.h"

namespace brindle {
namespace {

// Those with edits of keys.
constexpr std::string_view kPagesOfKeys[] = {"General", "Subs",  "Codes",   "AxisData", "ArcData",
                                             "Speed",   "Tools", "ToolRot", "Text"};

std::vector<std::string_view> KeysOf(std::string_view words) {
    std::vector<std::string_view> keys;
    SplitWords(words, keys);
    return keys;
}

std::string TrueKeys(const CEditorSession& editor, std::span<const KeyRef> keys) {
    std::string found;
    for (const KeyRef key : keys) {
        if (IsTrue(&editor.tuning(), key->name)) found.append(found.empty() ? "" : " ").append(key->name);
    }
    return found;
}

class EditorPages : public testing::TestWithParam<bool> {
protected:
    bool inches() const { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(Sheets, EditorPages, testing::Bool(),
                         [](const auto& sheet) { return std::string(sheet.param ? "Inches" : "Millimetres"); });

bool IsNumberEdit(const CHeadlessControl& control) {
    return control.spec().kind == ControlKind::kInteger || control.spec().kind == ControlKind::kReal;
}

// Without a session nothing is bound, and so nothing is refused; the two messages warn of a choice.
TEST_P(EditorPages, WithoutATuningTakeAnything) {
    CListUser user;
    CHeadlessToolkit toolkit{user};
    const auto use = [](CHeadlessControl& control) {
        const ControlKind kind = control.spec().kind;
        SCOPED_TRACE(control.spec().name);
        EXPECT_EQ(IsNumberEdit(control) || kind == ControlKind::kText ? control.Value() : "", "");
        EXPECT_EQ(control.Click(), kind == ControlKind::kCheck || kind == ControlKind::kRadio);
        control.Type("0");
        control.LoseFocus();
        EXPECT_FALSE(control.Pick(0));
    };
    user.acts.emplace_back([&] {
        for (const std::string_view page : kPagesOfKeys) {
            ASSERT_EQ(toolkit.GoToPage(page), "");
            for (const auto& control : toolkit.Top()->Controls()) {
                if (!control->spec().name.empty()) use(*control);
            }
        }
        toolkit.GoToPage("Subs");
        EXPECT_TRUE(toolkit.Find("bSubsInAbs")->enabled());  // as with an absolute main program
        toolkit.GoToPage("Speed");
        EXPECT_TRUE(toolkit.Find("Speed_sParam2Addr")->enabled());  // as with two parameters
    });
    CNCParamsSheet sheet(toolkit, nullptr, inches(), "");
    sheet.AddPages();
    EXPECT_FALSE(sheet.RunModal());
    EXPECT_EQ(user.messages, std::vector<std::string>(2, std::string(messages::kNoOffsetWithMirrorOrRotation)));
}

// What a number edit says to -1 and to 0.
std::vector<std::string> Refusals(const std::string& key) {
    const bool of_axis = key.find("_AX") != std::string::npos;
    std::vector<std::string> expected;
    if (of_axis) expected.emplace_back("Negative values are not allowed.");
    if (key.find("Factor") != std::string::npos) expected.emplace_back("Zero value not allowed");
    return expected;
}

TEST_P(EditorPages, RefuseNumbersThatMakeNoSense) {
    CEditorSession editor{"INT nNumOfTools 1"};
    size_t count = 0;
    const auto check = [&](CHeadlessControl& control) {
        for (const char* const typed : {"-1", "0"}) {
            control.Type(typed);
            control.LoseFocus();
        }
        EXPECT_EQ(editor.user.messages, Refusals(control.spec().name)) << control.spec().name;
        editor.user.messages.clear();
        ++count;
    };
    editor.Play({[&] {
                    for (const std::string_view page : kPagesOfKeys) {
                        ASSERT_EQ(editor.toolkit.GoToPage(page), "");
                        for (const auto& control : editor.toolkit.Top()->Controls()) {
                            if (IsNumberEdit(*control)) check(*control);
                        }
                    }
                }},
                inches());
    EXPECT_EQ(count, 42U);
}

// The headings above a control from the outside in; those without text only keep controls side by side.
std::string HeadingOf(const CHeadlessControl& control) {
    std::string heading;
    std::string_view rest = control.spec().group;
    while (!rest.empty()) {
        const std::string_view part = rest.substr(0, rest.find('|'));
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        if (!part.empty()) heading.append(heading.empty() ? "" : "|").append(part);
    }
    return heading;
}

TEST(EditorHeadings, StandAboveTheirControls) {
    CEditorSession editor;
    const auto check = [&editor](const std::string& line) {
        std::istringstream fields(line);
        std::string page, heading, keys;
        std::getline(std::getline(std::getline(fields, page, '\t'), heading, '\t'), keys);
        ASSERT_EQ(editor.toolkit.GoToPage(page), "");
        for (const std::string_view key : KeysOf(keys)) {
            const CHeadlessControl* const control = editor.toolkit.Find(key);
            ASSERT_NE(control, nullptr) << key;
            EXPECT_EQ(HeadingOf(*control), heading) << key;
        }
    };
    editor.Play({[&] {
        std::ifstream file("tests/data/headings.txt");
        std::string line;
        ASSERT_TRUE(std::getline(file, line));  // says what the others hold
        while (std::getline(file, line)) check(line);
    }});
}

// The keys of the radio buttons that show a mark, of those with the heading or the choice of `clicked`.
std::set<std::string> MarkedBeside(const CEditorSession& editor, const ControlSpec& clicked) {
    const std::span<const KeyRef> choice = ChoiceOf(clicked.name);
    std::set<std::string> marked;
    for (const auto& control : editor.toolkit.Top()->Controls()) {
        const ControlSpec& spec = control->spec();
        if (spec.kind != ControlKind::kRadio || control->Value() != "1") continue;
        const bool same_choice =
            std::ranges::find(choice, spec.name, [](KeyRef key) { return key->name; }) != choice.end();
        if (same_choice || spec.group == clicked.group) marked.insert(spec.name);
    }
    return marked;
}

// Headings say which buttons exclude each other on the screen, choices which keys do: both must agree.
TEST(EditorChoices, LeaveOneKeyTrueAndOneButtonMarked) {
    CEditorSession editor;
    std::set<std::string> clicked;
    const auto click = [&](CHeadlessControl& control) {
        const std::string& key = control.spec().name;
        EXPECT_TRUE(control.Click());
        EXPECT_EQ(TrueKeys(editor, ChoiceOf(key)), key);
        EXPECT_EQ(MarkedBeside(editor, control.spec()), std::set{key});
        clicked.insert(key);
    };
    editor.Play({[&] {
        for (const std::string_view page : kPagesOfKeys) {
            ASSERT_EQ(editor.toolkit.GoToPage(page), "");
            for (const auto& control : editor.toolkit.Top()->Controls()) {
                if (control->spec().kind == ControlKind::kRadio) click(*control);
            }
        }
    }});
    // All keys of a choice are offered together; two choices are lists.
    std::string lists;
    for (const KeyChoice& choice : kKeyChoices) {
        const auto is_clicked = [&](KeyRef key) { return clicked.contains(std::string(key->name)); };
        if (std::ranges::all_of(choice.keys(), is_clicked)) continue;
        EXPECT_TRUE(std::ranges::none_of(choice.keys(), is_clicked)) << choice.keys()[0]->name;
        lists.append(lists.empty() ? "" : " ").append(choice.keys()[0]->name);
    }
    EXPECT_EQ(lists, "bInAbsCenFromStart bInIncCenFromStart");
}

TEST(EditorChoices, OfListsLeaveOneKeyTrue) {
    struct Row {
        const char* list;
        std::string_view first_key;
    };
    constexpr Row kLists[] = {
        {"In absolute mode, center point measured &by:", "bInAbsCenFromStart"},
        {"In incremental mode, center point measured &by:", "bInIncCenFromStart"},
    };
    CEditorSession editor;
    editor.Play({[&] {
        ASSERT_EQ(editor.toolkit.GoToPage("ArcData"), "");
        for (const Row& row : kLists) {
            int entry = 0;
            for (const KeyRef key : ChoiceOf(row.first_key)) {
                EXPECT_TRUE(editor.toolkit.Find(row.list)->Pick(entry++));
                EXPECT_EQ(TrueKeys(editor, ChoiceOf(row.first_key)), key->name);
            }
        }
    }});
}

TEST(EditorMarks, AreSetAtOnceOnSomePages) {
    CEditorSession editor;
    editor.Play({[&] {
        for (const std::string_view page :
             {"General", "Subs", "Codes", "AxisData", "ArcData", "Speed", "Tools", "ToolRot", "Text"}) {
            ASSERT_EQ(editor.toolkit.GoToPage(page), "");
            const bool waits_for_a_change = page == "Speed" || page == "ToolRot" || page == "Text";
            EXPECT_EQ(editor.toolkit.PressApply().empty(), !waits_for_a_change) << page;
        }
        EXPECT_EQ(editor.toolkit.Click("bUseText"), "");
        EXPECT_EQ(editor.toolkit.PressApply(), "");
    }});
}

// The default that the editor has for a key, as a line of the tuning; empty if it adds no such key.
std::string DefaultLine(const KeyInfo& info, const std::string& key, bool inches) {
    const KeyDefault& value = info.editor_default;
    if (!value.HasValue() || info.scope == KeyScope::kEvent) return {};
    CKVItemContainer one;
    switch (info.kind) {
        case KeyKind::kBool: one.SetBool(key, value.Bool() ? 1 : 0); break;
        case KeyKind::kInt: one.SetInt(key, inches && key == "TextRot_nNDec" ? 3 : value.Int()); break;
        case KeyKind::kReal: one.SetReal(key, inches && key == "Fly_rMM_Threshold" ? 0.25 : value.Real()); break;
        default: one.SetText(key, std::string(value.Text()), TextKind::kPlain); break;
    }
    std::string line = one.FormatItem(key, one.items().Find(key));
    line.pop_back();
    return line;
}

TEST_P(EditorPages, TogetherAddExactlyTheDefaultsOfTheCatalogue) {
    CEditorSession empty{"INT nNumOfTools 1"};
    CEditorSession of_other_kinds{"INT nNumOfTools 1"};
    std::vector<std::string> expected;
    for (const KeyInfo& info : KeyCatalogue()) {
        const std::string key = (info.scope == KeyScope::kTool ? "T1_" : "") + std::string(info.name);
        const std::string line = DefaultLine(info, key, inches());
        // The tool's codes of interpolation are left to those for all tools.
        if (line.empty() || key.starts_with("T1_s")) continue;
        of_other_kinds.Tune("MULTI " + key + " NNUL 1");
        expected.push_back(line);
    }
    const size_t others = 1;  // the number of tools
    for (CEditorSession* const editor : {&empty, &of_other_kinds}) {
        editor->VisitAllPages(inches());
        for (const std::string& line : expected) EXPECT_EQ(editor->Line(line.substr(5, line.find(' ', 5) - 5)), line);
        EXPECT_EQ(editor->tuning().items().size(), expected.size() + others);
    }
}

// What the editor adds to an example by looking at it changes nothing.
class EditedExamples : public testing::TestWithParam<const char*> {};

std::vector<std::string> LinesOfExample(const std::string& name) {
    std::vector<std::string> lines;
    const std::string text = ReadWholeFile("examples/" + name + '/' + name + ".tun").value_or("");
    for (const std::string_view line : SplitLines(text)) {
        if (!line.starts_with("UPD")) lines.emplace_back(line);
    }
    return lines;
}

std::vector<std::string> WithoutClock(std::vector<std::string> lines) {
    for (std::string& line : lines) {
        for (const std::string_view clock : {"<@Date>", "<@Time>"}) {
            if (const size_t place = line.find(clock); place != std::string::npos) line.erase(place, clock.size());
        }
    }
    return lines;
}

std::string Posted(const std::vector<std::string>& tuning, const wchar_t* drawing) {
    CHostSession session(WithoutClock(tuning));
    GBrn_OpenCF2File(drawing);
    return session.Run();
}

// Opens all pages, and each tool.
void LookAtEverything(CEditorSession& editor) {
    editor.VisitAllPages();
    editor.Play({[&] {
        ASSERT_EQ(editor.toolkit.GoToPage("Tools"), "");
        const size_t tools = editor.toolkit.Find("Data for &tool:")->Rows().size();
        for (size_t i = 0; i < tools; ++i) {
            EXPECT_EQ(editor.toolkit.Pick("Data for &tool:", static_cast<int>(i)), "");
            EXPECT_EQ(editor.toolkit.Find("entries")->Value(), "0 Tool");
        }
    }});
}

TEST_P(EditedExamples, PostTheSameAfterTheEditorHasSeenThem) {
    const std::vector<std::string> before = LinesOfExample(GetParam());
    ASSERT_FALSE(before.empty());
    CEditorSession editor;
    for (const std::string& line : before) editor.Tune(line);
    std::set<std::string> keys;
    for (const auto& [key, item] : editor.tuning().items()) keys.insert(key);
    LookAtEverything(editor);

    std::vector<std::string> after = before;
    for (const auto& [key, item] : editor.tuning().items()) {
        if (!keys.contains(key)) after.push_back(editor.tuning().FormatItem(key, item.get()));
    }
    EXPECT_GT(after.size(), before.size());
    for (const wchar_t* const drawing :
         {L"examples/drawings/plate.cf2", L"examples/drawings/folding_box.cf2", L"examples/drawings/knife_sheet.cf2",
          L"examples/drawings/engraving.cf2", L"examples/drawings/nested_sheet.cf2"}) {
        const std::string expected = Posted(before, drawing);
        EXPECT_FALSE(expected.empty());
        EXPECT_EQ(Posted(after, drawing), expected) << WideToNarrow(drawing);
    }
}

// What a run takes for a key of the tuning, present or not.
bool IsTrueToARun(const CEditorSession& editor, std::string_view key) {
    return IsTrue(&editor.tuning(), key, MatchKey(key).info->read_default.Bool());
}

TEST_P(EditedExamples, ShowOneOfEachChoiceAndTheOneThatARunTakes) {
    CEditorSession before;
    CEditorSession after;
    for (const std::string& line : LinesOfExample(GetParam())) {
        before.Tune(line);
        after.Tune(line);
    }
    LookAtEverything(after);
    for (const KeyChoice& choice : kKeyChoices) {
        const std::string chosen = TrueKeys(after, choice.keys());
        EXPECT_TRUE(!chosen.empty() && chosen.find(' ') == std::string::npos)
            << choice.keys()[0]->name << ": " << chosen;
        for (const KeyRef key : choice.keys()) {
            if (!key->read_default.HasValue()) continue;  // the editor's alone
            EXPECT_EQ(IsTrueToARun(after, key->name), IsTrueToARun(before, key->name)) << key->name;
        }
    }
    int32_t tools = 0;
    after.tuning().GetInt("nNumOfTools", tools);
    for (int32_t tool = 1; tool <= tools; ++tool) {
        const std::string prefix = "T" + std::to_string(tool) + '_';
        for (const std::string_view kind : {"bToolTool", "bToolSubordinate", "bToolUnused"}) {
            const std::string key = prefix + std::string(kind);
            EXPECT_NE(after.Line(key), "") << key;
            EXPECT_EQ(IsTrue(&after.tuning(), key), kind == "bToolTool") << key;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, EditedExamples,
                         testing::Values("engraver_text", "knife_tangential", "laser_inc_radius", "laser_mm",
                                         "plotter_hpgl", "speed_by_material", "subs_mirror"),
                         [](const auto& example) { return std::string(example.param); });

TEST(EditorPagesOfNoTool, BindNothingAndLetGoOfAToolThatIsGone) {
    CEditorSession editor{"INT nNumOfTools 1", "TEXT T1_Speed_P1_sV1 500", "REAL T1_SmFacet_rMaxRadiusMM 2",
                          "BOOL T1_SmFacet_bUse true"};
    editor.Play({[&] {
        editor.toolkit.GoToPage("ArcData");
        EXPECT_EQ(editor.toolkit.Find("SmFacet_rMaxRadiusMM")->Value(), "2.00");
        editor.toolkit.GoToPage("Speed");
        EXPECT_EQ(editor.toolkit.Find("Speed_P1_sV1")->Value(), "500");
        editor.toolkit.GoToPage("Codes");
        EXPECT_EQ(editor.toolkit.Find("Fly_rDEG_MaxAngDeviation")->Value(), "10.00");
        editor.Tune("INT nNumOfTools 0");
        editor.toolkit.GoToPage("ArcData");
        EXPECT_EQ(editor.toolkit.Find("SmFacet_rMaxRadiusMM")->Value(), "");
        EXPECT_EQ(editor.toolkit.Find("SmFacet_bUse")->Value(), "0");
        EXPECT_FALSE(editor.toolkit.Find("SmFacet_rMaxRadiusMM")->enabled());
        EXPECT_EQ(editor.toolkit.Click("SmFacet_bUse"), "");
        editor.toolkit.GoToPage("Speed");
        EXPECT_EQ(editor.toolkit.Type("Speed_P1_sV1", "600"), "");
        editor.toolkit.GoToPage("Codes");
        EXPECT_EQ(editor.toolkit.Find("Fly_rDEG_MaxAngDeviation")->Value(), "");
    }});
    EXPECT_EQ(editor.Line("T1_SmFacet_bUse"), "BOOL T1_SmFacet_bUse true");
    EXPECT_EQ(editor.Line("T1_Speed_P1_sV1"), "TEXT T1_Speed_P1_sV1 500");
    EXPECT_EQ(editor.Line("_Speed_P1_sV1") + editor.Line("Speed_P1_sV1"), "");
}

// Lists keep the default tool whatever its kind.
TEST(EditorPagesOfNoTool, LeaveADefaultToolAloneThatIsNone) {
    CEditorSession editor{"BOOL bDefaultTool true", "BOOL T_bToolSubordinate true", "BOOL T_bToolUnused true",
                          "BOOL bToolDependInterp true", "BOOL T_Fly_bUse true"};
    editor.Play({[&] {
        editor.toolkit.GoToPage("Codes");
        EXPECT_EQ(editor.toolkit.Find("list")->Value(), "0 T");
        EXPECT_EQ(editor.toolkit.Find("Fly_bUse")->Value(), "0");
        EXPECT_EQ(editor.toolkit.Find("Fly_rDEG_MaxAngDeviation")->Value(), "");
        EXPECT_EQ(editor.toolkit.Find("&Per tool:")->Value(), "0 T");
        EXPECT_FALSE(editor.toolkit.Find("sRTCode")->enabled());
    }});
    EXPECT_EQ(editor.Line("T_sRTCode") + editor.Line("T_Fly_rDEG_MaxAngDeviation"), "");
}

TEST(EditorPagesOfNoTool, HaveNoInterpolationCodesToEdit) {
    CEditorSession editor{"TEXT sRTCode G0", "BOOL bToolDependInterp true"};
    editor.Play({[&] {
        editor.toolkit.GoToPage("Codes");
        EXPECT_FALSE(editor.toolkit.Find("sRTCode")->enabled());
        EXPECT_FALSE(editor.toolkit.Find("sCCWCode")->enabled());
        EXPECT_EQ(editor.Line("sLTCode"), "");  // a run takes none of these
        EXPECT_EQ(editor.toolkit.Click("bToolDependInterp"), "");
        EXPECT_TRUE(editor.toolkit.Find("sRTCode")->enabled());
        EXPECT_EQ(editor.toolkit.Find("sRTCode")->Value(), "G0");
        EXPECT_EQ(editor.toolkit.Click("bToolDependInterp"), "");
        EXPECT_FALSE(editor.toolkit.Find("sLTCode")->enabled());
    }});
}

}  // namespace
}  // namespace brindle
