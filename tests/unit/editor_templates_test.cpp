// What of templates, preview and dialogs no transcript can show: files, and what happens without a tuning or a toolkit.
#include <gtest/gtest.h>

#include <filesystem>

#include "editor/output/code_preview.h"
#include "editor/pages/params_sheet.h"
#include "editor/templates/edit_template_dlg.h"
#include "editor/toolkit/active_toolkit.h"
#include "session/session.h"
#include "unit/editor_user.h"
#include "unit/host_session.h"
#include "unit/temp_folder.h"

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

    CSession session_;
    CListUser user_;
    CHeadlessToolkit toolkit_{user_};
};

TEST_F(EditorDialogs, WithoutATuningATemplateCantBeStored) {
    user_.acts.emplace_back([this] { toolkit_.PressOk(); });
    user_.acts.emplace_back([this] { toolkit_.Click("Insert RunTimeData..."); });
    user_.acts.emplace_back([this] { toolkit_.PressOk(); });
    EXPECT_FALSE(EditTemplate(toolkit_, nullptr, "Line_", "Line", false));
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
        {"A\r B", {"A", "B"}},  // whatever follows the CR goes with it
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

TEST_F(EditorDialogs, SavingTakesThePiecesOutOfTheBuffer) {
    const CTempFolder folder;
    Tune("MULTI FileStart_tTmpl NNUL % NNUL A");
    int closed = 0;
    const auto sheet = toolkit_.MakeSheet("Sheet");
    CNCCodePreview preview(toolkit_, *sheet, [&closed] { ++closed; });
    preview.SaveToFile();  // before any run
    preview.OpenDrawing();
    EXPECT_EQ(user_.file_question, "");

    preview.ShowRun(session_);
    preview.SaveToFile();  // the user cancels
    EXPECT_EQ(user_.file_question, ".txt Text Files (*.txt)|*.txt|All Files (*.*)|*.*||");
    user_.file = folder.path() / "missing/code.txt";
    preview.SaveToFile();
    EXPECT_EQ(user_.messages, std::vector<std::string>{"Could not create file: " + *user_.file});
    user_.file = folder.path() / "code.txt";
    preview.SaveToFile();
    EXPECT_EQ(folder.Get("code.txt"), "%\r\nA\r\n");
    EXPECT_FALSE(session_.buffers.CurBufferHasMoreData());
    preview.SaveToFile();
    EXPECT_EQ(folder.Get("code.txt"), "");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);  // no other file stays

    EXPECT_EQ(toolkit_.Find("list")->Rows().size(), 2U);  // the list shows the trace, which is still there
    EXPECT_EQ(toolkit_.PressClose(), "");
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(toolkit_.Top(), nullptr);
}

TEST_F(EditorDialogs, APreviewTakesThePagesMark) {
    CNCParamsSheet sheet(toolkit_, &session_, false, "Sheet");
    CNCParamsPage& page = sheet.AddPage([](const PageContext& context) {
        return std::make_unique<CNCParamsPage>(context, "Only", CNCParamsPage::Mark::kAtActivation);
    });
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

}  // namespace
}  // namespace brindle
