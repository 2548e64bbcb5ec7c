// Letters without case, numbers out of and into text, and lines cut into words.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <tuple>
#include <utility>

#include "text/ascii.h"
#include "text/numbers.h"
#include "text/words.h"

namespace brindle {
namespace {

constexpr int32_t kMaxInt = std::numeric_limits<int32_t>::max();
constexpr int32_t kMinInt = std::numeric_limits<int32_t>::min();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Ascii, ComparesAsLowerCaseBytes) {
    const std::tuple<const char*, const char*, int> rows[] = {
        {"", "", 0},         {"abc", "ABC", 0}, {"a", "B", -1},        {"B", "a", 1},
        {"ab", "abc", -1},   {"abc", "ab", 1},  {"_", "A", -1},        {"_", "a", -1},
        {"Z", "_", 1},       {"T1_", "T10", 1}, {"z", "\xC3\xA9", -1}, {"\xC3\xA9", "\xC3\x89", 1},
        {"\x80", "\x7F", 1}, {"@", "`", -1},    {"[", "{", -1}};
    for (const auto& [a, b, sign] : rows) {
        SCOPED_TRACE(std::string(a) + " / " + b);
        const int result = CompareNoCase(a, b);
        EXPECT_EQ((result > 0) - (result < 0), sign);
        EXPECT_EQ(EqualNoCase(a, b), sign == 0);
    }
    EXPECT_EQ(UpperCase("az\xC3\xA9_{1"), "AZ\xC3\xA9_{1");
}

TEST(Numbers, LeadingDouble) {
    const std::pair<const char*, double> rows[] = {
        {"", 0},       {"abc", 0},       {"3.9", 3.9},  {"-3.9", -3.9}, {"+3.9", 3.9},   {"12abc", 12},    {"1,5", 1},
        {".5", 0.5},   {"-.5", -0.5},    {"5.", 5},     {".", 0},       {"-", 0},        {"-.", 0},        {"--1", 0},
        {"+-1", 0},    {"- 1", 0},       {"1e3", 1000}, {"1E+3", 1000}, {"1e-2x", 0.01}, {"1e", 1},        {"1e+", 1},
        {"1.e2", 100}, {"1.5.5", 1.5},   {"0x10", 0},   {"0x1p3", 0},   {"inf", 0},      {"-infinity", 0}, {"nan", 0},
        {"NAN(1)", 0}, {"1e308", 1e308}, {"1e309", 0},  {"-1e309", 0},  {"1e-400", 0}};
    for (const auto& [text, value] : rows) EXPECT_EQ(LeadingDouble(text), value) << text;
    EXPECT_EQ(LeadingDouble(" \t\n\v\f\r7"), 7);
    EXPECT_EQ(LeadingDouble("1e99999999999999999999"), 0);
    EXPECT_EQ(LeadingDouble("4.9406564584124654e-324"), 4.9406564584124654e-324);
    EXPECT_EQ(LeadingDouble("0.1234567891"), 0.1234567891);
    EXPECT_EQ(LeadingDouble("9007199254740993"), 9007199254740992.0);
    EXPECT_TRUE(std::signbit(LeadingDouble("-0")));
    EXPECT_EQ(LeadingDouble(std::string_view("1\0002", 3)), 1.0);
    EXPECT_EQ(LeadingDouble("0." + std::string(1000000, '0') + "1"), 0.0);
    EXPECT_EQ(LeadingDouble(std::string(1000000, '9')), 0.0);
}

TEST(Numbers, LeadingInt) {
    const std::pair<const char*, int32_t> rows[] = {{"", 0},      {"x1", 0},  {"12", 12}, {"-12", -12}, {"+12", 12},
                                                    {" \t 5", 5}, {"3.9", 3}, {"1e5", 1}, {"0x10", 0},  {"007", 7},
                                                    {"--1", 0},   {"- 1", 0}, {"-", 0}};
    for (const auto& [text, value] : rows) EXPECT_EQ(LeadingInt(text), value) << text;
    for (const char* text : {"2147483647", "2147483648", "99999999999999999999999"})
        EXPECT_EQ(LeadingInt(text), kMaxInt);
    for (const char* text : {"-2147483648", "-2147483649", "-9999999999999999999x"})
        EXPECT_EQ(LeadingInt(text), kMinInt);
    EXPECT_EQ(LeadingInt("-2147483647"), -kMaxInt);
}

TEST(Numbers, TruncateToInt32) {
    const std::pair<double, int32_t> rows[] = {{0.999, 0}, {-0.999, 0}, {3.9, 3}, {-3.9, -3}, {kNaN, 0}};
    for (const auto& [value, truncated] : rows) EXPECT_EQ(TruncateToInt32(value), truncated) << value;
    for (const double value : {2147483647.9, 2147483648.0, 1e300, kInfinity})
        EXPECT_EQ(TruncateToInt32(value), kMaxInt);
    for (const double value : {-2147483648.9, -1e300, -kInfinity}) EXPECT_EQ(TruncateToInt32(value), kMinInt);
}

TEST(Numbers, WrapAt32Bits) {
    EXPECT_EQ(WrapAdd(kMaxInt, 1), kMinInt);
    EXPECT_EQ(WrapAdd(kMinInt, -1), kMaxInt);
    EXPECT_EQ(WrapMultiply(65536, 65536), 0);
    EXPECT_EQ(WrapMultiply(kMinInt, -1), kMinInt);
    EXPECT_EQ(WrapMultiply(46341, 46341), -2147479015);
}

TEST(Numbers, FixedText) {
    const std::tuple<double, int, const char*> rows[] = {
        {0.25, 9, "0.250000000"}, {-1.5, 6, "-1.500000"},  {0, 2, "0.00"},
        {-0.0, 1, "-0.0"},        {2.5, 0, "2"},           {3.5, 0, "4"},
        {0.125, 2, "0.12"},       {0.375, 2, "0.38"},      {1e22, 1, "10000000000000000000000.0"},
        {1e-20, 3, "0.000"},      {kInfinity, 3, "0.000"}, {-kInfinity, 0, "0"},
        {kNaN, 1, "0.0"}};
    for (const auto& [value, decimals, text] : rows) EXPECT_EQ(FixedText(value, decimals), text) << value;
}

std::string Printed(double value, int decimals) {
    char buffer[512];
    std::snprintf(buffer, sizeof(buffer), "%.*f", decimals, value);
    return buffer;
}

TEST(Numbers, FixedTextAgreesWithPrintf) {
    std::mt19937_64 random(20240301);
    std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
    for (int exponent = -330; exponent <= 308; ++exponent) {
        for (int decimals = 0; decimals <= 9; ++decimals) {
            const double value = mantissa(random) * std::pow(10.0, exponent);
            ASSERT_EQ(FixedText(value, decimals), Printed(value, decimals));
        }
    }
    EXPECT_EQ(FixedText(-std::numeric_limits<double>::max(), 9), Printed(-std::numeric_limits<double>::max(), 9));
}

std::vector<std::string> Words(std::string_view line, std::string_view separators = " \t") {
    std::vector<std::string_view> words;
    SplitWords(line, words, separators);
    return {words.begin(), words.end()};
}

TEST(Words, SplitAtBlanksAndTabs) {
    const std::pair<const char*, std::vector<std::string>> rows[] = {{"", {}},
                                                                     {" \t ", {}},
                                                                     {"a", {"a"}},
                                                                     {"  a\tb  c ", {"a", "b", "c"}},
                                                                     {"TEXT a \"b c\"", {"TEXT", "a", "\"b", "c\""}},
                                                                     {"a\rb \n", {"a\rb", "\n"}}};
    for (const auto& [line, words] : rows) EXPECT_EQ(Words(line), words) << line;
    EXPECT_EQ(Words("1,2 ,,3", ","), (std::vector<std::string>{"1", "2 ", "3"}));
}

TEST(Words, SplitWithQuotesKeptTogether) {
    const std::pair<const char*, std::vector<std::string>> rows[] = {{"", {}},
                                                                     {" \t", {}},
                                                                     {"\"\"", {"\"\""}},
                                                                     {"'' ''", {"''", "''"}},
                                                                     {"\"a\"b", {"\"a\"", "b"}},
                                                                     {"\"", {"\" \""}},
                                                                     {"'a ", {"'a  '"}},
                                                                     {"'a\tb'", {"'a b'"}},
                                                                     {"a \"b\tc", {"a", "\"b c \""}},
                                                                     {"a 'b \"c' d", {"a", "'b \"c'", "d"}},
                                                                     {"ab\"c d\" e", {"ab\"c", "d\"", "e"}}};
    for (const auto& [line, words] : rows) {
        EXPECT_EQ(SplitQuotedWords(line), words) << line;
        EXPECT_EQ(QuotedWord(line, 0), "");
        for (size_t n = 0; n < words.size(); ++n) EXPECT_EQ(QuotedWord(line, n + 1), words[n]) << line;
        EXPECT_EQ(QuotedWord(line, words.size() + 1), "") << line;
    }
}

TEST(Words, ReplaceAll) {
    EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceAll("abab", "b", "bb"), "abbabb");
    EXPECT_EQ(ReplaceAll("xax", "x", ""), "a");
    EXPECT_EQ(ReplaceAll("abc", "B", "x"), "abc");
}

