// The checks of `brindle check`, each of one kind. All look at one tuning and add what they find.
//
// An error is a line that the reader drops, or a value that a run reads as something else than it says: nobody can have
// meant it. A warning is what gives something else than it seems to, or nothing; so it is with comments, which a tuning
// can't have. An info is what has no effect under the options of this tuning.
#pragma once

#include "check/findings.h"
#include "check/tuning/checked_tuning.h"

namespace brindle {

// Lines: words, types, values, keys unknown or written twice.
void CheckLines(const CCheckedTuning& tuning, CFindings& findings);

// The run-time data lines, and values of datasets that no row, column or message offers.
void CheckRunTimeData(const CCheckedTuning& tuning, CFindings& findings);

// Values that are of the right kind but can't be meant.
void CheckValues(const CCheckedTuning& tuning, CFindings& findings);

// Keys of one choice of which none or several are true.
void CheckChoices(const CCheckedTuning& tuning, CFindings& findings);

// Speeds that are no numbers, and tools that lack one.
void CheckSpeeds(const CCheckedTuning& tuning, CFindings& findings);

// Directives that no template has though the options need them.
void CheckMissingWords(const CCheckedTuning& tuning, CFindings& findings);

// Tools without templates, tools beyond nNumOfTools, master tools that don't exist, tools that stay on.
void CheckTools(const CCheckedTuning& tuning, CFindings& findings);

// Words in templates and option texts: brackets, names of directives, keywords, run-time data words.
void CheckWords(const CCheckedTuning& tuning, CFindings& findings);

// Directives that give nothing, or no more than a 0, where they stand.
void CheckPlaces(const CCheckedTuning& tuning, CFindings& findings);

// Addresses and codes that are empty though a directive writes them.
void CheckEmptyOptions(const CCheckedTuning& tuning, CFindings& findings);

// Option texts that come back to themselves.
void CheckCycles(const CCheckedTuning& tuning, CFindings& findings);

// Keys and templates that nothing reads.
void CheckUnread(const CCheckedTuning& tuning, CFindings& findings);

// All of them.
void CheckAll(const CCheckedTuning& tuning, CFindings& findings);

}  // namespace brindle
