// What of templates, preview and dialogs no transcript can show: lists of a tool's templates, files, and the exports
// without windows.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "api/brindle_mgr.h"
#include "editor/code_preview.h"
#include "editor/edit_template_dlg.h"
#include "editor/load_segment_dlg.h"
#include "editor/params_sheet.h"
#include "editor/template_list_ctrl.h"
#include "editor/toolkit/active_toolkit.h"
#include "unit/editor_user.h"
#include "unit/host_session.h"

namespace brindle {
namespace {

class EditorDialogs : public testing::Test {
protected:
    void Tune(std::string_view line) { session_.tuning.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning); }
    std::string Rows(std::string_view control) const {
        std::string rows;
        for (const std::string& row : toolkit_.Find(control)->Rows()) rows += row + '\n';
        return rows;
    }

    CBrindleMgr session_;
    SessionParts parts_ = session_.Parts();
    CListUser user_;
    CHeadlessToolkit toolkit_{user_};
};

TEST_F(EditorDialogs, TemplatesOfAToolHaveColumnsForWhatTheyClear) {
    Tune("MULTI T2_ToolOn_tTmpl NNUL M3 NNUL G4");
    Tune("BOOL T2_ToolOn_bClearAbsInc true");
    Tune("BOOL T2_ToolOn_bTerminiate false");
    const auto dialog = toolkit_.MakeDialog("Tool");
    CNCTemplateListCtrl list(toolkit_, dialog->AddTable(PlainSpec(ControlKind::kTable)));
    list.InitColumns(true);
    list.AddInfo("No prefix", "");
    list.AddInfo("Tool On", "T2_ToolOn_");
    list.AddInfo("Tool Off", "T2_ToolOff_");
    list.Fill(&session_.tuning, false);
    list.control().double_clicked.Set([&] { list.EditAtPointer(&session_.tuning); });
    user_.acts.emplace_back([this] {
        EXPECT_EQ(Rows("table"), "Tool On\tM3\tY\tN\tY\tN\n\tG4\tN\tN\tY\tN\nTool Off\t\t\t\t\t\n");
        EXPECT_EQ(toolkit_.DoubleClick("table", {1, 0}), "");
        // Once its dialog was open, the flags that were absent exist and are true.
        EXPECT_EQ(Rows("table"), "Tool On\tM3\tY\tY\tN\tY\n\tG4\tN\tY\tN\tY\nTool Off\t\t\t\t\t\n");
    });
    user_.acts.emplace_back([this] {
        EXPECT_EQ(toolkit_.Find("label")->Value(), "Tool On");
        EXPECT_EQ(toolkit_.Find("multi")->Value(), "M3\r\nG4");
        EXPECT_EQ(toolkit_.Find("ToolOn_bTerminiate")->Value(), "0");
        EXPECT_EQ(toolkit_.Find("ToolOn_bClearSpeed")->Value(), "1");
        EXPECT_EQ(toolkit_.Click("ToolOn_bClearAbsInc"), "");
        EXPECT_EQ(toolkit_.PressOk(), "");
    });
    dialog->RunModal();
    list.Fill(nullptr, true);
    list.ClearInfos();
    list.Fill(&session_.tuning, true);
    const std::vector<std::string> screen = {"open Tool", "open Edit Template Dialog", "ok Edit Template Dialog",
                                             "cancel Tool"};
    EXPECT_EQ(user_.screen, screen);
}

TEST_F(EditorDialogs, WithoutATuningATemplateCantBeStored) {
    user_.acts.emplace_back([this] { toolkit_.PressOk(); });
    user_.acts.emplace_back([this] { toolkit_.Click("Insert RunTimeData..."); });
    user_.acts.emplace_back([this] { toolkit_.PressOk(); });
    CEditTemplateDlg dialog(toolkit_, nullptr, "Line_", "Line", false);
    EXPECT_FALSE(dialog.RunModal());
    EXPECT_TRUE(user_.acts.empty());  // it stayed open until the user had no more to do
}

TEST(TemplateText, IsCutAtLineEndsAndNowhereElse) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"", {}},
        {"A", {"A"}},
        {"A\r\nB", {"A", "B"}},
        {"A\r\nB\r\n", {"A", "B"}},
        {"\r\n\r\n A \r\n", {"", "", " A "}},
        {"A\r", {"A"}},
        {"A\r B", {"A", "B"}},  // whatever stands behind the CR goes with it
        {"A\nB", {"A\nB"}},
    };
    for (const auto& [text, expected] : cases) {
        std::vector<std::string> lines;
        for (const CTemplateLine& line : LinesOfText(text)) {
            lines.push_back(line.text);
            EXPECT_EQ(line.n_word.kind, 0);
        }
        EXPECT_EQ(lines, expected) << text;
    }
}

