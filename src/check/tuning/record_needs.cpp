#include "check/tuning/record_needs.h"

#include <string_view>

namespace brindle {
namespace {

struct ZeroWriter {
    std::string_view directive;
    Records records;
};

constexpr ZeroWriter kZeroWriters[] = {
    {"@CutWidth", kCutRecords},    {"@BridgeWidth", kCutRecords}, {"@BridgeNum", kCutRecords},
    {"@TextRotWord", kTextRecord}, {"@TextHgtWord", kTextRecord}, {"@LineType", kCutRecords | kTextRecord},
};

const ZeroWriter* FindZeroWriter(const DirectiveInfo& directive) {
    for (const ZeroWriter& row : kZeroWriters) {
        if (row.directive == directive.name) return &row;
    }
    return nullptr;
}

}  // namespace

Records NeededRecords(const DirectiveInfo& directive) {
    if (const ZeroWriter* const row = FindZeroWriter(directive)) return row->records;
    switch (directive.need) {
        case RecordNeed::kArc: return kArcRecord;
        case RecordNeed::kArcOrLine: return kCutRecords;
        case RecordNeed::kText: return kTextRecord;
        case RecordNeed::kInclude: return kCallRecord;
        case RecordNeed::kAny: break;
    }
    return kAllRecords;
}

bool WritesZeroElsewhere(const DirectiveInfo& directive) { return FindZeroWriter(directive) != nullptr; }

}  // namespace brindle
