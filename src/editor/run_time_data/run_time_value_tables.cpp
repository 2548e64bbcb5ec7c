#include "editor/run_time_data/run_time_value_tables.h"

#include <utility>

namespace brindle {
namespace {

constexpr int kMessageValueWidth = 350;
constexpr int kRowNameWidth = 120;
constexpr int kCellWidth = 110;

constexpr int kMessageValueColumn = 1;

int RowOf(const std::vector<int>& rows, int32_t entry) {
    const auto index = static_cast<size_t>(entry);
    return index < rows.size() ? rows[index] : -1;
}

}  // namespace

std::string MarkedName(const CRunTimeDefItem& item) { return item.hidden ? item.name + "  (HIDDEN)" : item.name; }

CRunTimeValueTables::CRunTimeValueTables(CForm& form, Hidden hidden, int message_width)
    : hidden_(hidden),
      messages_(form.AddTable({ControlKind::kTable, {}, {}, "Messages"})),
      cells_(form.AddTable({ControlKind::kTable, {}, {}, "Table"})) {
    messages_.AddColumn("Message", message_width);
    messages_.AddColumn("Value", kMessageValueWidth);
    messages_.double_clicked.Set([this] { ReportMessage(); });
    cells_.double_clicked.Set([this] { ReportCell(); });
}

void CRunTimeValueTables::ShowColumns(const CRunTimeDataDef& definition) {
    cells_.DeleteRows();
    cells_.RemoveColumns();
    cells_.AddColumn("", kRowNameWidth);
    for (const CRunTimeDefItem& column : definition.columns()) {
        const bool is_left_out = column.hidden && hidden_ == Hidden::kLeftOut;
        cells_.AddColumn(is_left_out ? column.name : MarkedName(column), is_left_out ? 0 : kCellWidth);
    }
}

void CRunTimeValueTables::ShowEntries(const CRunTimeDataDef& definition) {
    AddRows(messages_, definition.messages(), message_rows_);
    AddRows(cells_, definition.rows(), cell_rows_);
}

void CRunTimeValueTables::AddRows(CTableControl& table, const std::vector<CRunTimeDefItem>& items, Rows& rows) const {
    table.DeleteRows();
    rows.assign(1, -1);
    for (const CRunTimeDefItem& item : items) {
        const bool is_left_out = item.hidden && hidden_ == Hidden::kLeftOut;
        const int row = is_left_out ? -1 : table.AddRow();
        table.SetRowValue(row, static_cast<int32_t>(rows.size()));
        table.SetCell({row, 0}, MarkedName(item));
        rows.push_back(row);
    }
}

void CRunTimeValueTables::ShowValues(const CKVItemContainer& values) {
    for (const auto& [word, item] : values.items()) {
        const auto* const text = dynamic_cast<const CTextKVItem*>(item.get());
        const std::optional<RunTimePlace> place = PlaceOfWord(word);
        if (text != nullptr && place) ShowValue(*place, text->value());
    }
}

void CRunTimeValueTables::ShowValue(RunTimePlace place, std::string_view value) {
    if (place.IsMessage()) {
        messages_.SetCell({RowOf(message_rows_, place.entry), kMessageValueColumn}, value);
    } else {
        cells_.SetCell({RowOf(cell_rows_, place.entry), place.column}, value);
    }
}

void CRunTimeValueTables::OnValueChosen(std::function<void(RunTimePlace place)> listener) {
    value_chosen_ = std::move(listener);
}

void CRunTimeValueTables::OnRowChosen(std::function<void(int32_t row)> listener) { row_chosen_ = std::move(listener); }

void CRunTimeValueTables::ReportMessage() const {
    const auto cell = messages_.CellUnderPointer();
    if (cell && value_chosen_) value_chosen_({messages_.GetRowValue(cell->row), 0});
}

void CRunTimeValueTables::ReportCell() const {
    const auto cell = cells_.CellUnderPointer();
    if (!cell) return;
    const int32_t row = cells_.GetRowValue(cell->row);
    if (cell->column >= 1 && value_chosen_) value_chosen_({row, cell->column});
    if (cell->column == 0 && row_chosen_) row_chosen_(row);
}

}  // namespace brindle
