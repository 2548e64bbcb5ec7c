#include "generator/block_numbers.h"

#include "geometry/rounding.h"
#include "text/numbers.h"

namespace brindle {

void BlockNumbers::Reset(const BlockOptions& options) {
    *this = {.on = false, .increment = options.big_increment, .number = options.initial_number};
}

void BlockNumbers::SwitchOn(const CAtDirKeywords& keywords, const BlockOptions& options) {
    on = true;
    if (keywords.HasWord(Keyword::kNormal)) increment = options.big_increment;
    if (keywords.HasWord(Keyword::kSpecial)) increment = options.small_increment;
    if (keywords.HasWord(Keyword::kIncBy)) increment = keywords.IncBy(options.big_increment);
    if (keywords.HasWord(Keyword::kSetTo)) number = TruncateToInt32(keywords.SetTo(0.0));
}

void BlockNumbers::Advance() {
    const int32_t old = number;
    number = TruncateToInt32(RoundToStep(old, increment));
    if (number <= old) number = TruncateToInt32(RoundToStep(WrapAdd(old, increment), increment));
}

void BlockNumbers::Raise() {
    const int32_t rounded = TruncateToInt32(RoundToStep(number, increment));
    number = rounded < number ? WrapAdd(rounded, increment) : rounded;
}

}  // namespace brindle
