// The toolkit without a screen, in which a CToolkitUser plays the user. Tests of the editor run on it.
#pragma once

#include <functional>

#include "editor/toolkit/windows.h"
#include "testing/headless/headless_screen.h"
#include "testing/play/play_screen.h"

namespace brindle {

class CHeadlessToolkit : public CToolkit, public play::CPlayScreen {
public:
    // `user` must outlive the toolkit.
    explicit CHeadlessToolkit(CToolkitUser& user) : screen_(user) {}

    std::unique_ptr<CSheetWindow> MakeSheet(std::string_view title) override;
    std::unique_ptr<CDialogWindow> MakeDialog(std::string_view caption) override;
    std::unique_ptr<CModelessWindow> MakeModeless(std::string_view caption, CSheetWindow& beside) override;
    void ShowMessage(std::string_view text) override { screen_.user().AnswerMessage(text, false); }
    bool AskYesNo(std::string_view text) override { return screen_.user().AnswerMessage(text, true); }
    int ChooseFromMenu(std::span<const MenuEntry> entries) override { return screen_.user().AnswerMenu(entries); }
    std::optional<std::string> ChooseFile(const FileQuestion& question) override {
        return screen_.user().AnswerFile(question);
    }

    // The window on top, null if none is open.
    CHeadlessWindow* Top() const { return screen_.Top(); }
    // A control of the window on top by its name, by its label, with or without the `&`, or by its class word;
    // `NAME#2` is the second of that name. Null if there is none.
    CHeadlessControl* Find(std::string_view name) const;

    CToolkit& toolkit() override { return *this; }
    bool HasWindow() const override { return Top() != nullptr; }
    std::vector<play::ShownControl> Controls() const override;
    std::string Click(std::string_view control) override;
    std::string Type(std::string_view control, std::string_view text) override;
    std::string Mark(std::string_view control, TextRange range) override;
    std::string WantMenu(std::string_view control) override;
    std::string Pick(std::string_view control, int index) override;
    std::string PickEntry(std::string_view control, std::string_view entry) override;
    std::string DoubleClick(std::string_view control, TableCell cell) override;
    std::string Leave() override;
    std::string GoToPage(std::string_view caption) override;
    std::string GoToWindow(std::string_view caption) override;
    std::string PressOk() override { return Press(&CHeadlessWindow::PressOk, "OK"); }
    std::string PressCancel() override { return Press(&CHeadlessWindow::PressCancel, "Cancel"); }
    std::string PressApply() override { return Press(&CHeadlessWindow::PressApply, "Apply"); }
    std::string PressClose() override { return Press(&CHeadlessWindow::PressClose, "Close"); }

private:
    using Act = std::function<bool(CHeadlessControl&)>;

    std::string Do(std::string_view control, const char* what, const Act& act);
    std::string Press(bool (CHeadlessWindow::*press)(), const char* button);

    CHeadlessScreen screen_;
};

}  // namespace brindle