// ---- Preview ----

class COwner : public CNCPreviewOwner {
public:
    void OnPreviewClosed() override { ++closed; }
    int closed = 0;
};

std::string Contents(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TEST_F(EditorDialogs, SavingTakesThePiecesOutOfTheBuffer) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "editor_preview";
    std::filesystem::create_directories(folder);
    Tune("MULTI FileStart_tTmpl NNUL % NNUL A");
    COwner owner;
    const auto sheet = toolkit_.MakeSheet("Sheet");
    CNCCodePreview preview(toolkit_, owner, *sheet);
    preview.SaveToFile();  // before any run
    preview.OpenDrawing();
    EXPECT_EQ(user_.file_question, "");

    preview.ShowRun(parts_);
    preview.SaveToFile();  // the user cancels
    EXPECT_EQ(user_.file_question, ".txt Text Files (*.txt)|*.txt|All Files (*.*)|*.*||");
    user_.file = (folder / "missing" / "code.txt").string();
    preview.SaveToFile();
    EXPECT_EQ(user_.messages, std::vector<std::string>{"Could not create file: " + *user_.file});
    user_.file = (folder / "code.txt").string();
    preview.SaveToFile();
    EXPECT_EQ(Contents(*user_.file), "%\r\nA\r\n");
    EXPECT_FALSE(session_.buffers.CurBufferHasMoreData());
    preview.SaveToFile();
    EXPECT_EQ(Contents(*user_.file), "");

    EXPECT_EQ(toolkit_.Find("list")->Rows().size(), 2U);  // the list shows the trace, which is still there
    EXPECT_EQ(toolkit_.PressClose(), "");
    EXPECT_EQ(owner.closed, 1);
    EXPECT_EQ(toolkit_.Top(), nullptr);
    std::filesystem::remove_all(folder);
}

TEST_F(EditorDialogs, AWindowThatIsClosedIsForgottenAndMadeAnew) {
    CNCParamsSheet sheet(toolkit_, &parts_, false, "Sheet");
    sheet.AddPages();
    for (int i = 0; i < 3; ++i) {
        user_.acts.emplace_back([this] {
            toolkit_.GoToPage("Templates");
            toolkit_.Click("Preview...");
            toolkit_.PressClose();
        });
    }
    EXPECT_FALSE(sheet.RunModal());
    const std::vector<std::string> screen = {"open Sheet",
                                             "open NC Code Preview",
                                             "cancel NC Code Preview",
                                             "open NC Code Preview",
                                             "cancel NC Code Preview",
                                             "open NC Code Preview",
                                             "cancel NC Code Preview",
                                             "cancel Sheet"};
    EXPECT_EQ(user_.screen, screen);
}

