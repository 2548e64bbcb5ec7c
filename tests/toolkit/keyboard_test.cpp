// A whole session of the editor by keyboard alone: from an empty tuning to a file that `brindle post` runs.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <deque>
#include <filesystem>

#include "editor/toolkit/active_toolkit.h"
#include "host/commands/commands.h"
#include "platform/text_file.h"
#include "qt_text.h"
#include "qt_toolkit.h"
#include "testing/play_qt/idle_user.h"
#include "testing/play_qt/qt_user.h"
#include "testing/play_qt/shown_widgets.h"

namespace brindle::toolkit_test {
namespace {

namespace fs = std::filesystem;

constexpr int kMostPresses = 200;  // of one key, on the way to something

// ---- A user without a mouse ----

// What the user would call the control that has the focus.
std::string FocusName() {
    const QWidget* const focus = QApplication::focusWidget();
    if (focus == nullptr) return {};
    if (qobject_cast<const QTabBar*>(focus) != nullptr) return "tabs";
    return Shown(*focus).Name();
}

std::string CurrentText() {
    const auto* const view = qobject_cast<const QAbstractItemView*>(QApplication::focusWidget());
    return view == nullptr ? std::string() : FromQt(view->currentIndex().siblingAtColumn(0).data().toString());
}

std::string PageName() {
    const auto* const tabs = QApplication::activeWindow()->findChild<const QTabWidget*>();
    return tabs == nullptr ? std::string() : FromQt(tabs->tabText(tabs->currentIndex()));
}

std::string MenuText() {
    const auto* const menu = qobject_cast<const QMenu*>(QApplication::activePopupWidget());
    return menu == nullptr || menu->activeAction() == nullptr ? std::string() : FromQt(menu->activeAction()->text());
}

class CKeyboardUser {
public:
    using Step = std::function<void()>;
    explicit CKeyboardUser(std::deque<Step> steps)
        : steps_(std::move(steps)), idle_([this](QWidget& waiting) { Next(waiting); }) {}

    bool IsDone() const { return steps_.empty(); }

private:
    // A window manager gives the keyboard to the window that is left when another closes.
    void Next(QWidget& waiting) {
        if (steps_.empty() || testing::Test::HasFailure()) return static_cast<QDialog&>(waiting).reject();
        if (qobject_cast<QMenu*>(&waiting) == nullptr) Activate(*idle_.loops().windows().back());
        const Step step = std::move(steps_.front());
        steps_.pop_front();
        step();
    }

