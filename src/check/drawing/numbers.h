// The words of a drawing's records that are read as numbers, looked at one by one: the reader takes the number at the
// front of each and calls the rest of it 0.
#pragma once

#include <string_view>
#include <vector>

#include "check/diagnostics.h"

namespace brindle {

// Reports each word that doesn't mean the number that is read from it, e.g. "'10mm' is no number that can be read: it
// counts as 10", or whose number can't be meant, such as a rotation in degrees. `words` are the words of a complete
// record.
void CheckNumbers(size_t line, const std::vector<std::string_view>& words, CDiagnostics& diagnostics);

}  // namespace brindle
