#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace korvane {

/// Text of a model as the user sees it. Models hold bytes of unknown origin: UTF-8 where they are
/// valid as that, one character a byte (Latin-1) otherwise.
QString shownText(std::string_view bytes);

/// Text of the user as a model holds it: UTF-8.
std::string modelText(const QString& text);

} // namespace korvane
