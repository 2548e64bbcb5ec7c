// The direction of a tangential tool: rotation words, auxiliary codes, and the directive that tells where the tool
// points.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

void SetToolDir(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void AtAngle(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void FinAngle(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void TangAuxCode1(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void TangAuxCode2(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);

}  // namespace brindle
