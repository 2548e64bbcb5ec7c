#include "abuse/heap.h"

#include <cstdlib>
#include <new>

namespace brindle::abuse {
namespace {

Heap heap;

bool Fails() {
    if (!heap.counting) return false;
    const int64_t since_first = ++heap.requests - heap.first_failure;
    return heap.first_failure > 0 && since_first >= 0 && since_first < heap.failures;
}

void* Allocate(size_t size) {
    void* const block = Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    ++heap.live;
    return block;
}

void Release(void* block) noexcept {
    if (block == nullptr) return;
    --heap.live;
    std::free(block);
}

}  // namespace

Heap& TheHeap() { return heap; }

}  // namespace brindle::abuse

void* operator new(size_t size) { return brindle::abuse::Allocate(size); }
void* operator new[](size_t size) { return brindle::abuse::Allocate(size); }
void operator delete(void* block) noexcept { brindle::abuse::Release(block); }
void operator delete[](void* block) noexcept { brindle::abuse::Release(block); }
void operator delete(void* block, size_t) noexcept { brindle::abuse::Release(block); }
void operator delete[](void* block, size_t) noexcept { brindle::abuse::Release(block); }
