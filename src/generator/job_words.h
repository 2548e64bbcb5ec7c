// Words of the job: what the host set, the version, the dwell.
#pragma once

#include <string>

#include "generator/text_resolver.h"

namespace brindle {

void Date(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void Time(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void CADFile(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void OutputFile(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void MaterialFile(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void DataSetName(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void TuneFile(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void TuneMenuPick(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void DrvVersion(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void BlankX(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void BlankY(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void RotaryRadius(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
void IODwell(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);

}  // namespace brindle
