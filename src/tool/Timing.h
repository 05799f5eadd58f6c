#pragma once

#include "tool/OutputFile.h"

#include <chrono>
#include <optional>
#include <vector>

namespace korvane::tool {

/// The clock for all measurements.
using Clock = std::chrono::steady_clock;

/// Returns the time since then in milliseconds.
double millisecondsSince(Clock::time_point start);

/// Prints the median of one or more times (of an even number the upper middle one), with this name:
/// "frame median 1.250 ms".
void printMedian(const char* name, std::vector<double> milliseconds);

/// Adds the option that repeats the work and times it.
void addRepeatOption(CommandLine& line, const char* description);
/// Returns the number of repetitions, if given. Throws WrongCall if the job uses a standard stream
/// or is one of several.
std::optional<int> repeatCount(const CommandLine& line, const Job& job);

} // namespace korvane::tool
