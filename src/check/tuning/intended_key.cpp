#include "check/tuning/intended_key.h"

#include "tuning/key_catalogue.h"

namespace brindle {
namespace {

// The key after the prefix of a tool; empty if there is no prefix.
std::string_view BehindToolPrefix(std::string_view key) {
    if (!key.starts_with('T')) return {};
    const size_t end = key.find_first_not_of("0123456789", 1);
    return end == key.npos || key[end] != '_' ? std::string_view() : key.substr(end + 1);
}

}  // namespace

std::string IntendedKey(std::string_view key) {
    const std::string of_tool = std::string("T1_").append(key);
    if (MatchKey(of_tool).info != nullptr) return of_tool;
    const std::string_view behind = BehindToolPrefix(key);
    return MatchKey(behind).info != nullptr ? std::string(behind) : NearestKey(key);
}

}  // namespace brindle
