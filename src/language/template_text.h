// The text of a template line or of an option cut into fixed text and words, before anything is evaluated.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindle {

// One piece of a text.
struct TemplatePiece {
    enum class Kind {
        kFixed,      // goes into the block as it is
        kDirective,  // begins with `@`
        kRunValue,   // `RTD(...)`, the key of a run-time value
    };
    Kind kind;
    std::string text;

    bool operator==(const TemplatePiece&) const = default;
};

// Stands for the `<` of an opening while a text is cut. A text may hold it too: there it divides as an opening does,
// and a second opening within a word leaves it in the word.
inline constexpr std::string_view kWordMarker = "!STARTWORDHERE!";

// The pieces of `text` that are not empty, in order. `<@` and `<RTD` open a word and the next `>` closes it; without
// one the word goes on to the next opening or to the end. A piece is classed by its own first characters, so fixed text
// that begins with `@` is a directive too.
std::vector<TemplatePiece> CutTemplateText(std::string_view text);

// `text` up to its first `!`, which begins a comment.
std::string_view WithoutComment(std::string_view text);

}  // namespace brindle
