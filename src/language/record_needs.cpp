#include "language/record_needs.h"

namespace brindle {
namespace {

constexpr EventState kStates[] = {
    {Event("FileStart_"), kNoRecord, "there is no record yet", false},
    {Event("FileEnd_"), kAllRecords, "", false, true},
    {Event("MainInit_"), kNoRecord, "there is no record yet", false},
    {Event("MainTerm_"), kLineRecord, "the record is the final position", false, true},
    {Event("SubInit_"), kAllRecords, "", false},
    {Event("SubTerm_"), kAllRecords, "", true},
    {Event("Move_"), kCutRecords | kTextRecord, "the record is the one moved to, never a call", true},
    {Event("Line_"), kLineRecord, "the record is a line", true},
    {Event("Arc_"), kArcRecord, "the record is an arc", true},
    {Event("Text_"), kTextRecord, "the record is a text", true},
    {Event("SubCall_"), kCallRecord, "the record is a call", true},
    {Event("SubReset_"), kCallRecord, "the record is a call", true},
    {Event("OriTransSet_"), kCallRecord, "the record is a call", true},
    {Event("OriTransReset_"), kCallRecord, "the record is a call", true},
    {Event("MoveToIncludePt_"), kCallRecord, "the record is a call", true},
    {Event("Fly_PreCheck_"), kCutRecords, "the record is a line or an arc", true},
    {Event("Fly_PostCheck_"), kCutRecords, "the record is a line or an arc", true, true},
    {Event("ToolSel_"), kCutRecords | kTextRecord, "the record is the one to be written, never a call", true},
    {Event("ToolDesel_"), kCutRecords | kTextRecord, "the record is the one to be written, never a call", true},
    {Event("ToolOn_"), kCutRecords | kTextRecord, "the record is the one to be written, never a call", true},
    {Event("ToolOff_"), kAllRecords, "", true},
};

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

std::span<const EventState> EventStates() { return kStates; }

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
