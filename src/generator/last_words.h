// What was last written of each modal word, by which repeats are left out.
#pragma once

#include <string>
#include <string_view>

namespace brindle {

// An empty last word suppresses nothing. Both axis words being empty also means that the controller's position is
// unknown.
struct LastWords {
    // Numbers without their address.
    std::string axis[2], centre[2], speed[2];
    std::string radius, subtended, tool_rotation, text_rotation, text_height;
    // Code texts.
    std::string abs_inc_code, units_code, interp_code;
    // Of the last sub-program call; nothing empties them, not even a new run.
    std::string call_rotation, call_mirror;
    double tool_angle = -1.0;  // to which a tangential tool was last turned, radians, -1 unknown

    // Empties all words but those of the last call.
    void Clear();
    bool PositionUnknown() const { return axis[0].empty() && axis[1].empty(); }
};

// Whether `word` is to be written: true unless it repeats the last one.
inline bool IsNew(const std::string& last, std::string_view word) { return last.empty() || last != word; }

}  // namespace brindle
