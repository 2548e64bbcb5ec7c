// Words of points: start, end, middle, and the corners of the job.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

// The number of an axis value (axis 0 or 1), which is in output units and scaled already.
CNumberText AxisNumber(const RunContext& run, int axis, double value);

void StartPtWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void EndPtWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void MidPtWords(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void LowerLeft(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void UpperRight(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void OverallSize(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);

}  // namespace brindle
