#include "check/drawing/line_use.h"

#include "text/message_words.h"

namespace brindle {

std::string LikeFurther(const LineUse& use, std::string_view thing) {
    if (use.count < 2) return {};
    return ", like " + Counted(use.count - 1, "further " + std::string(thing));
}

}  // namespace brindle
