// The tool path as it is drawn: strokes with their looks, and questions about what lies where. The editor's preview and
// `brindle plot` paint it, each with the means of its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "geometry/plane_math.h"

namespace brindle {

enum class StrokeKind : uint8_t { kRapid, kCut, kText };

// Coordinates are those of the scene: y goes up, and both axes measure the same.
struct PathStroke {
    StrokeKind kind = StrokeKind::kRapid;
    int32_t element = 0;  // of the run. Several strokes are one element where a sub-program is called several times.
    int32_t tool = 0;     // index into PathScene::tools
    int32_t text = -1;    // index into PathScene::texts
    Point start;
    Point end;  // of a text: where its line of characters ends, about
    Point center;
    double sweep = 0.0;  // of an arc, radians, above 0 counter-clockwise; 0 for all others

    bool is_arc() const { return sweep != 0.0; }
    double Length() const;
    // A point of the stroke and its direction (radians) there; `share` goes from 0 at the start to 1 at the end.
    Point At(double share) const;
    double DirectionAt(double share) const;
};

struct SceneText {
    std::string text;
    double height = 0.0;
    double rotation = 0.0;  // radians, counter-clockwise
};

struct SceneBox {
    Point low, high;
    bool is_empty = true;

    void Add(Point p);
    void Add(const SceneBox& box);
    double Width() const { return high.x - low.x; }
    double Height() const { return high.y - low.y; }
    bool Meets(const SceneBox& box) const;
};

// An axis of the machine beside the scene's.
struct SceneAxis {
    double words_per_unit = 1.0;  // what the axis's words count where the scene goes on by 1; below 0 the other way
    std::string unit;             // of the words, such as `mm`; may be empty
};

struct PathScene {
    std::vector<PathStroke> strokes;  // in the order of the machine
    std::vector<SceneText> texts;
    std::vector<int32_t>
        tools;  // the numbers of those that cut or write, ascending; their place is that of their colour
    SceneBox bounds;
    SceneAxis axes[2];
};

SceneBox BoundsOf(const PathStroke& stroke);
// A box around a stroke, not always the smallest one: for quick tests of what lies where.
SceneBox RoughBounds(const PathStroke& stroke);
// Of all strokes of an element; empty if there is none.
SceneBox BoundsOf(const PathScene& scene, int32_t element);

// The element nearest to `p`, if it is not farther than `distance`; otherwise -1. Of strokes that are equally near, a
// cut comes before a rapid move, then the later one.
int32_t FindElement(const PathScene& scene, Point p, double distance);

// An arrowhead on a stroke.
struct DirectionMark {
    Point at;
    double direction = 0.0;  // radians
    size_t stroke = 0;       // index into PathScene::strokes
};

// Where to mark directions if a unit of the scene is `scale` pixels and `view` is in sight: often enough to follow the
// tool, and not so often that they hide it.
std::vector<DirectionMark> PlaceMarks(const PathScene& scene, double scale, const SceneBox& view);

}  // namespace brindle
