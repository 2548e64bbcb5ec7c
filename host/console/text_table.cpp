#include "host/console/text_table.h"

#include <algorithm>

#include "host/console/messages.h"
#include "platform/text_encoding.h"

namespace brindle::host {
namespace {

constexpr size_t kGap = 2;

size_t WidthOf(const std::string& cell) { return NarrowToWide(cell).size(); }

}  // namespace

void CTextTable::AddRow(std::vector<std::string> cells) {
    widths_.resize(std::max(widths_.size(), cells.size()));
    for (size_t i = 0; i < cells.size(); ++i) {
        cells[i] = PrintableText(cells[i]);
        widths_[i] = std::max(widths_[i], WidthOf(cells[i]));
    }
    rows_.push_back(std::move(cells));
}

std::string CTextTable::Text() const {
    std::string text;
    for (const std::vector<std::string>& cells : rows_) {
        std::string row = indent_;
        for (size_t i = 0; i < cells.size(); ++i) {
            row.append(cells[i]);
            row.append(widths_[i] == 0 ? 0 : widths_[i] - WidthOf(cells[i]) + kGap, ' ');
        }
        row.erase(row.find_last_not_of(' ') + 1);
        text.append(row).push_back('\n');
    }
    return text;
}

}  // namespace brindle::host
