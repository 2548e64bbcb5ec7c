// The vocabulary of templates: one table of all directives.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "language/keywords.h"

namespace brindle {

class CTextResolver;

// Whether a directive switches block numbers before its line is resolved.
enum class Numbering : uint8_t { kNone, kOn, kOff };

// The records for which a directive gives text; any other gets nothing, without a message.
enum class RecordNeed : uint8_t { kAny, kArc, kArcOrLine, kText, kInclude };

// One row of the directive table. Names are compared exactly.
struct DirectiveInfo {
    int number;  // place in the chooser of the template editor; a gap of numbers starts a new group
    std::string_view name;
    std::string_view group;
    KeywordSet keywords;        // those it looks at; all others are ignored
    std::string_view defaults;  // what holds without keywords, where that is an option's choice
    RecordNeed need;
    std::string_view gives;  // one sentence
    // Adds the directive's characters to `out`, or changes the run's state.
    void (*evaluate)(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out);
    Numbering numbering = Numbering::kNone;
};

// In order of their numbers.
std::span<const DirectiveInfo> DirectiveTable();

// The directive of that name, null if there is none.
const DirectiveInfo* FindDirective(std::string_view name);

}  // namespace brindle
