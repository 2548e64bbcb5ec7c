#include "language/compiled_text.h"

#include <gtest/gtest.h>

#include "language/directives.h"

namespace brindle {
namespace {

using Kind = CompiledPiece::Kind;

class CompiledTextTest : public testing::Test {
protected:
    CompiledTextTest() { run_values_.SetText("RTD(2,3)", "<@ToolId>", TextKind::kPlain); }

    // The pieces of `text` on one line: each in brackets after a letter for its kind.
    std::string Dump(const CCompiledText& text) const {
        std::string dump;
        for (const CompiledPiece& piece : text.pieces()) {
            dump += "FDUVM"[static_cast<int>(piece.kind)];
            dump += '[' + piece.text + piece.keywords.value_text() + ']';
        }
        return dump;
    }
    CTextCompiler compiler() const { return {tuning_, run_values_}; }

    CBrindleOpts tuning_;
    CKVItemContainer run_values_;
};

TEST_F(CompiledTextTest, CutsLinesIntoPieces) {
    const struct {
        std::string line, dump;
    } kCases[] = {
        {"", ""},
        {"G1 ! feed", "F[G1 ]"},
        {"!<@ToolId>", ""},
        {"(A)<@Foo", "F[(A)]U[@Foo]"},
        {"A<>B", "F[A<>B]"},
        {"A<RTDX>B", "F[A]F[RTDX]F[B]"},
        {"<@ToolId><@LineType>", "D[@ToolId]D[@LineType]"},
        {"@ToolId", "D[@ToolId]"},
        {"<@Radius[abs]>mm", "D[@Radius ABS ]F[mm]"},
        {"<RTD(2,3)>", "V[<@ToolId>]"},  // a value is no template text
        {"RTD(2,3)x", "M[RTD(2,3)x]"},
        {"<RTD(9)>RTD", "M[RTD(9)]F[RTD]"},
        {"<@A<@ToolId>", "U[@A!STARTWORDHERE!@ToolId]"},
        {"<@IODwell[!]>", "D[@IODwell ]"},
    };
    for (const auto& [line, dump] : kCases) EXPECT_EQ(Dump(compiler().CompileLine(line).text), dump) << line;
}

TEST_F(CompiledTextTest, TellsLinesApartThatGiveNothing) {
    const struct {
        std::string line;
        bool is_comment, is_empty, is_single;
    } kCases[] = {
        {"", false, true, false},    {"!", true, true, false},     {"! x", true, true, false},
        {" ", false, false, true},   {" ! x", false, false, true}, {"<@ToolId>", false, false, false},
        {"  ", false, false, false},
    };
    for (const auto& [text, is_comment, is_empty, is_single] : kCases) {
        const CompiledLine line = compiler().CompileLine(text);
        EXPECT_EQ(line.is_comment, is_comment) << text;
        EXPECT_EQ(line.is_empty, is_empty) << text;
        EXPECT_EQ(line.is_single, is_single) << text;
    }
}

TEST_F(CompiledTextTest, KnowsTextsThatNeverChange) {
    for (const char* text : {"", "F100", "F<RTD(2,3)>", "A<RTDX>B"})
        EXPECT_TRUE(compiler().Compile(text).is_constant()) << text;
    for (const char* text : {"<@ToolId>", "<RTD(9)>", "<@Foo>", "F@ToolId<@ToolId>"}) {
        EXPECT_FALSE(compiler().Compile(text).is_constant()) << text;
    }
    EXPECT_EQ(compiler().Compile("F<RTD(2,3)>;").constant(), "F<@ToolId>;");
}

TEST_F(CompiledTextTest, TakesTimeInProportionToTheLength) {
    for (const std::string part : {"<@ToolId>", "<@", "<RTD(", "@[", "<@A[MODAL,"}) {
        std::string text;
        while (text.size() < 400'000) text += part;
        EXPECT_GT(compiler().CompileLine(text).text.pieces().size(), 0U) << part;
    }
}

}  // namespace
}  // namespace brindle
