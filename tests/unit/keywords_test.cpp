#include "language/keywords.h"

#include <gtest/gtest.h>

#include "language/directives.h"

namespace brindle {
namespace {

CAtDirKeywords Parsed(std::string directive) { return CAtDirKeywords(directive); }

TEST(KeywordsTest, CutsTheArgumentsOff) {
    const struct {
        std::string directive, name, values, words;
    } kCases[] = {
        {"@Foo", "@Foo", "", ""},
        {"@Foo[", "@Foo", " ", " "},
        {"@Foo [a1]", "@Foo ", " A1 ", " A1 "},
        {"@Foo[ndec(3),Data]x[y]", "@Foo", " NDEC(3) DATA X[Y ", " NDEC 3  DATA X[Y "},
        {"@Foo[\xC3\xA9]", "@Foo", " \xC3\xA9 ", " \xC3\xA9 "},
    };
    for (const auto& [directive, name, values, words] : kCases) {
        std::string text = directive;
        const CAtDirKeywords keywords(text);
        EXPECT_EQ(text, name);
        EXPECT_EQ(keywords.value_text(), values);
        EXPECT_EQ(keywords.word_text(), words);
    }
}

TEST(KeywordsTest, FindsKeywordsThatStandAsWords) {
    for (const char* found :
         {"[MODAL]", "[a,modal]", "[ MODAL ,A1]", "[x]modal,y", "[(modal)]", "[MODAL,", "[MODAL "}) {
        EXPECT_TRUE(Parsed("@F" + std::string(found)).HasWord(Keyword::kModal)) << found;
    }
    for (const char* absent : {"", "MODAL", "[NONMODAL]", "[MODALS]", "[MODAL", "[A1MODAL]", "[MODAL\t]"}) {
        EXPECT_FALSE(Parsed("@F" + std::string(absent)).HasWord(Keyword::kModal)) << absent;
    }
    for (const KeywordInfo& info : KeywordTable()) {
        const CAtDirKeywords keywords = Parsed("@F[" + std::string(info.name) + "]");
        for (const KeywordInfo& other : KeywordTable()) {
            EXPECT_EQ(keywords.HasWord(other.keyword), &info == &other) << info.name << " " << other.name;
        }
    }
}

TEST(KeywordsTest, DecidesBetweenOpposites) {
    for (const bool by_default : {false, true}) {
        EXPECT_EQ(Parsed("@F").WantAddress(by_default), by_default);
        EXPECT_EQ(Parsed("@F").WantModal(by_default), by_default);
        EXPECT_EQ(Parsed("@F").WantAbsolute(by_default), by_default);
        EXPECT_EQ(Parsed("@F").WantAxis1(by_default), by_default);
        EXPECT_TRUE(Parsed("@F[DATA,WORD]").WantAddress(by_default));
        EXPECT_FALSE(Parsed("@F[DATA]").WantAddress(by_default));
        EXPECT_TRUE(Parsed("@F[NONMODAL,MODAL]").WantModal(by_default));
        EXPECT_FALSE(Parsed("@F[NONMODAL]").WantModal(by_default));
        EXPECT_TRUE(Parsed("@F[ABS]").WantAbsolute(by_default));
        EXPECT_FALSE(Parsed("@F[INC,ABS]").WantAbsolute(by_default));
        EXPECT_FALSE(Parsed("@F[A1]").WantAxis2(by_default));
        EXPECT_FALSE(Parsed("@F[A1,A2]").WantAxis1(by_default));
    }
}

TEST(KeywordsTest, ReadsValues) {
    const struct {
        std::string arguments;
        int32_t n_dec;  // 77 by default
    } kCases[] = {
        {"[NDEC(3)]", 3},          {"[ndec 3)]", 3},        {"[NDEC]", 77},
        {"[NDEC(3]", 77},          {"[NDEC()]", 0},         {"[NDEC)]", 0},
        {"[NDEC(x)]", 0},          {"[NDEC( -2 )]", -2},    {"[XNDEC(4)]", 4},
        {"[NDEC,FACTOR(6)]", 0},   {"[NDEC(1)NDEC(2)]", 1}, {"[NDEC(99999999999)]", 2147483647},
        {"[FACTOR(2)NDEC(5)]", 5},
    };
    for (const auto& [arguments, n_dec] : kCases) EXPECT_EQ(Parsed("@F" + arguments).NDec(77), n_dec) << arguments;

    const CAtDirKeywords both = Parsed("@F[NDEC(1)FACTOR(-2.5e1)]");
    EXPECT_EQ(both.NDec(0), 1);
    EXPECT_EQ(both.Factor(1.0), -25.0);
    EXPECT_EQ(both.SetTo(9.0), 9.0);
    EXPECT_EQ(Parsed("@F[SETTO(nan)]").SetTo(9.0), 0.0);
    EXPECT_EQ(Parsed("@F[FACTOR(1e999)]").Factor(9.0), 0.0);
    EXPECT_EQ(Parsed("@F[INCBY(7.9)]").IncBy(9), 7);
}

TEST(DirectivesTest, AreFoundByTheirExactNames) {
    EXPECT_EQ(DirectiveTable().size(), 58U);
    for (const DirectiveInfo& directive : DirectiveTable()) {
        EXPECT_EQ(FindDirective(directive.name), &directive);
        const std::string name(directive.name);
        for (const std::string& other : {name + ' ', name.substr(1), name + 's', '@' + name}) {
            EXPECT_EQ(FindDirective(other), nullptr) << other;
        }
        std::string lower = name;
        lower[1] = static_cast<char>(lower[1] + ('a' - 'A'));
        EXPECT_EQ(FindDirective(lower), nullptr) << lower;
    }
}

}  // namespace
}  // namespace brindle
