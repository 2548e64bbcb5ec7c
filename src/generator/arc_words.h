// Words of arcs: centre, radius and subtended angle.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

// What the centre words of the current record are measured as, in output units.
Point CentreOffset(const RunContext& run, bool absolute);
// The number of the current record's radius word. `is_unsigned`: without the sign that tells a long arc.
CNumberText RadiusNumber(const RunContext& run, bool is_unsigned);

void CenPtWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void ArcDataWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void Radius(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void Subtended(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void ArcSign(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);

}  // namespace brindle
