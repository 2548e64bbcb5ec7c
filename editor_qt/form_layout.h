// Puts the controls of a form in their places.
//
// Controls are in rows, their labels in a column of their own. Those under a heading are in a box; boxes are
// below each other, or next to the one before where a control begins a new column. What is under no heading at the
// top of a page goes above all columns, and so does a table below them. Columns that together would be too wide are
// put below each other; boxes of a page that says nothing of columns flow into as many as make it neither high nor
// wide. Tables, lists and edits of several lines take what room is left.
#pragma once

#include <QWidget>
#include <deque>
#include <vector>

#include "control_cell.h"

namespace brindle {

// Whether boxes flow where the controls say nothing of columns.
enum class FormFlow : uint8_t { kOneColumn, kColumns };

// Below what is in `root` already. Adds the boxes that it makes to `boxes`.
void LayOutForm(QWidget& root, const std::vector<CControlCell*>& cells, FormFlow flow, std::deque<CControlBox>& boxes);

}  // namespace brindle
