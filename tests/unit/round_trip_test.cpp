// A tuning that a host reads, takes back and delivers again is the same tuning.
#include <gtest/gtest.h>

#include <filesystem>

#include "host_session.h"
#include "platform/text_file.h"

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
