// Heap blocks counted: the benchmarks' program replaces the global operator new.
#pragma once

#include <cstddef>

namespace brindle::bench {

struct Allocations {
    size_t count = 0;       // made so far
    size_t bytes_live = 0;  // held now, as the allocator rounds them
};

Allocations AllocationsSoFar();

}  // namespace brindle::bench
