// Strokes of a tool path as the lines that a painter draws.
#pragma once

#include <QLineF>
#include <QRectF>
#include <QVector>
#include <functional>

#include "scene/path_scene.h"

namespace brindle {

// Collects the lines of strokes of one look. Lines that go on from each other within a pixel are joined, so that a
// path of a million pieces is no more lines than can be seen.
class CStrokeLines {
public:
    // `to_pixel` carries points of the scene onto the widget, `scale` is its pixels for a unit, `in_sight` what is
    // drawn of it.
    CStrokeLines(std::function<QPointF(Point)> to_pixel, double scale, const QRectF& in_sight)
        : to_pixel_(std::move(to_pixel)), scale_(scale), in_sight_(in_sight) {}

    void Add(const PathStroke& stroke);
    // All lines so far, taken out.
    QVector<QLineF> Take();

private:
    void AddLine(QPointF from, QPointF to);
    void Flush();

    std::function<QPointF(Point)> to_pixel_;
    double scale_;
    QRectF in_sight_;
    QVector<QLineF> lines_;
    QLineF held_;  // too short to be drawn so far
    bool holds_ = false;
};

}  // namespace brindle
