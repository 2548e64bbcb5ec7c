#include "geometry/nc_data.h"

#include <cmath>

namespace brindle {
namespace {

const std::string& NoText() {
    static const std::string kNoText;
    return kNoText;
}

double InUnits(double radians, bool in_degrees) { return in_degrees ? radians / kRadiansPerDegree : radians; }

}  // namespace

const std::string& CNCData::GetTextString() const { return NoText(); }

const std::string& CNCData::GetIncludeName() const { return NoText(); }

void CutAttributes::Transform(const CTrans& trans) {
    cut_width = trans.TransformLength(cut_width);
    bridge_width = trans.TransformLength(bridge_width);
}

void CNCLineData::Transform(const CTrans& trans) {
    start_ = trans.TransformPoint(start_);
    end_ = trans.TransformPoint(end_);
    cut_.Transform(trans);
}

double CNCLineData::GetStartAngle(bool in_degrees) const { return InUnits(DirectionOf(start_, end_), in_degrees); }

CNCArcData::CNCArcData(const CutAttributes& cut, Point start, Point end, Point center, double radius)
    : cut_(cut), start_(start), end_(end), center_(center), true_end_(end), radius_(radius) {}

CNCArcData::CNCArcData(const CNCArcData& other)
    : CNCArcData(other.cut_, other.start_, other.end_, other.center_, other.radius_) {}

CNCArcData& CNCArcData::operator=(const CNCArcData& other) {
    cut_ = other.cut_;
    start_ = other.start_;
    end_ = other.end_;
    center_ = other.center_;
    true_end_ = other.end_;
    radius_ = other.radius_;
    x_ratio_ = 1.0;
    y_ratio_ = 1.0;
    return *this;
}

bool CNCArcData::IsMinorArc() const { return GetSweepAngle(true) <= 180.0; }

double CNCArcData::TangentAt(Point p, bool in_degrees) const {
    const double inward = AngleOf(p, center_);
    const double tangent = IsClockwise() ? inward + kQuarterTurn : inward - kQuarterTurn;
    return InUnits(NormalizeSigned(tangent, false), in_degrees);
}

double CNCArcData::GetStartAngle(bool in_degrees) const { return TangentAt(start_, in_degrees); }

double CNCArcData::GetEndAngle(bool in_degrees) const { return TangentAt(end_, in_degrees); }

double CNCArcData::GetSweepAngle(bool in_degrees) const {
    if (PointsCoincide(start_, end_, kTolerance, kTolerance)) {
        const bool is_point = PointsCoincide(start_, center_, kTolerance, kTolerance);
        return InUnits(is_point ? 0.0 : kFullTurn, in_degrees);
    }
    double turn = AngleOf(center_, end_) - AngleOf(center_, start_);
    if (turn < 0.0) turn += kFullTurn;
    if (IsClockwise()) turn -= kFullTurn;
    return InUnits(std::abs(turn), in_degrees);
}

bool CNCArcData::IsFullCircle() const { return PointsCoincide(start_, end_, kTolerance, kTolerance) && IsLongArc(); }

bool CNCArcData::IsLongArc() const { return GetSweepAngle(true) > kLongArcDegrees; }

void CNCTextData::Transform(const CTrans& trans) {
    fields_.start = trans.TransformPoint(fields_.start);
    fields_.end = trans.TransformPoint(fields_.end);
    fields_.height = trans.ScaleOnly(fields_.height);
    fields_.first_length = trans.ScaleOnly(fields_.first_length);
    fields_.second_length = trans.ScaleOnly(fields_.second_length);
}

void CNCIncludeData::Transform(const CTrans& trans) {
    fields_.center = trans.TransformPoint(fields_.center);
    fields_.place = trans.TransformPoint(fields_.place);
}

void CNCIncludeData::SetPlacing(double rotation, bool mirror_x, bool mirror_y) {
    fields_.rotation = rotation;
    fields_.mirror_x = mirror_x;
    fields_.mirror_y = mirror_y;
}

}  // namespace brindle
