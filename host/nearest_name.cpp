#include "host/nearest_name.h"

#include <algorithm>
#include <vector>

#include "text/ascii.h"

namespace brindle::host {
namespace {

bool Same(char a, char b) { return LowerAscii(a) == LowerAscii(b); }

// Edits between two short words, where two swapped neighbours count as one.
size_t Edits(std::string_view a, std::string_view b) {
    std::vector<size_t> before_last(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        before_last.swap(last);
        last.swap(row);
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t replaced = last[j - 1] + (Same(a[i - 1], b[j - 1]) ? 0 : 1);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
            const bool swapped = i > 1 && j > 1 && Same(a[i - 1], b[j - 2]) && Same(a[i - 2], b[j - 1]);
            if (swapped) row[j] = std::min(row[j], before_last[j - 2] + 1);
        }
    }
    return row.back();
}

}  // namespace

std::string_view NearestName(std::string_view word, std::span<const std::string_view> names) {
    const size_t most_edits = std::clamp<size_t>(word.size() / 4, 1, 3);
    std::string_view best;
    size_t fewest = most_edits + 1;
    for (const std::string_view name : names) {
        if (name.size() > word.size() + most_edits || word.size() > name.size() + most_edits) continue;
        const size_t edits = Edits(word, name);
        if (edits >= fewest) continue;
        fewest = edits;
        best = name;
    }
    return best;
}

}  // namespace brindle::host
