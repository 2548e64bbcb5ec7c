// The toolkit without a screen, in which a CToolkitUser plays the user. Tests of the editor run on it.
//
// The user's acts are operations of the toolkit. Each goes to the window on top, which is the one that was opened or
// chosen last, and gives empty text, or why a user could not do that. A control must be enabled and shown to be acted
// upon, and it takes the focus first.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editor/toolkit/headless_controls.h"
#include "editor/toolkit/toolkit_user.h"
#include "editor/toolkit/windows.h"

namespace brindle {

// A window as the user has it before him.
class CHeadlessWindow {
public:
    CHeadlessWindow() = default;
    CHeadlessWindow(const CHeadlessWindow&) = delete;
    CHeadlessWindow& operator=(const CHeadlessWindow&) = delete;
    virtual ~CHeadlessWindow() = default;

    virtual const std::string& Caption() const = 0;
    virtual bool IsModal() const = 0;
    // The controls in view: of a sheet, those of the page in front.
    virtual const HeadlessControls& Controls() const = 0;
    // False if the window has no such button, or if it is disabled.
    virtual bool PressOk() { return false; }
    virtual bool PressCancel() { return false; }
    virtual bool PressApply() { return false; }
    virtual bool PressClose() { return PressCancel(); }
    // False if the window has no such page.
    virtual bool GoToPage(std::string_view /*caption*/) { return false; }
};

class CHeadlessToolkit : public CToolkit {
public:
    // `user` must outlive the toolkit.
    explicit CHeadlessToolkit(CToolkitUser& user) : user_(user) {}

    std::unique_ptr<CSheetWindow> MakeSheet(std::string_view title) override;
    std::unique_ptr<CDialogWindow> MakeDialog(std::string_view caption) override;
    std::unique_ptr<CModelessWindow> MakeModeless(std::string_view caption, CSheetWindow& beside) override;
    void Tell(std::string_view text) override { user_.AnswerMessage(text, false); }
    bool AskYesNo(std::string_view text) override { return user_.AnswerMessage(text, true); }
    int ChooseFromMenu(std::span<const MenuEntry> entries) override { return user_.AnswerMenu(entries); }
    std::optional<std::string> ChooseFile(const FileQuestion& question) override { return user_.AnswerFile(question); }

    // The window on top, null if none is open.
    CHeadlessWindow* Top() const { return windows_.empty() ? nullptr : windows_.back(); }
    // A control of the window on top by its name, by its label, with or without the `&`, or by its class word;
    // `NAME#2` is the second of that name. Null if there is none.
    CHeadlessControl* Find(std::string_view name) const;

    std::string Click(std::string_view control);
    std::string Type(std::string_view control, std::string_view text);
    std::string Mark(std::string_view control, TextRange range);
    std::string WantMenu(std::string_view control);
    std::string Pick(std::string_view control, int index);
    std::string PickEntry(std::string_view control, std::string_view entry);
    std::string DoubleClick(std::string_view control, TableCell cell);
    std::string Leave();  // takes the focus away
    std::string GoToPage(std::string_view caption);
    std::string PressOk() { return Press(&CHeadlessWindow::PressOk, "OK"); }
    std::string PressCancel() { return Press(&CHeadlessWindow::PressCancel, "Cancel"); }
    std::string PressApply() { return Press(&CHeadlessWindow::PressApply, "Apply"); }
    std::string PressClose() { return Press(&CHeadlessWindow::PressClose, "Close"); }
    // Brings an open window to the top, unless a modal one keeps it back.
    std::string GoToWindow(std::string_view caption);

    // For the windows of this toolkit.
    HeadlessDesk& desk() { return desk_; }
    CToolkitUser& user() { return user_; }
    void Opened(CHeadlessWindow& window);
    void Closed(CHeadlessWindow& window, bool with_ok);

private:
    using Act = std::function<bool(CHeadlessControl&)>;

    std::string Do(std::string_view control, const char* what, const Act& act);
    std::string Press(bool (CHeadlessWindow::*press)(), const char* button);
    bool IsKeptBack(const CHeadlessWindow& window) const;

    CToolkitUser& user_;
    HeadlessDesk desk_;
    std::vector<CHeadlessWindow*> windows_;  // the top one last
    std::vector<CHeadlessWindow*> modal_;    // in order of opening; all but the last are kept back
};

}  // namespace brindle
