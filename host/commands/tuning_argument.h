// The tuning that a command works on, and the drawing that goes with it.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace brindle::host {

// The tuning is the first argument, or the value of -t.
struct TuningArgument {
    std::string tuning;
    std::string drawing;  // of a command that takes one

    std::string option;  // as -t gives it
};

// What a command does with a drawing after the tuning.
enum class DrawingUse { kNone, kMayBe, kMustBe };

// `arguments` must live until SettleTuning.
void AddTuning(CLI::App& command, TuningArgument& arguments, const char* help = "Tuning; - is standard input");
void AddDrawing(CLI::App& command, TuningArgument& arguments, const char* help);

// To be called first when the command runs: now it is known which argument is which. Throws a parse error if a file is
// missing or there is one too many.
void SettleTuning(TuningArgument& arguments, DrawingUse use = DrawingUse::kNone);

}  // namespace brindle::host
