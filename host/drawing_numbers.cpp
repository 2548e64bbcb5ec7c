#include "host/drawing_numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "host/messages.h"
#include "host/number_words.h"
#include "text/numbers.h"

namespace brindle::host {
namespace {

// How each word is read: r a real number, i a whole one, s one of 16 bits, . not as a number.
struct WordKinds {
    std::string_view type;
    std::string_view kinds;
};
constexpr WordKinds kRecords[] = {
    {"UR", ".rr"}, {"C", "..rrrii"}, {"L", ".rs.rrrrsr"}, {"A", ".rs.rrrrrrrrs"}, {"T", "....rrri"},
};

double ReadAs(char kind, std::string_view word) {
    if (kind == 'r') return LeadingDouble(word);
    return kind == 'i' ? LeadingInt(word) : static_cast<int16_t>(LeadingInt(word));
}

std::optional<std::string> FaultOf(char kind, std::string_view word) {
    const double read = ReadAs(kind, word);
    const std::optional<double> meant = WholeNumberText(word);
    if (meant == read) return std::nullopt;
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

}  // namespace brindle::host
