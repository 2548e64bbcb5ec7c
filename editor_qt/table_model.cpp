#include "table_model.h"

#include "qt_text.h"

namespace brindle {

void CTableModel::AddColumn(std::string_view heading) {
    const int column = columnCount();
    beginInsertColumns({}, column, column);
    headings_.push_back(ToQt(heading));
    for (Row& row : rows_) row.cells.resize(headings_.size());
    endInsertColumns();
}

void CTableModel::RemoveColumns() {
    beginResetModel();
    headings_.clear();
    for (Row& row : rows_) row.cells.clear();
    endResetModel();
}

int CTableModel::AddRow() {
    const int row = rowCount();
    beginInsertRows({}, row, row);
    rows_.push_back({std::vector<QString>(headings_.size())});
    endInsertRows();
    return row;
}

void CTableModel::DeleteRows() {
    if (rows_.empty()) return;
    beginRemoveRows({}, 0, rowCount() - 1);
    rows_.clear();
    endRemoveRows();
}

void CTableModel::SetCell(TableCell cell, std::string_view text) {
    if (!hasIndex(cell.row, cell.column)) return;
    rows_[static_cast<size_t>(cell.row)].cells[static_cast<size_t>(cell.column)] = ToQt(text);
    const QModelIndex changed = index(cell.row, cell.column);
    dataChanged(changed, changed);
}

void CTableModel::SetValue(int row, int32_t value) {
    if (row >= 0 && row < rowCount()) rows_[static_cast<size_t>(row)].value = value;
}

int32_t CTableModel::GetValue(int row) const {
    return row >= 0 && row < rowCount() ? rows_[static_cast<size_t>(row)].value : 0;
}

int CTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant CTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    const QString& text = rows_[static_cast<size_t>(index.row())].cells[static_cast<size_t>(index.column())];
    if (role == Qt::DisplayRole) return text;
    return text.isEmpty() ? QVariant() : QVariant(QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()));
}

QVariant CTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount()) return {};
    return headings_[static_cast<size_t>(section)];
}

}  // namespace brindle
