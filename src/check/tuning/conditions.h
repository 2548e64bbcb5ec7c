// When a run reads what a tuning holds: the conditions of keys, templates and directives, asked of one tuning.
#pragma once

#include <string_view>

#include "check/tuning/placed_tuning.h"
#include "language/conditions.h"
#include "language/directive_reads.h"

namespace brindle {

// Whether a condition holds. `prefix` is that of the tool that is asked about, empty for what is no tool's.
bool Holds(Condition condition, const CPlacedTuning& tuning, std::string_view prefix = {});

// Why it does not hold, as the end of a sentence.
std::string_view WhyNot(Condition condition);

// Whether a row of the options that directives read is one of this use of its directive.
bool Applies(const DirectiveRead& read, const DirectiveUse& use, const CPlacedTuning& tuning);

// Why no run reads this key under the options of the tuning; empty if one does, or if the key is unknown or the
// editor's own.
std::string_view WhyUnread(const CPlacedTuning& tuning, const KeyMatch& match);

// Whether a run reads this text: its tool is in use and its key is read.
bool IsRead(const CPlacedTuning& tuning, const PlacedText& text);

}  // namespace brindle
