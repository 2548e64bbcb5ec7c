// How the boxes of a page share its width.
#pragma once

#include <QWidget>
#include <vector>

namespace brindle {

using BoxColumns = std::vector<std::vector<QWidget*>>;

// The boxes in columns, in their order: as few columns, about equally high, as make the page no higher than a screen.
BoxColumns InColumns(const std::vector<QWidget*>& boxes);

// Of columns that are together wider than a page, some below others, so that the page is as low as can be.
BoxColumns FoldedToPage(const BoxColumns& columns);

}  // namespace brindle
