// The checks of tunings, each in the file of its name and of its group of rules. All look at one tuning and add what
// they find.
#pragma once

#include "check/diagnostics.h"
#include "check/tuning/placed_tuning.h"

namespace brindle {

// Lines: words, types, values, keys unknown or written twice.
void CheckLines(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// The run-time data lines, and values of datasets that no row, column or message offers.
void CheckRunTimeData(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Values that are of the right kind but can't be meant.
void CheckValues(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Keys of one choice of which none or several are true.
void CheckChoices(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Speeds that are no numbers, and tools that lack one.
void CheckSpeeds(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Directives that no template has though the options need them.
void CheckMissingDirectives(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Tools without templates, tools beyond nNumOfTools, master tools that don't exist, tools that stay on.
void CheckTools(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Words in templates and option texts: brackets, names of directives, keywords, run-time data words.
void CheckTextSyntax(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Directives that give nothing, or no more than a 0, at the events whose templates have them.
void CheckTemplateEvents(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Addresses and codes that are empty though a directive writes them.
void CheckEmptyAddressesAndCodes(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Words of one line that have the same address.
void CheckEqualAddresses(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Templates of lines and arcs without the interpolation code, or without what makes an arc.
void CheckCutTemplates(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Codes and speeds in fixed text, of which the memory of modal words does not know.
void CheckLiterals(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Words without an address that are left out where they repeat.
void CheckModalData(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Option texts that come back to themselves.
void CheckCycles(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// Keys and templates that nothing reads.
void CheckUnreadKeys(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

// All of them.
void CheckAll(const CPlacedTuning& tuning, CDiagnostics& diagnostics);

}  // namespace brindle
