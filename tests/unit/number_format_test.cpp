// The number writer against the C library's, which is slower and rounds from the exact value too.
#include "generator/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "geometry/plane_math.h"
#include "geometry/rounding.h"
#include "text/numbers.h"

namespace brindle {
namespace {

// As the writer is called, with printf in the C locale, which a test program starts in.
std::string Reference(double value, int decimals, bool trim_zeros, bool trim_point) {
    if (value == 0.0 || !std::isfinite(value)) value = 0.0;
    char digits[400];
    if (decimals == 4545 || decimals == 0) {
        const double whole = std::fmin(std::fmax(std::trunc(value), -2147483648.0), 2147483647.0);
        std::snprintf(digits, sizeof digits, decimals == 0 ? "%.0f." : "%.0f", whole == 0.0 ? 0.0 : whole);
    } else {
        std::snprintf(digits, sizeof digits, "%.*f", decimals >= 1 && decimals <= 5 ? decimals : 6, value);
    }
    std::string text = digits;
    if (decimals == 4545) return text;
    while (trim_zeros && text.back() == '0') text.pop_back();
    while (trim_point && text.back() == '.') text.pop_back();
    return text;
}

std::string Written(double value, int decimals, TrimFlags trim = {}) {
    return std::string(CNumberText(value, decimals, trim).view());
}

class CSweep {
public:
    ~CSweep() { EXPECT_GT(checked_, 100000); }

    void Check(double value) {
        for (const double signed_value : {value, -value}) {
            for (const int decimals : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 1000, 4545}) {
                for (int trim = 0; trim < 4; ++trim) CheckOne(signed_value, decimals, trim % 2 != 0, trim / 2 != 0);
            }
        }
    }

private:
    void CheckOne(double value, int decimals, bool zeros, bool point) {
        ++checked_;
        const std::string expected = Reference(value, decimals, zeros, point);
        const std::string written = Written(value, decimals, {zeros, point});
        if (written != expected)
            ADD_FAILURE() << value << " with " << decimals << ": " << written << " for " << expected;
    }

    int checked_ = 0;
};

TEST(NumberFormatTest, WritesAsThePreciseWriterDoes) {
    CSweep sweep;
    for (int exponent = -1074; exponent <= 1023; exponent += 3) sweep.Check(std::ldexp(1.0, exponent));
    sweep.Check(std::numeric_limits<double>::max());
    sweep.Check(std::numeric_limits<double>::infinity());
    sweep.Check(std::numeric_limits<double>::quiet_NaN());
    // Ties and what lies directly beside them, at each number of places; the ties of binary fractions are exact.
    for (int places = 0; places <= 6; ++places) {
        for (int i = 0; i < 400; ++i) {
            const double tie = (i + 0.5) * std::pow(10.0, -places);
            for (const double value : {tie, std::nextafter(tie, 0.0), std::nextafter(tie, 1e9)}) sweep.Check(value);
        }
    }
    for (int i = 1; i < 2000; i += 7) sweep.Check(i / 128.0);
}

TEST(NumberFormatTest, WritesRandomNumbersOfEachSizeAsThePreciseWriterDoes) {
    CSweep sweep;
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> mantissa(1.0, 10.0);
    for (int power = -9; power <= 19; ++power) {
        for (int i = 0; i < 150; ++i) {
            const double value = mantissa(random) * std::pow(10.0, power);
            sweep.Check(value);
            sweep.Check(RoundToDecimals(value, i % 7));
        }
    }
}

TEST(NumberFormatTest, RoundsToTheGridBeforeItWrites) {
    EXPECT_EQ(RoundScaled(1.25, 2.0, 4545), 3.0);
    EXPECT_EQ(RoundScaled(1.25, 2.0, 1), 2.5);
    EXPECT_EQ(RoundScaled(123.0, 1.0, -1), 120.0);
    EXPECT_EQ(Written(12.5, 0), "12.");
    EXPECT_EQ(Written(-0.0, 3), "0.000");
    EXPECT_EQ(Written(1.5, 7), "1.500000");
    EXPECT_EQ(Written(100.0, 3, {.zeros = true, .point = false}), "100.");
    EXPECT_EQ(Written(100.0, 4545, {.zeros = true, .point = true}), "100");
    EXPECT_EQ(Written(0.0, 3, {.zeros = true, .point = true}), "0");
}

TEST(NumberFormatTest, TellsOfNumbersThatAreNotFiniteInMessagesAlone) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(PlainReal(infinite), "inf");
    EXPECT_EQ(PlainReal(-infinite), "-inf");
    EXPECT_EQ(PlainReal(-std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(PlainReal(-0.25), "-0.250000");
    EXPECT_EQ(PlainReal(1e300).size(), 308U);
}

// Each is the double nearest to the decimal number, also where the standard library's pow is a digit off.
TEST(PowerOfTenthTest, IsCorrectlyRounded) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr int32_t kMost = std::numeric_limits<int32_t>::max();
    constexpr int32_t kLeast = std::numeric_limits<int32_t>::min();
    const std::pair<int32_t, double> kRows[] = {
        {0, 1.0},     {1, 0.1},   {9, 1e-9},   {10, 1e-10},   {17, 1e-17},   {323, 1e-323},     {324, 0.0},
        {kMost, 0.0}, {-1, 10.0}, {-23, 1e23}, {-210, 1e210}, {-308, 1e308}, {-309, kInfinity}, {kLeast, kInfinity}};
    for (const auto& [n, power] : kRows) EXPECT_EQ(PowerOfTenth(n), power) << n;
}

}  // namespace
}  // namespace brindle
