#include "check/tuning/job_names.h"

#include <algorithm>

#include "check/tuning/conditions.h"
#include "check/tuning/literal_words.h"
#include "text/message_words.h"

namespace brindle {
namespace {

bool HasControl(std::string_view name) {
    return std::any_of(name.begin(), name.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

bool HasParenthesis(std::string_view name) { return name.find_first_of("()") != std::string_view::npos; }

// The name that a piece writes, null if it writes none of them.
const JobName* NameOf(const TemplatePiece& piece, std::span<const JobName> names) {
    if (piece.kind == TemplatePiece::Kind::kFixed) return nullptr;
    const std::string_view word = std::string_view(piece.text).substr(0, piece.text.find('['));
    const auto found =
        std::find_if(names.begin(), names.end(), [word](const JobName& name) { return name.word == word; });
    return found == names.end() ? nullptr : &*found;
}

void CheckText(const PlacedText& text, std::span<const JobName> names, CDiagnostics& diagnostics) {
    const std::vector<bool> in_comments = PiecesInComments(text.pieces);
    for (size_t i = 0; i < text.pieces.size(); ++i) {
        const PlacedPiece& placed = text.pieces[i];
        const JobName* const name = NameOf(placed.piece, names);
        if (name == nullptr) continue;
        const Place place = text.word.PlaceOf(placed.at, placed.piece.text.size());
        const std::string what = std::string(name->word) + " writes " + Quoted(name->text);
        if (HasControl(name->text)) {
            diagnostics.Add(Rule::kNameWithControl, place, what + ", which has a control character");
        } else if (in_comments[i] && HasParenthesis(name->text)) {
            diagnostics.Add(Rule::kNameInComment, place, what + " into a comment, which can't hold its parentheses");
        }
    }
}

}  // namespace

bool IsRiskyName(std::string_view name) { return HasControl(name) || HasParenthesis(name); }

void CheckNames(const CPlacedTuning& tuning, std::span<const JobName> names, CDiagnostics& diagnostics) {
    for (const PlacedText& text : tuning.texts()) {
        if (IsRead(tuning, text)) CheckText(text, names, diagnostics);
    }
}

}  // namespace brindle
