// Which records there are at each event, and for which of them directives write something.
#pragma once

#include <span>
#include <string_view>

#include "language/directives.h"
#include "tuning/key_catalogue.h"

namespace brindle {

// A set of kinds of records.
using Records = unsigned;
inline constexpr Records kLineRecord = 1, kArcRecord = 2, kTextRecord = 4, kCallRecord = 8;
inline constexpr Records kNoRecord = 0, kCutRecords = kLineRecord | kArcRecord;
inline constexpr Records kAllRecords = kCutRecords | kTextRecord | kCallRecord;

// What there is when the template of an event is executed. A segment can end at any record.
struct EventState {
    EventRef event;
    Records records;
    std::string_view record_text;  // as the end of a sentence
    bool has_tool;                 // one is selected
    bool with_segments = false;    // none of this holds if the output is cut into segments
};
std::span<const EventState> EventStates();

// The records that hold what the directive writes.
Records NeededRecords(const DirectiveInfo& directive);

// For other records the directive writes a 0; those of which this is false write nothing.
bool WritesZeroElsewhere(const DirectiveInfo& directive);

}  // namespace brindle
