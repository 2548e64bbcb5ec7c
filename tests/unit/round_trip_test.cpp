// A tuning that a host reads, takes back and delivers again is the same tuning.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

#include "host_session.h"
#include "platform/text_file.h"
#include "text/words.h"

namespace brindle {
namespace {

using Lines = std::vector<std::string>;

Lines LinesOfFile(const std::string& path) {
    Lines lines;
    const std::string text = ReadWholeFile(path).value_or("");
    for (const std::string_view line : SplitLines(text)) lines.emplace_back(line);
    return lines;
}

// What GBrn_GetTuning gives, line by line.
Lines TuningBack() {
    wchar_t* text = nullptr;
    GBrn_GetTuning(&text);
    Lines lines(1);
    for (const char c : Taken(text)) {
        if (c == '\b') {
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    EXPECT_EQ(lines.back(), "") << "each line ends with the terminator, the last one too";
    lines.pop_back();
    return lines;
}

Lines DeliveredAndTakenBack(const Lines& lines) {
    const CHostSession session(lines);
    return TuningBack();
}

std::string PlateBy(const Lines& tuning) {
    CHostSession session(tuning);
    GBrn_OpenCF2File(L"examples/drawings/plate.cf2");
    return session.Run();
}

std::string RandomText(std::mt19937& random) {
    constexpr std::string_view kCharacters = "aZ09 <>@!#(),.";
    std::string text;
    for (size_t i = random() % 9; i > 0; --i) text += kCharacters[random() % kCharacters.size()];
    return text;
}

// Lines as the library writes them, each once, with run-time data in front in its order.
Lines RandomTuning(std::mt19937& random) {
    Lines lines = {"UPD 2024_03_01_10_00_00"};
    const auto number = [&random](unsigned below) { return std::to_string(random() % below); };
    for (const char* type : {"ROW", "COL", "MSG"}) {
        for (size_t i = random() % 3; i > 0; --i) {
            lines.push_back(std::string(type) + " TEXT n" + EscapeBlanks(RandomText(random)) +
                            (i % 2 == 0 ? " HIDE" : " "));
        }
    }
    lines.push_back("DATASETDEF Steel");
    for (const char* word : {"RTD(1)", "RTD(1,1)"}) {
        lines.push_back("DSD Steel T_EXPR " + std::string(word) + ' ' + EscapeWord(RandomText(random)) + ' ');
    }
    for (size_t i = random() % 20; i > 0; --i) {
        const std::string key = "k" + std::to_string(i);
        switch (random() % 5) {
            case 0: lines.push_back("BOOL " + key + (i % 2 == 0 ? " true " : " false ")); break;
            case 1: lines.push_back("INT  " + key + " -" + std::to_string(1 + random() % 99999) + ' '); break;
            case 2: lines.push_back("REAL " + key + ' ' + number(1000) + ".123456789 "); break;
            case 3: lines.push_back("R_EXPR " + key + ' ' + EscapeWord(RandomText(random)) + ' '); break;
            default:
                lines.push_back("MULTI " + key + " NINIT" + number(99) + ' ' + EscapeWord(RandomText(random)) + ' ');
        }
    }
    return lines;
}

TEST(RoundTrip, GeneratedTunings) {
    std::mt19937 random(20240301);
    for (int i = 0; i < 300; ++i) {
        Lines lines = RandomTuning(random);
        Lines back = DeliveredAndTakenBack(lines);
        EXPECT_EQ(DeliveredAndTakenBack(back), back);
        std::sort(lines.begin(), lines.end());
        std::sort(back.begin(), back.end());
        ASSERT_EQ(back, lines);
    }
}

TEST(RoundTrip, EveryExample) {
    int tunings = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator("examples")) {
        if (entry.path().extension() != ".tun") continue;
        ++tunings;
        const Lines from_file = LinesOfFile(entry.path());
        const Lines once = DeliveredAndTakenBack(from_file);
        EXPECT_EQ(DeliveredAndTakenBack(once), once) << entry.path();
        size_t items = 0;
        for (const std::string& line : from_file) items += line.empty() ? 0U : 1U;
        // A tuning without run-time data gets its date line all the same.
        EXPECT_TRUE(once.size() == items || once.size() == items + 1) << entry.path();
        EXPECT_EQ(PlateBy(once), PlateBy(from_file)) << entry.path();
    }
    EXPECT_GE(tunings, 7);
}

}  // namespace
}  // namespace brindle
