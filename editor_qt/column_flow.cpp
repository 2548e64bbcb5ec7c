#include "column_flow.h"

#include <QScreen>
#include <algorithm>

namespace brindle {
namespace {

int HeightOf(const QWidget& box) { return box.sizeHint().height() + box.fontMetrics().height() / 2; }

int HeightOf(const std::vector<QWidget*>& column) {
    int height = 0;
    for (const QWidget* const box : column) height += HeightOf(*box);
    return height;
}

int HeightOf(const BoxColumns& columns) {
    int height = 0;
    for (const auto& column : columns) height = std::max(height, HeightOf(column));
    return height;
}

int WidthOf(const BoxColumns& columns) {
    int width = 0;
    for (const auto& column : columns) {
        int widest = 0;
        for (const QWidget* const box : column) widest = std::max(widest, box->sizeHint().width());
        width += widest;
    }
    return width;
}

constexpr size_t kMostFolded = 10;

// Puts each column below the one before where the bit of that place is set in `joins`.
BoxColumns Joined(const BoxColumns& columns, unsigned joins) {
    BoxColumns joined{columns.front()};
    for (size_t i = 1; i < columns.size(); ++i) {
        if ((joins >> (i - 1) & 1U) == 0) joined.emplace_back();
        joined.back().insert(joined.back().end(), columns[i].begin(), columns[i].end());
    }
    return joined;
}

// Fills a column up to `limit` before the next.
BoxColumns Filled(const std::vector<QWidget*>& boxes, int limit) {
    BoxColumns columns(1);
    int height = 0;
    for (QWidget* const box : boxes) {
        if (height > 0 && height + HeightOf(*box) > limit) {
            columns.emplace_back();
            height = 0;
        }
        columns.back().push_back(box);
        height += HeightOf(*box);
    }
    return columns;
}

// With the lowest limit that does with `count` columns.
BoxColumns Balanced(const std::vector<QWidget*>& boxes, size_t count) {
    int low = 0;
    int high = HeightOf(boxes);
    while (low < high) {
        const int limit = (low + high) / 2;
        Filled(boxes, limit).size() <= count ? high = limit : low = limit + 1;
    }
    return Filled(boxes, high);
}

}  // namespace

BoxColumns InColumns(const std::vector<QWidget*>& boxes) {
    constexpr size_t kMostColumns = 3;
    constexpr int kMostLines = 30;
    const int most = boxes.front()->fontMetrics().lineSpacing() * kMostLines;
    for (size_t count = 1; count < kMostColumns; ++count) {
        BoxColumns columns = Balanced(boxes, count);
        if (HeightOf(columns) <= most) return columns;
    }
    return Balanced(boxes, kMostColumns);
}

BoxColumns FoldedToPage(const BoxColumns& columns) {
    constexpr int kMostCharacters = 160;
    const QWidget& box = *columns.front().front();
    const int most = std::min(box.fontMetrics().averageCharWidth() * kMostCharacters,
                              box.screen()->availableGeometry().width() * 4 / 5);
    if (columns.size() > kMostFolded || WidthOf(columns) <= most) return columns;
    BoxColumns best = Joined(columns, ~0U);
    for (unsigned joins = 0; joins < 1U << (columns.size() - 1); ++joins) {
        BoxColumns folded = Joined(columns, joins);
        if (WidthOf(folded) <= most && HeightOf(folded) < HeightOf(best)) best = std::move(folded);
    }
    return best;
}

}  // namespace brindle
