// Messages as a JSON array, for programs.
#pragma once

#include <span>
#include <string>

#include "host/console/message.h"

namespace brindle::host {

// One object for each message: `file`, `line`, `column`, `end_column` (characters from 1, the end is the one after the
// last), `severity` (error, loss, warning, info), `rule`, `message`, `help`, and `related`, an array of places with
// `message`. Null is what there is not: a line for what speaks of a whole file, a column for a whole line, the rule
// for what is wrong with the call.
std::string JsonOf(std::span<const Message> messages);

}  // namespace brindle::host
