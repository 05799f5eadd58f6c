#pragma once

#include "tool/OutputFile.h"

#include <chrono>
#include <optional>
#include <vector>

namespace korvane::tool {

/// What times are taken with.
using Clock = std::chrono::steady_clock;

/// How long ago that was, in milliseconds.
double millisecondsSince(Clock::time_point start);

/// Prints the middle one of at least one time, the upper one of two in the middle, as "frame median
/// 1.250 ms" with the name given.
void printMedian(const char* name, std::vector<double> milliseconds);

/// Adds the option that repeats the work and times it.
void addRepeatOption(CommandLine& line, const char* description);
/// How often, if that was asked for. Throws WrongCall where the times would mix with a result, or
/// the job is one of several.
std::optional<int> repeatCount(const CommandLine& line, const Job& job);

} // namespace korvane::tool
