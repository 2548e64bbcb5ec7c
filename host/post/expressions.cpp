#include "host/post/expressions.h"

#include <muParser.h>

#include <algorithm>
#include <cmath>

namespace brindle::host {
namespace {

constexpr JobValueInfo kJobValues[] = {
    {"BLANK_X", "width of the blank (--blank), mm", &JobValues::blank_x},
    {"BLANK_Y", "height of the blank, mm", &JobValues::blank_y},
    {"SIZE_X", "upper right corner of the drawing, mm", &JobValues::size_x},
    {"SIZE_Y", "the same, along Y", &JobValues::size_y},
    {"FINAL_X", "final position (--final), mm", &JobValues::final_x},
    {"FINAL_Y", "the same, along Y", &JobValues::final_y},
    {"TILE", "tile (--tile)", &JobValues::tile},
    {"INCHES", "1 if the job's units are inches, else 0", &JobValues::inches},
    {"TOOLS", "number of different tools that lines and arcs use", &JobValues::tools},
    {"LINES", "number of lines", &JobValues::lines},
    {"ARCS", "number of arcs", &JobValues::arcs},
    {"TEXTS", "number of texts", &JobValues::texts},
    {"CALLS", "number of calls of sub-programs", &JobValues::calls},
    {"SUBS", "number of sub-programs", &JobValues::subs},
};

double Compute(const std::string& expression, const JobValues& job, const NamedNumbers& given) {
    mu::Parser parser;
    parser.DefineFun("round", static_cast<mu::value_type (*)(mu::value_type)>(std::round));  // younger parsers have it
    for (const JobValueInfo& info : kJobValues) {
        if (!given.contains(std::string(info.name))) parser.DefineConst(std::string(info.name), job.*info.value);
    }
    for (const auto& [name, value] : given) parser.DefineConst(name, value);
    parser.SetExpr(expression);
    const double value = parser.Eval();
    // The parser takes `1,5` for two values.
    if (parser.GetNumResults() > 1) throw mu::ParserError("a comma separates arguments only, a number has a point");
    return value;
}

}  // namespace

std::span<const JobValueInfo> JobValueTable() { return kJobValues; }

bool IsExpressionName(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789";
    constexpr std::string_view kOthers = "_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    if (text.empty() || kOthers.find(text[0]) == std::string_view::npos) return false;
    return std::all_of(text.begin(), text.end(), [=](char c) {
        return kOthers.find(c) != std::string_view::npos || kDigits.find(c) != std::string_view::npos;
    });
}

Computed ComputeExpression(const std::string& expression, const JobValues& job, const NamedNumbers& given) {
    try {
        const double value = Compute(expression, job, given);
        if (std::isfinite(value)) return {true, value, {}};
        return {false, 0.0, "its value is not finite"};
    } catch (const mu::ParserError& error) {
        std::string reason = error.GetMsg();
        reason.erase(reason.find_last_not_of('.') + 1);
        return {false, 0.0, std::move(reason)};
    }
}

}  // namespace brindle::host
