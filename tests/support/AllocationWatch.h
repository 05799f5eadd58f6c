#pragma once

#include <cstddef>

namespace korvane::test {

/// While one lives, the largest single piece of memory that `operator new` is asked for is noted,
/// so that a list that was made too large is seen even where it was never filled. It can also make
/// requests fail. One at a time.
class AllocationWatch {
  public:
    /// The requests from this number (from 1) on, `failing` in all, find no memory.
    explicit AllocationWatch(std::size_t firstFailing = 0, std::size_t failing = 1);
    ~AllocationWatch();
    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;

    /// Bytes, since this watch began.
    [[nodiscard]] std::size_t largest() const;
    /// How many bytes more are in use since then; below 0 if there are fewer.
    [[nodiscard]] std::ptrdiff_t kept() const;
};

} // namespace korvane::test
