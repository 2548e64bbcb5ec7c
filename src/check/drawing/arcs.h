// The arcs of a drawing, which say their radius twice: by their points and by a word of its own. The sign of the word
// is the direction; its size, taken as millimetres in every drawing, is the radius that a run prints and reckons with.
#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "cff2/cff2_record.h"
#include "check/diagnostics.h"
#include "check/drawing/line_use.h"
#include "tuning/options.h"

namespace brindle {

// Arcs whose radius word is no radius because the whole drawing writes it so: that matters to some tunings only.
struct RadiusHabits {
    LineUse directions;  // words of 1 or -1
    LineUse inches;      // words in the unit of the drawing
};

// Collects the arcs whose points and radius word don't go together.
class CArcCheck {
public:
    // An arc in the drawing's units, of which `scale` makes millimetres.
    void Add(size_t line, const cff2::Arc& arc, double scale, CDiagnostics& diagnostics);
    // Reports single arcs; a habit that more than half of all arcs share is left to the caller.
    RadiusHabits Report(CDiagnostics& diagnostics) const;

private:
    struct OddWord {
        size_t line;
        double word, radius;           // millimetres
        bool is_direction, is_inches;  // what the word may have been meant as
        bool moves_centre;             // the centre of an open arc beyond 270 degrees follows from the word
    };

    bool IsHabit(size_t count) const { return 2 * count > arcs_; }

    size_t arcs_ = 0, directions_ = 0, inches_ = 0;
    std::vector<OddWord> words_;
};

// Reports what comes of the habits in a run with `tuning`, which cuts with `tools`.
void CheckHabits(const RadiusHabits& habits, const CBrindleOpts& tuning, const std::map<int32_t, LineUse>& tools,
                 CDiagnostics& diagnostics);

}  // namespace brindle
