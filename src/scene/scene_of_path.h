// The path of a run turned into the scene that is drawn.
#pragma once

#include "generator/tool_path.h"
#include "scene/path_scene.h"

namespace brindle {

// The element of a stroke is the number of the path's piece. Pieces that are nowhere, with coordinates that are not
// finite, are left out.
PathScene MakeScene(const ToolPath& path);

}  // namespace brindle
