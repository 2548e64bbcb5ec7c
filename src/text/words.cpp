#include "text/words.h"

#include <algorithm>
#include <utility>

namespace brindle {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kBlankEscape = "!#SP#!";
constexpr std::string_view kEmptyEscape = "!#EMPTY#!";

// Takes the next word, quotes kept together, off `rest`. False if there is none.
bool TakeQuotedWord(std::string_view& rest, std::string& word) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (rest.empty()) return false;
    const char quote = rest[0];
    if (quote != '"' && quote != '\'') {
        const size_t end = std::min(rest.find_first_of(kBlanks), rest.size());
        word = rest.substr(0, end);
        rest.remove_prefix(end);
        return true;
    }
    const size_t close = rest.find(quote, 1);
    const bool closed = close != std::string_view::npos;
    word = rest.substr(0, close);
    std::replace(word.begin(), word.end(), '\t', ' ');
    if (!closed) word.push_back(' ');
    word.push_back(quote);
    rest.remove_prefix(closed ? close + 1 : rest.size());
    return true;
}

}  // namespace

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    size_t done = 0;
    for (size_t at = text.find(from); at != std::string_view::npos; at = text.find(from, done)) {
        result.append(text.substr(done, at - done)).append(to);
        done = at + from.size();
    }
    return result.append(text.substr(done));
}

void SplitWords(std::string_view line, std::vector<std::string_view>& words, std::string_view separators) {
    const auto is_separator = [separators](char c) {
        for (const char separator : separators) {
            if (c == separator) return true;
        }
        return false;
    };
    words.clear();
    for (size_t at = 0; at < line.size(); ++at) {
        if (is_separator(line[at])) continue;
        const size_t start = at;
        while (at < line.size() && !is_separator(line[at])) ++at;
        words.push_back(line.substr(start, at - start));
    }
}

std::vector<std::string> SplitQuotedWords(std::string_view line) {
    std::vector<std::string> words;
    std::string word;
    while (TakeQuotedWord(line, word)) words.push_back(std::move(word));
    return words;
}

std::string QuotedWord(std::string_view line, size_t n) {
    std::string word;
    for (size_t i = 0; i < n; ++i) {
        if (!TakeQuotedWord(line, word)) return {};
    }
    return word;
}

std::string EscapeWord(std::string_view text) { return text.empty() ? std::string(kEmptyEscape) : EscapeBlanks(text); }

std::string UnescapeWord(std::string_view word, std::vector<size_t>* origins) {
    const std::string with_blanks = UnescapeBlanks(word);
    if (origins == nullptr) return ReplaceAll(with_blanks, kEmptyEscape, "");
    origins->clear();
    std::string text;
    size_t origin = 0;
    const auto step = [&] { origin += word.substr(origin).starts_with(kBlankEscape) ? kBlankEscape.size() : 1; };
    for (std::string_view rest = with_blanks; !rest.empty();) {
        const bool is_empty_text = rest.starts_with(kEmptyEscape);
        if (!is_empty_text) {
            text.push_back(rest[0]);
            origins->push_back(origin);
        }
        const size_t taken = is_empty_text ? kEmptyEscape.size() : 1;
        for (size_t i = 0; i < taken; ++i) step();
        rest.remove_prefix(taken);
    }
    return text;
}

std::string EscapeBlanks(std::string_view text) { return ReplaceAll(text, " ", kBlankEscape); }

std::string UnescapeBlanks(std::string_view word) { return ReplaceAll(word, kBlankEscape, " "); }

}  // namespace brindle
