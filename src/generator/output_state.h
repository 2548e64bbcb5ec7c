// What a run has last written, so that modal words can be left out and tool changes noticed.
#pragma once

#include <cstdint>
#include <string>

namespace brindle {

// A last word holds what was last written of its word; empty means that the next one is not suppressed. Both axis words
// being empty also means that the controller's position is unknown.
class CNCOutputState {
public:
    int32_t selected_tool = -1;     // -1 none
    int32_t tool_on = -1;           // -1 unknown, 0 off, 1 on
    int32_t fly_check = -1;         // 1 while the pre-code of fly mode awaits its post-code
    double last_tool_angle = -1.0;  // radians, -1 unknown

    // The last sub-program call's; nothing empties them, not even a new run.
    std::string last_include_rotation, last_include_mirror;

    // Bare numbers, the last two with their sign.
    std::string last_axis1, last_axis2;
    std::string last_centre1, last_centre2;
    std::string last_radius, last_subtended;
    // Code texts.
    std::string last_abs_inc_code, last_units_code, last_interp_code;
    std::string last_tool_rotation;  // number with its sign
    std::string last_speed1, last_speed2;
    std::string last_text_rotation, last_text_height;

    // Empties all last words but those of the last call.
    void ClearModalWords();
    void ClearAxisWords();
    // No tool selected, its state unknown, no last words.
    void ResetOutputState();

    bool PositionUnknown() const { return last_axis1.empty() && last_axis2.empty(); }
};

// Whether `word` is to be written: true unless it repeats the last one. An empty last word never suppresses.
inline bool IsNew(const std::string& last, std::string_view word) { return last.empty() || last != word; }

}  // namespace brindle
