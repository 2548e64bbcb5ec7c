// A drawing as all commands load it: read, surveyed, and what is wrong with it reported.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "check/drawing/survey.h"

namespace brindle::host {

// What need not be told.
struct MeantFindings {
    std::vector<Rule> rules;     // findings of these
    std::vector<int32_t> tools;  // those that the machine lacks on purpose
};

struct LoadedDrawing {
    std::string text;  // the whole file
    DrawingSurvey survey;
    size_t losses = 0, warnings = 0;  // that were found
};

// Reads the drawing at `path`, `-` for standard input, and prints what is wrong with it and, unless `tuning` is null,
// what of it the tuning can't do, but for what is meant. Nothing, with a message printed, if it can't be read or is no
// drawing.
std::optional<LoadedDrawing> LoadDrawing(const std::string& path, const CBrindleOpts* tuning,
                                         const MeantFindings& meant = {});

}  // namespace brindle::host
