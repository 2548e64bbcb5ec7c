#include "check/drawing/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "cff2/cff2_record.h"
#include "geometry/plane_math.h"
#include "text/message_words.h"
#include "text/numbers.h"

namespace brindle {
namespace {

double ReadAs(char kind, std::string_view word) {
    if (kind == 'r' || kind == 'a') return LeadingDouble(word);
    return kind == 's' ? static_cast<int16_t>(LeadingInt(word)) : LeadingInt(word);
}

class CNumberCheck {
public:
    CNumberCheck(size_t line, CDiagnostics& diagnostics) : line_(line), diagnostics_(diagnostics) {}

    void Check(char kind, std::string_view word) {
        const double read = ReadAs(kind, word);
        const std::optional<double> meant = ParseNumber(word);
        if (meant == read) return CheckValue(kind, read);
        const std::string quoted = Quoted(word) + " ";
        const std::string counts = ": it counts as " + ShortNumber(read);
        if (!meant) return Add(Rule::kBadWord, quoted + "is no number that can be read" + counts);
        if (*meant == std::trunc(*meant))
            return Add(Rule::kWordRange, quoted + "is beyond the range of this word" + counts);
        Add(Rule::kWordNotWhole, quoted + "is not a whole number, as this word must be" + counts);
    }

private:
    void Add(Rule rule, std::string text) { diagnostics_.Add(rule, {line_}, std::move(text)); }

    // A number that was read as written.
    void CheckValue(char kind, double value) {
        constexpr double kRoundedTurn = kFullTurn + 0.01;
        if (kind == 'a' && std::fabs(value) > kRoundedTurn) {
            Add(Rule::kDegrees, "rotation " + ShortNumber(value) +
                                    " is more than a full turn: rotations are in radians, 90 degrees are 1.570796");
        }
        if (kind == 'm' && value != 0.0 && value != 1.0) {
            Add(Rule::kMirrorWord, "mirror word " + ShortNumber(value) + " counts as mirrored: write 0 or 1");
        }
    }

    size_t line_;
    CDiagnostics& diagnostics_;
};

}  // namespace

void CheckNumbers(size_t line, const std::vector<std::string_view>& words, CDiagnostics& diagnostics) {
    constexpr std::string_view kNoNumbers = ".n*";
    const cff2::RecordType& type = *cff2::FindRecordType(words[0]);
    CNumberCheck check(line, diagnostics);
    for (size_t i = 0; i < std::min(words.size(), type.words.size()); ++i) {
        if (kNoNumbers.find(type.words[i]) == kNoNumbers.npos) check.Check(type.words[i], words[i]);
    }
}

}  // namespace brindle
