#pragma once

#include <cstddef>

namespace korvane::test {

/// While one exists, records the largest single request to `operator new`, which shows an oversized
/// list even if it was never filled. It can also make requests fail. Use one at a time.
class AllocationWatch {
  public:
    /// Makes `failing` requests fail, beginning with this number (from 1).
    explicit AllocationWatch(std::size_t firstFailing = 0, std::size_t failing = 1);
    ~AllocationWatch();
    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;

    /// Returns the largest request in bytes since this watch began.
    [[nodiscard]] std::size_t largest() const;
    /// Returns how many more bytes are in use since then; negative if fewer are.
    [[nodiscard]] std::ptrdiff_t kept() const;
};

} // namespace korvane::test
