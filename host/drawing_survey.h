// A drawing looked through before the library reads it, which drops in silence what it can't use: what is wrong with
// it, line by line, and how much there is of what.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "geometry/plane_math.h"
#include "tuning/options.h"

namespace brindle::host {

// Something that the user should know of. Line 0 stands for the drawing as a whole.
struct DrawingFinding {
    size_t line = 0;
    std::string text;
};

// Lines that have something in common.
struct LineUse {
    size_t first_line = 0;
    size_t count = 0;

    void Add(size_t line) {
        if (count++ == 0) first_line = line;
    }
};

// What the library takes from a drawing. Counts are of records that reach the geometry store.
struct DrawingSurvey {
    size_t nul_line = 0;       // the first line that holds a NUL byte, 0 for none: no drawing has one
    bool has_records = false;  // at least one record is complete: otherwise this is no drawing
    bool inches = false;       // units of the last unit record
    Point corner;              // upper right, millimetres
    size_t lines = 0, arcs = 0, texts = 0, calls = 0, subs = 0;
    std::map<int32_t, LineUse> tools;  // by tool number, of lines and arcs
    std::vector<DrawingFinding>
        findings;  // in order of lines; at most 20 of a kind and a last one that tells how many more
};

// `text` is the whole file.
DrawingSurvey SurveyDrawing(std::string_view text);

// One finding per tool that the drawing uses and `tuning` doesn't know.
std::vector<DrawingFinding> FindUnknownTools(const DrawingSurvey& survey, const CBrindleOpts& tuning);

}  // namespace brindle::host
