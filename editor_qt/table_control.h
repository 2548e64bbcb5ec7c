// Tables.
#pragma once

#include <QTableView>
#include <vector>

#include "qt_control.h"
#include "table_model.h"

namespace brindle {

class CQtTable : public CQtControl<CTableControl, QTableView> {
public:
    CQtTable(CFormBody& body, const ControlSpec& spec);
    void SetText(std::string_view /*text*/) override {}
    std::string GetText() const override { return {}; }
    void AddColumn(std::string_view heading, int width) override;
    void RemoveColumns() override;
    int AddRow() override { return model_.AddRow(); }
    void SetCell(TableCell cell, std::string_view text) override { model_.SetCell(cell, text); }
    void SetRowValue(int row, int32_t value) override { model_.SetValue(row, value); }
    int32_t GetRowValue(int row) const override { return model_.GetValue(row); }
    // Rows that come in their place are shown where the old ones were.
    void DeleteRows() override;
    // While a double click is reported, the cell that was clicked.
    std::optional<TableCell> CellUnderPointer() const override;

private:
    void OnDoubleClick(const QModelIndex& index);

    CTableModel& model_;  // the widget's
    bool in_report_ = false;
    std::optional<TableCell> clicked_;
};

}  // namespace brindle
