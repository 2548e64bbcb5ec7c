#include "scene/scene_colors.h"

namespace brindle {
namespace {

constexpr SceneColors kOnLight{{255, 255, 255}, {232, 234, 237}, {130, 136, 145}, {48, 52, 58}, {255, 190, 0}};
constexpr SceneColors kOnDark{{28, 30, 34}, {54, 58, 64}, {134, 140, 150}, {214, 218, 224}, {255, 220, 70}};

// Colours that stay apart under the usual kinds of colour blindness, in lightness as well as in hue.
constexpr SceneColor kToolsOnLight[kToolColors] = {{0, 114, 178}, {213, 94, 0},   {0, 138, 100}, {190, 80, 150},
                                                   {175, 150, 0}, {60, 160, 215}, {40, 40, 40},  {130, 90, 50}};
constexpr SceneColor kToolsOnDark[kToolColors] = {{86, 180, 233}, {255, 128, 50}, {30, 190, 140},  {225, 140, 190},
                                                  {240, 200, 60}, {90, 130, 255}, {235, 235, 235}, {190, 150, 110}};

}  // namespace

const SceneColors& ColorsOn(bool dark) { return dark ? kOnDark : kOnLight; }

SceneColor ToolColor(size_t index, bool dark) {
    const size_t place = index % kToolColors;
    return dark ? kToolsOnDark[place] : kToolsOnLight[place];
}

double ToolWidth(size_t index) { return 1.0 + 0.7 * static_cast<double>(index / kToolColors % 3); }

}  // namespace brindle
