// A drawing as all commands load it: read, surveyed, and what is wrong with it reported.
#pragma once

#include <optional>
#include <string>

#include "check/drawing/survey.h"

namespace brindle::host {

struct LoadedDrawing {
    std::string text;  // the whole file
    DrawingSurvey survey;
    size_t warnings = 0;  // that were printed
};

// Reads the drawing at `path`, `-` for standard input, and prints what is wrong with it and, unless `tuning` is null,
// what of it the tuning can't do. Nothing, with a message printed, if it can't be read or is no drawing.
std::optional<LoadedDrawing> LoadDrawing(const std::string& path, const CBrindleOpts* tuning);

}  // namespace brindle::host
