// The words of fixed text in a template line, such as the G0 and the F500 of `G0<@StartPtWords>F500`.
#pragma once

#include <optional>
#include <vector>

#include "check/tuning/placed_tuning.h"

namespace brindle {

// A letter and its number. Text in comments, characters by their codes, and what is no such word are left out.
struct LiteralWord {
    char letter;                   // in upper case
    std::optional<double> number;  // nothing if a directive or a run-time value writes it
    size_t piece;                  // its index in the text
    Place place;

    bool Is(char its_letter, double its_number) const { return letter == its_letter && number == its_number; }
};

std::vector<LiteralWord> LiteralWordsOf(const PlacedText& text);

// The same of an option's text, which has no places.
std::vector<LiteralWord> LiteralWordsOf(std::string_view text);

// The pieces that are within a comment in parentheses, at least with their first character.
std::vector<bool> PiecesInComments(const std::vector<PlacedPiece>& pieces);

}  // namespace brindle
