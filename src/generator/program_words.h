// Numbers and names of programs, and the codes of a call.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

void MainProgNum(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void CurProgNum(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void CurProgName(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void IncludeNum(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void IncludeName(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void NumOfSubs(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void MarkAsSub(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void IncludeMirCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void IncludeMirResetCode(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void IncludeRotWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void IncludeRotResetWord(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);

}  // namespace brindle
