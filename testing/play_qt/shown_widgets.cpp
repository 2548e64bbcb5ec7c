#include "testing/play_qt/shown_widgets.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextDocument>
#include <QVariant>
#include <algorithm>

#include "qt_text.h"

namespace brindle::toolkit_test {
namespace {

ControlKind KindOf(const QWidget& control) { return static_cast<ControlKind>(control.property("kind").toInt()); }

std::string Text(const QAbstractItemModel& model, int row, int column = 0) {
    return FromQt(model.index(row, column).data().toString());
}

std::string LabelOf(const QWidget& control) {
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&control)) return FromQt(button->text());
    return FromQt(control.property("label").toString());
}

std::string SelectedEntry(int index, const QAbstractItemModel& model) {
    const std::string number = std::to_string(index);
    return index < 0 ? number : number + ' ' + Text(model, index);
}

std::string ValueOf(const QWidget& control) {
    if (qobject_cast<const QPushButton*>(&control) != nullptr) return {};
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&control))
        return button->isChecked() ? "1" : "0";
    if (const auto* const label = qobject_cast<const QLabel*>(&control)) return FromQt(label->text());
    if (const auto* const edit = qobject_cast<const QLineEdit*>(&control)) return FromQt(edit->text());
    if (const auto* const edit = qobject_cast<const QPlainTextEdit*>(&control)) {
        return FromQt(edit->document()->toRawText().replace(QChar(QChar::ParagraphSeparator), QLatin1String("\r\n")));
    }
    if (const auto* const combo = qobject_cast<const QComboBox*>(&control)) {
        return SelectedEntry(combo->currentIndex(), *combo->model());
    }
    if (const auto* const list = qobject_cast<const QListView*>(&control)) {
        const QModelIndexList selected = list->selectionModel()->selectedIndexes();
        return SelectedEntry(selected.isEmpty() ? -1 : selected.front().row(), *list->model());
    }
    return {};
}

std::string RowText(const QTableView& table, int row) {
    std::string line;
    for (int place = 0; ColumnOfVisible(table, place) >= 0; ++place) {
        if (place > 0) line += '\t';
        line += Text(*table.model(), row, ColumnOfVisible(table, place));
    }
    return line;
}

std::vector<std::string> RowsOf(const QWidget& control) {
    std::vector<std::string> rows;
    if (const auto* const table = qobject_cast<const QTableView*>(&control)) {
        for (int row = 0; row < table->model()->rowCount(); ++row) rows.push_back(RowText(*table, row));
        return rows;
    }
    const QAbstractItemModel* model = nullptr;
    if (const auto* const combo = qobject_cast<const QComboBox*>(&control)) model = combo->model();
    if (const auto* const list = qobject_cast<const QListView*>(&control)) model = list->model();
    for (int row = 0; model != nullptr && row < model->rowCount(); ++row) rows.push_back(Text(*model, row));
    return rows;
}

}  // namespace

std::vector<QWidget*> ControlsOf(const QWidget& window) {
    const auto* const tabs = window.findChild<const QTabWidget*>();
    const QWidget& form = tabs == nullptr ? window : *tabs->currentWidget();
    std::vector<QWidget*> controls;
    for (QWidget* const widget : form.findChildren<QWidget*>()) {
        if (widget->property("kind").isValid() && KindOf(*widget) != ControlKind::kDrawing) controls.push_back(widget);
    }
    std::sort(controls.begin(), controls.end(), [](const QWidget* a, const QWidget* b) {
        return a->property("order").toInt() < b->property("order").toInt();
    });
    return controls;
}

play::ShownControl Shown(const QWidget& control) {
    return {{KindOf(control), FromQt(control.property("key").toString()), LabelOf(control)},
            control.isEnabledTo(control.window()),
            control.isVisibleTo(control.window()),
            ValueOf(control),
            RowsOf(control)};
}

int ColumnOfVisible(const QTableView& table, int place) {
    for (int column = 0; column < table.model()->columnCount(); ++column) {
        if (!table.isColumnHidden(column) && place-- == 0) return column;
    }
    return -1;
}

}  // namespace brindle::toolkit_test
