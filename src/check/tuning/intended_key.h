// What an unknown key was probably meant to be.
#pragma once

#include <string>
#include <string_view>

namespace brindle {

// The key with a tool's prefix if that is all that it lacks, without it if that is all that it has too much, otherwise
// the known key that is spelt most like it. Empty if none is near.
std::string IntendedKey(std::string_view key);

}  // namespace brindle
