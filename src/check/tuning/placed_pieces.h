// The words of a template line or option text with their places, for those who show texts to people.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "language/template_text.h"

namespace brindle {

// A piece of a text, and where it stands there.
struct PlacedPiece {
    TemplatePiece piece;
    size_t at;    // of its first byte
    bool opened;  // stands behind a `<`
    bool closed;  // stands before a `>`
};

// The pieces of `text`, cut as a run cuts them.
std::vector<PlacedPiece> PlacePieces(std::string_view text);

}  // namespace brindle
