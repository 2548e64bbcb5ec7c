#include "check/drawing/drawing_findings.h"

#include <algorithm>

#include "text/message_words.h"

namespace brindle {
namespace {

constexpr size_t kMostOfAKind = 20;

}  // namespace

void SortByLine(std::vector<DrawingFinding>& findings) {
    std::stable_sort(findings.begin(), findings.end(),
                     [](const DrawingFinding& a, const DrawingFinding& b) { return a.line < b.line; });
}

std::string LikeFurther(const LineUse& use, std::string_view thing) {
    if (use.count < 2) return {};
    return ", like " + Counted(use.count - 1, "further " + std::string(thing));
}

void CFindingList::Add(FindingKind kind, size_t line, std::string text) {
    LineUse& use = uses_[static_cast<size_t>(kind)];
    use.Add(line);
    if (use.count <= kMostOfAKind) findings_.push_back({line, std::move(text)});
    if (use.count == kMostOfAKind) last_line_[static_cast<size_t>(kind)] = line;
}

std::vector<DrawingFinding> CFindingList::Take() {
    for (size_t kind = 0; kind < kKinds; ++kind) {
        if (uses_[kind].count <= kMostOfAKind) continue;
        const size_t more = uses_[kind].count - kMostOfAKind;
        findings_.push_back({last_line_[kind], "and " + std::to_string(more) + " more of this kind behind this line"});
    }
    SortByLine(findings_);
    return std::move(findings_);
}

}  // namespace brindle
