// The one way in which a number becomes NC text.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace brindle {

// How numbers lose what a controller can do without.
struct TrimFlags {
    bool zeros = false;  // trailing zeros after the point
    bool point = false;  // a trailing point
};

// A number as text. Decimals: kWholeNumber a whole number without a point, 0 a whole number with one, 1 to 5 that many
// places, any other value six. The whole-number forms drop the fraction and saturate at 32 bits, so callers round
// first. Never a minus sign in front of zero that comes from a negative zero; not-finite values print as 0.
class CNumberText {
public:
    CNumberText(double value, int32_t decimals, TrimFlags trim);
    CNumberText(const CNumberText&) = delete;
    CNumberText& operator=(const CNumberText&) = delete;
    std::string_view view() const { return {begin_, end_}; }

private:
    void WriteWhole(double value, bool with_point);
    void WriteFixed(double value, int places);
    bool WriteScaled(double value, int places);
    void Trim(TrimFlags trim);

    std::array<char, 328> characters_;  // the largest double has 309 digits, after a sign and with six decimals
    char* begin_ = characters_.data();  // of the text within characters_
    char* end_ = begin_;
};

// A number with six decimals for a message; not-finite ones as `inf`, `-inf` and `nan`.
std::string PlainReal(double value);

// Adds a whole number in decimal.
void AppendInt(std::string& out, int32_t value);

}  // namespace brindle
