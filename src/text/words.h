// Lines cut into words: the lines of a tuning, of a definition file and of a drawing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// Replaces the contents of `words` by the words of `line`, which are what is between separators. The views point
// into `line`.
void SplitWords(std::string_view line, std::vector<std::string_view>& words, std::string_view separators = " \t");

// The words of `line` between blanks and tabs, where a word that begins with a double or single quote goes on to the
// next quote of its kind and keeps a quote at each end. A quote that is never closed takes the rest of the line and one
// blank; a tab in it counts as a blank.
std::vector<std::string> SplitQuotedWords(std::string_view line);

// The n-th word of `line` with quotes kept together, counted from 1; empty if n is 0 or beyond the last word.
std::string QuotedWord(std::string_view line, size_t n);

// `text` with every `from`, found from left to right, replaced by `to`. `from` must not be empty.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

// Text values and template lines as one word: a blank is `!#SP#!`, an empty text is `!#EMPTY#!`.
std::string EscapeWord(std::string_view text);

// The text of an escaped word: every `!#SP#!` becomes a blank, then every `!#EMPTY#!` is removed. `origins`, unless it
// is null, becomes the place in `word` of each byte of the text.
std::string UnescapeWord(std::string_view word, std::vector<size_t>* origins = nullptr);

// The names of run-time data rows, columns and messages escape blanks alone.
std::string EscapeBlanks(std::string_view text);
std::string UnescapeBlanks(std::string_view word);

}  // namespace brindle
