#include "geometry/controller_state.h"

namespace brindle {
namespace {

// Only cuts have their tool's offset taken off.
void TakeOffset(const CNCData& record, Point tool_offset, CTrans& trans) {
    if (!record.IsLine() && !record.IsArc()) return;
    trans.offset_x -= tool_offset.x;
    trans.offset_y -= tool_offset.y;
}

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
    SetTransform(base);
    if (current != nullptr) TakeOffset(*current, current_tool_offset, transform);
    if (current != nullptr && next_record_ == current && next_trans_ == transform) {
        current_ = 1 - current_;
    } else {
        items_[current_].Set(current);
        items_[current_].Transform(transform);
    }
    next_record_ = next;
    next_trans_ = base;
    if (next != nullptr) TakeOffset(*next, next_tool_offset, next_trans_);
    CNCGeomItem& item = items_[1 - current_];
    item.Set(next);
    item.Transform(next_trans_);
    if (current == nullptr) SetTransform(next_trans_);
}

void CNCControllerState::ForgetRecords() { next_record_ = nullptr; }

double CNCControllerState::GetToolDirection(bool in_degrees) const {
    if (!ToolDirectionKnown()) return 0.0;
    const bool along_line = tool_heading_ == ToolHeading::kAlongLine;
    const double radians = along_line ? DirectionOf(tool_line_[0], tool_line_[1]) : tool_angle_;
    return in_degrees ? radians / kRadiansPerDegree : radians;
}

void CNCControllerState::SetToolDirection(double radians) {
    tool_heading_ = ToolHeading::kAngle;
    tool_angle_ = radians;
}

void CNCControllerState::PointToolAlong(const CNCData& record) {
    if (!record.IsLine()) return SetToolDirection(record.GetEndAngle(false));
    tool_heading_ = ToolHeading::kAlongLine;
    tool_line_[0] = record.Start();
    tool_line_[1] = record.End();
}

}  // namespace brindle
