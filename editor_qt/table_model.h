// The cells of a table, which its widget shows.
#pragma once

#include <QAbstractTableModel>
#include <cstdint>
#include <string_view>
#include <vector>

#include "editor/toolkit/controls.h"

namespace brindle {

class CTableModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;
    void AddColumn(std::string_view heading);
    void RemoveColumns();
    int AddRow();
    void DeleteRows();
    // A cell or row that is none: nothing happens, and the value is 0.
    void SetCell(TableCell cell, std::string_view text);
    void SetValue(int row, int32_t value);
    int32_t GetValue(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        std::vector<QString> cells;
        int32_t value = 0;
    };

    std::vector<QString> headings_;
    std::vector<Row> rows_;
};

}  // namespace brindle
