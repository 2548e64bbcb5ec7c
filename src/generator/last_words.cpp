#include "generator/last_words.h"

namespace brindle {

void LastWords::Clear() {
    for (std::string* word :
         {&axis[0], &axis[1], &centre[0], &centre[1], &radius, &subtended, &tool_rotation, &speed[0], &speed[1],
          &text_rotation, &text_height, &abs_inc_code, &units_code, &interp_code}) {
        word->clear();
    }
}

}  // namespace brindle
