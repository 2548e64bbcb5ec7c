// Arithmetic over the values of a job, for the expressions of run-time data.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

namespace brindle::host {

// What an expression may name. Lengths are millimetres, whatever the drawing's units are.
struct JobValues {
    double blank_x = 0.0, blank_y = 0.0;  // 0 if the user gave none
    double size_x = 0.0, size_y = 0.0;    // the drawing's upper right corner
    double final_x = 0.0, final_y = 0.0;
    double tile = 0.0;
    double inches = 0.0;  // 1 if the drawing is in inches
    double tools = 0.0;   // different tools that lines and arcs use
    double lines = 0.0, arcs = 0.0, texts = 0.0, calls = 0.0, subs = 0.0;
};

struct JobValueInfo {
    std::string_view name;
    std::string_view meaning;
    double JobValues::*value;
};

// The names in the order in which help shows them.
std::span<const JobValueInfo> JobValueTable();

// Numbers that the user gave names to; a name of the table that is given anew means the user's number.
using NamedNumbers = std::map<std::string, double>;

// Whether `text` is a name as expressions have them: letters, digits and `_`, no digit first.
bool IsExpressionName(std::string_view text);

struct Computed {
    bool good = false;
    double value = 0.0;
    std::string reason;  // why not, for a message
};

// The value of `expression`. It may use the operators and functions of arithmetic (+ - * / ^, comparisons, ?:, sqrt,
// min, round and the like), the names of the table and those of `given`. Not finite is no value.
Computed ComputeExpression(const std::string& expression, const JobValues& job, const NamedNumbers& given);

}  // namespace brindle::host
