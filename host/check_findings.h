// What `brindle check` has found in one tuning.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/messages.h"
#include "host/tuning_file.h"

namespace brindle::host {

// One message with its place: a word of a line of the tuning, in bytes.
struct Finding {
    Severity severity;
    size_t line;    // from 1; 0 for the tuning as a whole
    size_t column;  // from 1; 0 for the line as a whole
    size_t length;
    std::string text;
};

// Findings in the order in which checks make them. Rubbish in the place of a tuning gives one a line: of very many, the
// last ones are counted and not kept.
class CFindings {
public:
    void Add(Severity severity, size_t line, size_t column, size_t length, std::string text);
    size_t Count(Severity severity) const { return counts_[static_cast<size_t>(severity)]; }
    // Prints those that are at least so severe in the order of their places, each with its line.
    void Print(const TuningFile& file, Severity least = Severity::kInfo);

private:
    std::vector<Finding> findings_;
    size_t counts_[3] = {};  // by severity
};

// ` (did you mean NAME?)`, nothing for an empty name.
std::string Suggestion(std::string_view name);

}  // namespace brindle::host
