// A session played on the windows of Qt, by mouse and keyboard.
#pragma once

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTabBar>
#include <functional>
#include <optional>

#include "qt_toolkit.h"
#include "testing/play/play_screen.h"
#include "testing/play/toolkit_user.h"
#include "testing/play_qt/idle_user.h"

namespace brindle::toolkit_test {

// Asks the user for an act whenever a window waits. Needs a QApplication, whose file dialogs are Qt's own.
class CQtScreen : public play::CPlayScreen {
public:
    explicit CQtScreen(CToolkitUser& user);

    CToolkit& toolkit() override { return toolkit_; }
    bool HasWindow() const override { return !idle_.loops().windows().empty(); }
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
    std::string PressOk() override { return PressButton(QDialogButtonBox::Ok, "OK"); }
    std::string PressCancel() override { return PressButton(QDialogButtonBox::Cancel, "Cancel"); }
    std::string PressApply() override { return PressButton(QDialogButtonBox::Apply, "Apply"); }
    std::string PressClose() override;

private:
    // Keeps the question of a file dialog, of whose filter the dialog shows no more than Qt needs.
    class CToolkitWithQuestion : public CQtToolkit {
    public:
        std::optional<std::string> ChooseFile(const FileQuestion& question) override;
        std::optional<FileQuestion> question;
    };
    using Act = std::function<std::string(QWidget& control)>;

    void ActOn(QWidget& waiting);
    // The user releases the button when its press has brought up a window.
    void LetGo();
    // Scrolls the place into view, for a press there.
    void PointAt(QWidget& pressed, QPoint at, Qt::MouseButton button);
    void AnswerMessage(QMessageBox& box);
    void AnswerMenu(QMenu& menu);
    void AnswerFile(QFileDialog& dialog);
    bool Agrees(const QMessageBox& box);

    CWindow* Top() const { return HasWindow() ? idle_.loops().windows().back() : nullptr; }
    QWidget* Find(std::string_view name) const;
    // Does `act` to a control that can be acted upon.
    std::string Do(std::string_view name, const Act& act);
    // With the arrows at the end of the tabs.
    std::string ScrollToTab(QTabBar& bar, int tab);
    std::string PressButton(QDialogButtonBox::StandardButton button, const char* name);
    // A click; where the press brings up a window, the release goes there. Gives why the user couldn't.
    std::string ClickAt(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);

    CToolkitUser& user_;
    CToolkitWithQuestion toolkit_;
    CIdleUser idle_;
    QPointer<QWidget> pressed_;  // where the mouse was pressed the last time
    QPoint pressed_at_;
    Qt::MouseButton pressed_button_ = Qt::NoButton;
};

}  // namespace brindle::toolkit_test
