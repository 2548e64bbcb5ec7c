// What the platform gives: wide and system strings, local time, text files.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <tuple>
#include <utility>

#include "brindle/brindle.h"
#include "platform/local_time.h"
#include "platform/system_string.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"

namespace brindle {
namespace {

TEST(TextEncoding, WideToNarrow) {
    const std::pair<std::wstring, const char*> rows[] = {
        {L"", ""},
        {L"G1 X", "G1 X"},
        {{0x7F, 0x80, 0x7FF}, "\x7F\xC2\x80\xDF\xBF"},
        {{0x800, 0xFFFD, 0xFFFF}, "\xE0\xA0\x80\xEF\xBF\xBD\xEF\xBF\xBF"},
        {{0x10000, 0x10FFFF}, "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {{0xD7FF, 0xE000}, "\xED\x9F\xBF\xEE\x80\x80"},
        {{0xD800, 'x', 0xDFFF}, "\xEF\xBF\xBDx\xEF\xBF\xBD"},
        {{0x110000}, "\xEF\xBF\xBD"},
        {{static_cast<wchar_t>(-1), static_cast<wchar_t>(0x80000041)}, "\xEF\xBF\xBD\xEF\xBF\xBD"}};
    for (const auto& [wide, narrow] : rows) EXPECT_EQ(WideToNarrow(wide.c_str()), narrow);
    EXPECT_EQ(WideToNarrow(nullptr), "");
}

TEST(TextEncoding, NarrowToWide) {
    const std::pair<std::string, std::wstring> rows[] = {
        {"", L""},
        {std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
        {"\xC3\xA9", {0xE9}},
        {"\xE9", {0xE9}},
        {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80", {0x800, 0xD7FF, 0xE000}},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", {0x10000, 0x10FFFF}},
        // Overlong forms, surrogates and what lies beyond the last character.
        {"\xC0\x80", {0xC0, 0x80}},
        {"\xC1\xBF", {0xC1, 0xBF}},
        {"\xE0\x9F\xBF", {0xE0, 0x9F, 0xBF}},
        {"\xF0\x8F\xBF\xBF", {0xF0, 0x8F, 0xBF, 0xBF}},
        {"\xED\xA0\x80", {0xED, 0xA0, 0x80}},
        {"\xF4\x90\x80\x80", {0xF4, 0x90, 0x80, 0x80}},
        {"\xF5\x80\x80\x80\xFF\xFE", {0xF5, 0x80, 0x80, 0x80, 0xFF, 0xFE}},
        // Cut short: bytes on their own, and what follows is read afresh.
        {"\xC3", {0xC3}},
        {"\xE2\x82", {0xE2, 0x82}},
        {"\xE2\x82x", {0xE2, 0x82, 'x'}},
        {"\xF0\x9F\x98\xC3\xA9", {0xF0, 0x9F, 0x98, 0xE9}},
        {"\xE2\xE2\x82\xAC", {0xE2, 0x20AC}},
        {"\x80\xBF", {0x80, 0xBF}}};
    for (const auto& [narrow, wide] : rows) EXPECT_EQ(NarrowToWide(narrow), wide) << testing::PrintToString(narrow);
}

TEST(TextEncoding, EveryCharacterComesBack) {
    std::wstring all;
    for (uint32_t code = 1; code <= 0x10FFFF; ++code) {
        if (code < 0xD800 || code > 0xDFFF) all.push_back(static_cast<wchar_t>(code));
    }
    EXPECT_EQ(NarrowToWide(WideToNarrow(all.c_str())), all);
}

TEST(SystemString, CarriesLengthAndNul) {
    const std::string_view text("G1\0\xC3\xA9", 5);
    wchar_t* const string = MakeSystemString(text);
    ASSERT_EQ(SysStringLen(string), 4U);
    EXPECT_EQ(std::wstring(string, 5), std::wstring(L"G1\0\u00E9\0", 5));
    SysFreeString(string);

    wchar_t* const empty = MakeSystemString("");
    EXPECT_TRUE(SysStringLen(empty) == 0 && *empty == L'\0');
    SysFreeString(empty);

    SysFreeString(nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
}

void SetZone(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
}

TEST(LocalTime, KnownTimes) {
    const std::tuple<const char*, int64_t, const char*> rows[] = {
        {"UTC0", 0, "1970_01_01_00_00_00"},
        {"UTC0", -1, "1969_12_31_23_59_59"},
        {"UTC0", 1709287200, "2024_03_01_10_00_00"},
        {"UTC0", 951825599, "2000_02_29_11_59_59"},
        {"UTC0", -2208988800, "1900_01_01_00_00_00"},
        {"UTC0", 4102444800, "2100_01_01_00_00_00"},
        {"UTC0", 253402300800, "10000_01_01_00_00_00"},
        {"<-03>3", 0, "1969_12_31_21_00_00"},
        {"CET-1CEST,M3.5.0,M10.5.0/3", 1709287200, "2024_03_01_11_00_00"},
        {"CET-1CEST,M3.5.0,M10.5.0/3", 1719828000, "2024_07_01_12_00_00"}};
    for (const auto& [zone, seconds, text] : rows) {
        SetZone(zone);
        EXPECT_EQ(FormatTimeStamp(seconds), text);
        EXPECT_EQ(ParseTimeStamp(text), seconds) << text;
    }
}

TEST(LocalTime, TextsThatAreNoTime) {
    SetZone("<-03>3");
    for (const char* text :
         {"", "_____", "2024_03_01_10_00", "1899_12_31_10_00_00", "2024_00_01_10_00_00", "2024_13_01_10_00_00",
          "2024_03_00_10_00_00", "2024_03_32_10_00_00", "2024_03_01_24_00_00", "2024_03_01_-1_00_00",
          "2024_03_01_10_60_00", "2024_03_01_10_-1_00", "2024_03_01_10_00_60", "2024_03_01_10_00_-1", "x_y_z_a_b_c"}) {
        EXPECT_EQ(ParseTimeStamp(text), 0) << text;
    }
    const int64_t ten_o_clock = ParseTimeStamp("2024_03_01_10_00_00");
    EXPECT_EQ(ten_o_clock, 1709298000);
    for (const char* text :
         {"2024_3_1_10_0_0", "2024 03 01 10 00 00", "__2024_03_01_10_00_00_99", "2024_03_01_10x_0y_00z"}) {
        EXPECT_EQ(ParseTimeStamp(text), ten_o_clock) << text;
    }
    EXPECT_GT(ParseTimeStamp("2147483647_12_31_23_59_59"), int64_t{1} << 55);
    EXPECT_EQ(FormatTimeStamp(INT64_MAX), "");
    EXPECT_EQ(FormatTimeStamp(INT64_MIN), "");
}

TEST(LocalTime, DaysThatTheMonthLacksCountOn) {
    SetZone("UTC0");
    const std::pair<const char*, const char*> rows[] = {
        {"2024_02_29_10_00_00", "2024_02_29_10_00_00"}, {"2024_02_30_10_00_00", "2024_03_01_10_00_00"},
        {"2023_02_29_10_00_00", "2023_03_01_10_00_00"}, {"1900_02_29_10_00_00", "1900_03_01_10_00_00"},
        {"2000_02_29_10_00_00", "2000_02_29_10_00_00"}, {"2024_04_31_10_00_00", "2024_05_01_10_00_00"}};
    for (const auto& [text, time] : rows) EXPECT_EQ(FormatTimeStamp(ParseTimeStamp(text)), time) << text;
}

TEST(LocalTime, RoundTrip) {
    for (const char* name : {"UTC0", "CET-1CEST,M3.5.0,M10.5.0/3", "<+0545>-5:45"}) {
        SetZone(name);
        std::mt19937_64 random(3);
        for (int i = 0; i < 2000; ++i) {
            const auto seconds = static_cast<int64_t>(random() % 6000000000) - 2000000000;
            const std::string text = FormatTimeStamp(seconds);
            // In the hour that an autumn repeats, a text stands for either time.
            ASSERT_EQ(FormatTimeStamp(ParseTimeStamp(text)), text) << name;
            ASSERT_LE(std::abs(ParseTimeStamp(text) - seconds), 3600) << name;
        }
    }
    EXPECT_GT(Now(), 1700000000);
}

// Whatever was asked before: the hour that an autumn repeats is the first one, that which a spring leaves out counts
// on.
TEST(LocalTime, ChangesOfTheClock) {
    SetZone("CET-1CEST,M3.5.0,M10.5.0/3");
    const std::pair<const char*, int64_t> rows[] = {
        {"2024_10_27_01_59_59", 1729987199}, {"2024_10_27_02_00_00", 1729987200}, {"2024_10_27_02_59_59", 1729990799},
        {"2024_10_27_03_00_00", 1729994400}, {"2024_03_31_01_59_59", 1711846799}, {"2024_03_31_02_30_00", 1711848600},
        {"2024_03_31_03_00_00", 1711846800}};
    for (const char* const before : {"2024_07_01_00_00_00", "2024_12_01_00_00_00"}) {
        for (const auto& [text, seconds] : rows) {
            EXPECT_NE(ParseTimeStamp(before), 0);
            EXPECT_EQ(ParseTimeStamp(text), seconds) << text << " after " << before;
        }
    }
}

TEST(TextFile, Lines) {
    using Views = std::vector<std::string_view>;
    const std::pair<std::string, Views> rows[] = {
        {"", {}},
        {"\n", {""}},
        {"a", {"a"}},
        {"a\n", {"a"}},
        {"a\r\nb\n\nc", {"a", "b", "", "c"}},
        {"a\r\r\nb\rc\r", {"a\r", "b\rc\r"}},
        {"\r\n\r", {"", "\r"}},
        {"\xEF\xBB\xBF", {}},
        {"\xEF\xBB\xBF\n\xEF\xBB\xBF", {"", "\xEF\xBB\xBF"}},
        {"\xEF\xBB\xBFname\n", {"name"}},
        {"\xEF\xBBname", {"\xEF\xBBname"}},
        {std::string("a\0b\nc\x1A", 6), {std::string_view("a\0b", 3), "c\x1A"}}};
    for (const auto& [text, lines] : rows) EXPECT_EQ(SplitLines(text), lines) << testing::PrintToString(text);
}

TEST(TextFile, WholeFiles) {
    const std::string path = testing::TempDir() + "brindle_platform_test.bin";
    std::string bytes;
    for (int i = 0; i < 200000; ++i) bytes.push_back(static_cast<char>(i * 7));
    std::ofstream(path, std::ios::binary) << bytes;
    EXPECT_EQ(ReadWholeFile(path), bytes);
    std::ofstream(path, std::ios::binary | std::ios::trunc).flush();
    EXPECT_EQ(ReadWholeFile(path), "");
    std::remove(path.c_str());
    EXPECT_EQ(ReadWholeFile(path), std::nullopt);
    EXPECT_EQ(ReadWholeFile(""), std::nullopt);
    EXPECT_EQ(ReadWholeFile(testing::TempDir()), std::nullopt);
}

}  // namespace
}  // namespace brindle
