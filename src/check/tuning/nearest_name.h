// What a misspelt word of a tuning was probably meant to be. Each gives an empty text if nothing is near.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace brindle {

std::string NearestName(std::string_view word, std::span<const std::string_view> names);
std::string NearestDirective(std::string_view word);
std::string NearestKeyword(std::string_view word);

}  // namespace brindle
