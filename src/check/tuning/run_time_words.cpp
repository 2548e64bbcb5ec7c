#include "check/tuning/run_time_words.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "text/message_words.h"
#include "text/numbers.h"

namespace brindle {
namespace {

// As runs write them: without blanks, signs and leading zeros that mean nothing.
bool IsPlainNumber(std::string_view text) { return text == std::to_string(LeadingInt(text)); }

// What is wrong with a number of a word; empty if nothing is.
std::string FaultOfNumber(const char* what, std::string_view text, size_t count) {
    const int32_t number = LeadingInt(text);
    if (number >= 1 && static_cast<size_t>(number) <= count) return {};
    return std::string("there is no ") + what + " " + std::to_string(number) + ": " + std::to_string(count) +
           (count == 1 ? " is defined" : " are defined");
}

}  // namespace

bool CheckRunTimeWord(std::string_view word, const CRunTimeDataDef& definition, Place place,
                      CDiagnostics& diagnostics) {
    const std::vector<std::string_view> numbers = PartsOfRunTimeWord(word);
    if (numbers.empty() || !std::all_of(numbers.begin(), numbers.end(), IsPlainNumber)) {
        diagnostics.Add(Rule::kBadRunTimeWord, place,
                        "a run-time data word is written RTD(row,column) or RTD(message), without blanks");
        return false;
    }
    std::string fault;
    if (numbers.size() == 1) {
        fault = FaultOfNumber("message", numbers[0], definition.messages().size());
    } else {
        fault = FaultOfNumber("row", numbers[0], definition.rows().size());
        if (fault.empty()) fault = FaultOfNumber("column", numbers[1], definition.columns().size());
    }
    if (!fault.empty()) diagnostics.Add(Rule::kUndefinedRunTimeWord, place, fault);
    return fault.empty();
}

void CheckRunTimeValue(const std::string& word, const CRunTimeDataDef& definition, Place place,
                       CDiagnostics& diagnostics) {
    if (!CheckRunTimeWord(word, definition, place, diagnostics)) return;
    const auto add = [&](std::string message) { diagnostics.Add(Rule::kMissingValue, place, std::move(message)); };
    const CDataSetContainer& datasets = definition.datasets();
    if (datasets.size() == 0) return add("no dataset has a value for " + word);
    for (size_t i = 0; i < datasets.size(); ++i) {
        if (datasets.ValuesAt(i)->items().Find(word) != nullptr) continue;
        return add("dataset " + Quoted(datasets.NameAt(i)) + " has no value for " + word);
    }
}

}  // namespace brindle
