#include "text/message_words.h"

namespace brindle {

std::string Quoted(std::string_view word) {
    constexpr size_t kLongest = 60;
    if (word.size() <= kLongest) return std::string("'").append(word).append("'");
    size_t end = kLongest;
    while (end > 0 && IsWithinCharacter(word, end)) --end;
    return std::string("'").append(word.substr(0, end)).append("...'");
}

std::string Counted(size_t count, std::string_view thing) {
    return std::to_string(count).append(" ").append(thing).append(count == 1 ? "" : "s");
}

std::string DidYouMean(std::string_view name) {
    return name.empty() ? std::string() : std::string("did you mean ").append(name).append("?");
}

std::string Suggestion(std::string_view name) { return name.empty() ? std::string() : " (" + DidYouMean(name) + ")"; }

bool IsWithinCharacter(std::string_view text, size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

}  // namespace brindle
