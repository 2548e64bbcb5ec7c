// What a misspelt word of a tuning was probably meant to be. Each gives an empty text if nothing is near.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace brindle {

std::string NearestName(std::string_view word, std::span<const std::string_view> names);
std::string NearestDirective(std::string_view word);
std::string NearestKeyword(std::string_view word);
// The key with a tool's prefix if that is all that it lacks, without it if that is all that it has too much, otherwise
// the known key that is spelt most like it.
std::string IntendedKey(std::string_view key);
// The only known key that differs in the case of letters, or else in one letter that is missing, too many, wrong or
// swapped with its neighbour. The tool's prefix stays.
std::string OnlyKeyNear(std::string_view key);

}  // namespace brindle
