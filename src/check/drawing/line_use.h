// Lines of a drawing that are reported in one message.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/message_words.h"

namespace brindle {

// Lines that have something in common.
struct LineUse {
    size_t first_line = 0;
    size_t count = 0;

    void Add(size_t line) {
        if (count++ == 0) first_line = line;
    }
};

// `, like 3 further lines` for a message about the first of 4; empty for a single one.
inline std::string LikeFurther(const LineUse& use, std::string_view thing) {
    return use.count < 2 ? "" : ", like " + Counted(use.count - 1, "further " + std::string(thing));
}

}  // namespace brindle
