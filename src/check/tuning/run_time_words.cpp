#include "check/tuning/run_time_words.h"

#include <cstdint>
#include <optional>
#include <vector>

#include "text/numbers.h"

namespace brindle {
namespace {

// The numbers between the parentheses of a word that is written as runs write it; nothing for any other text.
std::optional<std::vector<int32_t>> NumbersOf(std::string_view word) {
    constexpr std::string_view kOpening = "RTD(";
    if (!word.starts_with(kOpening)) return std::nullopt;
    const std::string_view inside = word.substr(kOpening.size());
    std::vector<int32_t> numbers{LeadingInt(inside)};
    const size_t comma = inside.find(',');
    if (comma != std::string_view::npos) numbers.push_back(LeadingInt(inside.substr(comma + 1)));
    std::string written = std::string(kOpening).append(std::to_string(numbers[0]));
    if (numbers.size() == 2) written.append(",").append(std::to_string(numbers[1]));
    return written.append(")") == word ? std::optional(numbers) : std::nullopt;
}

std::string FaultOfNumber(const char* what, int32_t number, size_t count) {
    if (number >= 1 && static_cast<size_t>(number) <= count) return {};
    return std::string("there is no ") + what + " " + std::to_string(number) + ": " + std::to_string(count) +
           (count == 1 ? " is defined" : " are defined");
}

}  // namespace

std::string FaultOfRunTimeWord(std::string_view word, const CRunTimeDataDef& definition) {
    const auto numbers = NumbersOf(word);
    if (!numbers) return "a run-time data word is written RTD(row,column) or RTD(message), without blanks";
    if (numbers->size() == 1) return FaultOfNumber("message", numbers->front(), definition.messages().size());
    const std::string row = FaultOfNumber("row", numbers->front(), definition.rows().size());
    return row.empty() ? FaultOfNumber("column", numbers->back(), definition.columns().size()) : row;
}

}  // namespace brindle
