// The words of a drawing's records as the reader counts them: runs of commas, blanks and tabs separate, so what stands
// between is easily taken for another word than it was meant to be.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// What comes of an empty word, as the front of a message.
inline constexpr std::string_view kEmptyWord = "two commas with nothing between them count as one";

// Whether nothing stands between two commas of `line` that have a word behind them.
bool HasEmptyWord(std::string_view line);

// One text per fault of a complete record: words that close up, words beyond its last, a name that ends too early.
// `words` are the words of `line` of which the first is the record's type.
std::vector<std::string> FindMisplacedWords(std::string_view line, const std::vector<std::string_view>& words);

}  // namespace brindle
