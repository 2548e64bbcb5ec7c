// Code words: interpolation, absolute or incremental, units, grain, side, fly mode.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

void InterpCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void AbsIncCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void UnitsCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void GrainCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void SideCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void FlyModeCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);

}  // namespace brindle
