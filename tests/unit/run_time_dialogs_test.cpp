// What of the run-time data dialogs no transcript can show: headings and widths, times, values out of sight, and the
// command that opens them.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "editor/run_time_data/nc_run_time_dlg.h"
#include "editor/run_time_data/rtd_def_editor.h"
#include "editor/run_time_data/run_time_value_tables.h"
#include "editor/toolkit/active_toolkit.h"
#include "host/commands/commands.h"
#include "platform/local_time.h"
#include "platform/user_store.h"
#include "testing/headless/headless_windows.h"
#include "unit/editor_user.h"
#include "unit/temp_folder.h"

namespace brindle {
namespace {

using Acts = std::vector<std::function<void()>>;

class RunTimeDialogs : public testing::Test {
protected:
    RunTimeDialogs() {
        for (const char* const line :
             {"UPD 2010_01_01_00_00_00", "ROW TEXT Top", "ROW TEXT Inner HIDE", "COL TEXT Feed", "COL TEXT Power HIDE",
              "DATASETDEF Steel", "DSD Steel T_EXPR RTD(1,1) 11", "DSD Steel T_EXPR RTD(2,2) 22"}) {
            definition_.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning);
        }
    }
    ~RunTimeDialogs() override { SetActiveToolkit(nullptr); }

    std::function<void()> Click(const std::string& control) {
        return [this, control] { EXPECT_EQ(toolkit_.Click(control), ""); };
    }
    std::function<void()> Double(TableCell cell) {
        return [this, cell] { EXPECT_EQ(toolkit_.DoubleClick("table#2", cell), ""); };
    }
    std::function<void()> Ok() {
        return [this] { EXPECT_EQ(toolkit_.PressOk(), ""); };
    }
    void Do(const Acts& acts) { user_.acts.assign(acts.begin(), acts.end()); }

