#include "geometry/job_records.h"

#include <cmath>
#include <initializer_list>

namespace brindle {
namespace {

bool AllFinite(std::initializer_list<double> values) {
    for (const double value : values) {
        if (!std::isfinite(value)) return false;
    }
    return true;
}

bool IsFinite(const CutAttributes& cut, Point start, Point end) {
    return AllFinite({cut.cut_width, cut.bridge_width, start.x, start.y, end.x, end.y});
}

}  // namespace

void JobRecords::StartMain(std::string name, Point center, bool inside, bool horizontal) {
    if (AllFinite({center.x, center.y})) geometry_.StartMain(std::move(name), center, inside, horizontal);
}

void JobRecords::StartSub(std::string name, Point center, bool inside, bool horizontal) {
    if (AllFinite({center.x, center.y})) geometry_.StartSub(std::move(name), center, inside, horizontal);
}

void JobRecords::AddLine(const CutAttributes& cut, Point start, Point end) {
    if (IsFinite(cut, start, end)) geometry_.Add(std::make_unique<CNCLineData>(cut, start, end));
}

void JobRecords::AddArc(const CutAttributes& cut, Point start, Point end, Point center, double radius) {
    if (!IsFinite(cut, start, end) || !AllFinite({center.x, center.y, radius})) return;
    geometry_.Add(std::make_unique<CNCArcData>(cut, start, end, center, radius));
}

void JobRecords::AddText(CNCTextData::Fields fields) {
    if (!AllFinite({fields.start.x, fields.start.y, fields.end.x, fields.end.y, fields.first_length, fields.rotation,
                    fields.extra_value, fields.second_length, fields.height})) {
        return;
    }
    geometry_.Add(std::make_unique<CNCTextData>(std::move(fields)));
}

void JobRecords::AddInclude(CNCIncludeData::Fields fields) {
    if (!AllFinite({fields.place.x, fields.place.y, fields.center.x, fields.center.y, fields.rotation})) return;
    geometry_.Add(std::make_unique<CNCIncludeData>(std::move(fields)));
}

}  // namespace brindle
