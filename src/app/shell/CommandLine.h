#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace korvane {

/// Returns the text to print instead of starting if "--help", "-h" or "--version" is among the
/// words before "--". All other words are models to open, or ignored.
std::optional<QString> commandLineAnswer(const QStringList& words);

} // namespace korvane
