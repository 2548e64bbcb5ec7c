// A drawing as all commands load it: read, surveyed, and what is wrong with it found.
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
    std::string path;  // `-` for standard input
    std::string text;  // the whole file
    DrawingSurvey survey;
    CDiagnostics findings;  // what is wrong with it
    CDiagnostics pairing;   // what of it the tuning can't do
};

// Reads the drawing at `path`, `-` for standard input, and finds what is wrong with it and, unless `tuning` is null,
// what of it the tuning can't do, but for what is meant. Nothing, with a message printed, if it can't be read or is no
// drawing. `text` is what has been read of it already.
std::optional<LoadedDrawing> LoadDrawing(const std::string& path, const CBrindleOpts* tuning,
                                         const MeantFindings& meant = {}, std::optional<std::string> text = {});

// Tells what is wrong with it.
void TellOfDrawing(LoadedDrawing& drawing);

}  // namespace brindle::host
