// Which events the two toolkits report, and in which order: one table of scenes, each played on both.
#include <gtest/gtest.h>

#include "testing/headless/headless_toolkit.h"
#include "testing/play_qt/qt_screen.h"
#include "unit/editor_user.h"

namespace brindle {
namespace {

using play::CPlayScreen;
using Log = std::vector<std::string>;

// A sheet with a control of each kind on its first page, whose events are noted with what the logic reads meanwhile.
struct Stage {
    explicit Stage(CToolkit& used_toolkit) : toolkit(used_toolkit), sheet(toolkit.MakeSheet("Stage")) {
        Watch("one", one);
        Watch("two", two);
        for (const char* const label : {"first", "second", "third"}) {
            list.AddEntry(label);
            drop_down.AddEntry(label);
        }
        table.AddColumn("hidden", 0);
        table.AddColumn("name", 80);
        for (int row = 0; row < 3; ++row) table.AddRow();
        NoteButtons();
        NoteEdits();
        NoteLists();
    }

    void Watch(const std::string& name, CPageForm& page) {
        page.activated.Set([this, name] { log.push_back(name + " activated"); });
        page.left.Set([this, name] { log.push_back(name + " left"); });
    }
    void NoteButtons() {
        const auto note = [this](const std::string& name, CButtonControl& noted) {
            noted.clicked.Set([this, name] {
                log.push_back(name + " clicked " + (check.GetCheck() ? "1" : "0") + (left.GetCheck() ? "1" : "0") +
                              (right.GetCheck() ? "1" : "0"));
                if (on_event) on_event();
            });
        };
        note("check", check);
        note("left", left);
        note("right", right);
        note("button", button);
    }
    void NoteEdits() {
        const auto note = [this](const std::string& name, CEditControl& noted) {
            noted.changed.Set([this, name, &noted] { log.push_back(name + " changed " + noted.GetText()); });
            noted.focus_lost.Set([this, name] {
                log.push_back(name + " focus_lost");
                if (on_focus_lost) on_focus_lost();
            });
            noted.menu_wanted.Set([this, name] { log.push_back(name + " menu_wanted"); });
        };
        note("edit", edit);
        note("other", other);
        note("multi", multi);
    }
    void NoteLists() {
        const auto note = [this](const std::string& name, CListControl& noted) {
            noted.selected.Set(
                [this, name, &noted] { log.push_back(name + " selected " + std::to_string(noted.GetSelected())); });
            noted.double_clicked.Set([this, name] { log.push_back(name + " double_clicked"); });
        };
        note("list", list);
        note("drop_down", drop_down);
        table.double_clicked.Set([this] {
            const auto cell = table.CellUnderPointer();
            log.push_back(cell ? "table " + std::to_string(cell->row) + ',' + std::to_string(cell->column)
                               : "table beside");
        });
    }

