#include "geometry/controller_state.h"

#include "text/numbers.h"

namespace brindle {
namespace {

CTrans WithOffsetOff(CTrans trans, Point tool_offset) {
    trans.offset_x -= tool_offset.x;
    trans.offset_y -= tool_offset.y;
    return trans;
}

bool IsCut(const CNCData& record) { return record.IsLine() || record.IsArc(); }

}  // namespace

void CNCGeomItem::Set(const CNCData* record) {
    const CNCNullData none;
    const CNCData& source = record ? *record : none;
    // The copy is made before the old one goes: `record` may be the old one.
    if (source.IsLine()) {
        storage_ = CNCLineData(static_cast<const CNCLineData&>(source));
    } else if (source.IsArc()) {
        storage_ = CNCArcData(static_cast<const CNCArcData&>(source));
    } else if (source.IsText()) {
        storage_ = CNCTextData(static_cast<const CNCTextData&>(source));
    } else if (source.IsInclude()) {
        storage_ = CNCIncludeData(static_cast<const CNCIncludeData&>(source));
    } else {
        storage_ = none;
    }
    record_ = std::visit([](CNCData& held) { return &held; }, storage_);
}

void CNCControllerState::SetCurrentRecords(const CNCData* current, const CNCData* next, const CTrans& trans,
                                           Point current_tool_offset, Point next_tool_offset) {
    const CTrans base = trans;  // `trans` may be our own
    current_item.Set(current);
    next_item.Set(next);
    SetTransform(base);
    if (next) {
        if (IsCut(next_item.Get())) SetTransform(WithOffsetOff(base, next_tool_offset));
        next_item.Transform(transform);
    }
    if (current) {
        SetTransform(IsCut(current_item.Get()) ? WithOffsetOff(base, current_tool_offset) : base);
        current_item.Transform(transform);
    }
}

void CNCControllerState::AdvanceBlockNumber(int32_t increment) {
    const int32_t old = block_number;
    block_number = TruncateToInt32(RoundToStep(old, increment));
    if (block_number <= old) block_number = TruncateToInt32(RoundToStep(WrapAdd(old, increment), increment));
}

double CNCControllerState::GetToolDirection(bool in_degrees) const {
    if (!tool_direction_known) return 0.0;
    return in_degrees ? tool_direction / kRadiansPerDegree : tool_direction;
}

void CNCControllerState::SetToolDirection(double radians) {
    tool_direction = radians;
    tool_direction_known = true;
}

void CNCControllerState::ForgetToolDirection() {
    tool_direction = 0.0;
    tool_direction_known = false;
}

}  // namespace brindle
