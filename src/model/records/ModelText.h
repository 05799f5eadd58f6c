#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace korvane {

/// Converts text of a model for display. Models hold bytes of unknown encoding: decoded as UTF-8 if
/// valid, else as Latin-1.
QString shownText(std::string_view bytes);

/// Converts the user's text for a model: UTF-8.
std::string modelText(const QString& text);

} // namespace korvane
