#include "text/nearest_name.h"

#include <algorithm>

#include "text/ascii.h"

namespace brindle {
namespace {

// A letter in the wrong case costs 1, every other edit this much.
constexpr size_t kEdit = 100;

size_t ReplaceCost(char a, char b) { return a == b ? 0 : LowerAscii(a) == LowerAscii(b) ? 1 : kEdit; }

}  // namespace

CNearestName::CNearestName(std::string_view name)
    : name_(name), most_edits_(std::clamp<size_t>(name.size() / 4, 1, 3)), best_cost_((most_edits_ + 1) * kEdit) {}

void CNearestName::Offer(std::string_view candidate) {
    if (candidate.size() > name_.size() + most_edits_ || name_.size() > candidate.size() + most_edits_) return;
    const size_t cost = Cost(candidate);
    if (cost >= best_cost_) return;
    best_cost_ = cost;
    best_ = candidate;
}

// Cost of the cheapest way from the name to `candidate`; stops with best_cost_ or more once it cannot be less.
size_t CNearestName::Cost(std::string_view candidate) {
    const size_t width = candidate.size() + 1;
    row_.resize(width);
    for (size_t j = 0; j < width; ++j) row_[j] = j * kEdit;
    for (size_t i = 1; i <= name_.size(); ++i) {
        before_last_.swap(last_);
        last_.swap(row_);
        FillRow(i, candidate);
        const size_t least = *std::ranges::min_element(row_);
        if (least >= best_cost_) return least;
    }
    return row_.back();
}

// row_[j]: cost of the way from the first `i` letters of the name to the first j of `candidate`.
void CNearestName::FillRow(size_t i, std::string_view candidate) {
    row_.resize(candidate.size() + 1);
    row_[0] = i * kEdit;
    for (size_t j = 1; j < row_.size(); ++j) {
        const char a = name_[i - 1];
        const char b = candidate[j - 1];
        row_[j] = std::min({last_[j] + kEdit, row_[j - 1] + kEdit, last_[j - 1] + ReplaceCost(a, b)});
        const bool swapped = i > 1 && j > 1 && a == candidate[j - 2] && b == name_[i - 2];
        if (swapped) row_[j] = std::min(row_[j], before_last_[j - 2] + kEdit);
    }
}

}  // namespace brindle
