#include "check/tuning/nearest_name.h"

#include "language/directives.h"
#include "language/keywords.h"
#include "text/nearest_name.h"
#include "tuning/key_catalogue.h"

namespace brindle {
namespace {

// The key after the prefix of a tool; empty if there is no prefix.
std::string_view AfterToolPrefix(std::string_view key) {
    if (!key.starts_with('T')) return {};
    const size_t end = key.find_first_not_of("0123456789", 1);
    return end == key.npos || key[end] != '_' ? std::string_view() : key.substr(end + 1);
}

}  // namespace

std::string NearestName(std::string_view word, std::span<const std::string_view> names) {
    CNearestName nearest(word);
    for (const std::string_view name : names) nearest.Offer(name);
    return nearest.best();
}

std::string NearestDirective(std::string_view word) {
    CNearestName nearest(word);
    for (const DirectiveInfo& info : DirectiveTable()) nearest.Offer(info.name);
    return nearest.best();
}

std::string NearestKeyword(std::string_view word) {
    CNearestName nearest(word);
    for (const KeywordInfo& info : KeywordTable()) nearest.Offer(info.name);
    return nearest.best();
}

std::string IntendedKey(std::string_view key) {
    const std::string of_tool = std::string("T1_").append(key);
    if (MatchKey(of_tool).info != nullptr) return of_tool;
    const std::string_view rest = AfterToolPrefix(key);
    return MatchKey(rest).info != nullptr ? std::string(rest) : NearestKey(key);
}

}  // namespace brindle
