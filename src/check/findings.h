// What `brindle check` has found in one tuning.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace brindle {

enum class Severity { kError, kWarning, kInfo };

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
    // In the order of their places.
    const std::vector<Finding>& Sorted();

private:
    std::vector<Finding> findings_;
    size_t counts_[3] = {};  // by severity
};

}  // namespace brindle
