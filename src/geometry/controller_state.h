// The generator's view of the position in a job: records in machine coordinates, the transform in force, what the host
// set.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "geometry/nc_data.h"
#include "geometry/trans.h"

namespace brindle {

// Holder of a copy of a record, or of none. Copies are made in place, without a heap block per record.
class CNCGeomItem {
public:
    // Takes a copy of `record`, or none if it is null.
    void Set(const CNCData* record);
    // The copy, or the null record.
    const CNCData& Get() const { return *record_; }
    void Transform(const CTrans& trans) { record_->Transform(trans); }
    const CNCArcData* AsArc() const { return std::get_if<CNCArcData>(&storage_); }

    CNCGeomItem() : record_(&std::get<CNCNullData>(storage_)) {}
    CNCGeomItem(const CNCGeomItem&) = delete;
    CNCGeomItem& operator=(const CNCGeomItem&) = delete;

private:
    std::variant<CNCNullData, CNCLineData, CNCArcData, CNCTextData, CNCIncludeData> storage_;
    CNCData* record_;
};

// What the host sets for a job. It stays from run to run.
struct JobData {
    int32_t tile_to_output = 0;  // other than 0: the main program alone, with calls expanded
    bool auto_inches = false;
    std::string time, date;
    Point blank;  // size, millimetres
    std::string dataset_name, tuning_file, tuning_pick, output_name, file_name, material_file;
    double rotary_radius = 0.0;  // millimetres
    bool final_position_set = false;
    Point final_position;  // millimetres
};

// The simulated controller. Lives as long as the session; a run sets most fields anew.
class CNCControllerState {
public:
    // Puts copies of `current` and `next`, either of which may be null, into the items and carries them through
    // `trans`, each with its own tool's offset (millimetres) taken off if it is a line or an arc. `transform` ends as
    // the one that the current record went through. A record that was the next one is not copied and transformed again:
    // as long as a record is in an item, neither it nor another one in its place may change.
    void SetCurrentRecords(const CNCData* current, const CNCData* next, const CTrans& trans, Point current_tool_offset,
                           Point next_tool_offset);
    // Records that were in an item may change from here on.
    void ForgetRecords();
    void SetTransform(const CTrans& trans) { transform.Copy(trans); }
    // 0 while the direction is not known.
    double GetToolDirection(bool in_degrees) const;
    void SetToolDirection(double radians);
    // The tool points where `record`, a line or an arc, ends. Of a line that is worked out when it is asked for, which
    // only tangential tools do.
    void PointToolAlong(const CNCData& record);
    void ForgetToolDirection() { tool_heading_ = ToolHeading::kUnknown; }
    bool ToolDirectionKnown() const { return tool_heading_ != ToolHeading::kUnknown; }

    bool absolute_mode = false;
    bool in_inches = true;
    int32_t current_program = -1;  // index of the include variant being output, -1 in the main program
    std::string current_program_name;
    Point last_position;  // output units, on the axes' grid
    CTrans transform;
    JobData job;

    const CNCGeomItem& current_item() const { return items_[current_]; }
    const CNCGeomItem& next_item() const { return items_[1 - current_]; }

private:
    enum class ToolHeading { kUnknown, kAngle, kAlongLine };

    ToolHeading tool_heading_ = ToolHeading::kUnknown;
    double tool_angle_ = 0.0;  // radians
    Point tool_line_[2];       // start and end of the line along which the tool points
    CNCGeomItem items_[2];
    size_t current_ = 0;                    // the other one is the next item
    const CNCData* next_record_ = nullptr;  // what the next item was made from, and how
    CTrans next_trans_;
};

}  // namespace brindle
