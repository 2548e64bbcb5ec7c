#include "check/drawing/drawing_numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "check/number_words.h"
#include "geometry/plane_math.h"
#include "text/message_words.h"
#include "text/numbers.h"

namespace brindle {
namespace {

// How each word is read: r a real number, a an angle, i a whole one, m the whole number of a mirror flag, s a whole one
// of 16 bits, . not as a number.
struct WordKinds {
    std::string_view type;
    std::string_view kinds;
};
constexpr WordKinds kRecords[] = {
    {"UR", ".rr"}, {"C", "..rramm"}, {"L", ".rs.rrrrsr"}, {"A", ".rs.rrrrrrrrs"}, {"T", "....rrai"},
};

double ReadAs(char kind, std::string_view word) {
    if (kind == 'r' || kind == 'a') return LeadingDouble(word);
    return kind == 's' ? static_cast<int16_t>(LeadingInt(word)) : LeadingInt(word);
}

// What is wrong with a number that was read as it stands.
std::optional<std::string> FaultOfValue(char kind, double value) {
    constexpr double kRoundedTurn = kFullTurn + 0.01;
    if (kind == 'a' && std::fabs(value) > kRoundedTurn) {
        return "rotation " + ShortNumber(value) +
               " is more than a full turn: rotations are in radians, 90 degrees are 1.570796";
    }
    if (kind == 'm' && value != 0.0 && value != 1.0) {
        return "mirror word " + ShortNumber(value) + " counts as mirrored: write 0 or 1";
    }
    return std::nullopt;
}

std::optional<std::string> FaultOf(char kind, std::string_view word) {
    const double read = ReadAs(kind, word);
    const std::optional<double> meant = WholeNumberText(word);
    if (meant == read) return FaultOfValue(kind, read);
    const std::string quoted = Quoted(word) + " ";
    const std::string counts = ": it counts as " + ShortNumber(read);
    if (!meant) return quoted + "is no number that can be read" + counts;
    if (*meant == std::trunc(*meant)) return quoted + "is beyond the range of this word" + counts;
    return quoted + "stands where a whole number belongs" + counts;
}

}  // namespace

std::vector<std::string> FindBadNumbers(const std::vector<std::string_view>& words) {
    std::vector<std::string> faults;
    const auto* const record = std::find_if(std::begin(kRecords), std::end(kRecords),
                                            [&words](const WordKinds& kinds) { return words[0] == kinds.type; });
    if (record == std::end(kRecords)) return faults;
    for (size_t i = 0; i < std::min(words.size(), record->kinds.size()); ++i) {
        if (record->kinds[i] == '.') continue;
        if (std::optional<std::string> fault = FaultOf(record->kinds[i], words[i])) faults.push_back(std::move(*fault));
    }
    return faults;
}

}  // namespace brindle
