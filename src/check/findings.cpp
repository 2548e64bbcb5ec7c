#include "check/findings.h"

#include <algorithm>
#include <tuple>

namespace brindle {
namespace {

constexpr size_t kMostKept = 100000;

}  // namespace

void CFindings::Add(Severity severity, size_t line, size_t column, size_t length, std::string text) {
    ++counts_[static_cast<size_t>(severity)];
    if (findings_.size() < kMostKept) findings_.push_back({severity, line, column, length, std::move(text)});
}

const std::vector<Finding>& CFindings::Sorted() {
    std::stable_sort(findings_.begin(), findings_.end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.line, a.column) < std::tie(b.line, b.column);
    });
    return findings_;
}

}  // namespace brindle
