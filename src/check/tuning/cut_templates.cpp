// The templates of lines and arcs, which need more than the point where the cut ends.
#include <algorithm>
#include <vector>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"
#include "check/tuning/literal_words.h"

namespace brindle {
namespace {

using Kind = TemplatePiece::Kind;
using D = DirectiveId;

// What the lines of a template write.
struct TemplateContents {
    const DirectiveUse* end_words = nullptr;  // the first @EndPtWords
    bool has_code = false;                    // @InterpCode
    bool has_shape = false;                   // centre, radius, angle, or a point on the arc
    bool has_text = false;                    // letters outside of comments: they may be a code of any kind
    bool has_value = false;                   // run-time data
};

class CutTemplateChecker {
public:
    CutTemplateChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics)
        : tuning_(tuning), diagnostics_(diagnostics) {}

    void Check() {
        const TemplateContents move = ContentsOf(Event("Move_"));
        const TemplateContents line = ContentsOf(Event("Line_"));
        const TemplateContents arc = ContentsOf(Event("Arc_"));
        // After an arc that has a code, or after a move unless the tool's own text has one, it is needed.
        const bool tools_have_text = ContentsOf(Event("ToolOn_")).has_text;
        CheckCode(line, arc.has_code || (move.has_code && !tools_have_text), "the line is cut as what came before it");
        CheckCode(arc, line.has_code || (move.has_code && !tools_have_text), "the arc is cut as what came before it");
        if (arc.end_words == nullptr || arc.has_shape || arc.has_value) return;
        diagnostics_.Add(Rule::kNoArcData, arc.end_words->place,
                         "Arc_tTmpl writes the end of the arc alone: it has neither centre, radius nor angle",
                         "write <@ArcDataWords>");
    }

private:
    // Of all tools where the event is a tool's.
    TemplateContents ContentsOf(EventRef event) const {
        TemplateContents contents;
        for (const PlacedText& text : tuning_.texts()) {
            if (!event.Is(text.item->match.event) || !IsRead(tuning_, text)) continue;
            contents.has_text |= HasLetters(text);
            contents.has_value |= std::any_of(text.pieces.begin(), text.pieces.end(), [](const PlacedPiece& placed) {
                return placed.piece.kind == Kind::kRunValue;
            });
        }
        for (const DirectiveUse& use : tuning_.directives()) {
            if (event.Is(use.text->item->match.event) && IsRead(tuning_, *use.text)) AddUse(use, contents);
        }
        return contents;
    }

    static void AddUse(const DirectiveUse& use, TemplateContents& contents) {
        constexpr DirectiveId kShapes[] = {D::kCenPtWords, D::kArcDataWords, D::kRadius, D::kSubtended, D::kMidPtWords};
        const DirectiveId id = use.directive->id;
        if (id == D::kEndPtWords && contents.end_words == nullptr) contents.end_words = &use;
        contents.has_code |= id == D::kInterpCode;
        contents.has_shape |= std::find(std::begin(kShapes), std::end(kShapes), id) != std::end(kShapes);
    }

    static bool HasLetters(const PlacedText& text) {
        const std::vector<bool> in_comments = PiecesInComments(text.pieces);
        for (size_t i = 0; i < text.pieces.size(); ++i) {
            const TemplatePiece& piece = text.pieces[i].piece;
            if (piece.kind != Kind::kFixed || in_comments[i]) continue;
            const std::string_view before = std::string_view(piece.text).substr(0, piece.text.find('('));
            const auto is_letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
            if (std::any_of(before.begin(), before.end(), is_letter)) return true;
        }
        return false;
    }

    void CheckCode(const TemplateContents& contents, bool is_needed, std::string_view otherwise) {
        const bool may_have_code = contents.has_code || contents.has_text || contents.has_value;
        if (!is_needed || contents.end_words == nullptr || may_have_code) return;
        diagnostics_.Add(Rule::kNoInterpolation, contents.end_words->place,
                         std::string(contents.end_words->text->item->key) +
                             " has no @InterpCode, other templates have: " + std::string(otherwise),
                         "write <@InterpCode> before the words");
    }

    const CPlacedTuning& tuning_;
    CDiagnostics& diagnostics_;
};

}  // namespace

void CheckCutTemplates(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    CutTemplateChecker(tuning, diagnostics).Check();
}

}  // namespace brindle
