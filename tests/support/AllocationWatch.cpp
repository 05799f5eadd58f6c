#include "support/AllocationWatch.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

thread_local bool watching = false;
thread_local std::size_t largestRequest = 0;
thread_local std::size_t untilFailure = 0;
thread_local std::ptrdiff_t bytesKept = 0;

/// Returns true if this request is to fail.
bool fails() {
    return untilFailure > 0 && --untilFailure == 0;
}

} // namespace

// Replaces every form of new whose memory these deletes may receive: the address sanitizer has
// forms of its own and reports a mixed pair.

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    if (watching) {
        largestRequest = std::max(largestRequest, size);
        if (fails()) {
            return nullptr;
        }
    }
    void* memory = std::malloc(std::max<std::size_t>(size, 1));
    bytesKept += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    return memory;
}

void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    bytesKept -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    operator delete(memory);
}

namespace korvane::test {

AllocationWatch::AllocationWatch(std::size_t failing) {
    largestRequest = 0;
    untilFailure = failing;
    bytesKept = 0;
    watching = true;
}

AllocationWatch::~AllocationWatch() {
    watching = false;
}

std::size_t AllocationWatch::largest() const {
    return largestRequest;
}

std::ptrdiff_t AllocationWatch::kept() const {
    return bytesKept;
}

} // namespace korvane::test
