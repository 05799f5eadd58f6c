#pragma once

#include <cstddef>

namespace korvane::test {

/// While one exists, records the largest single request to `operator new`, which shows an oversized
/// list even if it was never filled. It can also make a request fail. Use one at a time.
class AllocationWatch {
  public:
    /// Makes the request with this number (from 1) fail, or none.
    explicit AllocationWatch(std::size_t failing = 0);
    ~AllocationWatch();
    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;

    /// Returns the largest request in bytes since this watch began.
    [[nodiscard]] std::size_t largest() const;
    /// Returns how many more bytes are in use since then; negative if fewer are.
    [[nodiscard]] std::ptrdiff_t kept() const;
};

} // namespace korvane::test