    CToolkit& toolkit;
    Log log;
    std::function<void()> on_event;
    std::function<void()> on_focus_lost;
    std::unique_ptr<CSheetWindow> sheet;
    CPageForm& one = sheet->AddPage("One");
    CPageForm& two = sheet->AddPage("Two");
    CButtonControl& check = one.AddButton({ControlKind::kCheck, "check", "&Check"});
    CButtonControl& left = one.AddButton({ControlKind::kRadio, "left", "Left", "Side"});
    CButtonControl& right = one.AddButton({ControlKind::kRadio, "right", "Right", "Side"});
    CButtonControl& button = one.AddButton({ControlKind::kButton, "button", "Press"});
    CEditControl& edit = one.AddEdit({ControlKind::kReal, "edit", "Edit"});
    CEditControl& other = one.AddEdit({ControlKind::kText, "other", "Other"});
    CMultiEditControl& multi = one.AddMultiEdit({ControlKind::kMulti, "multi", ""});
    CListControl& list = one.AddList({ControlKind::kList, "list", ""});
    CListControl& drop_down = one.AddList({ControlKind::kDropDown, "drop_down", ""});
    CTableControl& table = one.AddTable({ControlKind::kTable, "table", ""});
    CEditControl& far = two.AddEdit({ControlKind::kText, "far", ""});
};

using Act = std::function<std::string(CPlayScreen& screen, Stage& stage)>;

Act Click(const char* control) {
    return [control](CPlayScreen& screen, Stage&) { return screen.Click(control); };
}
Act Type(const char* control, const char* text) {
    return [control, text](CPlayScreen& screen, Stage&) { return screen.Type(control, text); };
}
Act Pick(const char* control, int index) {
    return [control, index](CPlayScreen& screen, Stage&) { return screen.Pick(control, index); };
}
Act DoubleClick(const char* control, TableCell cell) {
    return [control, cell](CPlayScreen& screen, Stage&) { return screen.DoubleClick(control, cell); };
}
Act WantMenu(const char* control) {
    return [control](CPlayScreen& screen, Stage&) { return screen.WantMenu(control); };
}
Act Page(const char* caption) {
    return [caption](CPlayScreen& screen, Stage&) { return screen.GoToPage(caption); };
}
Act Program(void (*act)(Stage& stage)) {
    return [act](CPlayScreen&, Stage& stage) {
        act(stage);
        return std::string();
    };
}
const Act kLeave = [](CPlayScreen& screen, Stage&) { return screen.Leave(); };
const Act kOk = [](CPlayScreen& screen, Stage&) { return screen.PressOk(); };

struct Scene {
    const char* name;
    std::vector<Act> acts;
    Log expected;
};

void PrintTo(const Scene& scene, std::ostream* out) { *out << scene.name; }

// All that the logic can do to controls by itself.
void ChangeAll(Stage& stage) {
    stage.check.SetCheck(true);
    stage.left.SetCheck(true);
    stage.right.SetCheck(true);
    stage.edit.SetText("1");
    stage.multi.SetText("a\r\nb");
    stage.multi.SetSelection({0, 1});
    stage.list.Select(1);
    stage.drop_down.Select(2);
    stage.list.Empty();
    stage.drop_down.Empty();
    stage.drop_down.AddEntry("only");
    stage.list.SetEntries(4, [](int index) { return std::to_string(index); });
    stage.list.Select(3);
    stage.table.DeleteRows();
    stage.one.SetModified(true);
}

const Scene kScenes[] = {
    {"click_takes_the_focus_first",
     {Type("edit", "7"), Click("check")},
     {"edit changed 7", "edit focus_lost", "check clicked 100"}},
    {"each_click_turns_a_check_box",
     {Click("check"), Click("check"), Click("button")},
     {"check clicked 100", "check clicked 000", "button clicked 000"}},
    {"radio_buttons_have_changed_by_the_report",
     {Click("left"), Click("right"), Click("right")},
     {"left clicked 010", "right clicked 001", "right clicked 001"}},
    {"page_change",
     {Type("edit", "7"), Page("Two"), Page("Two"), Type("far", "x"), Page("One")},
     {"edit changed 7", "edit focus_lost", "one left", "two activated", "two left", "one activated"}},
    {"program_reports_nothing", {Program(ChangeAll)}, {}},
    {"program_takes_the_focus",
     {Type("edit", "7"), Program([](Stage& stage) { stage.other.TakeFocus(); }), kLeave},
     {"edit changed 7", "edit focus_lost", "other focus_lost"}},
    {"program_edits_for_the_user",
     {Type("other", "7"), Program([](Stage& stage) { stage.other.Undo(); }), Program([](Stage& stage) {
          stage.other.SetText("abc");
          stage.other.SelectAll();
          stage.other.Cut();
          stage.other.Paste();
      })},
     {"other changed 7", "other changed ", "other changed ", "other changed abc", "other focus_lost"}},
    {"same_entry_again",
     {Pick("list", 1), Pick("list", 1), Pick("drop_down", 2), Pick("drop_down", 2)},
     {"list selected 1", "list selected 1", "drop_down selected 2", "drop_down selected 2"}},
    {"list_takes_the_focus_first",
     {Type("edit", "7"), Pick("list", 2), Type("edit", "8"), Pick("drop_down", 0)},
     {"edit changed 7", "edit focus_lost", "list selected 2", "edit changed 8", "edit focus_lost",
      "drop_down selected 0"}},
    {"double_click_selects_first", {DoubleClick("list", {1, 0})}, {"list selected 1", "list double_clicked"}},
    {"double_click_in_a_table",
     {Type("edit", "7"), DoubleClick("table", {2, 0}), DoubleClick("table", {9, 0})},
     {"edit changed 7", "edit focus_lost", "table 2,1", "table beside"}},
    {"menu_takes_the_focus",
     {Type("edit", "7"), WantMenu("other"), WantMenu("multi"), kLeave},
     {"edit changed 7", "edit focus_lost", "other menu_wanted", "other focus_lost", "multi menu_wanted",
      "multi focus_lost"}},
    {"same_control_keeps_the_focus",
     {Type("edit", "7"), Type("edit", "8"), kLeave, kLeave},
     {"edit changed 7", "edit changed 8", "edit focus_lost"}},
    {"message_comes_before_the_click_and_once",
     {Program([](Stage& stage) { stage.on_focus_lost = [&stage] { stage.toolkit.ShowMessage("Refused"); }; }),
      Type("edit", "7"), Click("check"), Click("right")},
     {"edit changed 7", "edit focus_lost", "message Refused", "check clicked 100", "right clicked 101"}},
    {"message_leaves_the_focus",
     {Program([](Stage& stage) { stage.on_event = [&stage] { stage.toolkit.ShowMessage("Done"); }; }), Click("button"),
      Type("edit", "7"), kLeave},
     {"button clicked 000", "message Done", "edit changed 7", "edit focus_lost"}},
    {"disabled_edit_loses_the_focus_once",
     {Type("edit", "7"), Program([](Stage& stage) { stage.edit.Enable(false); }), Click("check")},
     {"edit changed 7", "edit focus_lost", "check clicked 100"}},
    {"ok_takes_the_focus", {Type("edit", "7"), kOk}, {"edit changed 7", "edit focus_lost"}},
};

// Notes what the toolkit asks of the user among the events.
class CNotingUser : public CListUser {
public:
    bool AnswerMessage(std::string_view text, bool /*is_question*/) override {
        log->push_back("message " + std::string(text));
        return true;
    }
    Log* log = nullptr;
};

template <typename Screen>
Log Play(const Scene& scene) {
    CNotingUser user;
    Screen screen(user);
    Stage stage(screen.toolkit());
    user.log = &stage.log;
    user.acts.push_back([&stage] { stage.log.clear(); });
    for (const Act& act : scene.acts) {
        user.acts.push_back([&act, &screen, &stage] { EXPECT_EQ(act(screen, stage), ""); });
    }
    stage.sheet->RunModal();
    EXPECT_TRUE(user.acts.empty());
    return stage.log;
}

class ToolkitEvents : public testing::TestWithParam<Scene> {};

TEST_P(ToolkitEvents, Headless) { EXPECT_EQ(Play<CHeadlessToolkit>(GetParam()), GetParam().expected); }

TEST_P(ToolkitEvents, Qt) { EXPECT_EQ(Play<toolkit_test::CQtScreen>(GetParam()), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(Scenes, ToolkitEvents, testing::ValuesIn(kScenes),
                         [](const auto& scene) { return std::string(scene.param.name); });

}  // namespace
}  // namespace brindle
