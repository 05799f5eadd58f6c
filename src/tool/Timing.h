#pragma once

#include <chrono>
#include <vector>

namespace korvane::tool {

/// What times are taken with.
using Clock = std::chrono::steady_clock;

/// How long ago that was, in milliseconds.
double millisecondsSince(Clock::time_point start);

/// Prints the middle one of at least one time, the upper one of two in the middle, as "frame median
/// 1.250 ms" with the name given.
void printMedian(const char* name, std::vector<double> milliseconds);

} // namespace korvane::tool
