#include "scene/path_scene.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace brindle {
namespace {

double Apart(Point a, Point b) { return std::hypot(b.x - a.x, b.y - a.y); }

double AngleFrom(Point center, Point p) { return std::atan2(p.y - center.y, p.x - center.x); }

// How far `angle` lies behind `start` in the direction of `sweep`: from 0 up to a full turn.
double Behind(double start, double angle, double sweep) {
    const double turn = std::fmod(sweep > 0.0 ? angle - start : start - angle, kFullTurn);
    return turn < 0.0 ? turn + kFullTurn : turn;
}

double DistanceToLine(const PathStroke& stroke, Point p) {
    const Point along{stroke.end.x - stroke.start.x, stroke.end.y - stroke.start.y};
    const double square = along.x * along.x + along.y * along.y;
    if (square == 0.0) return Apart(stroke.start, p);
    const double share = ((p.x - stroke.start.x) * along.x + (p.y - stroke.start.y) * along.y) / square;
    return Apart(stroke.At(std::clamp(share, 0.0, 1.0)), p);
}

double DistanceToArc(const PathStroke& stroke, Point p) {
    const double start = AngleFrom(stroke.center, stroke.start);
    const bool is_beside = Behind(start, AngleFrom(stroke.center, p), stroke.sweep) <= std::fabs(stroke.sweep);
    if (is_beside) return std::fabs(Apart(stroke.center, p) - Apart(stroke.center, stroke.start));
    return std::min(Apart(stroke.start, p), Apart(stroke.end, p));
}

double DistanceTo(const PathStroke& stroke, Point p) {
    return stroke.is_arc() ? DistanceToArc(stroke, p) : DistanceToLine(stroke, p);
}

bool ComesBefore(const PathStroke& stroke, const PathStroke& other) {
    return stroke.kind != StrokeKind::kRapid || other.kind == StrokeKind::kRapid;
}

bool MayBeNear(const PathStroke& stroke, Point p, double distance) {
    const SceneBox box = RoughBounds(stroke);
    return p.x >= box.low.x - distance && p.x <= box.high.x + distance && p.y >= box.low.y - distance &&
           p.y <= box.high.y + distance;
}

}  // namespace

// ---- Strokes ----

double PathStroke::Length() const { return is_arc() ? std::fabs(sweep) * Apart(center, start) : Apart(start, end); }

Point PathStroke::At(double share) const {
    if (!is_arc()) return {start.x + share * (end.x - start.x), start.y + share * (end.y - start.y)};
    // Rounding to the grid leaves the two radii a little unequal.
    const double radius = Apart(center, start) * (1.0 - share) + Apart(center, end) * share;
    const double angle = AngleFrom(center, start) + share * sweep;
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

double PathStroke::DirectionAt(double share) const {
    if (!is_arc()) return AngleFrom(start, end);
    const double outward = AngleFrom(center, start) + share * sweep;
    return outward + (sweep > 0.0 ? kQuarterTurn : -kQuarterTurn);
}

// ---- Boxes ----

void SceneBox::Add(Point p) {
    if (is_empty) low = high = p;
    is_empty = false;
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
}

void SceneBox::Add(const SceneBox& box) {
    if (box.is_empty) return;
    Add(box.low);
    Add(box.high);
}

bool SceneBox::Meets(const SceneBox& box) const {
    if (is_empty || box.is_empty) return false;
    return low.x <= box.high.x && box.low.x <= high.x && low.y <= box.high.y && box.low.y <= high.y;
}

SceneBox BoundsOf(const PathStroke& stroke) {
    SceneBox box;
    box.Add(stroke.start);
    box.Add(stroke.end);
    if (!stroke.is_arc()) return box;
    const double radius = Apart(stroke.center, stroke.start);
    const double start = AngleFrom(stroke.center, stroke.start);
    constexpr Point kSides[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    for (int side = 0; side < 4; ++side) {
        if (Behind(start, side * kQuarterTurn, stroke.sweep) > std::fabs(stroke.sweep)) continue;
        const Point outmost{stroke.center.x + radius * kSides[side].x, stroke.center.y + radius * kSides[side].y};
        box.Add(outmost);
    }
    return box;
}

SceneBox RoughBounds(const PathStroke& stroke) {
    const Point& start = stroke.start;
    const Point& end = stroke.end;
    if (!stroke.is_arc()) {
        return {{std::min(start.x, end.x), std::min(start.y, end.y)},
                {std::max(start.x, end.x), std::max(start.y, end.y)},
                false};
    }
    const Point& center = stroke.center;
    const double radius = Apart(center, start);
    return {{center.x - radius, center.y - radius}, {center.x + radius, center.y + radius}, false};
}

SceneBox BoundsOf(const PathScene& scene, int32_t element) {
    SceneBox box;
    for (const PathStroke& stroke : scene.strokes) {
        if (stroke.element == element) box.Add(BoundsOf(stroke));
    }
    return box;
}

// ---- What lies where ----

int32_t FindElement(const PathScene& scene, Point p, double distance) {
    const PathStroke* nearest = nullptr;
    for (const PathStroke& stroke : scene.strokes) {
        if (!MayBeNear(stroke, p, distance)) continue;
        const double apart = DistanceTo(stroke, p);
        const bool is_nearer =
            apart < distance || (apart == distance && (nearest == nullptr || ComesBefore(stroke, *nearest)));
        if (!is_nearer) continue;
        nearest = &stroke;
        distance = apart;
    }
    return nearest == nullptr ? -1 : nearest->element;
}

std::vector<DirectionMark> PlaceMarks(const PathScene& scene, double scale, const SceneBox& view) {
    constexpr double kLeastLength = 24.0;  // of a stroke that gets a mark for its own sake, pixels
    constexpr double kSpacing = 70.0;
    std::vector<DirectionMark> marks;
    const PathStroke* before = nullptr;
    double since_mark = 0.0;
    double since_break = 0.0;
    for (const PathStroke& stroke : scene.strokes) {
        const bool goes_on = before != nullptr && before->kind == stroke.kind && before->tool == stroke.tool &&
                             Apart(before->end, stroke.start) * scale < 1.0;
        if (!goes_on) {
            since_mark = kSpacing;
            since_break = 0.0;
        }
        before = &stroke;
        const double length = stroke.Length() * scale;
        since_mark += length;
        since_break += length;
        const bool is_wanted = since_mark >= kSpacing && (length >= kLeastLength || since_break >= kSpacing);
        if (!is_wanted || stroke.kind == StrokeKind::kText) continue;
        since_mark = 0.0;
        since_break = 0.0;
        const Point at = stroke.At(0.5);
        SceneBox spot;
        spot.Add(at);
        if (!spot.Meets(view)) continue;
        marks.push_back({at, stroke.DirectionAt(0.5), static_cast<size_t>(&stroke - scene.strokes.data())});
    }
    return marks;
}

}  // namespace brindle
