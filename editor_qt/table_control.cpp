#include "table_control.h"

#include <QCursor>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>
#include <numeric>

namespace brindle {
namespace {

// Columns share the width of the view in the ratio of their own widths, and none becomes narrower than its own, until
// the user moves a border.
class CTable : public QTableView {
public:
    explicit CTable(QWidget* parent) : QTableView(parent) {
        connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
            if (!is_sharing_) is_set_by_user_ = true;
        });
    }
    std::function<void(const QModelIndex&)> on_double_click;

    // Of the last column; wide enough for its heading, unless it is hidden.
    void AddWidth(int width) {
        const int heading = horizontalHeader()->sectionSizeHint(static_cast<int>(widths_.size()));
        widths_.push_back(width == 0 ? 0 : std::max(width, heading));
        ShareWidth();
    }
    void ForgetWidths() {
        widths_.clear();
        is_set_by_user_ = false;
    }
    QSize sizeHint() const override {
        const int width = std::accumulate(widths_.begin(), widths_.end(), 0);
        return {width + 3 * frameWidth() + verticalScrollBar()->sizeHint().width(), fontMetrics().lineSpacing() * 10};
    }
    QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * 20, fontMetrics().lineSpacing() * 6};
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QTableView::resizeEvent(event);
        ShareWidth();
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) on_double_click(indexAt(event->pos()));
    }
    // The current cell is where the keyboard points to.
    void keyPressEvent(QKeyEvent* event) override {
        const int key = event->key();
        const bool is_act = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2;
        is_act ? on_double_click(currentIndex()) : QTableView::keyPressEvent(event);
    }

private:
    void ShareWidth() {
        if (is_set_by_user_) return;
        is_sharing_ = true;
        const int sum = std::accumulate(widths_.begin(), widths_.end(), 0);
        const int room = std::max(viewport()->width(), sum);
        for (int column = 0; column < static_cast<int>(widths_.size()); ++column) {
            const int width = widths_[static_cast<size_t>(column)];
            setColumnHidden(column, width == 0);
            if (width != 0) setColumnWidth(column, width * room / sum);
        }
        is_sharing_ = false;
    }

    std::vector<int> widths_;
    bool is_sharing_ = false;
    bool is_set_by_user_ = false;
};

// Puts the view back to where it was once its rows have come anew.
void RestoreViewSoon(QTableView& view) {
    const QModelIndex current = view.currentIndex();
    const int row = current.row();
    const int column = current.column();
    const int top = view.verticalScrollBar()->value();
    QTimer::singleShot(0, &view, [&view, row, column, top] {
        const QModelIndex index = view.model()->index(row, column);
        if (index.isValid() && !view.currentIndex().isValid()) view.setCurrentIndex(index);
        view.verticalScrollBar()->setValue(top);
    });
}

}  // namespace

CQtTable::CQtTable(CFormBody& body, const ControlSpec& spec)
    : CQtControl(body, spec, new CTable(&body.root())), model_(*new CTableModel(&widget())) {
    auto& table = static_cast<CTable&>(widget());
    table.setModel(&model_);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setTabKeyNavigation(false);
    table.setWordWrap(false);
    table.setAlternatingRowColors(true);
    table.setShowGrid(false);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() * 3 / 2);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table.on_double_click = [this](const QModelIndex& index) { OnDoubleClick(index); };
}

void CQtTable::AddColumn(std::string_view heading, int width) {
    model_.AddColumn(heading);
    static_cast<CTable&>(widget()).AddWidth(width);
}

void CQtTable::RemoveColumns() {
    static_cast<CTable&>(widget()).ForgetWidths();
    model_.RemoveColumns();
}

void CQtTable::DeleteRows() {
    RestoreViewSoon(widget());
    model_.DeleteRows();
}

void CQtTable::OnDoubleClick(const QModelIndex& index) {
    desk().MoveFocus(&widget());
    clicked_.reset();
    if (index.isValid()) clicked_ = TableCell{index.row(), index.column()};
    in_report_ = true;
    const QPointer<QTableView> alive = &widget();
    desk().Report(double_clicked);
    if (alive != nullptr) in_report_ = false;
}

std::optional<TableCell> CQtTable::CellUnderPointer() const {
    if (in_report_) return clicked_;
    const QModelIndex index = widget().indexAt(widget().viewport()->mapFromGlobal(QCursor::pos()));
    if (!index.isValid()) return std::nullopt;
    return TableCell{index.row(), index.column()};
}

}  // namespace brindle
