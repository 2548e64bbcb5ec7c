#include "language/record_needs.h"

namespace brindle {
namespace {

struct ZeroWriter {
    DirectiveId directive;
    Records records;
};

constexpr ZeroWriter kZeroWriters[] = {
    {DirectiveId::kCutWidth, kCutRecords},    {DirectiveId::kBridgeWidth, kCutRecords},
    {DirectiveId::kBridgeNum, kCutRecords},   {DirectiveId::kTextRotWord, kTextRecord},
    {DirectiveId::kTextHgtWord, kTextRecord}, {DirectiveId::kLineType, kCutRecords | kTextRecord},
};

const ZeroWriter* FindZeroWriter(const DirectiveInfo& directive) {
    for (const ZeroWriter& row : kZeroWriters) {
        if (row.directive == directive.id) return &row;
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
