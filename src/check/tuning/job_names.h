// The names that a job writes into its NC text, which nobody chose with NC text in mind: those of files, and values of
// run-time data.
#pragma once

#include <span>
#include <string_view>

#include "check/diagnostics.h"
#include "check/tuning/placed_tuning.h"

namespace brindle {

struct JobName {
    std::string_view word;  // that writes it, without arguments: `@CADFile`, `RTD(1)`
    std::string_view text;
};

// Whether a name can do harm in some tuning: those of which it is false need not be checked.
bool IsRiskyName(std::string_view name);

// Reports each place where a template writes a name with parentheses into a comment, or one with a control character
// anywhere. A controller ends the comment at the first `)`, and takes the rest for words.
void CheckNames(const CPlacedTuning& tuning, std::span<const JobName> names, CDiagnostics& diagnostics);

}  // namespace brindle
