// What a job loses: where its NC text does not cut what is drawn, and why.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/rules.h"
#include "generator/run_log.h"

namespace brindle {

// A record of the job.
struct RecordPlace {
    int32_t program = -1;  // -1: none, as for what lies before the first record
    int32_t index = 0;
};

// A record as a call reached it: `call` is the call within `record`'s caller, if any.
struct LossPlace {
    RecordPlace record, call;
};

// A line of a template, from 0.
struct TemplatePlace {
    const CompiledTemplate* compiled = nullptr;  // null: of none
    size_t line = 0;
};

// Why something is lost, as far as the events of the run tell.
enum class Cause : uint8_t {
    kUnknown,
    kToolOutOfRange,
    kNoTool,
    kTextInIncremental,
    kTextNotSupported,
    kEmptyCall,
    kUnknownProgram,
    kCallsItself,
    kCallsTooDeep,
    kTooManyCalls,
    kNoTemplate,
    kNoToolOn,
    kNoToolOff,
    kNoMove,
    kNoCall,
    kNoLineCode,
    kNoModeCode,
    kCalleesTool,
    kNoSelection,
    kMasterOff,
    kRadiusAsDirection,
    kRadiusInInches,
    kRadiusWord,
    kNestedExpansion,
    kCentreRepeat,
    kSmallSteps,
    kLongArc,
    kClosedAfterLong,
    kSubsMode,
    kUnwrittenTurn,
    kFewDecimals,
    kUnreadOrigin,
};

struct CauseInfo {
    Cause cause;
    std::string_view why;
    std::string_view way_out;
};
const CauseInfo& InfoOf(Cause cause);
Cause CauseOf(DropReason reason);

// One finding: what happened to one or more records for one reason.
struct Loss {
    Loss(Rule what, Cause why, int32_t of_tool, TemplatePlace from, std::string_view word = {})
        : rule(what), cause(why), tool(of_tool), template_line(from.line), detail(word) {
        if (from.compiled != nullptr) template_key = from.compiled->Key();
    }

    Rule rule;
    Cause cause;
    int32_t tool;                  // 0 for none
    std::string template_key;      // of the template that wrote it or should have, empty for none
    size_t template_line;          // within that, from 0, at the first place
    std::string detail;            // a word of the text, empty for none
    std::vector<LossPlace> first;  // the first few places
    size_t count = 0;
    double largest = 0.0;  // how far off, or how long, millimetres; degrees of rules of a tool's direction
    double length = 0.0;   // millimetres in all
};

// The sums of a job.
struct JobSums {
    size_t drawn = 0, lost = 0;  // records
    double drawn_mm = 0.0, cut_mm = 0.0, lost_mm = 0.0;
    bool is_whole = true;  // whether all of the job was judged
};

// Losses by rule, cause, tool, template and detail, in the order of their first occurrence.
class CLosses {
public:
    static constexpr size_t kMostPlaces = 3;

    void Add(Loss loss, const LossPlace& place, double amount, double length);
    const std::vector<Loss>& all() const { return all_; }
    JobSums sums;

private:
    std::vector<Loss> all_;
    std::unordered_map<std::string, size_t> known_;  // index into them, by what makes them one
};

}  // namespace brindle
