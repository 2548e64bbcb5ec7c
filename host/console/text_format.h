// Messages as lines of text, in the form that editors jump by.
#pragma once

#include <string>

#include "host/console/message.h"

namespace brindle::host {

// `FILE:LINE:COLUMN: warning: text (way out) [rule]`, with the line and a caret below where a word is meant, and a note
// of the same form for each further place that the text does not name. What speaks of a whole line or file names its
// first column or line. Without a rule there is no column that is not known, nor a line; without a file the line begins
// with the program's name, and an error there needs no other word.
//
// Editors know errors, warnings and notes by these words. A loss is marked as an error for them: `error: loss: text`.
std::string TextOf(const Message& message);

// What messages call the file of that name.
std::string FileText(const std::string& file);

}  // namespace brindle::host
