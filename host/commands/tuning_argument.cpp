#include "host/commands/tuning_argument.h"

#include <utility>

#include "host/commands/commands.h"

namespace brindle::host {

void AddTuning(CLI::App& command, TuningArgument& arguments, const char* help) {
    command.add_option("TUNING", arguments.tuning, help)->type_name("FILE");
    command.add_option("-t,--tuning", arguments.option, "The tuning, in place of the first argument")
        ->type_name("FILE");
}

void AddDrawing(CLI::App& command, TuningArgument& arguments, const char* help) {
    command.add_option("DRAWING", arguments.drawing, help)->type_name("FILE");
}

void SettleTuning(TuningArgument& arguments, DrawingUse use) {
    if (!arguments.option.empty()) {
        const bool is_full = use == DrawingUse::kNone ? !arguments.tuning.empty() : !arguments.drawing.empty();
        if (is_full) throw CLI::ParseError("--tuning: the tuning is given as an argument already", kBadUsage);
        arguments.drawing = std::move(arguments.tuning);
        arguments.tuning = std::move(arguments.option);
    }
    if (arguments.tuning.empty()) throw CLI::RequiredError("TUNING");
    if (use == DrawingUse::kMustBe && arguments.drawing.empty()) throw CLI::RequiredError("DRAWING");
}

}  // namespace brindle::host
