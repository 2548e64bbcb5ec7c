// The two tables that show the values of run-time data, on the page of the definition and in the dialog before a run.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/toolkit/windows.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// The name of an entry of a definition, marked if it is hidden.
std::string MarkedName(const CRunTimeDefItem& item);

// A table of messages with a value each, and a table of rows against columns.
class CRunTimeValueTables {
public:
    enum class Hidden : uint8_t { kMarked, kLeftOut };  // what becomes of hidden entries

    // Adds the tables to `form`, which must outlive them. The first column of the messages is `message_width` wide.
    CRunTimeValueTables(CForm& form, Hidden hidden, int message_width);

    // The columns of the second table, in place of those there are.
    void ShowColumns(const CRunTimeDataDef& definition);
    // All rows anew, without values.
    void ShowEntries(const CRunTimeDataDef& definition);
    // Values for places without a row are passed over.
    void ShowValues(const CKVItemContainer& values);
    void ShowValue(RunTimePlace place, std::string_view value);

    // A double click on a message or on a value.
    void OnValueChosen(std::function<void(RunTimePlace place)> listener);
    // A double click on the name of a row.
    void OnRowChosen(std::function<void(int32_t row)> listener);

private:
    using Rows = std::vector<int>;  // by the number of the entry, from 1; -1 for one without row

    void AddRows(CTableControl& table, const std::vector<CRunTimeDefItem>& items, Rows& rows) const;
    void ReportMessage() const;
    void ReportCell() const;

    Hidden hidden_;
    CTableControl& messages_;
    CTableControl& cells_;
    Rows message_rows_;
    Rows cell_rows_;
    std::function<void(RunTimePlace place)> value_chosen_;
    std::function<void(int32_t row)> row_chosen_;
};

}  // namespace brindle