    std::deque<Step> steps_;
    CIdleUser idle_;
};

using Step = CKeyboardUser::Step;

// A popup takes the keyboard for itself.
const QWidget& KeyboardWindow() {
    const QWidget* const popup = QApplication::activePopupWidget();
    return popup != nullptr ? *popup : *QApplication::activeWindow();
}

bool IsAnyButtonDown() {
    const QWidgetList widgets = QApplication::allWidgets();
    return std::any_of(widgets.begin(), widgets.end(), [](const QWidget* widget) {
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        return button != nullptr && button->isDown();
    });
}

void PressKeys(const char* keys) {
    const QKeyCombination combination = QKeySequence::fromString(QLatin1String(keys))[0];
    Key(KeyboardWindow(), combination.key(), combination.keyboardModifiers());
    // A button that is pressed by its letter shows that for a while before it clicks.
    EXPECT_TRUE(QTest::qWaitFor([] { return !IsAnyButtonDown(); }));
}

Step Keys(const char* keys) {
    return [keys] { PressKeys(keys); };
}
Step Text(const char* text) {
    return [text] { TypeText(KeyboardWindow(), QLatin1String(text)); };
}
Step MenuKey() {
    return [] { PressMenuKey(); };
}
// Presses a key until it has led to `aim`.
Step Until(const char* keys, std::string (*where)(), const char* aim) {
    return [=] {
        for (int i = 0; i < kMostPresses && where() != aim; ++i) PressKeys(keys);
        EXPECT_EQ(where(), aim) << "by " << keys;
    };
}
Step TabTo(const char* control) { return Until("Tab", FocusName, control); }
Step EntryTo(const char* text) { return Until("Down", CurrentText, text); }
Step Expect(std::string (*what)(), const char* expected) {
    return [=] { EXPECT_EQ(what(), expected); };
}

// ---- The session ----

std::string PreviewedCode() {
    std::string code;
    for (const std::string& row : Shown(*ControlsOf(*QApplication::activeWindow()).front()).rows) code += row + "\r\n";
    return code;
}

int RunCommand(void (*add)(CLI::App& app, int& status), std::vector<std::string> words) {
    CLI::App app;
    int status = 0;
    add(app, status);
    std::reverse(words.begin(), words.end());
    app.parse(words);
    return status;
}

// From the opening to OK, with `expected` in the preview.
std::deque<Step> SessionOver(const std::string& expected) {
    return {
        // General
        Keys("Alt+M"),
        Expect(FocusName, "bOutUnitsMetric"),
        TabTo("bOutModeAbs"),
        Keys("Down"),
        Expect(FocusName, "bOutModeInc"),
        Keys("Up"),
        TabTo("bUseSpace"),
        Keys("Space"),
        TabTo("sNWordAddr"),
        Text("N"),
        TabTo("nNWordBigInc"),
        Text("5"),
        // AxisData
        Until("Ctrl+Tab", PageName, "AxisData"),
        TabTo("sAx1Addr"),
        Text("X"),
        TabTo("sAx2Addr"),
        Text("Y"),
        TabTo("MM_AX1_nNDec"),
        Keys("Alt+Down"),
        Keys("Home"),
        EntryTo(".1"),
        Keys("Return"),
        TabTo("MM_AX2_nNDec"),
        Keys("Home"),
        Keys("Down"),
        Keys("Down"),
        // Tools
        Until("Ctrl+PgDown", PageName, "Tools"),
        Keys("Alt+N"),
        TabTo("table"),
        EntryTo("Tool On"),
        Keys("F2"),
        Text("M3"),
        TabTo("OK"),
        Keys("Space"),
        EntryTo("Tool Off"),
        Keys("Return"),
        Text("M5"),
        TabTo("OK"),
        Keys("Space"),
        // Templates
        Until("Ctrl+Tab", PageName, "RunTimeData"),
        Until("Ctrl+Shift+Tab", PageName, "Templates"),
        TabTo("table"),
        EntryTo("File Start"),
        Keys("Return"),
        Text("%"),
        TabTo("OK"),
        Keys("Space"),
        EntryTo("Move"),
        Keys("Return"),
        Text("G0"),
        MenuKey(),
        Until("Down", MenuText, "Insert @Directive"),
        Keys("Return"),
        EntryTo("@EndPtWords"),
        Keys("Up"),
        Expect(CurrentText, "@StartPtWords"),
        Keys("Return"),
        TabTo("OK"),
        Keys("Space"),
        EntryTo("Line"),
        Keys("F2"),
        Text("G1"),
        TabTo("Insert @Directive..."),
        Keys("Space"),
        EntryTo("@EndPtWords"),
        Keys("Return"),
        TabTo("OK"),
        Keys("Space"),
        Keys("Ctrl+Home"),
        EntryTo("File End"),
        Keys("Return"),
        Text("M30"),
        TabTo("OK"),
        Keys("Space"),
        // The preview
        TabTo("Preview..."),
        Keys("Space"),
        [expected] { EXPECT_EQ(PreviewedCode(), expected); },
        Keys("Esc"),
        TabTo("OK"),
        Keys("Return"),
    };
}

TEST(KeyboardSession, MakesATuning) {
    const fs::path folder = fs::path(testing::TempDir()) / ("brindle_keys_" + std::to_string(getpid()));
    fs::create_directories(folder);
    const std::string tuning = (folder / "new.tun").string();
    const std::string code = (folder / "out.nc").string();
    const std::string drawing = "tests/toolkit/keyboard_session.cf2";
    const std::string expected = ReadWholeFile("tests/toolkit/keyboard_session.nc").value_or("");

    CKeyboardUser user(SessionOver(expected));
    CQtToolkit toolkit;
    SetActiveToolkit(&toolkit);
    EXPECT_EQ(RunCommand(host::AddEditCommand, {"edit", tuning, drawing}), host::kGood);
    SetActiveToolkit(nullptr);
    EXPECT_TRUE(user.IsDone());
    // A field that is left by a change of the page.
    EXPECT_NE(ReadWholeFile(tuning).value_or("").find("nNWordBigInc 5"), std::string::npos);

    EXPECT_EQ(RunCommand(host::AddPostCommand, {"post", "-t", tuning, "-o", code, drawing}), host::kGood);
    EXPECT_EQ(ReadWholeFile(code).value_or(""), expected);
    fs::remove_all(folder);
}

// Enter presses OK while an edit keeps the focus.
TEST(Keyboard, EnterTakesTheFocusFirst) {
    std::vector<std::string> log;
    CQtToolkit toolkit;
    const auto dialog = toolkit.MakeDialog("Dialog");
    CEditControl& edit = dialog->AddEdit({ControlKind::kReal, "edit", "Edit"});
    edit.focus_lost.Set([&log, &edit] { log.push_back("focus_lost " + edit.GetText()); });
    dialog->ok_clicked.Set([&log, &dialog] {
        log.push_back("ok");
        dialog->EndWithOk();
    });
    CKeyboardUser user({TabTo("edit"), Text("7"), Keys("Return")});
    EXPECT_TRUE(dialog->RunModal());
    EXPECT_EQ(log, (std::vector<std::string>{"focus_lost 7", "ok"}));
}

}  // namespace
}  // namespace brindle::toolkit_test
