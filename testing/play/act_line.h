// Lines of acts cut into words.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindle::play {

struct Word {
    std::string text;
    bool quoted = false;
};

// The words of a line, separated by blanks. A word in double quotes can hold blanks; in it `\n` is a line break (CR
// LF), `\t` a tab, `\"` a quote and `\\` a backslash, and any other backslash is itself. Nothing if a quote is
// never closed.
std::optional<std::vector<Word>> SplitAct(std::string_view line);

// `text` on one line: its line breaks as `\n`, its tabs as `\t`.
std::string OneLine(std::string_view text);

// `text` on one line, between double quotes.
std::string DoubleQuoted(std::string_view text);

}  // namespace brindle::play
