#include "check/tuning/nearest_name.h"

#include <set>
#include <utility>

#include "language/directives.h"
#include "language/keywords.h"
#include "text/ascii.h"
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

// Takes the known keys among all words that are one letter away from a name.
class CKeysALetterOff {
public:
    CKeysALetterOff(std::string_view prefix, std::string_view name) : prefix_(prefix), name_(name) {
        for (size_t i = 0; i <= name_.size(); ++i) {
            const std::string before(name_.substr(0, i));
            const std::string_view rest = name_.substr(i);
            if (!rest.empty()) Try(before + std::string(rest.substr(1)));
            if (rest.size() > 1) Try(before + rest[1] + rest[0] + std::string(rest.substr(2)));
            for (const char letter : kLetters) {
                Try(before + letter + std::string(rest));
                if (!rest.empty()) Try(before + letter + std::string(rest.substr(1)));
            }
        }
    }

    std::string Only() const { return found_.size() == 1 ? *found_.begin() : std::string(); }

private:
    static constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";

    void Try(const std::string& name) {
        std::string key = std::string(prefix_).append(name);
        if (MatchKey(key).info != nullptr) found_.insert(std::move(key));
    }

    std::string_view prefix_, name_;
    std::set<std::string> found_;
};

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

std::string OnlyKeyNear(std::string_view key) {
    std::string nearest = NearestKey(key);
    if (nearest.empty() || EqualNoCase(nearest, key)) return nearest;
    const std::string_view name = AfterToolPrefix(key);
    if (name.empty()) return CKeysALetterOff({}, key).Only();
    return CKeysALetterOff(key.substr(0, key.size() - name.size()), name).Only();
}

}  // namespace brindle