TEST_F(EditorDialogs, APreviewTakesThePagesMark) {
    CNCParamsSheet sheet(toolkit_, &parts_, false, "Sheet");
    auto& page = sheet.AddPage<CNCParamsPage>("Only", CNCParamsPage::Mark::kAtActivation);
    user_.acts.emplace_back([this] {
        EXPECT_EQ(toolkit_.PressApply(), "");
        EXPECT_NE(toolkit_.PressApply(), "");
    });
    user_.acts.emplace_back([&] {
        page.SetModified(true);
        page.RunPreview();
        toolkit_.GoToWindow("Sheet");
        EXPECT_NE(toolkit_.PressApply(), "");
    });
    sheet.RunModal();
    EXPECT_EQ(page.GetUnitPlaces(), 2);
}

TEST_F(EditorDialogs, ASheetWithoutASessionEditsNothing) {
    CNCParamsSheet sheet(toolkit_, nullptr, true, "");
    sheet.AddPages();
    user_.acts.emplace_back([this] {
        toolkit_.GoToPage("Templates");
        EXPECT_EQ(Rows("table"), "");
        EXPECT_EQ(toolkit_.Click("Preview..."), "");  // an empty window
        EXPECT_EQ(Rows("list"), "");
        EXPECT_EQ(toolkit_.Click("Open CF2 File..."), "");
    });
    EXPECT_FALSE(sheet.RunModal());
    EXPECT_EQ(user_.file_question, "");
}

// ---- Exports ----

TEST(EditorExports, WithoutAToolkitEndAsCancelled) {
    const CHostSession session;
    SetActiveToolkit(nullptr);
    int result = 7;
    wchar_t* chosen = nullptr;
    GBrn_DisplayTuningDialog(1, L"Title", &result);
    EXPECT_EQ(result, 0);
    GBrn_DisplayTuningDialog(1, nullptr, nullptr);
    GBrn_DisplayRTDataDlg(L"", L"Steel", L"", &chosen);
    EXPECT_EQ(Taken(chosen), "");
    GBrn_DisplayLoadSegmentDialog();
}

TEST(EditorExports, AKeyThatWasChangedStaysChangedBehindCancel) {
    CHostSession session;
    CListUser user;
    CHeadlessToolkit toolkit(user);
    SetActiveToolkit(&toolkit);
    int result = 7;
    const auto edit = [&](const char* text, bool with_ok) {
        user.acts.emplace_back([&toolkit] {
            toolkit.GoToPage("Templates");
            toolkit.DoubleClick("table", {0, 0});
        });
        user.acts.emplace_back([&toolkit, text] {
            toolkit.Type("multi", text);
            toolkit.PressOk();
        });
        user.acts.emplace_back([&toolkit, with_ok] { with_ok ? toolkit.PressOk() : toolkit.PressCancel(); });
        GBrn_DisplayTuningDialog(0, L"", &result);
    };
    edit("A", false);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(session.Run(), "A\r\n");
    edit("B", true);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(session.Run(), "B\r\n");
    SetActiveToolkit(nullptr);
}

TEST(EditorExports, ASegmentIsChosenOnlyWhereThereIsAChoice) {
    CBufferMgr buffers;
    CListUser user;
    CHeadlessToolkit toolkit(user);
    ChooseSegment(toolkit, buffers);
    buffers.NewBuffer();
    ChooseSegment(toolkit, buffers);
    EXPECT_EQ(user.screen.size(), 0U);

    std::string block = "one";
    buffers.AddToBuffer(block);
    buffers.NewBuffer();
    for (const char* const refused : {"0", "3", "-1", "4294967297", "x1", ""}) {
        user.acts.emplace_back([&toolkit, refused] {
            toolkit.Type("Segment to output:", refused);
            toolkit.PressOk();
        });
    }
    user.acts.emplace_back([&] {
        EXPECT_EQ(user.messages, std::vector<std::string>(6, "Segment must be between 1 and 2"));
        toolkit.Type("Segment to output:", " 1");
        toolkit.PressOk();
    });
    ChooseSegment(toolkit, buffers);
    EXPECT_EQ(user.screen.back(), "ok NC Output Load Segment");
    EXPECT_EQ(buffers.GetOutputBuffer(), "one");
}

}  // namespace
}  // namespace brindle
