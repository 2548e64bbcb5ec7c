// Words of text records.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

void TextDataWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void TextRotWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void TextHgtWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);

}  // namespace brindle
