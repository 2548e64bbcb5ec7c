#include "check/tuning/literal_words.h"

#include "text/ascii.h"
#include "text/numbers.h"

namespace brindle {
namespace {

using Kind = TemplatePiece::Kind;

constexpr std::string_view kCharacter = "chr(";

// Looks through the fixed text of a line, piece by piece, and knows whether it is in a comment.
class CLiteralReader {
public:
    explicit CLiteralReader(std::vector<LiteralWord>* words) : words_(words) {}

    bool InComment() const { return depth_ > 0; }

    // `place_of` gives the place of a part of the piece; `value_follows`: something else than fixed text is next.
    template <typename PlaceOf>
    void Read(std::string_view text, size_t piece, bool value_follows, PlaceOf place_of) {
        for (size_t at = 0; at < text.size();) {
            if (text.substr(at).starts_with(kCharacter)) {
                at = std::min(text.find(')', at), text.size() - 1) + 1;
                continue;
            }
            depth_ += text[at] == '(' ? 1 : 0;
            depth_ -= text[at] == ')' && depth_ > 0 ? 1 : 0;
            const size_t end = depth_ == 0 ? EndOfWord(text, at) : at;
            if (end == at) {
                ++at;
                continue;
            }
            AddWord(text.substr(at, end - at), piece, value_follows && end == text.size(), place_of(at, end - at));
            at = end;
        }
    }

private:
    static bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

    // Of a run of letters with the number after it; `at` if no letter is there.
    static size_t EndOfWord(std::string_view text, size_t at) {
        size_t end = at;
        while (end < text.size() && IsLetter(text[end])) ++end;
        if (end == at) return at;
        return std::min(text.find_first_not_of("0123456789.+-", end), text.size());
    }

    void AddWord(std::string_view word, size_t piece, bool value_follows, Place place) {
        const bool is_one_letter = word.size() < 2 || !IsLetter(word[1]);
        if (words_ == nullptr || !is_one_letter) return;
        const std::optional<double> number = ParseNumber(word.substr(1));
        const bool is_open = word.size() == 1 && value_follows;
        if (number || is_open) words_->push_back({ToUpper(word[0]), number, piece, place});
    }

    static char ToUpper(char c) { return UpperCase(std::string_view(&c, 1))[0]; }

    std::vector<LiteralWord>* words_;
    int depth_ = 0;
};

}  // namespace

std::vector<LiteralWord> LiteralWordsOf(const PlacedText& text) {
    std::vector<LiteralWord> words;
    CLiteralReader reader(&words);
    for (size_t i = 0; i < text.pieces.size(); ++i) {
        const PlacedPiece& placed = text.pieces[i];
        if (placed.piece.kind != Kind::kFixed) continue;
        const bool value_follows = i + 1 < text.pieces.size();
        reader.Read(placed.piece.text, i, value_follows,
                    [&](size_t at, size_t length) { return text.word.PlaceOf(placed.at + at, length); });
    }
    return words;
}

std::vector<LiteralWord> LiteralWordsOf(std::string_view text) {
    std::vector<LiteralWord> words;
    CLiteralReader(&words).Read(text, 0, false, [](size_t, size_t) { return Place{}; });
    return words;
}

std::vector<bool> PiecesInComments(const std::vector<PlacedPiece>& pieces) {
    std::vector<bool> in_comments;
    CLiteralReader reader(nullptr);
    for (const PlacedPiece& placed : pieces) {
        in_comments.push_back(reader.InComment());
        if (placed.piece.kind == Kind::kFixed) {
            reader.Read(placed.piece.text, 0, false, [](size_t, size_t) { return Place{}; });
        }
    }
    return in_comments;
}

}  // namespace brindle