    CDataHome folder_;
    CRunTimeDataDef definition_;
    CListUser user_;
    CHeadlessToolkit toolkit_{user_};
};

// Notes its columns.
class CColumnTable : public CHeadlessTable {
public:
    CColumnTable(const ControlSpec& spec, HeadlessDesk& desk, std::string& columns)
        : CHeadlessTable(spec, desk), columns_(columns) {}
    void AddColumn(std::string_view heading, int width) override {
        columns_.append(heading).append(" ").append(std::to_string(width)).append("|");
    }
    void RemoveColumns() override { columns_ += "removed|"; }

private:
    std::string& columns_;
};

class CTableForm : public CHeadlessForm<CForm> {
public:
    using CHeadlessForm::CHeadlessForm;
    CTableControl& AddTable(const ControlSpec& spec) override {
        return *tables_.emplace_back(std::make_unique<CColumnTable>(spec, screen().desk(), columns_));
    }
    std::string columns_;

private:
    std::vector<std::unique_ptr<CColumnTable>> tables_;
};

TEST_F(RunTimeDialogs, ColumnsOfHiddenEntriesAreMarkedOrHaveNoWidth) {
    const struct {
        CRunTimeValueTables::Hidden hidden;
        const char* columns;
    } rows[] = {
        {CRunTimeValueTables::Hidden::kMarked,
         "Message 150|Value 350|removed| 120|Feed 110|Power  (HIDDEN) 110|removed| 120|Feed 110|Power  (HIDDEN) 110|"},
        {CRunTimeValueTables::Hidden::kLeftOut,
         "Message 150|Value 350|removed| 120|Feed 110|Power 0|removed| 120|Feed 110|Power 0|"}};
    for (const auto& row : rows) {
        CHeadlessScreen screen(user_);
        CTableForm form(screen);
        CRunTimeValueTables tables(form, row.hidden, 150);
        tables.ShowColumns(definition_);
        tables.ShowColumns(definition_);
        EXPECT_EQ(form.columns_, row.columns);
    }
}

TEST_F(RunTimeDialogs, TheEditorOfTheDefinitionMakesOlderRecordsStale) {
    WriteUserRecord("pick-Steel", {"2020_01_01_00_00_00", "TEXT RTD(1,1) 15 \r\n"});
    CKVItemContainer values;
    Do({Ok()});
    EXPECT_EQ(DisplayRunTimeData(toolkit_, definition_, "pick", "Steel", values), "Steel");
    EXPECT_TRUE(user_.messages.empty());

    WriteUserRecord("pick-Steel", {"2020_01_01_00_00_00", "TEXT RTD(1,1) 15 \r\n"});
    values.Clear();
    const int64_t before = Now();
    Do({Ok(), Ok()});
    EXPECT_TRUE(EditDefinition(toolkit_, definition_, false));
    EXPECT_GE(definition_.last_update(), before);
    EXPECT_LE(definition_.last_update(), Now());
    EXPECT_EQ(DisplayRunTimeData(toolkit_, definition_, "pick", "Steel", values), "Steel");
    ASSERT_EQ(user_.messages.size(), 1U);
    EXPECT_TRUE(user_.messages[0].starts_with("Warning: The run time definition has been updated"));
}

TEST_F(RunTimeDialogs, ResetsReachHiddenValuesAndCancelReachesNone) {
    const struct {
        Acts acts;
        const char* chosen;
        const char* top;
        const char* inner;  // a hidden row and column
    } rows[] = {
        {{Double({0, 0}), Ok(), Ok()}, "Steel", "", "x"},  // nothing has been used before
        {{Double({0, 1}), Ok(), Ok()}, "Steel", "x", "x"},
        {{Double({0, 0}), Click("Default value"), Ok(), Ok()}, "Steel", "11", "x"},
        {{Double({0, 0}), Click("All rows"), Click("Default value"), Ok(), Ok()}, "Steel", "11", "22"},
        {{Double({0, 0}), Click("All rows"), Click("Default value"), Ok()}, "", "x", "x"},
        {{Click("Reset to default values"), Ok()}, "Steel", "11", "22"},
    };
    for (const auto& row : rows) {
        CKVItemContainer values;
        values.SetText("RTD(1,1)", "x", TextKind::kPlain);
        values.SetText("RTD(2,2)", "x", TextKind::kPlain);
        Do(row.acts);
        EXPECT_EQ(DisplayRunTimeData(toolkit_, definition_, "reset", "Steel", values), row.chosen);
        std::string top, inner;
        TextKind top_kind = TextKind::kTextExpression, inner_kind = top_kind;
        values.GetTextAndKind("RTD(1,1)", top, top_kind);
        values.GetTextAndKind("RTD(2,2)", inner, inner_kind);
        EXPECT_EQ(top + inner, std::string(row.top) + row.inner);
        EXPECT_EQ(top_kind, TextKind::kPlain);
        EXPECT_EQ(inner_kind, TextKind::kPlain);
    }
}

TEST_F(RunTimeDialogs, TheCommandPrintsTheChosenDataset) {
    std::vector<std::string> lines{"DATASETDEF Wood"};
    definition_.WriteToList(lines);
    std::string text;
    for (const std::string& line : lines) text += line + '\n';
    const std::string tuning = folder_.Put("a.tun", text);
    const auto pick_steel = [this] { EXPECT_EQ(toolkit_.PickEntry("list", "Steel"), ""); };
    const struct {
        CToolkit* toolkit;
        const char* arguments;
        Acts acts;
        int status;
        const char* output;
        const char* errors;  // after the name of the command
    } rows[] = {
        {&toolkit_, "", {Ok()}, 0, "Wood\n", ""},
        {&toolkit_, " --dataset Steel", {Ok()}, 0, "Steel\n", ""},
        {&toolkit_, " --tune-pick menu", {pick_steel, Ok()}, 0, "Steel\n", ""},
        {&toolkit_, "", {}, 0, "", "a.tun: note: editing was cancelled: values and dataset stay as they were\n"},
        {&toolkit_,
         " --dataset Tin",
         {},
         1,
         "",
         "a.tun: error: there is no dataset 'Tin'; there are 'Wood', 'Steel'\n"},
        {nullptr, "", {}, 1, "", "the editor can't open: it needs a display, and its plugin beside the library\n"},
    };
    for (const auto& row : rows) {
        SetActiveToolkit(row.toolkit);
        Do(row.acts);
        CLI::App app;
        int status = -1;
        host::AddDataCommand(app, status);
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        app.parse("data --edit " + tuning + row.arguments);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.output);
        const std::string errors = testing::internal::GetCapturedStderr();
        EXPECT_TRUE(errors.ends_with(row.errors)) << errors;
        EXPECT_EQ(errors.empty(), *row.errors == '\0') << errors;
        EXPECT_EQ(status, row.status);
    }
    EXPECT_TRUE(ReadUserRecord("menu-Steel").has_value());
}

}  // namespace
}  // namespace brindle