TEST(Words, Escapes) {
    const struct {
        const char* text;
        const char* word;
        const char* back;  // differs from the text where it held an escape of its own
    } rows[] = {{"", "!#EMPTY#!", ""},
                {" ", "!#SP#!", " "},
                {"   ", "!#SP#!!#SP#!!#SP#!", "   "},
                {"G0 X1", "G0!#SP#!X1", "G0 X1"},
                {"a!b", "a!b", "a!b"},
                {"a!#SP#!b", "a!#SP#!b", "a b"},
                {"a!#EMPTY#!b", "a!#EMPTY#!b", "ab"},
                {"!#SP#!#SP#!", "!#SP#!#SP#!", " #SP#!"},
                {"!#EM!#EMPTY#!PTY#!", "!#EM!#EMPTY#!PTY#!", "!#EMPTY#!"}};
    for (const auto& row : rows) {
        EXPECT_EQ(EscapeWord(row.text), row.word) << row.text;
        EXPECT_EQ(UnescapeWord(row.word), row.back) << row.text;
    }
    // Blanks come first, so what the empty marks leave is no blank any more.
    EXPECT_EQ(UnescapeWord("!#S!#EMPTY#!P#!"), "!#SP#!");
    EXPECT_EQ(EscapeBlanks(""), "");
    EXPECT_EQ(EscapeBlanks("Customer name"), "Customer!#SP#!name");
    EXPECT_EQ(UnescapeBlanks("!#EMPTY#!!#SP#!"), "!#EMPTY#! ");
}

}  // namespace
}  // namespace brindle
