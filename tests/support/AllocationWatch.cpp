#include "support/AllocationWatch.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

thread_local bool watching = false;
thread_local std::size_t largestRequest = 0;

} // namespace

// All other forms of new and delete lead to these by default.

void* operator new(std::size_t size) {
    if (watching) {
        largestRequest = std::max(largestRequest, size);
    }
    if (void* memory = std::malloc(std::max<std::size_t>(size, 1))) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

namespace korvane::test {

AllocationWatch::AllocationWatch() {
    largestRequest = 0;
    watching = true;
}

AllocationWatch::~AllocationWatch() {
    watching = false;
}

std::size_t AllocationWatch::largest() const {
    return largestRequest;
}

} // namespace korvane::test
