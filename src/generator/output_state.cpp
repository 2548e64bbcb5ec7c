#include "generator/output_state.h"

namespace brindle {

void CNCOutputState::ClearModalWords() {
    ClearAxisWords();
    for (std::string* word :
         {&last_centre1, &last_centre2, &last_radius, &last_subtended, &last_abs_inc_code, &last_units_code,
          &last_interp_code, &last_tool_rotation, &last_speed1, &last_speed2, &last_text_rotation, &last_text_height}) {
        word->clear();
    }
}

void CNCOutputState::ClearAxisWords() {
    last_axis1.clear();
    last_axis2.clear();
}

void CNCOutputState::ResetOutputState() {
    last_tool_angle = -1.0;
    tool_on = -1;
    selected_tool = -1;
    ClearModalWords();
}

}  // namespace brindle
