// Character codes against a slow expansion, word by word from the front.
#include "generator/char_codes.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <random>

namespace brindle {
namespace {

std::string Slowly(std::string text) {
    for (size_t at = text.find("chr("); at != std::string::npos; at = text.find("chr(")) {
        const size_t found = text.find(')', at);
        const size_t close = found == std::string::npos ? text.size() - 1 : found;
        const std::string number = close > at + 4 ? text.substr(at + 4, close - at - 4) : "";
        text.replace(at, close + 1 - at, 1, static_cast<char>(std::strtol(number.c_str(), nullptr, 10)));
    }
    return text;
}

std::string Expanded(std::string text) {
    ExpandCharCodes(text);
    return text;
}

TEST(CharCodesTest, ExpandsEachWord) {
    const struct {
        std::string text, expanded;
    } kCases[] = {
        {"", ""},
        {"Xchr(13)chr(10)", "X\r\n"},
        {"chr(73)ODWELL", "IODWELL"},
        {"chr()|chr(x)|chr(-1)", std::string("\0|\0|\xFF", 5)},
        {"chr(321)chr( +66)chr(67.9)", "ABC"},
        {"chr(65", "\x06"},  // the last character stands for the bracket
        {"achr(", std::string("a\0", 2)},
        {"chr(chr(65)66)", std::string("\0"
                                       "66)",
                                       4)},
        {"chchr(114)(65)", "A"},  // a character completes a word with what surrounds it
        {"chchr(114)chr(40)65chr(41)!", "A!"},
        {"Chr(65)chr (65)", "Chr(65)chr (65)"},
    };
    for (const auto& [text, expanded] : kCases) EXPECT_EQ(Expanded(text), expanded) << text;
}

TEST(CharCodesTest, GivesWhatTheSlowExpansionGives) {
    const std::string parts[] = {"c",        "h",        "r",       "(",       ")", "chr(", "chr(99)",
                                 "chr(104)", "chr(114)", "chr(40)", "chr(41)", "6", " "};
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (size_t length = random() % 16; length > 0; --length) text += parts[random() % std::size(parts)];
        ASSERT_EQ(Expanded(text), Slowly(text)) << text;
    }
}

TEST(CharCodesTest, TakesTimeInProportionToTheLength) {
    for (const std::string part : {"chr(65)", "chr(", "c", "chr(65"}) {
        std::string text;
        while (text.size() < 4'000'000) text += part;
        const auto start = std::chrono::steady_clock::now();
        ExpandCharCodes(text);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)) << part;
    }
}

}  // namespace
}  // namespace brindle
