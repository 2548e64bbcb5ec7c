#include "check/tuning/placed_pieces.h"

#include <algorithm>
#include <utility>

#include "text/words.h"

namespace brindle {

std::vector<PlacedPiece> PlacePieces(std::string_view text) {
    std::vector<PlacedPiece> placed;
    size_t at = 0;
    for (TemplatePiece& piece : CutTemplateText(text)) {
        std::string as_written = ReplaceAll(piece.text, kWordMarker, "<");
        // Only openings and closings lie between one piece and the next.
        while (at < text.size() && !text.substr(at).starts_with(as_written)) {
            if (text.substr(at).starts_with(piece.text))
                as_written = piece.text;
            else
                at += text.substr(at).starts_with(kWordMarker) ? kWordMarker.size() : 1;
        }
        const size_t end = std::min(at + as_written.size(), text.size());
        const bool opened = at > 0 && text[at - 1] == '<' && as_written.find_first_of("@R") == 0;
        piece.text = std::move(as_written);
        const bool closed = end < text.size() && text[end] == '>';
        placed.push_back({std::move(piece), at, opened, closed});
        at = opened && closed ? end + 1 : end;
    }
    return placed;
}

}  // namespace brindle
