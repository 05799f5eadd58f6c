#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace korvane {

/// The text to print in place of starting, if one of the words before "--" asks for it: "--help",
/// "-h" or "--version". All other words are models to open, or ignored.
std::optional<QString> commandLineAnswer(const QStringList& words);

} // namespace korvane
