#include "list_controls.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <algorithm>

namespace brindle {
namespace {

// ---- Widgets ----

// The wheel turns the page, not the value, until the user has gone into the list.
class CCombo : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override { hasFocus() ? QComboBox::wheelEvent(event) : event->ignore(); }
};

// All entries are as wide as the widest of a sample, so that the list need not ask for all of them.
class CEntryDelegate : public QStyledItemDelegate {
public:
    CEntryDelegate(const CEntryModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        constexpr int kSample = 200;
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        const int step = std::max(1, model_.Count() / kSample);
        int widest = 0;
        for (int i = 0; i < model_.Count(); i += step) {
            widest = std::max(widest, option.fontMetrics.horizontalAdvance(model_.Text(i)));
        }
        size.setWidth(std::max(size.width(), widest + 2 * option.fontMetrics.averageCharWidth()));
        return size;
    }

private:
    const CEntryModel& model_;
};

// Has one selected entry or none; what the user does never takes the selection away.
class CListView : public QListView {
public:
    using QListView::QListView;
    std::function<void()> on_chosen;
    std::function<void()> on_double_click;

    // The program's choice is not reported.
    void SelectQuietly(int index) {
        is_quiet_ = true;
        const QModelIndex entry = model()->index(index, 0);
        selectionModel()->setCurrentIndex(entry, QItemSelectionModel::ClearAndSelect);
        if (entry.isValid()) scrollTo(entry);
        is_quiet_ = false;
    }
    int Selected() const {
        const QModelIndexList selected = selectionModel()->selectedIndexes();
        return selected.isEmpty() ? -1 : selected.front().row();
    }
    // As wide and high as its entries, within limits.
    QSize sizeHint() const override {
        const QFontMetrics metrics = fontMetrics();
        const int character = metrics.averageCharWidth();
        const int width = model()->rowCount() == 0 ? 0
                                                   : sizeHintForIndex(model()->index(0, 0)).width() +
                                                         verticalScrollBar()->sizeHint().width() + 2 * character;
        return {std::clamp(width, character * 24, character * 60),
                metrics.lineSpacing() * std::clamp(model()->rowCount() + 1, 8, 18)};
    }
    QSize minimumSizeHint() const override {
        const QFontMetrics metrics = fontMetrics();
        return {metrics.averageCharWidth() * 12, metrics.lineSpacing() * 4};
    }

protected:
    void selectionChanged(const QItemSelection& chosen, const QItemSelection& left) override {
        QListView::selectionChanged(chosen, left);
        if (!is_quiet_ && !chosen.isEmpty()) on_chosen();
    }
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent*) const override {
        return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
    }
    void mousePressEvent(QMouseEvent* event) override {
        const int before = Selected();
        QListView::mousePressEvent(event);
        // Another entry has reported itself.
        if (Selected() == before && indexAt(event->pos()).row() == before && before >= 0) on_chosen();
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        QListView::mouseDoubleClickEvent(event);
        if (indexAt(event->pos()).isValid()) on_double_click();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_F2 && Selected() >= 0) return on_double_click();
        QListView::keyPressEvent(event);
    }

private:
    bool is_quiet_ = false;
};

}  // namespace

// ---- Drop-down list ----

CQtDropDown::CQtDropDown(CFormBody& body, const ControlSpec& spec) : CQtListBase(body, spec, new CCombo(&body.root())) {
    widget().setModel(&model());
    widget().setFocusPolicy(Qt::StrongFocus);
    widget().setSizeAdjustPolicy(QComboBox::AdjustToContents);
    widget().setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    widget().setMinimumContentsLength(spec.kind == ControlKind::kDecimals ? 4 : 8);
    QObject::connect(&widget(), &QComboBox::activated, &widget(), [this] {
        desk().MoveFocus(&widget());
        desk().Report(selected);
    });
}

int CQtDropDown::AddEntry(std::string_view text) {
    const QSignalBlocker quiet(widget());
    const int selected_before = GetSelected();
    const int index = model().Add(text);
    widget().setCurrentIndex(selected_before);  // the widget selects a first entry by itself
    return index;
}

void CQtDropDown::SetEntries(int count, std::function<std::string(int)> text_of) {
    const QSignalBlocker quiet(widget());
    model().Reset(count, std::move(text_of));
    widget().setCurrentIndex(-1);
}

void CQtDropDown::Select(int index) {
    const QSignalBlocker quiet(widget());
    if (model().Has(index) || index == -1) widget().setCurrentIndex(index);
}

// ---- List box ----

CQtListBox::CQtListBox(CFormBody& body, const ControlSpec& spec)
    : CQtListBase(body, spec, new CListView(&body.root())) {
    auto& view = static_cast<CListView&>(widget());
    view.setItemDelegate(new CEntryDelegate(model(), &view));
    view.setUniformItemSizes(true);
    view.setModel(&model());
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.on_chosen = [this] {
        desk().MoveFocus(&widget());
        desk().Report(selected);
    };
    view.on_double_click = [this] {
        desk().MoveFocus(&widget());
        desk().Report(double_clicked);
    };
}

void CQtListBox::SetEntries(int count, std::function<std::string(int)> text_of) {
    model().Reset(count, std::move(text_of));
}

void CQtListBox::Select(int index) {
    if (model().Has(index) || index == -1) static_cast<CListView&>(widget()).SelectQuietly(index);
}

int CQtListBox::GetSelected() const { return static_cast<CListView&>(widget()).Selected(); }

}  // namespace brindle
