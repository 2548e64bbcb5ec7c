// The numbers of blocks: whether blocks have one, and which comes next.
#pragma once

#include <cstdint>

#include "generator/run_options.h"

namespace brindle {

struct BlockNumbers {
    bool on = false;
    int32_t increment = 0;
    int32_t number = 0;  // of the present block

    // As the tuning wants them at the start of a file: off.
    void Reset(const BlockOptions& options);
    // Carries out @NBlockOn.
    void SwitchOn(const CAtDirKeywords& keywords, const BlockOptions& options);
    // Moves the number up to the next multiple of the increment.
    void Advance();
    // Moves the number to the nearest multiple of the increment, or to the one above that if that is less.
    void Raise();
};

}  // namespace brindle
