// Small words of the record and of the block: width, bridges, type, tool.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

void CutWidth(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void BridgeWidth(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void BridgeNum(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void LineType(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void ToolId(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
// Gives nothing: what the directive does has happened before its line is resolved.
void NothingToWrite(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);

}  // namespace brindle
