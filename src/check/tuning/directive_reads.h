// The options that directives read: which of them a template needs, and which options lead back to themselves.
#pragma once

#include <span>
#include <string_view>

#include "check/tuning/conditions.h"

namespace brindle {

// What an empty option makes of the directive.
enum class WhenEmpty {
    kFine,      // that can be meant
    kBareWord,  // a word without an address
    kNothing,   // nothing
    kNoWord,    // nothing, though there is a value to write
};

// One row: under `condition` and unless its keywords speak against it, the directive reads the option.
struct DirectiveRead {
    // Which of the directive's words it is for. An axis (of speed words: a parameter) is left out by the keyword of the
    // other one, an address by DATA.
    enum class For { kAll, kAxis1, kAxis2, kAddress, kAddress1, kAddress2 };

    std::string_view directive;
    std::string_view key;  // without tool prefix
    For part;
    WhenEmpty when_empty;
    const Condition* condition = &kAlways;
    bool of_tool = false;          // stands behind the prefix of a tool
    std::string_view events = {};  // if not empty, the only events in which the row holds, with a blank behind each
};

std::span<const DirectiveRead> DirectiveReads();

// Whether the row is one of this use of its directive.
bool Applies(const DirectiveRead& read, const DirectiveUse& use, const CCheckedTuning& tuning);

}  // namespace brindle
