// What the widgets of a window show, read off the widgets themselves.
#pragma once

#include <QTableView>
#include <string>
#include <vector>

#include "testing/play/play_screen.h"

namespace brindle::toolkit_test {

// The controls of the window, of a sheet those of the page in front, in their order.
std::vector<QWidget*> ControlsOf(const QWidget& window);

play::ShownControl Shown(const QWidget& control);

// The index of the column at a place among the visible ones, -1 if there is none.
int ColumnOfVisible(const QTableView& table, int place);

}  // namespace brindle::toolkit_test
