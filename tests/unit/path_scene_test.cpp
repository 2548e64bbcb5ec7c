// The scene of a tool path: looks, places, and what is found there.
#include "scene/path_scene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "scene/scene_colors.h"
#include "scene/scene_of_path.h"

namespace brindle {
namespace {

PathElement Piece(PathKind kind, int32_t tool, int32_t number, Point start, Point end, Point center = {},
                  bool clockwise = false) {
    PathElement piece;
    piece.kind = kind;
    piece.tool = tool;
    piece.number = number;
    piece.start = start;
    piece.end = end;
    piece.center = center;
    piece.clockwise = clockwise;
    return piece;
}

// A rapid move from the origin, a line, a half circle, a circle.
ToolPath SmallPath() {
    ToolPath path;
    path.elements = {
        Piece(PathKind::kRapid, 5, 0, {0, 0}, {10, 0}),
        Piece(PathKind::kLine, 5, 1, {10, 0}, {10, 10}),
        Piece(PathKind::kArc, 2, 2, {10, 10}, {0, 10}, {5, 10}, false),
        Piece(PathKind::kArc, 2, 3, {0, 10}, {0, 10}, {-3, 10}, true),
    };
    path.units[0] = path.units[1] = "mm";
    return path;
}

TEST(PathSceneTest, StrokesLieWhereThePiecesLie) {
    const PathScene scene = MakeScene(SmallPath());
    ASSERT_EQ(scene.strokes.size(), 4U);
    EXPECT_EQ(scene.tools, (std::vector<int32_t>{2, 5}));
    EXPECT_EQ(scene.strokes[0].kind, StrokeKind::kRapid);
    EXPECT_EQ(scene.strokes[1].tool, 1);
    struct Row {
        size_t stroke;
        Point middle;
        double direction, length, sweep;
    };
    for (const Row& row : {Row{0, {5, 0}, 0.0, 10.0, 0.0}, Row{1, {10, 5}, kPi / 2, 10.0, 0.0},
                           Row{2, {5, 15}, kPi, 5 * kPi, kPi}, Row{3, {-6, 10}, kPi / 2, 6 * kPi, -2 * kPi}}) {
        const PathStroke& stroke = scene.strokes[row.stroke];
        EXPECT_LT(Distance(stroke.At(0.5), row.middle), 1e-9) << row.stroke;
        EXPECT_NEAR(std::sin(stroke.DirectionAt(0.5) - row.direction), 0.0, 1e-9) << row.stroke;
        EXPECT_GT(std::cos(stroke.DirectionAt(0.5) - row.direction), 0.0) << row.stroke;
        EXPECT_NEAR(stroke.Length(), row.length, 1e-9) << row.stroke;
        EXPECT_NEAR(stroke.sweep, row.sweep, 1e-9) << row.stroke;
    }
    EXPECT_NEAR(scene.bounds.low.x, -6.0, 1e-9);
    EXPECT_NEAR(scene.bounds.high.y, 15.0, 1e-9);
    EXPECT_NEAR(scene.bounds.low.y, 0.0, 1e-9);
}

TEST(PathSceneTest, ShapesKeepTrueWhereAxesDiffer) {
    ToolPath path = SmallPath();
    for (PathElement& piece : path.elements) {
        for (Point* p : {&piece.start, &piece.end, &piece.center}) p->y *= -4.0;
    }
    path.y_ratio = -0.25;
    const PathScene scene = MakeScene(path);
    EXPECT_LT(Distance(scene.strokes[2].At(0.5), {5, 15}), 1e-9);
    EXPECT_EQ(scene.axes[0].words_per_unit, 1.0);
    EXPECT_EQ(scene.axes[1].words_per_unit, -4.0);
}

TEST(PathSceneTest, LeavesOutWhatIsNowhere) {
    ToolPath path = SmallPath();
    path.elements[1].end.x = std::numeric_limits<double>::infinity();
    path.elements[3].center.y = std::nan("");
    const PathScene scene = MakeScene(path);
    ASSERT_EQ(scene.strokes.size(), 2U);
    EXPECT_EQ(scene.strokes[1].element, 2);
    EXPECT_TRUE(std::isfinite(scene.bounds.Width()));
    EXPECT_TRUE(MakeScene({}).bounds.is_empty);
}

TEST(PathSceneTest, FindsTheNearestElement) {
    const PathScene scene = MakeScene(SmallPath());
    struct Row {
        Point at;
        double distance;
        int32_t element;
    };
    const Row rows[] = {
        {{5, 0.4}, 0.5, 0},   {{5, 0.6}, 0.5, -1}, {{10.3, 5}, 0.5, 1}, {{10, -0.4}, 0.5, 1},
        {{5, 15.3}, 0.5, 2},  {{5, 5}, 0.5, -1},   {{5, 10}, 4.0, -1},  // inside the arc, below its ends
        {{-3, 13.2}, 0.5, 3}, {{-3, 10}, 2.9, -1}, {{9, 0.6}, 2.0, 0},  {{9.5, 0.6}, 2.0, 1},
        {{-3, 10}, 3.1, 3},   {{10, 0}, 0.0, 1},  // where a move and a cut meet, the cut
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FindElement(scene, row.at, row.distance), row.element) << row.at.x << "," << row.at.y;
    }
}

TEST(PathSceneTest, KnowsWhereAnElementIs) {
    ToolPath path = SmallPath();
    path.elements.push_back(Piece(PathKind::kLine, 5, 1, {30, -5}, {31, -5}));  // the same text at another call
    const PathScene scene = MakeScene(path);
    const SceneBox box = BoundsOf(scene, 1);
    EXPECT_EQ(box.low.x, 10.0);
    EXPECT_EQ(box.low.y, -5.0);
    EXPECT_EQ(box.high.x, 31.0);
    EXPECT_EQ(box.high.y, 10.0);
    EXPECT_TRUE(BoundsOf(scene, 9).is_empty);
}

TEST(PathSceneTest, MarksFollowTheToolAndLeaveRoom) {
    ToolPath path;
    for (int i = 0; i < 1000; ++i) {  // short facets around a circle of 100 units
        const auto at = [](int step) {
            return Point{100.0 * std::cos(step * kFullTurn / 1000.0), 100.0 * std::sin(step * kFullTurn / 1000.0)};
        };
        path.elements.push_back(Piece(PathKind::kLine, 1, i, at(i), at(i + 1)));
    }
    const PathScene scene = MakeScene(path);
    const std::vector<DirectionMark> marks = PlaceMarks(scene, 1.0, scene.bounds);
    EXPECT_GE(marks.size(), 6U);
    EXPECT_LE(marks.size(), 10U);
    for (const DirectionMark& mark : marks) {
        const double tangent = std::atan2(mark.at.y, mark.at.x) + kPi / 2;
        EXPECT_GT(std::cos(mark.direction - tangent), 0.999);
        EXPECT_NEAR(std::hypot(mark.at.x, mark.at.y), 100.0, 0.01);
    }
    SceneBox right_half;
    right_half.Add(Point{0, -100});
    right_half.Add(Point{100, 100});
    EXPECT_LT(PlaceMarks(scene, 1.0, right_half).size(), marks.size());
    EXPECT_TRUE(PlaceMarks(scene, 0.05, scene.bounds).empty());  // a dot of 10 pixels
}

TEST(PathSceneTest, ColoursOfToolsDifferFromEachOtherAndFromTheGround) {
    const auto apart = [](SceneColor a, SceneColor b) {
        return std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue);
    };
    for (const bool dark : {false, true}) {
        for (size_t i = 0; i < kToolColors; ++i) {
            EXPECT_GT(apart(ToolColor(i, dark), ColorsOn(dark).ground), 200) << i;
            EXPECT_EQ(apart(ToolColor(i, dark), ToolColor(i + kToolColors, dark)), 0);
            EXPECT_LT(ToolWidth(i), ToolWidth(i + kToolColors));
            for (size_t j = 0; j < i; ++j) EXPECT_GT(apart(ToolColor(i, dark), ToolColor(j, dark)), 60) << i << j;
        }
    }
}

}  // namespace
}  // namespace brindle
