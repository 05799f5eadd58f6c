#pragma once

#include <QString>

#include <optional>
#include <span>

namespace korvane {

/// The text to print in place of starting, if the one and only argument asks for it: "--help" or
/// "--version". All other arguments are models to open, or ignored.
std::optional<QString> commandLineAnswer(std::span<char*> arguments);

} // namespace korvane
