#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "check/tuning/placed_pieces.h"
#include "check/tuning/placed_tuning.h"

namespace brindle::host {
namespace {

// Each piece as `PLACE:TEXT`, after `<` if it is opened and before `>` if it is closed.
std::string Placed(std::string_view text) {
    std::string shown;
    for (const PlacedPiece& piece : PlacePieces(text)) {
        shown.append(shown.empty() ? "" : " ").append(std::to_string(piece.at)).append(":");
        shown.append(piece.opened ? "<" : "").append(piece.piece.text).append(piece.closed ? ">" : "");
    }
    return shown;
}

TEST(PlacedPieces, StandWhereTheirTextStands) {
    const struct {
        std::string_view text, pieces;
    } kRows[] = {
        {"", ""},
        {"G1", "0:G1"},
        {"G1<@A>X", "0:G1 3:<@A> 6:X"},
        {"<@A><RTD(1)>", "1:<@A> 5:<RTD(1)>"},
        {"(A)<@Foo", "0:(A) 4:<@Foo"},
        {"<@A<@B", "1:<@A 4:<@B"},
        {"<@A<@B>C<@D>", "1:<@A<@B> 7:C 9:<@D>"},
        {"<@A>>", "1:<@A> 4:>"},
        {"A<>B", "0:A<>B"},
        {"@A", "0:@A"},
        {"a<b<@C>", "0:a<b 4:<@C>"},
        {"<RTDX>B", "1:<RTDX> 6:B"},
        {"A!STARTWORDHERE!B", "0:A 16:B"},
    };
    for (const auto& row : kRows) EXPECT_EQ(Placed(row.text), row.pieces) << row.text;
}

TEST(PlacedWord, KnowsTheColumnsOfWhatIsNotEscaped) {
    PlacedLine line;
    line.text = "TEXT k a!#SP#!!#EMPTY#!b";
    line.words = {line.text.substr(0, 4), line.text.substr(5, 1), line.text.substr(7)};
    const PlacedWord placed(line, line.words[2]);
    EXPECT_EQ(placed.text(), "a b");
    constexpr size_t kColumns[] = {8, 9, 24, 25, 25};
    for (size_t at = 0; at < std::size(kColumns); ++at) EXPECT_EQ(placed.PlaceOf(at, 0).column, kColumns[at]) << at;
    EXPECT_EQ(placed.PlaceOf(0, 2).length, 16u);
}

}  // namespace
}  // namespace brindle::host
