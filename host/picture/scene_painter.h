// A tool path as a picture: SVG or PNG.
#pragma once

#include <string>

#include "scene/path_scene.h"

namespace brindle::host {

struct PictureStyle {
    int width = 1200;  // pixels
    int height = 900;
    bool dark = false;
    std::string title;
};

// The picture file as its bytes, the same whatever the locale; empty if there is not enough memory for it. The scene
// fills the frame, y up, beside axes in the words of the machine and a legend of the tools.
std::string SvgPicture(const PathScene& scene, const PictureStyle& style);
std::string PngPicture(const PathScene& scene, const PictureStyle& style);

}  // namespace brindle::host
