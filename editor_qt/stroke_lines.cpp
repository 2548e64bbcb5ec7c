#include "stroke_lines.h"

#include <algorithm>
#include <cmath>

namespace brindle {
namespace {

constexpr double kShortestLine = 0.8;  // pixels
constexpr double kArcTolerance = 0.2;  // between an arc and its lines, pixels
constexpr double kMostArcLines = 20000.0;

// Lines for an arc so that none lies off it by more than the tolerance.
int LinesFor(double radius, double sweep) {
    if (radius <= kArcTolerance) return 1;
    const double turn = 2.0 * std::acos(1.0 - kArcTolerance / radius);
    return static_cast<int>(std::clamp(std::ceil(std::fabs(sweep) / turn), 2.0, kMostArcLines));
}

// Cuts `line` down to the part where `from` + share * `along` lies between `low` and `high`; false if there is none.
bool CutDown(double from, double along, double low, double high, double& begin, double& end) {
    if (along == 0.0) return from >= low && from <= high;
    const double at_low = (low - from) / along;
    const double at_high = (high - from) / along;
    begin = std::max(begin, std::min(at_low, at_high));
    end = std::min(end, std::max(at_low, at_high));
    return begin < end;
}

}  // namespace

void CStrokeLines::Add(const PathStroke& stroke) {
    QPointF from = to_pixel_(stroke.start);
    if (stroke.is_arc()) {
        const double radius = std::hypot(stroke.start.x - stroke.center.x, stroke.start.y - stroke.center.y) * scale_;
        const int count = LinesFor(radius, stroke.sweep);
        for (int i = 1; i < count; ++i) {
            const QPointF to = to_pixel_(stroke.At(static_cast<double>(i) / count));
            AddLine(from, to);
            from = to;
        }
    }
    AddLine(from, to_pixel_(stroke.end));
}

void CStrokeLines::AddLine(QPointF from, QPointF to) {
    if (holds_ && held_.p2() != from) Flush();
    held_ = {holds_ ? held_.p1() : from, to};
    holds_ = true;
    if (held_.length() >= kShortestLine) Flush();
}

// Dashes would be worked out along the whole of a line that is mostly out of sight.
void CStrokeLines::Flush() {
    holds_ = false;
    double begin = 0.0;
    double end = 1.0;
    const bool is_in_sight = CutDown(held_.x1(), held_.dx(), in_sight_.left(), in_sight_.right(), begin, end) &&
                             CutDown(held_.y1(), held_.dy(), in_sight_.top(), in_sight_.bottom(), begin, end);
    if (is_in_sight) lines_.push_back({held_.pointAt(begin), held_.pointAt(end)});
}

QVector<QLineF> CStrokeLines::Take() {
    if (holds_) Flush();
    return std::exchange(lines_, {});
}

}  // namespace brindle
