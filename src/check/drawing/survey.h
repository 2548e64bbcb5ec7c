// A drawing looked through before the library reads it, which drops in silence what it can't use: what is wrong with
// it, line by line, and how much there is of what.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>

#include "check/diagnostics.h"
#include "check/drawing/arcs.h"
#include "check/drawing/line_use.h"
#include "geometry/plane_math.h"
#include "tuning/options.h"

namespace brindle {

// What the library takes from a drawing. Counts are of records that reach the geometry store.
struct DrawingSurvey {
    bool has_records = false;  // at least one record is complete: otherwise this is no drawing
    bool inches = false;       // units of the last unit record
    Point corner;              // upper right, millimetres
    size_t lines = 0, arcs = 0, texts = 0, calls = 0, subs = 0;
    std::map<int32_t, LineUse> tools;  // by tool number, of lines and arcs
    RadiusHabits habits;
};

// Looks through `text`, the whole file, and reports what is wrong with it: one error if it is no drawing, which then
// has no records, otherwise warnings and losses.
DrawingSurvey SurveyDrawing(std::string_view text, CDiagnostics& diagnostics);

// Reports what of the drawing `tuning` can't do: each tool that it neither knows nor marks as unused, and radius words
// of a kind that it can't use.
void CheckPairing(const DrawingSurvey& survey, const CBrindleOpts& tuning, CDiagnostics& diagnostics);

}  // namespace brindle
