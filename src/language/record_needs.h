// For which records directives write something.
#pragma once

#include "language/directives.h"

namespace brindle {

// A set of kinds of records.
using Records = unsigned;
inline constexpr Records kLineRecord = 1, kArcRecord = 2, kTextRecord = 4, kCallRecord = 8;
inline constexpr Records kNoRecord = 0, kCutRecords = kLineRecord | kArcRecord;
inline constexpr Records kAllRecords = kCutRecords | kTextRecord | kCallRecord;

// The records that hold what the directive writes.
Records NeededRecords(const DirectiveInfo& directive);

// For other records the directive writes a 0; those of which this is false write nothing.
bool WritesZeroElsewhere(const DirectiveInfo& directive);

}  // namespace brindle
