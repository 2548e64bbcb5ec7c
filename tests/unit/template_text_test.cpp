// Texts of template lines cut into pieces, and their N words.
#include "language/template_text.h"

#include <gtest/gtest.h>

#include "tuning/template_lines.h"

namespace brindle {
namespace {

// The pieces, each between bars after a letter for its kind.
std::string Pieces(std::string_view text) {
    const char* const kinds[] = {"F:", "D:", "R:"};
    std::string result = "|";
    for (const TemplatePiece& piece : CutTemplateText(text)) {
        result += kinds[static_cast<size_t>(piece.kind)] + piece.text + "|";
    }
    return result;
}

TEST(TemplateText, Pieces) {
    const std::string_view rows[] = {
        "=|", " =|F: |", "G90 G17=|F:G90 G17|", "A<@B>C=|F:A|D:@B|F:C|", "<@A><@B>=|D:@A|D:@B|",
        "<@A> <@B[C,D(1)]>=|D:@A|F: |D:@B[C,D(1)]|", "(A)<@Foo=|F:(A)|D:@Foo|", "A<>B=|F:A<>B|", "A<B>C=|F:A<B>C|",
        "a > b <@C> > d=|F:a > b |D:@C|F: > d|", "A<RTDX>B=|F:A|F:RTDX|F:B|", "<RTD(2,3)>=|R:RTD(2,3)|",
        "<RTD(4) ><RTD(>=|R:RTD(4) |R:RTD(|", "<RTD><rtd(1)>=|F:RTD|F:<rtd(1)>|", "RTD(1) x=|R:RTD(1) x|",
        "@X plain=|D:@X plain|", "<@>=|D:@|", "<@=|D:@|", "<<@A>=|F:<|D:@A|", "<@A>>=|D:@A|F:>|",
        // An opening in a word doesn't end it, and is left in it as its private mark.
        "<@B<@C>=|D:@B!STARTWORDHERE!@C|", "<@B<RTD(1)>>=|D:@B!STARTWORDHERE!RTD(1)|F:>|", "<@B<@C=|D:@B|D:@C|",
        "<@A> <@B <RTD(1)=|D:@A|F: |D:@B |R:RTD(1)|",
        // Texts that hold the mark themselves.
        "x!STARTWORDHERE!y>z=|F:x|F:y|F:z|", "!STARTWORDHERE!@A>B=|D:@A|F:B|", "!STARTWORDHERE!>A>=|F:>A>|",
        "!STARTWORDHERE!><@A>=|F:>|D:@A|", "!STARTWORDHERE!!STARTWORDHERE!=|",
        "!STARTWORDHERE<@A>=|F:STARTWORDHERE!@A|", "!STARTWORDHERE!STARTWORDHERE!x=|F:STARTWORDHERE!x|"};
    for (const std::string_view row : rows)
        EXPECT_EQ(Pieces(row.substr(0, row.find('='))), row.substr(row.find('=') + 1));
}

// The rule of dividing to the letter, each step on a text of its own. Slow.
std::vector<std::string> DividedByTheRule(std::string text) {
    const std::string mark = "!STARTWORDHERE!";
    for (const std::string opening : {"<@", "<RTD"}) {
        for (size_t at = text.find(opening); at != std::string::npos; at = text.find(opening))
            text.replace(at, 1, mark);
    }
    std::vector<std::string> pieces;
    while (text.find(mark) != std::string::npos) {
        pieces.push_back(text.substr(0, text.find(mark)));
        text.erase(0, text.find(mark) + mark.size());
        const size_t close = text.find('>');
        if (close == std::string::npos || close == 0) continue;
        pieces.push_back(text.substr(0, close));
        text.erase(0, close + 1);
    }
    pieces.push_back(text);
    std::erase(pieces, "");
    return pieces;
}

TEST(TemplateText, AllShortTextsAreDividedByTheRule) {
    const std::vector<std::string> parts = {"<", "@", ">", "RTD", "(1)", "x", "!STARTWORDHERE!", "!"};
    std::vector<std::string> texts = {""};
    for (size_t done = 0, length = 0; length < 5; ++length) {
        const size_t end = texts.size();
        for (; done < end; ++done) {
            for (const std::string& part : parts) texts.push_back(texts[done] + part);
        }
    }
    for (const std::string& text : texts) {
        std::vector<std::string> pieces;
        for (const TemplatePiece& piece : CutTemplateText(text)) pieces.push_back(piece.text);
        ASSERT_EQ(pieces, DividedByTheRule(text)) << text;
    }
}

TEST(TemplateText, LongTextsTakeLinearTime) {
    constexpr size_t kCount = 300000;
    std::string open;
    std::string closed;
    for (size_t i = 0; i < kCount; ++i) open += "<@";
    for (size_t i = 0; i < kCount; ++i) closed += "<@>>";
    EXPECT_EQ(CutTemplateText(open).size(), kCount);
    EXPECT_EQ(CutTemplateText(closed).size(), 2 * kCount);
}

TEST(TemplateText, Comments) {
    EXPECT_EQ(WithoutComment(""), "");
    EXPECT_EQ(WithoutComment("G1 ! feed ! x"), "G1 ");
    EXPECT_EQ(WithoutComment("! all"), "");
    EXPECT_EQ(WithoutComment("G1 <@A>"), "G1 <@A>");
}

TEST(TemplateLines, NWords) {
    const struct {
        const char* word;
        uint16_t kind;
        int32_t value;
        const char* written;
    } rows[] = {{"NNUL", 0, 0, "NNUL"},        {"NBIG", 1, 0, "NBIG"},
                {"NSM", 2, 0, "NSM"},          {"NINIT10", 3, 10, "NINIT10"},
                {"NINIT-5", 3, -5, "NINIT-5"}, {"NINIT", 3, 0, "NINIT0"},
                {"NINITx", 3, 0, "NINIT0"},    {"NINIT7x", 3, 7, "NINIT7"},
                {"NINIT+7", 3, 7, "NINIT7"},   {"NINIT99999999999", 3, 2147483647, "NINIT2147483647"}};
    for (const auto& row : rows) {
        CNWordInfo n_word{9, 9};
        ASSERT_TRUE(ParseNWord(row.word, n_word)) << row.word;
        EXPECT_EQ(n_word.kind, row.kind) << row.word;
        EXPECT_EQ(n_word.value, row.value) << row.word;
        EXPECT_EQ(FormatNWord(n_word), row.written);
    }
    for (const char* word : {"", "NSMX", "nbig", "NBIGx", "NNUL ", "NINI", "Ninit5", "XNUL"}) {
        CNWordInfo n_word{9, 8};
        EXPECT_FALSE(ParseNWord(word, n_word)) << word;
        EXPECT_EQ(n_word.kind, 9);
        EXPECT_EQ(n_word.value, 8);
    }
    EXPECT_EQ(FormatNWord({4, 7}), "NNUL");
}

}  // namespace
}  // namespace brindle
