#include "scene/scene_of_path.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace brindle {
namespace {

// A character is about so wide, in its height.
constexpr double kCharacterWidth = 0.6;

bool IsSomewhere(Point p) { return std::isfinite(p.x) && std::isfinite(p.y); }

// Counter-clockwise above 0. The same angle at both ends is a full turn.
double SweepOf(const PathStroke& arc, bool clockwise) {
    const auto angle = [&arc](Point p) { return std::atan2(p.y - arc.center.y, p.x - arc.center.x); };
    double turn = angle(arc.end) - angle(arc.start);
    if (clockwise) turn = -turn;
    turn = turn <= 0.0 ? turn + kFullTurn : turn;
    return clockwise ? -turn : turn;
}

class CSceneMaker {
public:
    explicit CSceneMaker(const ToolPath& path) : path_(path) {}

    PathScene Make() {
        CollectTools();
        for (const PathText& text : path_.texts) scene_.texts.push_back({text.text, text.height, text.rotation});
        scene_.strokes.reserve(path_.elements.size());
        for (const PathElement& piece : path_.elements) Add(piece);
        scene_.axes[0] = {1.0 / path_.x_ratio, path_.units[0]};
        scene_.axes[1] = {1.0 / path_.y_ratio, path_.units[1]};
        return std::move(scene_);
    }

private:
    void CollectTools() {
        std::set<int32_t> numbers;
        for (const PathElement& piece : path_.elements) {
            if (piece.kind != PathKind::kRapid) numbers.insert(piece.tool);
        }
        scene_.tools.assign(numbers.begin(), numbers.end());
    }

    int32_t IndexOfTool(int32_t number) const {
        const auto at = std::lower_bound(scene_.tools.begin(), scene_.tools.end(), number);
        return static_cast<int32_t>(at - scene_.tools.begin());
    }

    Point InScene(Point p) const { return {p.x * path_.x_ratio, p.y * path_.y_ratio}; }

    void Add(const PathElement& piece) {
        PathStroke stroke;
        stroke.element = piece.number;
        stroke.text = piece.text;
        stroke.start = InScene(piece.start);
        stroke.end = InScene(piece.end);
        if (piece.kind != PathKind::kRapid) {
            stroke.kind = piece.kind == PathKind::kText ? StrokeKind::kText : StrokeKind::kCut;
            stroke.tool = IndexOfTool(piece.tool);
        }
        if (stroke.kind == StrokeKind::kText) stroke.end = EndOfText(stroke);
        if (piece.kind == PathKind::kArc) {
            stroke.center = InScene(piece.center);
            stroke.sweep = SweepOf(stroke, piece.clockwise);
        }
        if (!IsSomewhere(stroke.start) || !IsSomewhere(stroke.end) || !IsSomewhere(stroke.center)) return;
        scene_.strokes.push_back(stroke);
        scene_.bounds.Add(BoundsOf(stroke));
    }

    Point EndOfText(const PathStroke& stroke) const {
        const SceneText& text = scene_.texts[static_cast<size_t>(stroke.text)];
        const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
        const auto characters = static_cast<double>(text.text.size()) -
                                static_cast<double>(std::count_if(text.text.begin(), text.text.end(), continues));
        const double length = kCharacterWidth * text.height * characters;
        return {stroke.start.x + length * std::cos(text.rotation), stroke.start.y + length * std::sin(text.rotation)};
    }

    const ToolPath& path_;
    PathScene scene_;
};

}  // namespace

PathScene MakeScene(const ToolPath& path) { return CSceneMaker(path).Make(); }

}  // namespace brindle
