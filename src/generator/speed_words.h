// The feed of the current record.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

void SpeedWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);

}  // namespace brindle
