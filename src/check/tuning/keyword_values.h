// Values of keywords as a directive reads them.
#pragma once

#include <optional>

#include "language/keywords.h"

namespace brindle {

// Whether the keyword is one of those with a value in parentheses.
bool TakesValue(const KeywordInfo& keyword);

// The value that `keywords` give for a keyword, nothing if they hold none.
std::optional<double> ValueOf(const CAtDirKeywords& keywords, Keyword keyword);

}  // namespace brindle
