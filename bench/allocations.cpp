#include "allocations.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace brindle::bench {
namespace {

Allocations totals;

}  // namespace

Allocations AllocationsSoFar() { return totals; }

void* Allocate(size_t size) {
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    ++totals.count;
    totals.bytes_live += malloc_usable_size(block);
    return block;
}

void Release(void* block) noexcept {
    totals.bytes_live -= malloc_usable_size(block);
    std::free(block);
}

}  // namespace brindle::bench

void* operator new(size_t size) { return brindle::bench::Allocate(size); }
void* operator new[](size_t size) { return brindle::bench::Allocate(size); }
void operator delete(void* block) noexcept { brindle::bench::Release(block); }
void operator delete[](void* block) noexcept { brindle::bench::Release(block); }
void operator delete(void* block, size_t) noexcept { brindle::bench::Release(block); }
void operator delete[](void* block, size_t) noexcept { brindle::bench::Release(block); }
