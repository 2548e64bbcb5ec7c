// The words of a template line or option text with their places, for those who show texts to people.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "language/template_text.h"

namespace brindle {

// A piece of a text, and where it is there.
struct PlacedPiece {
    TemplatePiece piece;
    size_t at;    // of its first byte
    bool opened;  // follows a `<`
    bool closed;  // is followed by a `>`
};

// The pieces of `text`, cut as a run cuts them.
std::vector<PlacedPiece> PlacePieces(std::string_view text);

}  // namespace brindle
