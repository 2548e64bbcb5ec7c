// What a misspelt word was probably meant to be.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// Looks for the candidate that takes the fewest edits to reach from one name: one to three letters, the more the longer
// the name, that are missing, too many, wrong or swapped with their neighbour. A letter in the wrong case counts next
// to nothing.
class CNearestName {
public:
    // `name` must outlive it.
    explicit CNearestName(std::string_view name);

    // Takes `candidate` if it is nearer than all before it.
    void Offer(std::string_view candidate);
    // Empty if no candidate was near.
    const std::string& best() const { return best_; }

private:
    size_t Cost(std::string_view candidate);
    void FillRow(size_t i, std::string_view candidate);

    std::string_view name_;
    size_t most_edits_;
    size_t best_cost_;
    std::string best_;
    std::vector<size_t> row_, last_, before_last_;
};

}  // namespace brindle
