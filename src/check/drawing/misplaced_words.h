// The words of a drawing's records as the reader counts them: runs of commas, blanks and tabs separate, so what is
// between is easily taken for another word than it was meant to be.
#pragma once

#include <string_view>
#include <vector>

#include "check/diagnostics.h"

namespace brindle {

// What comes of an empty word, as the front of a message.
inline constexpr std::string_view kEmptyWord = "two commas with nothing between them count as one";

// Whether there is nothing between two commas of `line` that a word follows.
bool HasEmptyWord(std::string_view line);

// Reports the words of a complete record that close up, those beyond its last, and a name that ends too early. False if
// there is such a fault. `words` are the words of `text`, which is that line.
bool CheckWordCount(size_t line, std::string_view text, const std::vector<std::string_view>& words,
                    CDiagnostics& diagnostics);

}  // namespace brindle
