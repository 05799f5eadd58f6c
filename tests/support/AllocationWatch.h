#pragma once

#include <cstddef>

namespace korvane::test {

/// While one lives, the largest single piece of memory that `operator new` is asked for is noted,
/// so that a list that was made too large is seen even where it was never filled. One at a time.
class AllocationWatch {
  public:
    AllocationWatch();
    ~AllocationWatch();
    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;

    /// Bytes, since this watch began.
    [[nodiscard]] std::size_t largest() const;
};

} // namespace korvane::test
