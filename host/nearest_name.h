// What a misspelt word was probably meant to be.
#pragma once

#include <span>
#include <string_view>

namespace brindle::host {

// The name among `names` that is nearest to `word`, empty if none is near: one to three letters, the more the longer
// the word, are missing, too many, wrong or swapped with their neighbour. Letters count without case.
std::string_view NearestName(std::string_view word, std::span<const std::string_view> names);

}  // namespace brindle::host
