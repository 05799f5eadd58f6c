#pragma once

#include <chrono>
#include <vector>

namespace korvane::tool {

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start);

/// The middle one of at least one value; the upper one of the two in the middle.
double median(std::vector<double> values);

} // namespace korvane::tool
