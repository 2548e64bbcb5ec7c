// The options that directives read, as data: the checks know from it what a template needs, and a test holds it against
// a run.
#pragma once

#include <cstdint>
#include <span>

#include "language/conditions.h"
#include "language/directives.h"
#include "tuning/key_catalogue.h"

namespace brindle {

// What an empty option makes of the directive.
enum class WhenEmpty : uint8_t {
    kFine,      // that can be meant
    kBareWord,  // a word without an address
    kNothing,   // nothing
    kNoWord,    // nothing, though there is a value to write
};

// One row: under `condition` and unless its keywords speak against it, the directive reads the option.
struct DirectiveRead {
    // Which of the directive's words it is for. An axis (of speed words: a parameter) is left out by the keyword of the
    // other one, an address by DATA.
    enum class Part : uint8_t { kAll, kAxis1, kAxis2, kAddress, kAddress1, kAddress2 };

    DirectiveId directive;
    KeyRef key;
    Part part;
    WhenEmpty when_empty;
    Condition condition = Condition::kAlways;
    bool of_tool = false;  // the key follows the prefix of a tool
    EventSet events = {};  // if not empty, the only events in which the row holds

    // Whether a directive with these keywords writes the part.
    bool IsWanted(KeywordSet keywords) const;
};

std::span<const DirectiveRead> DirectiveReads();

// What must hold for the directive to have an effect at all.
Condition NeededCondition(DirectiveId directive);

}  // namespace brindle
