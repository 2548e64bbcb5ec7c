// What a job loses: where its NC text does not cut what is drawn, and why.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/rules.h"

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

// One finding: what happened to one or more records for one reason.
struct Loss {
    Loss(Rule what, Cause why, int32_t of_tool, std::string_view word)
        : rule(what), cause(why), tool(of_tool), detail(word) {}

    Rule rule;
    Cause cause;
    int32_t tool;                  // 0 for none
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

// Losses by rule, cause, tool and detail, in the order of their first occurrence.
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
