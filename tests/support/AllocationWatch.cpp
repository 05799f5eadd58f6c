#include "support/AllocationWatch.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

thread_local bool watching = false;
thread_local std::size_t largestRequest = 0;

} // namespace

// Every form whose memory these deletes may get is replaced with them: the address sanitizer brings
// forms of its own and takes a mixed pair for a fault.

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    if (watching) {
        largestRequest = std::max(largestRequest, size);
    }
    return std::malloc(std::max<std::size_t>(size, 1));
}

void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow)) {
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

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
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
