#include "testing/play_qt/qt_screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <algorithm>

#include "qt_text.h"
#include "testing/play/act_line.h"
#include "testing/play_qt/qt_user.h"
#include "testing/play_qt/shown_widgets.h"

namespace brindle::toolkit_test {
namespace {

// Null for a control that can be acted upon.
const char* WhyNotUsable(const QWidget& control) {
    if (!control.isVisibleTo(control.window())) return " is hidden";
    return control.isEnabledTo(control.window()) ? nullptr : " is disabled";
}

// Where a click means the control: a check box that is wider than its text takes clicks on its text alone.
QPoint PlaceToClick(const QWidget& control) {
    return control.rect().intersected(QRect(QPoint(0, 0), control.sizeHint())).center();
}

// Turns the page until the place is seen.
void ScrollIntoView(QWidget& widget, QPoint at) {
    for (QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto* const area = qobject_cast<QScrollArea*>(parent)) {
            const QPoint place = widget.mapTo(area->widget(), at);
            area->ensureVisible(place.x(), place.y());
        }
    }
}

bool TakesText(const QWidget& control) {
    return qobject_cast<const QLineEdit*>(&control) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(&control) != nullptr;
}

// How many steps of the caret a text is long.
int CaretSteps(std::string_view text) {
    QString shown = ToQt(text);
    return static_cast<int>(shown.replace(QLatin1String("\r\n"), QLatin1String("\n")).toUcs4().size());
}

QPushButton* ButtonOf(const QWidget& window, QDialogButtonBox::StandardButton button) {
    const auto* const box = window.findChild<QDialogButtonBox*>();
    return box == nullptr ? nullptr : box->button(button);
}

// A place in the view that belongs to no row; nothing if rows fill it, so that nobody can click outside them.
std::optional<QPoint> EmptyPlace(const QAbstractItemView& view) {
    const QRect room = view.viewport()->rect();
    for (const QPoint place : {room.bottomLeft() + QPoint(2, -2), room.bottomRight() - QPoint(2, 2)}) {
        if (!view.indexAt(place).isValid()) return place;
    }
    return std::nullopt;
}

// Scrolls to the cell. Nothing if it can't be seen.
std::optional<QPoint> PlaceOf(QAbstractItemView& view, const QModelIndex& index) {
    view.scrollTo(index);
    const QRect seen = view.visualRect(index).intersected(view.viewport()->rect());
    return seen.isEmpty() ? std::nullopt : std::optional(seen.center());
}

// The filter that was asked for, if the dialog has just that; else what it has.
std::string FilterOf(const QFileDialog& dialog, std::string_view asked) {
    const QStringList words = ToQt(asked).split('|', Qt::SkipEmptyParts);
    const QStringList filters = dialog.nameFilters();
    bool fits = words.size() == 2 * filters.size();
    for (qsizetype i = 0; fits && i < filters.size(); ++i) {
        const QString pattern = words[2 * i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : words[2 * i + 1];
        fits = filters[i].section('(', 1).chopped(1).split(' ').contains(pattern);
    }
    return fits ? std::string(asked) : FromQt(filters.join('|'));
}

}  // namespace

// ---- When the user acts ----

std::optional<std::string> CQtScreen::CToolkitWithQuestion::ChooseFile(const FileQuestion& asked) {
    question = asked;
    return CQtToolkit::ChooseFile(asked);
}

CQtScreen::CQtScreen(CToolkitUser& user) : user_(user), idle_([this](QWidget& waiting) { ActOn(waiting); }) {
    CWaitingLoops& loops = idle_.loops();
    loops.on_open = [this](const CWindow& window) { user_.WindowOpened(FromQt(window.windowTitle())); };
    loops.on_close = [this](const CWindow& window) {
        user_.WindowClosed(FromQt(window.windowTitle()), window.result() == QDialog::Accepted);
    };
}

void CQtScreen::ActOn(QWidget& waiting) {
    LetGo();
    if (auto* const menu = qobject_cast<QMenu*>(&waiting)) return AnswerMenu(*menu);
    if (auto* const box = qobject_cast<QMessageBox*>(&waiting)) return AnswerMessage(*box);
    if (auto* const dialog = qobject_cast<QFileDialog*>(&waiting)) return AnswerFile(*dialog);
    if (!user_.NextAct()) static_cast<QDialog&>(waiting).reject();
}

void CQtScreen::PointAt(QWidget& pressed, QPoint at, Qt::MouseButton button) {
    ScrollIntoView(pressed, at);
    pressed_ = &pressed;
    pressed_at_ = at;
    pressed_button_ = button;
}

void CQtScreen::LetGo() {
    if (pressed_ != nullptr && QGuiApplication::mouseButtons().testFlag(pressed_button_)) {
        Release(*pressed_, pressed_at_, pressed_button_);
    }
}

// ---- Boxes, menus and file dialogs ----

// What a file dialog asks by itself is no message of the editor.
bool CQtScreen::Agrees(const QMessageBox& box) {
    if (qobject_cast<QFileDialog*>(box.parentWidget()) != nullptr) return true;
    return user_.AnswerMessage(FromQt(box.text()), box.button(QMessageBox::Yes) != nullptr);
}

void CQtScreen::AnswerMessage(QMessageBox& box) {
    const bool agreed = Agrees(box);
    const auto answers =
        agreed ? std::array{QMessageBox::Yes, QMessageBox::Ok} : std::array{QMessageBox::No, QMessageBox::Ok};
    for (const QMessageBox::StandardButton answer : answers) {
        if (QAbstractButton* const button = box.button(answer)) {
            Activate(box);
            ClickAt(*button, button->rect().center());
            return;
        }
    }
}

void CQtScreen::AnswerMenu(QMenu& menu) {
    const QList<QAction*> actions = menu.actions();
    std::vector<std::string> texts;
    for (const QAction* const action : actions) texts.push_back(action->isSeparator() ? "" : FromQt(action->text()));
    std::vector<MenuEntry> entries;
    for (size_t i = 0; i < texts.size(); ++i) {
        entries.push_back({texts[i], actions[static_cast<qsizetype>(i)]->isEnabled()});
    }
    const int chosen = user_.AnswerMenu(entries);
    if (chosen < 0) return Key(menu, Qt::Key_Escape);
    ClickAt(menu, menu.actionGeometry(actions[chosen]).center());
}

void CQtScreen::AnswerFile(QFileDialog& dialog) {
    const std::string extension = '.' + FromQt(dialog.defaultSuffix());
    const std::string filter = FilterOf(dialog, toolkit_.question->filter);
    const auto path = user_.AnswerFile({dialog.acceptMode() == QFileDialog::AcceptSave, extension, filter});
    if (path) {
        auto* const name = dialog.findChild<QLineEdit*>();
        Activate(dialog);
        ClickAt(*name, name->rect().center());
        Key(*name, Qt::Key_A, Qt::ControlModifier);
        TypeText(*name, ToQt(*path));
        Key(*name, Qt::Key_Return);
    }
    if (dialog.isVisible()) dialog.reject();
}

// ---- Controls ----

std::vector<play::ShownControl> CQtScreen::Controls() const {
    std::vector<play::ShownControl> shown;
    for (const QWidget* const control : ControlsOf(*Top())) shown.push_back(Shown(*control));
    return shown;
}

QWidget* CQtScreen::Find(std::string_view name) const {
    if (Top() == nullptr) return nullptr;
    const std::vector<QWidget*> controls = ControlsOf(*Top());
    std::vector<NamedControl> names;
    for (const QWidget* const control : controls) names.push_back(Shown(*control));
    const auto found = FindControl(names, name);
    return found ? controls[*found] : nullptr;
}

std::string CQtScreen::Do(std::string_view name, const Act& act) {
    QWidget* const control = Find(name);
    if (control == nullptr) return "there is no control " + play::DoubleQuoted(name) + " in the window";
    if (const char* const why = WhyNotUsable(*control)) return play::DoubleQuoted(name) + why;
    Activate(*control->window());
    const std::string problem = act(*control);
    return problem.empty() ? problem : play::DoubleQuoted(name) + problem;
}

std::string CQtScreen::ClickAt(QWidget& widget, QPoint at, Qt::MouseButton button) {
    const int loops_before = idle_.loops().Count();
    PointAt(widget, at, button);
    if (!Press(widget, at, button)) return " can't be reached";
    if (idle_.loops().Count() != loops_before) return {};
    if (const char* const why = WhyNotUsable(widget)) return why;  // now that another lost the focus
    Release(widget, at, button);
    return {};
}

std::string CQtScreen::Click(std::string_view control) {
    return Do(control, [this](QWidget& found) -> std::string {
        if (qobject_cast<QAbstractButton*>(&found) == nullptr) return " is no button";
        return ClickAt(found, PlaceToClick(found));
    });
}

std::string CQtScreen::Type(std::string_view control, std::string_view text) {
    return Do(control, [this, text](QWidget& found) -> std::string {
        if (!TakesText(found)) return " takes no text";
        std::string problem = ClickAt(found, found.rect().center());
        if (!problem.empty()) return problem;
        Key(found, Qt::Key_A, Qt::ControlModifier);
        if (text.empty()) Key(found, Qt::Key_Delete);
        TypeText(found, ToQt(text).remove('\r'));
        return {};
    });
}

std::string CQtScreen::Mark(std::string_view control, TextRange range) {
    return Do(control, [this, range](QWidget& found) -> std::string {
        if (!TakesText(found)) return " has no text to select";
        std::string problem = ClickAt(found, found.rect().center());
        if (!problem.empty()) return problem;
        const std::string text = Shown(found).value;
        Key(found, Qt::Key_Home, Qt::ControlModifier);
        Key(found, Qt::Key_Right, {}, CaretSteps(text.substr(0, range.begin)));
        Key(found, Qt::Key_Right, Qt::ShiftModifier, CaretSteps(text.substr(range.begin, range.end - range.begin)));
        return {};
    });
}

std::string CQtScreen::WantMenu(std::string_view control) {
    return Do(control, [this](QWidget& found) -> std::string {
        if (!TakesText(found)) return " has no context menu";
        return ClickAt(found, found.rect().center(), Qt::RightButton);
    });
}

std::string CQtScreen::Pick(std::string_view control, int index) {
    return Do(control, [this, index](QWidget& found) -> std::string {
        auto* const combo = qobject_cast<QComboBox*>(&found);
        auto* const list = qobject_cast<QListView*>(&found);
        const int count = combo != nullptr ? combo->count() : list != nullptr ? list->model()->rowCount() : 0;
        if (index < 0 || index >= count) return " has no such entry";
        if (list != nullptr) {
            const auto place = PlaceOf(*list, list->model()->index(index, 0));
            return place ? ClickAt(*list->viewport(), *place) : " does not show the entry";
        }
        std::string problem = ClickAt(*combo, combo->rect().center());
        if (!problem.empty()) return problem;
        if (!combo->view()->isVisible()) return " does not open";
        Key(*combo->view(), Qt::Key_Home);
        Key(*combo->view(), Qt::Key_Down, {}, index);
        Key(*combo->view(), Qt::Key_Return);
        return {};
    });
}

std::string CQtScreen::PickEntry(std::string_view control, std::string_view entry) {
    const QWidget* const found = Find(control);
    if (found == nullptr) return Pick(control, -1);
    const std::vector<std::string> entries = Shown(*found).rows;
    const auto place = std::find(entries.begin(), entries.end(), entry);
    return Pick(control, place == entries.end() ? -1 : static_cast<int>(place - entries.begin()));
}

std::string CQtScreen::DoubleClick(std::string_view control, TableCell cell) {
    return Do(control, [this, cell](QWidget& found) -> std::string {
        auto* const view = qobject_cast<QAbstractItemView*>(&found);
        if (view == nullptr) return " has nothing there to double-click";
        const auto* const table = qobject_cast<const QTableView*>(view);
        const int column = table != nullptr ? ColumnOfVisible(*table, cell.column) : 0;
        const QModelIndex index = view->model()->index(cell.row, column);
        if (!index.isValid() && table == nullptr) return " has nothing there to double-click";
        const auto place = index.isValid() ? PlaceOf(*view, index) : EmptyPlace(*view);
        if (!index.isValid() && !place) return {};
        if (place) PointAt(*view->viewport(), *place, Qt::LeftButton);
        return place && toolkit_test::DoubleClick(*view->viewport(), *place) ? "" : " can't be reached";
    });
}

// Onto a button, as the focus of a window with the keyboard is always somewhere, and a button makes nothing of it.
std::string CQtScreen::Leave() {
    if (Top() == nullptr) return {};
    Activate(*Top());
    Top()->findChild<QDialogButtonBox*>()->buttons().front()->setFocus(Qt::TabFocusReason);
    return {};
}

// ---- Windows ----

std::string CQtScreen::ScrollToTab(QTabBar& bar, int tab) {
    const auto is_seen = [&bar, tab] {
        return bar.childAt(bar.tabRect(tab).center()) == nullptr && bar.rect().contains(bar.tabRect(tab).center());
    };
    for (int clicks = 0; !is_seen() && clicks < bar.count(); ++clicks) {
        const bool forward = bar.tabRect(tab).center().x() > bar.rect().center().x();
        auto* const button = bar.findChild<QToolButton*>(forward ? QStringLiteral("ScrollRightButton")
                                                                 : QStringLiteral("ScrollLeftButton"));
        if (button == nullptr) break;
        ClickAt(*button, button->rect().center());
    }
    return is_seen() ? "" : " can't be scrolled into view";
}

std::string CQtScreen::GoToPage(std::string_view caption) {
    auto* const tabs = HasWindow() ? Top()->findChild<QTabWidget*>() : nullptr;
    for (int page = 0; tabs != nullptr && page < tabs->count(); ++page) {
        if (FromQt(tabs->tabText(page)) != caption) continue;
        Activate(*Top());
        std::string problem = ScrollToTab(*tabs->tabBar(), page);
        if (problem.empty()) problem = ClickAt(*tabs->tabBar(), tabs->tabBar()->tabRect(page).center());
        return problem.empty() ? problem : "the tab " + play::DoubleQuoted(caption) + problem;
    }
    return "there is no page " + play::DoubleQuoted(caption) + " in the window";
}

std::string CQtScreen::GoToWindow(std::string_view caption) {
    const auto& windows = idle_.loops().windows();
    const auto window = std::find_if(windows.rbegin(), windows.rend(),
                                     [caption](const CWindow* each) { return FromQt(each->windowTitle()) == caption; });
    if (window == windows.rend()) return "there is no window " + play::DoubleQuoted(caption);
    CWindow* const found = *window;
    if (found->isModal() && found != idle_.loops().Last())
        return play::DoubleQuoted(caption) + " waits for another window";
    idle_.loops().MoveToTop(*found);
    Activate(*found);
    return {};
}

std::string CQtScreen::PressButton(QDialogButtonBox::StandardButton button, const char* name) {
    if (Top() == nullptr) return "no window is open";
    QPushButton* const found = ButtonOf(*Top(), button);
    if (found == nullptr || !found->isEnabled())
        return "the window has no " + std::string(name) + ", or it is disabled";
    Activate(*Top());
    const std::string problem = ClickAt(*found, found->rect().center());
    return problem.empty() ? problem : name + problem;
}

std::string CQtScreen::PressClose() {
    if (Top() == nullptr || ButtonOf(*Top(), QDialogButtonBox::Close) != nullptr) {
        return PressButton(QDialogButtonBox::Close, "Close");
    }
    Top()->close();  // by its frame
    return {};
}

}  // namespace brindle::toolkit_test
