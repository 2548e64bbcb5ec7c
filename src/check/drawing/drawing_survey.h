// A drawing looked through before the library reads it, which drops in silence what it can't use: what is wrong with
// it, line by line, and how much there is of what.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "check/drawing/drawing_arcs.h"
#include "check/drawing/drawing_findings.h"
#include "geometry/plane_math.h"
#include "tuning/options.h"

namespace brindle {

// What the library takes from a drawing. Counts are of records that reach the geometry store.
struct DrawingSurvey {
    size_t nul_line = 0;       // the first line that holds a NUL byte, 0 for none: no drawing has one
    bool has_records = false;  // at least one record is complete: otherwise this is no drawing
    bool inches = false;       // units of the last unit record
    Point corner;              // upper right, millimetres
    size_t lines = 0, arcs = 0, texts = 0, calls = 0, subs = 0;
    std::map<int32_t, LineUse> tools;      // by tool number, of lines and arcs
    std::vector<DrawingFinding> findings;  // in order of lines, limited for each kind
    RadiusHabits habits;
};

// `text` is the whole file.
DrawingSurvey SurveyDrawing(std::string_view text);

// What of the drawing `tuning` can't do: a finding per tool that it doesn't know, radius words of a kind that
// it can't use.
std::vector<DrawingFinding> FindMisfits(const DrawingSurvey& survey, const CBrindleOpts& tuning);

}  // namespace brindle
