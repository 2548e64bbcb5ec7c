// The heap of the test program: what is allocated through operator new is counted, and can be made to fail.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brindle::abuse {

struct Heap {
    int64_t live = 0;       // blocks held now
    bool counting = false;  // only then are requests counted, and may fail
    int64_t requests = 0;
    int64_t first_failure = 0;  // the number of the request that fails; 0 for none
    int64_t failures = 0;       // so many requests fail from there
};

Heap& TheHeap();

}  // namespace brindle::abuse
