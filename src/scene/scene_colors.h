// The colours of a drawn tool path, for a light and for a dark ground.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brindle {

struct SceneColor {
    uint8_t red, green, blue;
};

// What is no tool.
struct SceneColors {
    SceneColor ground;
    SceneColor grid;
    SceneColor rapid;
    SceneColor text;       // legend and axes
    SceneColor highlight;  // laid over the element that is marked, half transparent
};

const SceneColors& ColorsOn(bool dark);

// The colour of the tool at `index` of a scene. Neighbours differ for people who see few colours too; the colours come
// again after kToolColors.
inline constexpr size_t kToolColors = 8;
SceneColor ToolColor(size_t index, bool dark);
// How many times the usual width its strokes have, so that tools of the same colour differ.
double ToolWidth(size_t index);

}  // namespace brindle
